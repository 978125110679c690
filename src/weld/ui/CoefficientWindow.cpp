#include "weld/ui/CoefficientWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "shell/core/AppInfo.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Primitives.h"
#include "shell/ui/GridEditor.h"
#include "shell/ui/ModelCheckLine.h"
#include "shell/ui/QtText.h"
#include "shell/ui/SettingsStore.h"
#include "shell/ui/SolverModelBox.h"
#include "shell/ui/WindowFit.h"
#include "units/core/ImperialText.h"
#include "weld/core/WeldStrength.h"
#include "weld/ui/WeldPictureView.h"

using namespace KeyFilters::KeyCode;
namespace wc = WeldCoefficient;

using weldview::BoldCaption;
using weldview::FromView;

namespace {

const QString kSection = QStringLiteral("FerrolithSetting");
const QString kWeldViewKey = QStringLiteral("WeldView");

}  // namespace

CoefficientWindow::CoefficientWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("CcalculatorFrm"));
    setWindowTitle(FromView(wc::kWindowTitle));
    BuildControls();
    Form_Load();
    Form_Activate();
}

CoefficientWindow::~CoefficientWindow() {
    WeldFlex->disconnect(this);
    CellEditor->removeEventFilter(this);
}

wc::WeldConfigStore& CoefficientWindow::WeldConfigStore() {
    static wc::WeldConfigStore store;
    return store;
}

CoefficientWindow* CoefficientWindow::ShowFor(QWidget* owner) {
    auto* w = owner->findChild<CoefficientWindow*>(QStringLiteral("CcalculatorFrm"));
    if (w == nullptr) w = new CoefficientWindow(owner);
    w->show();
    w->raise();
    w->activateWindow();
    return w;
}

bool CoefficientWindow::Span_Input_Ok(const QString& text) {
    const prim::Variant v = Imperial::Imperial_Value(S(text), "FT");
    return !(v.IsText() && v.text == "*ERROR*");
}

bool CoefficientWindow::RunActive() const { return run_.Active(); }

void CoefficientWindow::BuildControls() {
    WeldView = new QListWidget(this);
    WeldView->setObjectName(QStringLiteral("WeldView"));
    const int icon = fontMetrics().height() * 2;
    WeldView->setIconSize(QSize(icon, icon));
    WeldView->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("Weld Configuration 9")) + icon + 40);

    WeldImage = new WeldImageView(this);
    WeldImage->setObjectName(QStringLiteral("WeldImage"));
    WeldImage->setMinimumSize(fontMetrics().height() * 11, fontMetrics().height() * 10);

    WeldFlex = new CellGrid(0, 1, this);
    WeldFlex->setObjectName(QStringLiteral("WeldFlex"));
    CellEditor = new QLineEdit(this);
    CellEditor->setObjectName(QStringLiteral("EdiTxtA"));
    CellEditor->setFrame(false);
    CellEditor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    CellEditor->setStyleSheet(QStringLiteral("background: #FFFFE8; border: 1px solid #3060C0; padding: 0 4px;"));
    CellEditor->setVisible(false);
    CellEditor->installEventFilter(this);

    WeldStripBox = new QComboBox(this);
    WeldStripBox->setObjectName(QStringLiteral("WeldStripBox"));
    ModelBox = shell::NewSolverModelBox(this);

    run_.BuildControls({[this] { Run_CoefficientIteration(); }, [this] { ApplyControls(); }}, 1.2,
                       QStringLiteral("** 9999.00000    "));
    run_.DisplayBox()->setMinimumHeight(run_.DisplayBox()->fontMetrics().lineSpacing() * 5);
    StatusLine = new QLabel(this);
    StatusLine->setObjectName(QStringLiteral("StatusLine"));
    StatusLine->setFrameShape(QFrame::StyledPanel);
    StatusLine->setMinimumWidth(10);

    auto* gridSide = new QVBoxLayout;
    gridSide->addWidget(WeldFlex, 1);
    auto* choices = new QGridLayout;
    choices->addWidget(BoldCaption(FromView(WeldStrength::kWeldStripLabel), this), 0, 0);
    choices->addWidget(WeldStripBox, 1, 0);
    choices->addWidget(BoldCaption(QStringLiteral("Model"), this), 0, 1);
    choices->addWidget(ModelBox, 1, 1);
    gridSide->addLayout(choices);

    auto* top = new QHBoxLayout;
    top->addWidget(WeldView);
    top->addWidget(WeldImage, 1);
    top->addLayout(gridSide, 1);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(run_.StartButton());
    buttons->addWidget(run_.StopButton());
    buttons->addWidget(run_.ClearButton());
    buttons->addStretch(1);
    sheetButtons_ = sheetui::Make_SheetButtons(this, [this]() -> sheetui::Maker {
        if (!last_) return {};
        if (!last_->Other) last_->Other = weld::Other_Coefficient(last_->Config, last_->Options);
        return [this](const sheet::TitleBlock& t) { return weld::Coefficient_Sheet(*last_, t, appinfo::kVersion); };
    });


    auto* result = new QVBoxLayout;
    result->addWidget(BoldCaption(FromView(wc::kResultCaption), this));
    result->addWidget(run_.Result());
    result->addWidget(run_.Check());
    result->addStretch(1);
    // Side by side under the result, so that the window keeps its height.
    auto* sheetRow = new QHBoxLayout;
    sheetRow->addWidget(sheetButtons_.Pdf);
    sheetRow->addWidget(sheetButtons_.Print);
    result->addLayout(sheetRow);

    auto* bottom = new QHBoxLayout;
    bottom->addLayout(buttons);
    auto* display = new QVBoxLayout;
    display->addWidget(run_.DisplayBox(), 1);
    display->addWidget(run_.Elapsed());
    bottom->addLayout(display, 1);
    bottom->addLayout(result);

    auto* main = new QVBoxLayout(this);
    main->setContentsMargins(10, 10, 10, 6);
    main->addLayout(top, 3);
    main->addLayout(bottom, 2);
    main->addWidget(StatusLine);

    connect(WeldView, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) WeldView_ItemClick(row + 1);
    });
    connect(WeldView, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { WeldView_ItemClick(WeldView->row(item) + 1); });
    connect(WeldFlex, &CellGrid::LeaveCell, this, [this](int, int) { WeldFlex_LeaveCell(); });
    connect(WeldFlex, &CellGrid::GotFocus, this, &CoefficientWindow::WeldFlex_LeaveCell);
    connect(WeldFlex, &CellGrid::KeyDown, this, &CoefficientWindow::WeldFlex_KeyDown);
    connect(WeldFlex, &CellGrid::KeyPress, this, &CoefficientWindow::WeldFlex_KeyPress);
    connect(WeldFlex, &CellGrid::DblClick, this, &CoefficientWindow::WeldFlex_DblClick);
    connect(WeldFlex, &CellGrid::Scroll, this, &CoefficientWindow::WeldFlex_Scroll);
    connect(CellEditor, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (Span_Input_Ok(text)) CellBackup = text;
    });
}

void CoefficientWindow::Initialize_WeldRoutines() {
    Initialize_WeldView();
    Initialize_WeldStripBox();
    Initialize_WeldFlex();
}

void CoefficientWindow::Initialize_WeldView() {
    const qreal dpr = devicePixelRatioF();
    for (int n = 1; n <= wc::kConfigs; ++n) {
        auto* item = new QListWidgetItem(WeldConfigIcon(static_cast<int16_t>(n), WeldView->iconSize().width(), dpr),
                                         Q(wc::ItemText(n)), WeldView);
        item->setData(Qt::UserRole, QStringLiteral("weld%1").arg(n));
    }
}

void CoefficientWindow::Initialize_WeldStripBox() {
    for (std::string_view item : WeldStrength::kWeldStripItems) WeldStripBox->addItem(FromView(item));
}

void CoefficientWindow::Initialize_WeldFlex() {
    WeldFlex->SetCols(2);
    WeldFlex->SetRows(wc::kRows);
    const QFontMetrics fm(WeldFlex->font());
    int labelWidth = 0;
    for (int r = 0; r < wc::kRows; ++r) {
        WeldFlex->SetTextMatrix(r, 0, FromView(wc::kRowLabels[r]));
        labelWidth = std::max(labelWidth, fm.horizontalAdvance(FromView(wc::kRowLabels[r])));
        WeldFlex->Cell(r, 1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    WeldFlex->setColumnWidth(0, labelWidth + 16);
    WeldFlex->horizontalHeader()->setStretchLastSection(true);
    WeldFlex->SetRowHeightAll(fm.height() + 8);
    WeldFlex->setMinimumWidth(labelWidth + 16 + fm.horizontalAdvance(QStringLiteral("             Midpoint")) + 12);
    WeldFlex->setMinimumHeight(wc::kRows * (fm.height() + 8) + 2 * WeldFlex->frameWidth());
    WeldFlex->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    WeldFlex->setCurrentCell(0, 1);
}

void CoefficientWindow::Form_Load() {
    WeldLoading = true;
    Initialize_WeldRoutines();
    const int strip = settings::GetSettingInt(settings::ProgramTitle(), kSection,
                                              FromView(WeldStrength::kWeldStripSetting.key),
                                              WeldStrength::kWeldStripSetting.defaultValue);
    const int stripIndex = static_cast<int>(WeldStrength::ClampSaved(WeldStrength::kWeldStripSetting, strip));
    if (stripIndex >= 0 && stripIndex < WeldStripBox->count()) WeldStripBox->setCurrentIndex(stripIndex);
    const int view = static_cast<int>(
        shell::MinOf({9.0, static_cast<double>(settings::GetSettingInt(settings::ProgramTitle(), kSection, kWeldViewKey, 1))}));
    if (view >= 1 && view <= wc::kConfigs) WeldView->setCurrentRow(view - 1);
    Update_Centroids();
    Update_WeldImage();
    WeldLoading = false;

    // Open at a size that fits the screen, with room for the grid to grow.
    shell::FitToScreen(this);
}

void CoefficientWindow::Form_Activate() {
    run_.Control().Activate();
    ApplyControls();
}

void CoefficientWindow::ApplyControls() {
    run_.ApplyButtons();
    const RunControl::Controls& c = run_.Control().State();
    for (QWidget* w : std::initializer_list<QWidget*>{WeldStripBox, WeldFlex, WeldView, ModelBox})
        w->setEnabled(!c.InputsLocked);
    sheetButtons_.SetEnabled(last_.has_value() && !run_.Active());
}

void CoefficientWindow::WeldView_ItemClick(int index) {
    if (index < 1 || index > wc::kConfigs) return;
    setWindowTitle(Q(wc::WindowCaption(wc::ItemText(index))));
    if (!WeldLoading) Save_WeldConfig();
    if (index != WeldViewIndex) WipeResult();
    WeldViewIndex = static_cast<int16_t>(index);
    const wc::ConfigCells& cells = WeldConfigStore()[static_cast<size_t>(index - 1)];
    CellEditor->setVisible(false);
    for (int r = 0; r < wc::kRows; ++r) WeldFlex->SetTextMatrix(r, 1, Q(cells[r]));
    Update_WeldImage();
    Update_Centroids();
}

void CoefficientWindow::Save_WeldConfig() {
    if (WeldViewIndex < 1 || WeldViewIndex > wc::kConfigs) return;
    wc::ConfigCells& cells = WeldConfigStore()[static_cast<size_t>(WeldViewIndex - 1)];
    for (int r = 0; r < wc::kRows; ++r) cells[r] = S(WeldFlex->TextMatrix(r, 1));
}

void CoefficientWindow::Update_WeldImage() {
    // The picture follows the typed proportions; blank cells show a typical shape.
    double k = 0.6, a = 0.5, angle = 0.0;
    const double L = prim::Val(S(WeldFlex->TextMatrix(0, 1)));
    if (L > 0 && !WeldFlex->TextMatrix(1, 1).trimmed().isEmpty()) k = prim::Val(S(WeldFlex->TextMatrix(1, 1))) / L;
    if (L > 0 && !WeldFlex->TextMatrix(2, 1).trimmed().isEmpty()) a = prim::Val(S(WeldFlex->TextMatrix(2, 1))) / L;
    if (!WeldFlex->TextMatrix(3, 1).trimmed().isEmpty()) angle = prim::Val(S(WeldFlex->TextMatrix(3, 1)));
    WeldImage->SetPicture(WeldPicture::Picture(WeldViewIndex, k, a, angle));
}

void CoefficientWindow::Update_Centroids() {
    const wc::CentroidRows rows =
        wc::Update_Centroids(WeldViewIndex, S(WeldFlex->TextMatrix(0, 1)), S(WeldFlex->TextMatrix(1, 1)));
    WeldFlex->SetTextMatrix(4, 1, Q(rows.xL));
    WeldFlex->SetTextMatrix(5, 1, Q(rows.yL));
}

void CoefficientWindow::FormatCell(QLineEdit* box) { box->setText(Q(wc::CellText(S(box->text())))); }

void CoefficientWindow::ShowStatus(const QString& text) { StatusLine->setText(text); }

// ---- Run control ------------------------------------------------------------

void CoefficientWindow::WipeResult() {
    WeldImage->ClearResults();
    run_.Result()->clear();
    run_.Check()->Clear();
    run_.DisplayBox()->clear();
    run_.Elapsed()->clear();
    last_.reset();
    run_.ClearClick();
}

void CoefficientWindow::Run_CoefficientIteration() {
    QPointer<CoefficientWindow> self(this);
    weld::SolveOptions options;
    WeldStrength::SegmentsPerInchOf(WeldStripBox->currentIndex(), options.SegmentsPerInch);
    options.Model = shell::SolverModelOf(ModelBox);
    options.WithForces = true;
    wc::ConfigCells cells;
    for (int r = 0; r < wc::kRows; ++r) cells[r] = S(WeldFlex->TextMatrix(r, 1));
    if (!wc::InputsComplete(cells)) {
        QMessageBox box(QMessageBox::Critical, QStringLiteral("Warning:"), FromView(wc::kIncompleteInput),
                        QMessageBox::Ok, this);
        box.exec();
        if (self) Form_Activate();
        return;
    }
    const weld::StandardConfig config{WeldViewIndex, prim::Val(cells[0]), prim::Val(cells[1]), prim::Val(cells[2]),
                                      prim::Val(cells[3])};
    ShowStatus(Q(wc::ImpossibleReason(WeldViewIndex, config.L, WeldViewIndex == 1 ? 0.0 : config.kL)));

    run_.BeginRun();
    last_.reset();
    WeldImage->ClearResults();
    const auto result = run_.Run([&](weld::WeldRunState& state, const weld::WeldRunHooks& hooks) {
        return weld::Solve(config, options, state, hooks);
    });
    if (!result) return;
    // The picture shows the center and forces where the run ended.
    WeldImage->SetResults(*result, config.L);
    const RunControl::RunEnding ending = run_.EndRun(*result, result->Value);
    // A run with no value to show says why in the status line as well.
    if (!ending.ShowsValue) ShowStatus(Q(RunControl::ForWidget(prim::Trim(ending.Text))));
    if (!ending.Converged) return;
    last_ = weld::CoefficientRun{config, options, *result, std::nullopt};
    ApplyControls();
    // C of the same shape and load by the model it is checked against.
    if (auto check = weld::CrossCheck(config, options))
        run_.Check()->Check(result->Value, std::move(check), QString(), 5);
}

// ---- Grid editing -------------------------------------------------------------

bool CoefficientWindow::EditableCell() const {
    return WeldFlex->Col() == 1 && WeldFlex->Row() >= 0 && WeldFlex->Row() < wc::kInputRows &&
           run_.ClearButton()->isEnabled();
}

void CoefficientWindow::OpenEditor(int16_t key, bool takeKey) {
    editRow_ = WeldFlex->Row();
    GridEditor::Flex_OpenEditor(WeldFlex, CellEditor, key, takeKey);
}

void CoefficientWindow::WeldFlex_LeaveCell() {
    if (closingEdit_) return;
    closingEdit_ = true;
    if (CellEditor->isVisible() && editRow_ >= 0 && editRow_ < wc::kInputRows) {
        FormatCell(CellEditor);
        WeldFlex->SetTextMatrix(editRow_, 1, CellEditor->text());
        if (CellEditor->hasFocus()) WeldFlex->setFocus();
        CellEditor->setVisible(false);
    }
    closingEdit_ = false;
    Update_Centroids();
    Update_WeldImage();
}

void CoefficientWindow::WeldFlex_KeyDown(int16_t keyCode, int, bool& handled) {
    if (!EditableCell()) return;
    if (keyCode == Delete) {
        handled = true;
        WeldFlex->SetTextMatrix(WeldFlex->Row(), 1, QString());
        CellEditor->setText(QString());
    } else if (keyCode == F2) {
        handled = true;
        OpenEditor(Space, true);
    }
}

void CoefficientWindow::WeldFlex_KeyPress(int16_t key) {
    if (key == Esc || !EditableCell()) return;
    if (KeyFilters::Key_PositiveDecimal(key) != 0) OpenEditor(key, true);
}

void CoefficientWindow::WeldFlex_DblClick() {
    if (EditableCell()) OpenEditor(Space, true);
}

void CoefficientWindow::WeldFlex_Scroll() {
    if (CellEditor->isVisible() && WeldFlex->Col() == 1 && editRow_ < wc::kInputRows)
        GridEditor::Flex_OpenEditor(WeldFlex, CellEditor, 0, false);
}

bool CoefficientWindow::CellEditor_KeyDown(QKeyEvent* event) {
    const int shift = static_cast<int>(event->modifiers());
    const bool changed = wc::ChangedAtThreeDecimals(S(CellEditor->text()), S(WeldFlex->TextMatrix(editRow_, 1)));
    auto leave = [&](int16_t how) {
        GridEditor::Flex_LeaveEditor(WeldFlex, CellEditor, how, shift, [this] { WeldFlex_LeaveCell(); });
        if (changed && how != Esc) WipeResult();
        if (how == Tab || how == Enter) WeldFlex_LeaveCell();
    };
    return GridEditor::Editor_KeyDown(
        event, CellEditor, [this] { FormatCell(CellEditor); }, leave,
        [this](int16_t ch) { return GridEditor::Key_SignedDecimal(ch, CellEditor); });
}

bool CoefficientWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == CellEditor) {
        if (event->type() == QEvent::KeyPress) return CellEditor_KeyDown(static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::FocusIn) CellEditor->setCursorPosition(CellEditor->text().size());
        if (event->type() == QEvent::FocusOut) {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) WeldFlex_LeaveCell();
        }
    }
    return QWidget::eventFilter(watched, event);
}

// ---- Closing --------------------------------------------------------------------

bool CoefficientWindow::Form_QueryUnload() {
    Save_WeldConfig();
    settings::SaveSetting(settings::ProgramTitle(), kSection, FromView(WeldStrength::kWeldStripSetting.key),
                          QString::number(WeldStripBox->currentIndex()));
    settings::SaveSetting(settings::ProgramTitle(), kSection, kWeldViewKey, QString::number(WeldViewIndex));
    return run_.ConfirmClose();
}

void CoefficientWindow::closeEvent(QCloseEvent* event) {
    if (!Form_QueryUnload()) {
        event->ignore();
        return;
    }
    setObjectName(QString());  // a new request opens a new window
    if (run_.DeferClose(event)) return;
    event->accept();
    deleteLater();
}
