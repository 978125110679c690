// The main window: menus, mode bar, tool buttons, command area and status
// bar around the drawing board. The board's state and procedures live in
// BoardState::Board; this form forwards events to it and copies what it
// shows to the controls. It owns the layout document.
#pragma once

#include <QList>
#include <QMainWindow>
#include <functional>
#include <memory>
#include <vector>

#include "board/core/BoardMessages.h"
#include "board/core/BoardState.h"
#include "board/core/CalculationDisplay.h"
#include "board/core/LayoutFile.h"
#include "board/core/LayoutDocument.h"
#include "board/ui/CapacityWindow.h"
#include "bolt/core/BoltRowsFile.h"
#include "calc/core/CalculatorState.h"
#include "shell/ui/RunPump.h"

class QAction;
class SingleInstance;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QToolBar;
class BoardSurface;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // `commandLine` is the document path as the shell handed it ("" for none).
    explicit MainWindow(QWidget* parent = nullptr, const QString& commandLine = QString());
    ~MainWindow() override;

    QAction* action(const QString& objectName) const;
    QMenu* menu(const QString& objectName) const;

    // ---- What later tools build on ----------------------------------------------
    Layout::LayoutDocument& Document() { return doc_; }
    // The program's claim on the one calculator per user; a copy that does
    // not hold it hands the calculator over to the copy that does.
    void SetCalculatorGuard(SingleInstance* guard) { calcGuard_ = guard; }
    BoardState::Board& Board() { return *board_; }
    BoardSurface& Surface() { return *DrawingBoard; }
    const QString& FileName() const { return FileName_; }
    // The working display drawn anew (lines, crossings, dimensions).
    void RepaintBoard(bool showSelection = true);
    // Copies the board's prompt, captions, pointer and marks to the controls.
    void SyncUi();
    // Focus to the command box when it takes input.
    void FocusCommandBox();
    // Set by a window that edits the drawing behind the board's back (the
    // line data dialog); the board is repainted when it is active again.
    bool Board_Changed = false;

    // ---- Document commands ---------------------------------------------------------
    void mnuFile_Click();
    void mnuFileNew_Click();
    void mnuOpenData_Click();
    void mnuSaveData_Click();
    void mnuSaveAs_Click();
    void mnuRecDocs_Click(const QString& path);
    void ClearButton_Click();
    void ClearDimButton_Click();
    // DXF drawings in and out (MainWindowDxf.cpp). An import is one step of
    // the undo history; false when it changed nothing.
    void mnuImportDxf_Click();
    bool Import_Dxf(const QString& path);
    void mnuExportDxf_Click();
    // The calculation sheet of the last converged capacity run, while the
    // layout and load are still those it was run on.
    bool Sheet_Available() const;
    void mnuSheet_Click(bool print);

protected:
    void closeEvent(QCloseEvent* e) override;
    void changeEvent(QEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The board's pointer events; a release may make a click as well.
    void Board_MouseDown(int button, bool shift, double x, double y);
    void Board_MouseMove(int buttons, bool shift, double x, double y);
    void Board_MouseUp(int button, bool shift, double x, double y, bool click);
    void Board_DoubleClick();
    bool Show_Message(const BoardMessages::BoardMessage& m);
    void Show_LineData(int16_t index);
    void CommandBox_Change();
    // A menu entry that types a reply for the user: the letter, then Enter.
    void Type_Reply(const QString& text);
    void PopUp_Menu(const QString& name, double x, double y);
    // Edit > Undo (or Redo, `undo` false): the layout taken back a step.
    void History_Command(bool undo);
    // Ctrl+Z and its kin in the command box edit the text typed there, and
    // reach the layout's history when it holds none.
    bool History_Key(QObject* watched, QEvent* event);
    // A button or menu entry that runs a board command, then shows its outcome.
    std::function<void()> Board_Command(void (BoardState::Board::*command)());

    enum class Answer { Yes, No, Cancel, NothingToAsk };
    QMenu* AddMenu(const QString& name, const QString& caption);
    QAction* AddAction(QMenu* menu, const QString& name, const QString& caption, bool enabled = false);
    void BuildMenus();
    void BuildBoardArea();
    void Clear_Recent_Items();
    int Add_Recent_Item(const QString& path);
    void mnuAbout_Click();

    void Set_Mode(int16_t index);
    void ModeBar_Click(int16_t index);
    void Startup(const QString& commandLine);
    Answer Ask_Save_Changes();
    bool Save_Dialog(bool fromQuestion);  // false when cancelled
    void Write_Layout();
    // Writes the drawing; with askName under a name asked for first (false
    // when cancelled), which becomes a recent file. `then` runs once written.
    bool Save_Layout(bool askName, bool fromQuestion, const std::function<void()>& then = {});
    bool Open_Dialog_File();
    // False, with a message and nothing changed, when the file cannot be read.
    bool Open_Path(const QString& path);
    void Reset_Document();
    void Mark_Saved();
    bool Both_Empty() const;
    void Set_Caption_From_File();
    void Warn(const QString& text, bool stopIcon = true);
    void Warn_Unread(const QString& path, const LayoutFile::LayoutRead& read);

    // ---- The load panel of CALCULATION (MainWindowCalc.cpp) ----------------------
    void BuildLoadParamBox();
    // Copies the texts the calculation display wrote for the two boxes.
    void SyncLoadPanel();
    // Each applies its box to the load and redraws the symbol; false, after
    // a warning, when the box holds no valid value.
    bool EcButton_Click();
    bool RotButton_Click();
    void CalcWeldCapButton_Click();
    void Refuse_LoadInput(QLineEdit* box, const QString& text);
    // The last converged run with its choices, for its sheet; the board
    // knows whether it is still the layout's (Board::Layout_Results).
    std::optional<CapacityWindow::Record> lastCapacity_;

    Layout::LayoutDocument doc_;
    BoardSurface* DrawingBoard = nullptr;
    std::unique_ptr<BoardState::Board> board_;
    // Serves window events from inside a long crossing search.
    shell::ThrottledPump boardPump_;
    QString FileName_ = QStringLiteral("UnNamed.wld");
    int syncedSerial_ = -1;

    QToolBar* ModeBar = nullptr;
    QLabel* CommandName = nullptr;
    QLineEdit* CommandBox = nullptr;
    QLabel* ModeCaption = nullptr;
    QLabel* CoordinatePanel = nullptr;  // the status bar's pointer position
    QLabel* FindingPanel = nullptr;     // ... and what the pointer found

    QCheckBox* OrthoBox = nullptr;
    QCheckBox* PolyBox = nullptr;
    QGroupBox* LoadParamBox = nullptr;
    QList<QRadioButton*> SnapButton;
    QLineEdit* EcInput = nullptr;
    QLineEdit* RotInput = nullptr;
    QPushButton* EcButton = nullptr;
    QPushButton* RotButton = nullptr;
    QPushButton* CalcWeldCapButton = nullptr;
    int syncedEcSerial_ = -1;
    int syncedRotSerial_ = -1;

    QMenu* recentAnchor_ = nullptr;
    QAction* recentSeparator_ = nullptr;
    QList<QAction*> mnuRecDocs_;
    // Rows of the bolt coefficient window, kept for the whole run.
    std::vector<BoltRows::BoltRecord> BoltRecords;
    // The calculator's state: it outlives the calculator window for the run.
    CalculatorState CalcState;
    SingleInstance* calcGuard_ = nullptr;
};
