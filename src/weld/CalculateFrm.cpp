#include "weld/CalculateFrm.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "board/WeldUnitCapacity.h"
#include "shell/AppInfo.h"
#include "shell/QtText.h"
#include "shell/SettingsStore.h"
#include "shell/SolverModelBox.h"
#include "weld/WeldStrength.h"

namespace {

using WeldStrength::SavedIndex;

QString Section() { return QString::fromLatin1(WeldStrength::kSettingsSection.data()); }

QString FromView(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<int>(s.size())); }

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

void Save(const SavedIndex& setting, int16_t value) {
    settings::SaveSetting(settings::ProgramTitle(), Section(), FromView(setting.key),
                          QString::number(value));
}

QLabel* Caption(const QString& text, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
}

}  // namespace

CalculateFrm::CalculateFrm(const PublicVariables::LayoutDocument& doc, QWidget* parent)
    : QDialog(parent), doc_(doc) {
    setObjectName(QStringLiteral("CalculateFrm"));
    setWindowTitle(QStringLiteral("Weld Group Capacity"));
    setSizeGripEnabled(true);
    BuildControls();
    Form_Load();
}

CalculateFrm::~CalculateFrm() {
    // A run still on the stack ends after its pass and finds no window.
    WeldRunWindowGone(*ctx_);
}

void CalculateFrm::ShowModal(const PublicVariables::LayoutDocument& doc, QWidget* parent) {
    auto* frm = new CalculateFrm(doc, parent);
    frm->setAttribute(Qt::WA_DeleteOnClose);
    frm->exec();
}

bool CalculateFrm::RunActive() const { return RunControl::Control::Active(ctx_->run); }

void CalculateFrm::BuildControls() {
    WeldStripBox = new QComboBox(this);
    WeldStripBox->setObjectName(QStringLiteral("WeldStripBox"));
    ElectrodeBox = new QComboBox(this);
    ElectrodeBox->setObjectName(QStringLiteral("ElectrodeBox"));
    SizeBox = new QComboBox(this);
    SizeBox->setObjectName(QStringLiteral("SizeBox"));
    DesignMethodBox = new QComboBox(this);
    DesignMethodBox->setObjectName(QStringLiteral("DesignMethod"));
    ModelBox = shell::NewSolverModelBox(this);

    StartIterationButton = new QPushButton(FromView(RunControl::StartCaption(control_.Window())), this);
    StartIterationButton->setObjectName(QStringLiteral("StartIterationButton"));
    StopIterationButton = new QPushButton(FromView(RunControl::kStopCaption), this);
    StopIterationButton->setObjectName(QStringLiteral("StopIterationButton"));
    ClearDisplayButton = new QPushButton(FromView(RunControl::kClearCaption), this);
    ClearDisplayButton->setObjectName(QStringLiteral("ClearDisplayButton"));
    for (QPushButton* b : {StartIterationButton, StopIterationButton, ClearDisplayButton}) {
        b->setAutoDefault(false);
        b->setMinimumWidth(b->fontMetrics().horizontalAdvance(QStringLiteral("Resume Iteration")) + 32);
    }

    IterationDisplayBox = NewIterationDisplay(this);
    IterationDisplayBox->setMinimumSize(
        IterationDisplayBox->fontMetrics().horizontalAdvance(QStringLiteral(" Reference: AISC Steel Construction ")) + 40,
        IterationDisplayBox->fontMetrics().lineSpacing() * 14);

    ElapsedIndicator = new QLabel(this);
    ElapsedIndicator->setObjectName(QStringLiteral("ElapsedIndicator"));
    ElapsedIndicator->setMinimumWidth(
        ElapsedIndicator->fontMetrics().horizontalAdvance(QStringLiteral("Iteration Elapsed Time  \u00BB   00h:00m:00s ")) + 8);
    MethodLabel = Caption(FromView(WeldStrength::kMethodLabelInitialCaption), this);
    MethodLabel->setObjectName(QStringLiteral("MethodLabel"));
    CBox = new QLineEdit(this);
    CBox->setObjectName(QStringLiteral("CBox"));
    CBox->setReadOnly(true);
    CBox->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont big = CBox->font();
    big.setPointSizeF(big.pointSizeF() * 1.3);
    big.setBold(true);
    CBox->setFont(big);
    CBox->setMinimumWidth(QFontMetrics(big).horizontalAdvance(QStringLiteral("** 99999.00000    ")) + 16);

    auto* choices = new QGridLayout;
    choices->setVerticalSpacing(4);
    int row = 0;
    auto addChoice = [&](std::string_view label, QWidget* box) {
        choices->addWidget(Caption(FromView(label), this), row++, 0);
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
    left->addWidget(StartIterationButton);
    left->addWidget(StopIterationButton);
    left->addWidget(ClearDisplayButton);
    left->addStretch(1);

    auto* right = new QVBoxLayout;
    right->addWidget(IterationDisplayBox, 1);
    right->addWidget(ElapsedIndicator);

    auto* top = new QHBoxLayout;
    top->addLayout(left);
    top->addLayout(right, 1);

    auto* result = new QHBoxLayout;
    result->addWidget(MethodLabel);
    result->addStretch(1);
    result->addWidget(CBox);

    auto* main = new QVBoxLayout(this);
    main->setContentsMargins(12, 12, 12, 12);
    main->addLayout(top, 1);
    main->addLayout(result);

    connect(StartIterationButton, &QPushButton::clicked, this, &CalculateFrm::StartIterationButton_Click);
    connect(StopIterationButton, &QPushButton::clicked, this, &CalculateFrm::StopIterationButton_Click);
    connect(ClearDisplayButton, &QPushButton::clicked, this, &CalculateFrm::ClearDisplayButton_Click);
}

void CalculateFrm::Initialize_WeldBox() {
    Fill(WeldStripBox, WeldStrength::kWeldStripItems);
    Fill(ElectrodeBox, WeldStrength::kElectrodeItems);
    Fill(SizeBox, WeldStrength::kSizeItems);
    Fill(DesignMethodBox, WeldStrength::kDesignMethodItems);
}

void CalculateFrm::Form_Load() {
    Initialize_WeldBox();
    WeldStripBox->setCurrentIndex(-1);
    ElectrodeBox->setCurrentIndex(-1);
    SizeBox->setCurrentIndex(-1);
    DesignMethodBox->setCurrentIndex(-1);
    connect(WeldStripBox, &QComboBox::currentIndexChanged, this, &CalculateFrm::WeldStripBox_Change);
    connect(ElectrodeBox, &QComboBox::currentIndexChanged, this, &CalculateFrm::ElectrodeBox_Change);
    connect(SizeBox, &QComboBox::currentIndexChanged, this, &CalculateFrm::SizeBox_Change);
    connect(DesignMethodBox, &QComboBox::currentIndexChanged, this, &CalculateFrm::DesignMethod_Change);
    ApplySaved(WeldStripBox, WeldStrength::kWeldStripSetting);
    ApplySaved(SizeBox, WeldStrength::kWeldSizeSetting);
    ApplySaved(ElectrodeBox, WeldStrength::kWeldClassSetting);
    ApplySaved(DesignMethodBox, WeldStrength::kDesignMethodSetting);
    ctx_->run.IterationStop = -1;
    ApplyControls();
}

void CalculateFrm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (activated_) return;
    activated_ = true;
    // The run starts from the event loop, once the window is on screen.
    QTimer::singleShot(0, this, &CalculateFrm::Form_Activate);
}

void CalculateFrm::Form_Activate() {
    control_.Form_Activate();
    ApplyControls();
    ClearDisplayWidgets();
    CBox->clear();
    StartIterationButton_Click();
}

void CalculateFrm::ApplyControls() {
    const RunControl::Controls& c = control_.State();
    ApplyRunButtons(c, StartIterationButton, StopIterationButton, ClearDisplayButton);
    WeldStripBox->setEnabled(!c.InputsLocked);
    ModelBox->setEnabled(!c.InputsLocked);
    ElectrodeBox->setEnabled(!c.SizesLocked);
    SizeBox->setEnabled(!c.SizesLocked);
}

void CalculateFrm::StartIterationButton_Click() {
    const auto ctx = ctx_;
    const auto scope = ctx->guard.Enter();
    QPointer<CalculateFrm> self(this);
    control_.BeginStart(ctx->run);
    ApplyControls();
    Run_CapacityIteration();
    if (!self) return;
    control_.EndStart();
    ApplyControls();
}

void CalculateFrm::StopIterationButton_Click() {
    const auto ctx = ctx_;
    const auto scope = ctx->guard.Enter();
    QPointer<CalculateFrm> self(this);
    const RunControl::StopAction action = control_.StopClick(ctx->run);
    ApplyControls();
    if (action != RunControl::StopAction::Resume) return;
    Run_CapacityIteration();
    if (!self) return;
    control_.EndResume();
    ApplyControls();
}

void CalculateFrm::ClearDisplayButton_Click() {
    control_.ClearDisplay(ctx_->run);
    ApplyControls();
    ClearDisplayWidgets();
}

void CalculateFrm::ClearDisplayWidgets() {
    ctx_->display.Clear();
    ctx_->display.ReplaceAll = false;
    IterationDisplayBox->clear();
}

void CalculateFrm::Run_CapacityIteration() {
    const auto ctx = ctx_;
    QPointer<CalculateFrm> self(this);
    WeldFunctions::WeldRunState& run = ctx->run;
    WeldStrength::SegmentsPerInchOf(WeldStripBox->currentIndex(), run.SegmentsPerInch);
    run.IterationStop = 0;
    ClearDisplayWidgets();
    CBox->clear();
    ElapsedIndicator->clear();
    run.DisplayTarget = WeldFunctions::kDisplayCapacity;

    if (shell::SolverModelOf(ModelBox) == shell::SolverModel::AiscElement) {
        // The element model always ends by itself: no passes to show or stop.
        const auto rep = WeldFunctions::Weld_ElementCapacity(1.0, 1.0, doc_, run.SegmentsPerInch);
        using RunControl::ElementOutcome;
        const ElementOutcome outcome = rep.Refused     ? ElementOutcome::Refused
                                       : rep.Converged ? ElementOutcome::Found
                                                       : ElementOutcome::NoEquilibrium;
        UnitCapacity = rep.Capacity;
        ctx->display.Append(RunControl::ElementClosingText(outcome));
        FlushDisplay();
        if (outcome == ElementOutcome::Found)
            SetResultBox(CBox, Q(RunControl::ResultText(UnitCapacity * ElectrodeStrength * WeldSizeInches * MethodFactor, true)),
                    false);
        control_.RunEnded(true);
        run.IterationStop = -1;
        return;
    }

    ctx->pump.BeforePump = [this, self] {
        if (self) FlushDisplay();
    };
    const WeldFunctions::WeldRunHooks hooks = WeldRunHooksOf(*ctx);
    const double unit = WeldFunctions::Weld_UnitCapacity(1.0, 1.0, doc_, run, hooks);
    ctx->pump.BeforePump = nullptr;
    if (!self || ctx->windowGone) return;

    UnitCapacity = unit;
    const double value = UnitCapacity * ElectrodeStrength * WeldSizeInches;
    const bool converged = run.IterationStop == 0;
    ctx->display.Append(RunControl::ClosingText(converged));
    FlushDisplay();
    SetResultBox(CBox, Q(RunControl::ResultText(value * MethodFactor, converged)), !converged);
    control_.RunEnded(converged);
    run.IterationStop = -1;
    ApplyControls();
}

void CalculateFrm::FlushDisplay() { ::FlushDisplay(ctx_->display, IterationDisplayBox, ElapsedIndicator); }

void CalculateFrm::RewriteCapacity() {
    if (CBox->text().trimmed().isEmpty()) return;
    SetResultBox(CBox, Q(WeldStrength::CapacityText(WeldStrength::DisplayedCapacity(ElectrodeStrength, UnitCapacity,
                                                                          WeldSizeInches, MethodFactor))),
            false);
}

void CalculateFrm::WeldStripBox_Change() { WeldStrip = static_cast<int16_t>(WeldStripBox->currentIndex()); }

void CalculateFrm::ElectrodeBox_Change() {
    WeldClass = static_cast<int16_t>(ElectrodeBox->currentIndex());
    WeldStrength::ElectrodeStrengthOf(WeldClass, ElectrodeStrength);
    RewriteCapacity();
    control_.SizeChanged();
    ApplyControls();
}

void CalculateFrm::SizeBox_Change() {
    WeldSize = static_cast<int16_t>(SizeBox->currentIndex());
    WeldStrength::WeldSizeInchesOf(WeldSize, WeldSizeInches);
    RewriteCapacity();
    control_.SizeChanged();
    ApplyControls();
}

void CalculateFrm::DesignMethod_Change() {
    DesignMethod = static_cast<int16_t>(DesignMethodBox->currentIndex());
    std::string caption;
    if (WeldStrength::MethodOf(DesignMethod, MethodFactor, caption)) MethodLabel->setText(Q(caption));
    RewriteCapacity();
}

bool CalculateFrm::Form_QueryUnload() {
    Save(WeldStrength::kWeldStripSetting, WeldStrip);
    Save(WeldStrength::kWeldSizeSetting, WeldSize);
    Save(WeldStrength::kWeldClassSetting, WeldClass);
    Save(WeldStrength::kDesignMethodSetting, DesignMethod);
    if (!RunActive()) return true;
    QMessageBox ask(QMessageBox::Critical, QString::fromLatin1(appinfo::kProgramTitle),
                    FromView(RunControl::kActiveRunQuestion), QMessageBox::Yes | QMessageBox::No, this);
    if (ask.exec() != QMessageBox::Yes) return false;
    ctx_->run.IterationStop = -1;
    return true;
}

// Esc and the title bar's close both go through the closing question.
void CalculateFrm::reject() { close(); }

void CalculateFrm::closeEvent(QCloseEvent* event) {
    if (!Form_QueryUnload()) {
        event->ignore();
        return;
    }
    // A run on the stack ends after its pass; the window goes once it has.
    if (ctx_->guard.DeferClose(event)) return;
    event->accept();
    done(QDialog::Rejected);
}
