// The window "Bolt Group Coefficient": a table of rectangular bolt groups,
// one a row, with C and C' worked out as each edit is committed, a strip that
// repeats the current row, and the rows kept in BoltInputData.dat.
#pragma once

#include <QWidget>
#include <cstdint>
#include <vector>

#include "bolt/core/BoltRowsFile.h"
#include "shell/ui/RunPump.h"
#include "shell/ui/SheetOutput.h"

class CellGrid;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class ResultPictureView;
namespace shell {
class ModelCheckLine;
}

class BoltCoefficientWindow : public QWidget {
    Q_OBJECT
public:
    // `records` is the program's array of bolt rows; it outlives the window.
    explicit BoltCoefficientWindow(std::vector<BoltRows::BoltRecord>& records,
                         QWidget* parent = nullptr);
    ~BoltCoefficientWindow() override;

    // Path of the data file in the program's data folder.
    static QString DataFilePath();

    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
    void Form_Load();
    void Init_CaseGrid();
    void Init_Strips();
    void LoadRecords();
    void SizeGrid();

    void Calculate_C(int row);
    void FormatCell(QLineEdit* edit);
    bool RowHasEntry(int row) const;
    int CountEntries() const;
    void RestoreRow(int row);
    void ShowSelection();
    // The selected row's pattern with the center and the force on each bolt.
    void ShowPattern();
    void CheckRow();
    void StyleDataRow(int row);

    void AddRowButton_Click();
    void RemRowButton_Click();
    void ClearButton_Click();
    void SaveButton_Click();

    void CaseGrid_KeyDown(int16_t keyCode, int shift, bool& handled);
    void CaseGrid_KeyPress(int16_t key);
    void CaseGrid_DblClick();
    void CaseGrid_MouseDown(Qt::MouseButton button);
    void CaseGrid_Scroll();
    void OpenEditor(int16_t key, bool takeKey);
    // Commits the edit box into its cell and works out that row.
    void CloseEdit();
    bool CellEditor_KeyPress(QKeyEvent* event);
    int16_t FilterKey(int col, int16_t key, bool boxIsRefilled) const;
    void ShowMessage(int icon, const QString& title, const QString& text);

    std::vector<BoltRows::BoltRecord>& BoltRecords;
    float Rows = 16.0f;
    bool RowClicked = false;

    CellGrid* CaseGrid = nullptr;    // one bolt group and load a row ("cFlex")
    CellGrid* GroupStrip = nullptr;  // the current row's m, n, sv, sh ("ccFlex")
    CellGrid* LoadStrip = nullptr;   // its ex, angle, C, C' ("xxFlex")
    QLineEdit* CellEditor = nullptr;  // the floating editor over a cell ("EdiTxt")
    QPushButton* SaveButton = nullptr;
    sheetui::SheetButtons sheetButtons_;
    QPushButton* ClearButton = nullptr;
    QPushButton* AddRowButton = nullptr;
    QPushButton* RemRowButton = nullptr;
    QComboBox* ModelBox = nullptr;
    QLabel* StatusLine = nullptr;
    shell::ModelCheckLine* ModelCheck = nullptr;
    ResultPictureView* Pattern = nullptr;
    QString checkedKey_;  // the case the check line shows or is solving
    QSize preferredGrid_;

    int editRow_ = 0;
    int editCol_ = 0;
    bool closingEdit_ = false;

    // Handlers of this window on the stack. A long run serves events from
    // inside a handler, so the window may be closed there; it then goes only
    // once the outermost handler has returned.
    shell::RunGuard guard_{this};
};
