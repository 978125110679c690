// The load panel of the main window in CALCULATION: the eccentricity and the
// angle of the load, and the button that opens the capacity window.
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <functional>

#include "board/ui/MainWindow.h"
#include "shell/ui/SheetOutput.h"
#include "shell/ui/GridEditor.h"
#include "shell/ui/QtText.h"
#include "board/ui/CapacityWindow.h"
#include "board/core/CapacityHandOver.h"

namespace {

// Lets a typed character into a box only when the box's key filter passes it;
// control keys and shortcuts pass untouched. Enter applies the box.
class LoadInputFilter : public QObject {
public:
    using Filter = std::function<int16_t(int16_t, const QLineEdit*)>;
    LoadInputFilter(QLineEdit* box, Filter filter, std::function<void()> enter)
        : QObject(box), box_(box), filter_(std::move(filter)), enter_(std::move(enter)) {
        box->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != box_ || event->type() != QEvent::KeyPress) return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            enter_();
            return true;
        }
        const QString text = key->text();
        if (text.isEmpty() || (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
            return false;
        const char16_t code = text.at(0).unicode();
        if (code < 32 || code == 127) return false;
        return code > 127 || filter_(static_cast<int16_t>(code), box_) == 0;
    }

private:
    QLineEdit* box_;
    Filter filter_;
    std::function<void()> enter_;
};

}  // namespace

void MainWindow::BuildLoadParamBox() {
    auto* grid = new QGridLayout(LoadParamBox);
    auto add = [&](auto* w, const char* name, int row, int col, int span = 1) {
        w->setObjectName(QString::fromLatin1(name));
        grid->addWidget(w, row, col, 1, span);
        return w;
    };
    add(new QLabel(QStringLiteral("Load Eccentricity, ex"), LoadParamBox), "EcLabel", 0, 0, 2);
    EcInput = add(new QLineEdit(LoadParamBox), "EcInput", 1, 0);
    EcButton = add(new QPushButton(QStringLiteral("Apply"), LoadParamBox), "EcButton", 1, 1);
    add(new QLabel(QString::fromUtf8("Load Rotation Angle, \u00D8"), LoadParamBox), "RotLabel", 2, 0, 2);
    RotInput = add(new QLineEdit(LoadParamBox), "RotInput", 3, 0);
    RotButton = add(new QPushButton(QStringLiteral("Apply"), LoadParamBox), "RotButton", 3, 1);
    CalcWeldCapButton =
        add(new QPushButton(QStringLiteral("Calculate Weld Capacity"), LoadParamBox), "CalcWeldCapButton", 4, 0, 2);
    grid->setColumnStretch(0, 1);
    for (QPushButton* b : {EcButton, RotButton}) b->setMaximumWidth(b->fontMetrics().horizontalAdvance("Apply") + 24);

    new LoadInputFilter(EcInput, &GridEditor::Key_Architectural, [this] { EcButton_Click(); });
    new LoadInputFilter(RotInput, &GridEditor::Key_SignedDecimal, [this] { RotButton_Click(); });
    connect(EcButton, &QPushButton::clicked, this, [this] { EcButton_Click(); });
    connect(RotButton, &QPushButton::clicked, this, [this] { RotButton_Click(); });
    connect(CalcWeldCapButton, &QPushButton::clicked, this, &MainWindow::CalcWeldCapButton_Click);
}

void MainWindow::SyncLoadPanel() {
    const CalculationView::CalcState& inputs = board_->Load_Inputs();
    if (inputs.EcSerial != syncedEcSerial_) {
        EcInput->setText(Q(inputs.EcInput));
        syncedEcSerial_ = inputs.EcSerial;
    }
    if (inputs.RotSerial != syncedRotSerial_) {
        RotInput->setText(Q(inputs.RotInput));
        syncedRotSerial_ = inputs.RotSerial;
    }
}

void MainWindow::Refuse_LoadInput(QLineEdit* box, const QString& text) {
    box->setFocus();
    box->selectAll();
    QMessageBox::critical(this, QStringLiteral("Warning:"), text);
}

bool MainWindow::EcButton_Click() {
    if (!board_->Apply_Eccentricity(S(EcInput->text()))) {
        Refuse_LoadInput(EcInput, QStringLiteral("Invalid Length Input !  "));
        return false;
    }
    SyncUi();
    return true;
}

bool MainWindow::RotButton_Click() {
    if (!board_->Apply_Rotation(S(RotInput->text()))) {
        Refuse_LoadInput(RotInput, QStringLiteral("Invalid Angle Input !  "));
        return false;
    }
    SyncUi();
    return true;
}

void MainWindow::CalcWeldCapButton_Click() {
    if (!EcButton_Click() || !RotButton_Click()) return;
    // The capacity window changes nothing on the board: its closing asks for no repaint.
    Board_Changed = false;
    const weld::LoadedGroup group = weld::Layout_Group(doc_);
    const auto run = CapacityWindow::ShowModal(doc_, this, FileName_, [this](const CapacityWindow::Record& r) {
        lastCapacity_ = r;
    });
    if (run) board_->Show_Results(*run, group);
    SyncUi();
    mnuFile_Click();
}

bool MainWindow::Sheet_Available() const {
    return lastCapacity_.has_value() && board_->Layout_Results() != nullptr;
}

void MainWindow::mnuSheet_Click(bool print) {
    if (!Sheet_Available()) return;
    const auto make = [this](const sheet::TitleBlock& t) {
        return CapacityWindow::Sheet_Of(doc_, *lastCapacity_, t, FileName_);
    };
    if (print)
        sheetui::Print(this, make);
    else
        sheetui::Export_Pdf(this, make);
}
