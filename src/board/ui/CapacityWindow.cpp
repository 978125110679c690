#include "board/ui/CapacityWindow.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "board/core/CapacityHandOver.h"
#include "shell/core/AppInfo.h"
#include "shell/ui/SheetOutput.h"
#include "board/core/ResultsOverlay.h"
#include "shell/ui/ResultPictureView.h"
#include "shell/ui/ModelCheckLine.h"
#include "shell/ui/QtText.h"
#include "shell/ui/SettingsStore.h"
#include "shell/ui/SolverModelBox.h"
#include "weld/core/WeldStrength.h"

using weldview::BoldCaption;
using weldview::FromView;

namespace {

using WeldStrength::SavedIndex;

QString Section() { return QString::fromLatin1(WeldStrength::kSettingsSection.data()); }

void Fill(QComboBox* box, const auto& items) {
    for (std::string_view item : items) box->addItem(FromView(item));
}

// A saved list index, clamped from above; a negative one is not clamped and
// cannot be set, so the box keeps what it has.
void ApplySaved(QComboBox* box, const SavedIndex& setting) {
    const int saved = settings::GetSettingInt(settings::ProgramTitle(), Section(),
                                              FromView(setting.key), setting.defaultValue);
    const int index = static_cast<int>(WeldStrength::ClampSaved(setting, saved));
    if (index >= 0 && index < box->count()) box->setCurrentIndex(index);
}

// The board's group as the solver takes it.
ResultPicture::Outline Outline(const Layout::LayoutDocument& doc) {
    ResultPicture::Outline o;
    for (const weld::WeldLineRec& l : weld::Layout_Group(doc).Lines) o.Lines.push_back({l.x1, l.y1, l.x2, l.y2});
    return o;
}

void Save(const SavedIndex& setting, int16_t value) {
    settings::SaveSetting(settings::ProgramTitle(), Section(), FromView(setting.key),
                          QString::number(value));
}

}  // namespace

CapacityWindow::CapacityWindow(const Layout::LayoutDocument& doc, QWidget* parent, const QString& fileName)
    : QDialog(parent), doc_(doc), fileName_(fileName) {
    setObjectName(QStringLiteral("CalculateFrm"));
    setWindowTitle(QStringLiteral("Weld Group Capacity"));
    setSizeGripEnabled(true);
    BuildControls();
    Form_Load();
}

CapacityWindow::~CapacityWindow() = default;

std::optional<weld::SolveResult> CapacityWindow::ShowModal(const Layout::LayoutDocument& doc, QWidget* parent,
                                                           const QString& fileName, RecordFn converged) {
    auto* frm = new CapacityWindow(doc, parent, fileName);
    frm->converged_ = std::move(converged);
    std::optional<weld::SolveResult> last;
    connect(frm, &QDialog::finished, frm, [frm, &last] { last = frm->LastRun(); });
    frm->setAttribute(Qt::WA_DeleteOnClose);
    frm->exec();
    return last;
}

std::optional<weld::SolveResult> CapacityWindow::LastRun() const {
    if (!last_) return std::nullopt;
    weld::SolveResult r = last_->Run.Result;
    const double scale = ShownScale();
    r.Value *= scale;
    for (shell::ElementForce& e : r.Forces) e.Force *= scale;
    return r;
}

bool CapacityWindow::RunActive() const { return run_.Active(); }

void CapacityWindow::BuildControls() {
    WeldStripBox = new QComboBox(this);
    WeldStripBox->setObjectName(QStringLiteral("WeldStripBox"));
    ElectrodeBox = new QComboBox(this);
    ElectrodeBox->setObjectName(QStringLiteral("ElectrodeBox"));
    SizeBox = new QComboBox(this);
    SizeBox->setObjectName(QStringLiteral("SizeBox"));
    DesignMethodBox = new QComboBox(this);
    DesignMethodBox->setObjectName(QStringLiteral("DesignMethod"));
    ModelBox = shell::NewSolverModelBox(this);

    run_.BuildControls({[this] { Run_CapacityIteration(); }, [this] { ApplyControls(); }}, 1.3,
                       QStringLiteral("** 99999.00000    "));
    QPlainTextEdit* display = run_.DisplayBox();
    display->setMinimumSize(
        display->fontMetrics().horizontalAdvance(QStringLiteral(" Reference: AISC Steel Construction ")) + 40,
        display->fontMetrics().lineSpacing() * 14);
    QLabel* elapsed = run_.Elapsed();
    elapsed->setMinimumWidth(
        elapsed->fontMetrics().horizontalAdvance(QStringLiteral("Iteration Elapsed Time  \u00BB   00h:00m:00s ")) + 8);
    MethodLabel = BoldCaption(FromView(WeldStrength::kMethodLabelInitialCaption), this);
    MethodLabel->setObjectName(QStringLiteral("MethodLabel"));

    auto* choices = new QGridLayout;
    choices->setVerticalSpacing(4);
    int row = 0;
    auto addChoice = [&](std::string_view label, QWidget* box) {
        choices->addWidget(BoldCaption(FromView(label), this), row++, 0);
        choices->addWidget(box, row++, 0);
    };
    addChoice(WeldStrength::kWeldStripLabel, WeldStripBox);
    addChoice(WeldStrength::kElectrodeLabel, ElectrodeBox);
    addChoice(WeldStrength::kSizeLabel, SizeBox);
    addChoice(WeldStrength::kDesignMethodLabel, DesignMethodBox);
    addChoice("Model", ModelBox);

    auto* left = new QVBoxLayout;
    left->addLayout(choices);
    left->addSpacing(10);
    left->addWidget(run_.StartButton());
    left->addWidget(run_.StopButton());
    left->addWidget(run_.ClearButton());
    left->addStretch(1);
    // The calculation sheet of the last converged run.
    sheetButtons_ = sheetui::Make_SheetButtons(this, [this]() -> sheetui::Maker {
        if (!last_) return {};
        // The electrode, size and method as the window shows them now.
        last_->Inputs.Electrode = WeldClass;
        last_->Inputs.Size = WeldSize;
        last_->Inputs.Method = DesignMethod;
        return [this](const sheet::TitleBlock& t) { return Sheet_Of(doc_, *last_, t, fileName_); };
    });
    left->addWidget(sheetButtons_.Pdf);
    left->addWidget(sheetButtons_.Print);

    // Beside the display, the group with the center and forces of the run.
    picture_ = new ResultPictureView(this);
    picture_->setMinimumSize(display->minimumHeight(), display->minimumHeight());
    picture_->SetGroup(Outline(doc_), doc_.Load.LoadSide == 0);
    auto* shown = new QHBoxLayout;
    shown->addWidget(display, 1);
    shown->addWidget(picture_, 1);
    auto* right = new QVBoxLayout;
    right->addLayout(shown, 1);
    right->addWidget(elapsed);

    auto* top = new QHBoxLayout;
    top->addLayout(left);
    top->addLayout(right, 1);

    auto* result = new QHBoxLayout;
    result->addWidget(MethodLabel);
    result->addStretch(1);
    result->addWidget(run_.Result());

    auto* main = new QVBoxLayout(this);
    main->setContentsMargins(12, 12, 12, 12);
    main->addLayout(top, 1);
    main->addLayout(result);
    main->addWidget(run_.Check());
}

void CapacityWindow::Initialize_WeldBox() {
    Fill(WeldStripBox, WeldStrength::kWeldStripItems);
    Fill(ElectrodeBox, WeldStrength::kElectrodeItems);
    Fill(SizeBox, WeldStrength::kSizeItems);
    Fill(DesignMethodBox, WeldStrength::kDesignMethodItems);
}

void CapacityWindow::Form_Load() {
    Initialize_WeldBox();
    WeldStripBox->setCurrentIndex(-1);
    ElectrodeBox->setCurrentIndex(-1);
    SizeBox->setCurrentIndex(-1);
    DesignMethodBox->setCurrentIndex(-1);
    connect(WeldStripBox, &QComboBox::currentIndexChanged, this, &CapacityWindow::WeldStripBox_Change);
    connect(ElectrodeBox, &QComboBox::currentIndexChanged, this, &CapacityWindow::ElectrodeBox_Change);
    connect(SizeBox, &QComboBox::currentIndexChanged, this, &CapacityWindow::SizeBox_Change);
    connect(DesignMethodBox, &QComboBox::currentIndexChanged, this, &CapacityWindow::DesignMethod_Change);
    ApplySaved(WeldStripBox, WeldStrength::kWeldStripSetting);
    ApplySaved(SizeBox, WeldStrength::kWeldSizeSetting);
    ApplySaved(ElectrodeBox, WeldStrength::kWeldClassSetting);
    ApplySaved(DesignMethodBox, WeldStrength::kDesignMethodSetting);
    ApplyControls();
}

void CapacityWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (activated_) return;
    activated_ = true;
    // The run starts from the event loop, once the window is on screen.
    QTimer::singleShot(0, this, &CapacityWindow::Form_Activate);
}

void CapacityWindow::Form_Activate() {
    run_.Control().Activate();
    ApplyControls();
    run_.ClearDisplay();
    run_.Result()->clear();
    run_.StartClick();
}

void CapacityWindow::ApplyControls() {
    run_.ApplyButtons();
    const RunControl::Controls& c = run_.Control().State();
    WeldStripBox->setEnabled(!c.InputsLocked);
    ModelBox->setEnabled(!c.InputsLocked);
    ElectrodeBox->setEnabled(!c.SizesLocked);
    SizeBox->setEnabled(!c.SizesLocked);
    sheetButtons_.SetEnabled(last_.has_value() && !run_.Active());
}

sheet::Sheet CapacityWindow::Sheet_Of(const Layout::LayoutDocument& doc, Record& record,
                                      const sheet::TitleBlock& title, const QString& fileName) {
    // The other model once per run; the sheet states it beside the result.
    if (!record.Run.Other) record.Run.Other = capsheet::Other_Model(doc, record.Inputs);
    return capsheet::Capacity_Sheet(doc, record.Inputs, record.Run, title,
                                    S(QFileInfo(fileName.isEmpty() ? QStringLiteral("UnNamed.wld") : fileName).fileName()),
                                    appinfo::kVersion);
}


void CapacityWindow::Run_CapacityIteration() {
    weld::SolveOptions options;
    WeldStrength::SegmentsPerInchOf(WeldStripBox->currentIndex(), options.SegmentsPerInch);
    options.Model = shell::SolverModelOf(ModelBox);
    options.WithForces = true;
    run_.BeginRun();
    last_.reset();
    ApplyControls();
    picture_->ClearResults();
    liveClock_.invalidate();
    const auto result = run_.Run([&](weld::WeldRunState& state, const weld::WeldRunHooks& hooks) {
        weld::WeldRunHooks live = hooks;
        live.Display = [&](const weld::PassShown& pass) {
            if (hooks.Display) hooks.Display(pass);
            Show_Pass(pass);
        };
        return weld::Solve_Layout(doc_, options, state, live);
    });
    if (!result) return;
    // The end of the run as it stands: converged, or frozen where it stopped.
    Show_Record(*result);
    UnitCapacity = result->Value;
    if (!run_.EndRun(*result, UnitCapacity * ShownScale()).Converged) return;
    last_ = Record{{WeldClass, WeldSize, DesignMethod, static_cast<int16_t>(WeldStripBox->currentIndex()), options.Model},
                   {*result, std::nullopt}};
    ApplyControls();
    if (converged_) converged_(*last_);
    // The value of the same group and load by the model it is checked against, in kips as shown.
    if (auto check = weld::CrossCheck(weld::Layout_Group(doc_), options))
        run_.Check()->Check(UnitCapacity, std::move(check), QStringLiteral("kips"), 2, ShownScale());
}

void CapacityWindow::Show_Pass(const weld::PassShown& pass) {
    if (liveClock_.isValid() && liveClock_.elapsed() < 100) return;
    liveClock_.start();
    shell::SolveRecord r;
    r.CenterX = pass.X;
    r.CenterY = pass.Y;
    r.CenterAtInfinity = !pass.Computed;
    if (pass.Forces) r.Forces = pass.Forces();
    Show_Record(std::move(r));
}

void CapacityWindow::Show_Record(shell::SolveRecord record) {
    const double scale = ShownScale();
    for (shell::ElementForce& e : record.Forces) e.Force *= scale;
    picture_->SetResults(record, CalculationView::Results_Labels(record, doc_.Load.LoadSide));
}

double CapacityWindow::ShownScale() const { return ElectrodeStrength * WeldSizeInches * MethodFactor; }

void CapacityWindow::RewriteCapacity() {
    run_.Check()->Rescale(ShownScale());
    if (run_.Result()->text().trimmed().isEmpty()) return;
    SetResultBox(run_.Result(), Q(WeldStrength::CapacityText(WeldStrength::DisplayedCapacity(ElectrodeStrength, UnitCapacity,
                                                                          WeldSizeInches, MethodFactor))),
            false);
}

// A new electrode or weld size rescales the result shown; a stopped run can
// then no longer be resumed.
void CapacityWindow::StrengthChanged() {
    RewriteCapacity();
    run_.Control().SizeChanged();
    ApplyControls();
}

void CapacityWindow::WeldStripBox_Change() { WeldStrip = static_cast<int16_t>(WeldStripBox->currentIndex()); }

void CapacityWindow::ElectrodeBox_Change() {
    WeldClass = static_cast<int16_t>(ElectrodeBox->currentIndex());
    WeldStrength::ElectrodeStrengthOf(WeldClass, ElectrodeStrength);
    StrengthChanged();
}

void CapacityWindow::SizeBox_Change() {
    WeldSize = static_cast<int16_t>(SizeBox->currentIndex());
    WeldStrength::WeldSizeInchesOf(WeldSize, WeldSizeInches);
    StrengthChanged();
}

void CapacityWindow::DesignMethod_Change() {
    DesignMethod = static_cast<int16_t>(DesignMethodBox->currentIndex());
    std::string caption;
    if (WeldStrength::MethodOf(DesignMethod, MethodFactor, caption)) MethodLabel->setText(Q(caption));
    RewriteCapacity();
}

bool CapacityWindow::Form_QueryUnload() {
    Save(WeldStrength::kWeldStripSetting, WeldStrip);
    Save(WeldStrength::kWeldSizeSetting, WeldSize);
    Save(WeldStrength::kWeldClassSetting, WeldClass);
    Save(WeldStrength::kDesignMethodSetting, DesignMethod);
    return run_.ConfirmClose();
}

// Esc and the title bar's close both go through the closing question.
void CapacityWindow::reject() { close(); }

void CapacityWindow::closeEvent(QCloseEvent* event) {
    if (!Form_QueryUnload()) {
        event->ignore();
        return;
    }
    // A run on the stack ends after its pass; the window goes once it has.
    if (run_.DeferClose(event)) return;
    event->accept();
    done(QDialog::Rejected);
}
