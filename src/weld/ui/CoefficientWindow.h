// The window "Weld Group Coefficient Calculator": the coefficient C of one of
// nine standard weld configurations, from a base length, a second length, an
// eccentricity and a load angle typed into a small grid, with the picture of
// the shape and the same run control as the capacity window.
#pragma once

#include <QWidget>

#include <optional>

#include "shell/ui/SheetOutput.h"
#include "weld/core/CoefficientSheet.h"
#include "weld/core/RunControl.h"
#include "weld/core/WeldCoefficient.h"
#include "weld/ui/RunPanel.h"

class CellGrid;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class WeldImageView;

class CoefficientWindow : public QWidget {
    Q_OBJECT
public:
    explicit CoefficientWindow(QWidget* parent = nullptr);
    ~CoefficientWindow() override;

    // The cells of the nine configurations, kept while the program runs.
    static WeldCoefficient::WeldConfigStore& WeldConfigStore();

    // Opens the window, or brings the open one forward.
    static CoefficientWindow* ShowFor(QWidget* owner);

    // Text accepted as a span: anything the feet-and-inch reader takes.
    static bool Span_Input_Ok(const QString& text);

    bool RunActive() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
    void Form_Load();
    void Form_Activate();
    bool Form_QueryUnload();
    void Initialize_WeldRoutines();
    void Initialize_WeldView();
    void Initialize_WeldStripBox();
    void Initialize_WeldFlex();

    void WeldView_ItemClick(int index);
    void Save_WeldConfig();
    void Update_WeldImage();
    void Update_Centroids();
    void FormatCell(QLineEdit* box);

    void Run_CoefficientIteration();
    void WipeResult();
    void ShowStatus(const QString& text);

    void WeldFlex_LeaveCell();
    void WeldFlex_KeyDown(int16_t keyCode, int shift, bool& handled);
    void WeldFlex_KeyPress(int16_t key);
    void WeldFlex_DblClick();
    void WeldFlex_Scroll();
    void OpenEditor(int16_t key, bool takeKey);
    bool CellEditor_KeyDown(QKeyEvent* event);
    bool EditableCell() const;

    void ApplyControls();

    // Run buttons, display, elapsed caption and CBox; Clear Display also
    // empties the elapsed caption here.
    WeldRunPanel run_{this, RunControl::RunWindow::Coefficient, true};

    int16_t WeldViewIndex = 0;
    bool WeldLoading = false;
    QString CellBackup;
    int editRow_ = 0;
    bool closingEdit_ = false;

    QListWidget* WeldView = nullptr;
    WeldImageView* WeldImage = nullptr;
    CellGrid* WeldFlex = nullptr;
    QLineEdit* CellEditor = nullptr;
    QComboBox* WeldStripBox = nullptr;
    QComboBox* ModelBox = nullptr;
    QLabel* StatusLine = nullptr;
    sheetui::SheetButtons sheetButtons_;
    std::optional<weld::CoefficientRun> last_;  // the last converged run, for its sheet
};
