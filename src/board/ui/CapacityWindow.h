// The window "Weld Group Capacity": runs the capacity of the board's weld
// group as soon as it is shown, shows the trial centers as they go by, lets
// the user stop, resume and restart the run, and scales the unit capacity for
// electrode, weld size and design method without a new run.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <optional>

#include <functional>
#include <optional>

#include "board/core/CapacitySheet.h"
#include "board/core/LayoutDocument.h"
#include "shell/ui/SheetOutput.h"
#include "weld/core/RunControl.h"
#include "weld/core/WeldSolve.h"
#include "weld/ui/RunPanel.h"

class QComboBox;
class QLabel;
class QPushButton;
class ResultPictureView;

class CapacityWindow : public QDialog {
    Q_OBJECT
public:
    // The window works on its own copy of the document (lines and load);
    // `fileName` goes at the foot of its calculation sheets.
    CapacityWindow(const Layout::LayoutDocument& doc, QWidget* parent = nullptr, const QString& fileName = QString());
    ~CapacityWindow() override;

    // A converged run with the choices it was made with, for a sheet.
    struct Record {
        capsheet::Inputs Inputs;
        capsheet::Run Run;
    };
    using RecordFn = std::function<void(const Record&)>;

    // Shows the window modally and deletes it when it closes; the run starts
    // as soon as it is shown. `converged` hears of every converged run; gives
    // the last converged run, its capacity and forces in the kips shown when
    // the window closed.
    static std::optional<weld::SolveResult> ShowModal(const Layout::LayoutDocument& doc, QWidget* parent,
                                                      const QString& fileName = QString(), RecordFn converged = {});
    std::optional<weld::SolveResult> LastRun() const;

    // The calculation sheet of the last converged run, with the electrode,
    // size and method chosen now (the other model solved for it).
    static sheet::Sheet Sheet_Of(const Layout::LayoutDocument& doc, Record& record, const sheet::TitleBlock& title,
                                 const QString& fileName);

    // Whether a run is on the stack (tests and the main window's closing).
    bool RunActive() const;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void BuildControls();
    void Initialize_WeldBox();
    void Form_Load();
    void Form_Activate();
    bool Form_QueryUnload();

    void Run_CapacityIteration();

    void WeldStripBox_Change();
    void ElectrodeBox_Change();
    void SizeBox_Change();
    void DesignMethod_Change();
    void RewriteCapacity();
    void StrengthChanged();
    // Electrode strength x weld size x method factor: unit capacity to kips shown.
    double ShownScale() const;

    void ApplyControls();
    // The live picture: a pass at most every 100 ms, and the run's end.
    void Show_Pass(const weld::PassShown& pass);
    void Show_Record(shell::SolveRecord record);

    Layout::LayoutDocument doc_;
    // Run buttons, display, elapsed caption and CBox.
    WeldRunPanel run_{this, RunControl::RunWindow::Capacity, false};

    int16_t WeldStrip = 3;
    int16_t WeldSize = 3;
    int16_t WeldClass = 3;
    int16_t DesignMethod = 0;
    double UnitCapacity = 0.0;
    double MethodFactor = 1.0;
    double WeldSizeInches = 0.25;
    double ElectrodeStrength = 90.0;
    bool activated_ = false;

    QComboBox* WeldStripBox = nullptr;
    QComboBox* ElectrodeBox = nullptr;
    QComboBox* SizeBox = nullptr;
    QComboBox* DesignMethodBox = nullptr;
    QComboBox* ModelBox = nullptr;
    QLabel* MethodLabel = nullptr;
    sheetui::SheetButtons sheetButtons_;
    QString fileName_;
    RecordFn converged_;
    std::optional<Record> last_;  // the last converged run
    ResultPictureView* picture_ = nullptr;
    QElapsedTimer liveClock_;
};
