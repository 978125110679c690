#include "weld/ui/RunPanel.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

#include "shell/core/AppInfo.h"
#include "shell/ui/ModelCheckLine.h"
#include "shell/ui/QtText.h"

using weldview::FromView;

QLabel* weldview::BoldCaption(const QString& text, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
}

namespace {

// The run's hooks: events served through the context's pump, each pass
// written to the context's display buffer. The coefficient window shows the
// coordinates of a concentric load too, where the capacity window says
// they were skipped.
weld::WeldRunHooks WeldRunHooksOf(WeldRunContext& ctx, RunControl::RunWindow kind) {
    weld::WeldRunHooks hooks;
    hooks.Yield = ctx.pump.AsYield();
    weld::WeldRunState* run = &ctx.run;
    RunControl::DisplayBuffer* display = &ctx.display;
    const bool alwaysComputed = kind == RunControl::RunWindow::Coefficient;
    hooks.Display = [run, display, alwaysComputed](const weld::PassShown& p) {
        RunControl::Display_Iteration(*run, *display, p.X, p.Y, p.Divisor, p.Computed || alwaysComputed,
                                      RunControl::Clock::now());
    };
    return hooks;
}

QPushButton* NewButton(std::string_view caption, const char* name, QWidget* parent) {
    auto* b = new QPushButton(FromView(caption), parent);
    b->setObjectName(QLatin1String(name));
    b->setAutoDefault(false);
    // Wide enough for the longer of the stop button's two captions.
    b->setMinimumWidth(b->fontMetrics().horizontalAdvance(FromView(RunControl::kResumeCaption)) + 32);
    return b;
}

}  // namespace

void SetResultBox(QLineEdit* box, const QString& text, bool red) {
    QPalette p = box->palette();
    p.setColor(QPalette::Text, red ? QColor(255, 0, 0) : QColor(0, 0, 0));
    box->setPalette(p);
    box->setText(text);
}

WeldRunPanel::WeldRunPanel(QWidget* window, RunControl::RunWindow kind, bool clearEmptiesElapsed)
    : window_(window),
      clearEmptiesElapsed_(clearEmptiesElapsed),
      ctx_(std::make_shared<WeldRunContext>(window)),
      control_(kind) {}

WeldRunPanel::~WeldRunPanel() {
    ctx_->windowGone = true;
    ctx_->run.IterationStop = true;
    ctx_->pump.BeforePump = nullptr;
}

void WeldRunPanel::BuildControls(Hooks hooks, qreal resultScale, const QString& widestResult) {
    hooks_ = std::move(hooks);
    start_ = NewButton(RunControl::StartCaption(control_.Window()), "StartIterationButton", window_);
    stop_ = NewButton(RunControl::kStopCaption, "StopIterationButton", window_);
    clear_ = NewButton(RunControl::kClearCaption, "ClearDisplayButton", window_);

    display_ = new QPlainTextEdit(window_);
    display_->setObjectName(QStringLiteral("IterationDisplayBox"));
    display_->setReadOnly(true);
    QFont mono(QStringLiteral("Monospace"));
    mono.setStyleHint(QFont::TypeWriter);
    display_->setFont(mono);

    elapsed_ = new QLabel(window_);
    elapsed_->setObjectName(QStringLiteral("ElapsedIndicator"));

    result_ = new QLineEdit(window_);
    result_->setObjectName(QStringLiteral("CBox"));
    result_->setReadOnly(true);
    result_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont big = result_->font();
    big.setPointSizeF(big.pointSizeF() * resultScale);
    big.setBold(true);
    result_->setFont(big);
    result_->setMinimumWidth(QFontMetrics(big).horizontalAdvance(widestResult) + 16);
    check_ = new shell::ModelCheckLine(window_);

    QObject::connect(start_, &QPushButton::clicked, window_, [this] { StartClick(); });
    QObject::connect(stop_, &QPushButton::clicked, window_, [this] { StopClick(); });
    QObject::connect(clear_, &QPushButton::clicked, window_, [this] { ClearClick(); });
}

void WeldRunPanel::ApplyButtons() {
    const RunControl::Controls& c = control_.State();
    stop_->setText(Q(c.StopCaption));
    stop_->setEnabled(c.StopEnabled);
    start_->setEnabled(c.StartEnabled);
    clear_->setEnabled(c.ClearEnabled);
}

// The run serves events, so the window (and this panel with it) may be gone
// when it returns: the context and the window pointer are held locally and
// checked before anything of the panel is touched again (the run hook is
// called through a copy for the same reason).
void WeldRunPanel::StartClick() {
    const auto ctx = ctx_;
    const auto scope = ctx->guard.Enter();
    const QPointer<QWidget> self(window_);
    const auto run = hooks_.Run;
    control_.BeginStart(ctx->run);
    hooks_.ApplyControls();
    run();
    if (!self) return;
    control_.EndStart();
    hooks_.ApplyControls();
}

void WeldRunPanel::StopClick() {
    const auto ctx = ctx_;
    const auto scope = ctx->guard.Enter();
    const QPointer<QWidget> self(window_);
    const RunControl::StopAction action = control_.StopClick(ctx->run);
    hooks_.ApplyControls();
    if (action != RunControl::StopAction::Resume) return;
    const auto run = hooks_.Run;
    run();
    if (!self) return;
    control_.EndResume();
    hooks_.ApplyControls();
}

void WeldRunPanel::ClearClick() {
    control_.ClearDisplay(ctx_->run);
    hooks_.ApplyControls();
    ClearDisplay();
    if (clearEmptiesElapsed_) elapsed_->clear();
}

void WeldRunPanel::ClearDisplay() {
    ctx_->display.Clear();
    ctx_->display.ReplaceAll = false;
    display_->clear();
}

void WeldRunPanel::Flush() {
    RunControl::DisplayBuffer& d = ctx_->display;
    if (d.ReplaceAll) {
        display_->setPlainText(Q(RunControl::ForWidget(d.Pending)));
    } else if (!d.Pending.empty()) {
        display_->moveCursor(QTextCursor::End);
        display_->insertPlainText(Q(RunControl::ForWidget(d.Pending)));
    }
    if (d.ReplaceAll || !d.Pending.empty()) display_->moveCursor(QTextCursor::End);
    d.Pending.clear();
    d.ReplaceAll = false;
    if (d.ElapsedChanged) {
        elapsed_->setText(Q(d.ElapsedCaption));
        d.ElapsedChanged = false;
    }
}

void WeldRunPanel::BeginRun() {
    ctx_->run.IterationStop = false;
    ClearDisplay();
    result_->clear();
    check_->Clear();
    elapsed_->clear();
}

std::optional<weld::SolveResult> WeldRunPanel::Run(const SolveFn& solve) {
    const auto ctx = ctx_;
    const QPointer<QWidget> self(window_);
    ctx->pump.BeforePump = [this, self] {
        if (self) Flush();
    };
    weld::SolveResult result = solve(ctx->run, WeldRunHooksOf(*ctx, control_.Window()));
    ctx->pump.BeforePump = nullptr;
    if (!self || ctx->windowGone) return std::nullopt;
    return result;
}

RunControl::RunEnding WeldRunPanel::EndRun(const weld::SolveResult& result, double shown) {
    const RunControl::RunEnding ending = RunControl::EndingOf(result);
    ctx_->display.Append(ending.Text);
    Flush();
    if (ending.ShowsValue) SetResultBox(result_, Q(RunControl::ResultText(shown, ending.Converged)), !ending.Converged);
    control_.RunEnded(!ending.Resumable);
    ctx_->run.IterationStop = true;
    hooks_.ApplyControls();
    return ending;
}

bool WeldRunPanel::ConfirmClose() {
    if (!Active()) return true;
    QMessageBox ask(QMessageBox::Critical, QString::fromLatin1(appinfo::kProgramTitle),
                    FromView(RunControl::kActiveRunQuestion), QMessageBox::Yes | QMessageBox::No, window_);
    if (ask.exec() != QMessageBox::Yes) return false;
    ctx_->run.IterationStop = true;
    return true;
}

bool WeldRunPanel::DeferClose(QCloseEvent* event) { return ctx_->guard.DeferClose(event); }
