#include "bolt/ui/BoltCoefficientWindow.h"

#include <set>

#include <QApplication>
#include <QItemSelectionModel>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "bolt/core/BoltSheet.h"
#include "bolt/core/BoltSolve.h"
#include "shell/core/AppInfo.h"
#include "shell/core/MathUtil.h"
#include "shell/core/Primitives.h"
#include "shell/ui/GridEditor.h"
#include "shell/ui/ModelCheckLine.h"
#include "shell/ui/QtText.h"
#include "shell/ui/ResultPictureView.h"
#include "shell/ui/RunPump.h"
#include "shell/ui/SettingsStore.h"
#include "shell/ui/SolverModelBox.h"
#include "shell/ui/WindowFit.h"
#include "units/core/ImperialText.h"

using namespace KeyFilters::KeyCode;

namespace {

constexpr int kDataCols = 9;
constexpr float kMinRows = 16.0f;
constexpr int kMaxRows = 32767;

// Grid colours: the heading background, and blue and red text.
const QColor kHeadingBack(0xC0, 0xFF, 0xFF);
const QColor kBlue(0x00, 0x00, 0xFF);
const QColor kRed(0xFF, 0x00, 0x00);

const char* const kHeadings[kDataCols] = {
    "No.",
    "Number of Bolt Rows on the Vertical",
    "Number of Bolt Rows on the Horizontal",
    "Bolt Spacing on the Vertical",
    "Bolt Spacing on the Horizontal",
    "Load Eccentricity",
    "Load Angle from the Vertical [degrees]",
    "Bolt Group Coefficient\n[C]",
    "Bolt Group Coefficient\n[C']",
};

// On a row's C cell: the C shown, at full precision, while it is the C of
// the inputs shown by a model that has a cross-check.
constexpr int kCheckedC = Qt::UserRole;

// The pattern and load of a row. False when m or n is not a whole number that fits.
bool ReadCase(const CellGrid* grid, int row, bolt::BoltPattern& g, bolt::BoltLoad& load) {
    auto val = [&](int col) { return prim::Val(S(grid->TextMatrix(row, col).trimmed())); };
    g.Sv = val(3);
    g.Sh = val(4);
    load.Ex = val(5);
    load.Angle = val(6);
    return prim::ToInt16(val(1), g.M) && prim::ToInt16(val(2), g.N);
}

// Whole grid rows from the window's row count.
int GridRowsOf(float rows) {
    const double r = prim::RoundEven(static_cast<double>(rows));
    return static_cast<int>(std::clamp(r, 2.0, static_cast<double>(kMaxRows)));
}

}  // namespace

BoltCoefficientWindow::BoltCoefficientWindow(std::vector<BoltRows::BoltRecord>& records, QWidget* parent)
    : QWidget(parent, Qt::Window), BoltRecords(records) {
    setObjectName(QStringLiteral("BoltCalcFrm"));
    setWindowTitle(QStringLiteral("Bolt Group Coefficient"));
    BuildControls();
    Form_Load();
}

QString BoltCoefficientWindow::DataFilePath() {
    return settings::DataFolder() + QLatin1Char('/') +
           QString::fromLatin1(BoltRows::kBoltDataFileName);
}

void BoltCoefficientWindow::BuildControls() {
    QFont tahoma(QStringLiteral("Tahoma"));
    tahoma.setPointSizeF(font().pointSizeF());

    auto* heading = new QLabel(QStringLiteral("Eccentrically Loaded Bolt Groups"), this);
    heading->setObjectName(QStringLiteral("HeadingLabel"));
    QFont hf = tahoma;
    hf.setPointSizeF(tahoma.pointSizeF() * 1.45);
    hf.setBold(true);
    heading->setFont(hf);
    heading->setStyleSheet(QStringLiteral("color: #000080;"));

    auto* stripCaption = new QLabel(QStringLiteral("Selected Inputs:"), this);
    stripCaption->setObjectName(QStringLiteral("StripLabel"));
    QFont bold = tahoma;
    bold.setBold(true);
    stripCaption->setFont(bold);

    GroupStrip = new CellGrid(0, 1, this);
    GroupStrip->setObjectName(QStringLiteral("ccFlex"));
    LoadStrip = new CellGrid(0, 1, this);
    LoadStrip->setObjectName(QStringLiteral("xxFlex"));

    SaveButton = new QPushButton(QStringLiteral("Save Entries"), this);
    SaveButton->setObjectName(QStringLiteral("SaveButton"));
    ClearButton = new QPushButton(QStringLiteral("Clear Entries"), this);
    ClearButton->setObjectName(QStringLiteral("ClearButton"));
    AddRowButton = new QPushButton(QStringLiteral("Add Row"), this);
    AddRowButton->setObjectName(QStringLiteral("AddRowButton"));
    RemRowButton = new QPushButton(QStringLiteral("Remove Row"), this);
    RemRowButton->setObjectName(QStringLiteral("RemRowButton"));
    for (QPushButton* b : {SaveButton, ClearButton, AddRowButton, RemRowButton}) b->setFont(tahoma);

    auto* gridCaption = new QLabel(
        QStringLiteral("Tabulated Bolt Data     [See Tables 7-7 to 7-14 of AISC Steel "
                       "Construction Manual - 13th Edition]"),
        this);
    gridCaption->setObjectName(QStringLiteral("GridLabel"));
    gridCaption->setFont(bold);

    CaseGrid = new CellGrid(1, 1, this);
    CaseGrid->setObjectName(QStringLiteral("cFlex"));
    CaseGrid->setFont(tahoma);

    // The floating edit box lies on the same container as the grid.
    CellEditor = new QLineEdit(this);
    CellEditor->setObjectName(QStringLiteral("EdiTxt"));
    CellEditor->setFrame(false);
    CellEditor->setFont(tahoma);
    CellEditor->setStyleSheet(QStringLiteral("background: #FFFFE8; border: 1px solid #3060C0; padding: 0 4px;"));
    CellEditor->setVisible(false);
    CellEditor->installEventFilter(this);

    auto* strip = new QHBoxLayout;
    strip->setSpacing(6);
    strip->addWidget(GroupStrip);
    strip->addWidget(LoadStrip);
    Pattern = new ResultPictureView(this);
    Pattern->setObjectName(QStringLiteral("PatternPicture"));
    Pattern->setMinimumSize(fontMetrics().height() * 16, fontMetrics().height() * 10);
    strip->addWidget(Pattern, 1);
    strip->addStretch(1);

    auto* buttons = new QGridLayout;
    buttons->setHorizontalSpacing(8);
    buttons->setVerticalSpacing(8);
    buttons->addWidget(AddRowButton, 0, 0);
    buttons->addWidget(RemRowButton, 0, 1);
    buttons->addWidget(ClearButton, 1, 0);
    buttons->addWidget(SaveButton, 1, 1);
    // The sheet of the selected rows that have a C (the current row when
    // none is selected).
    sheetButtons_ = sheetui::Make_SheetButtons(this, [this]() -> sheetui::Maker {
        std::set<int> rows;
        for (const QModelIndex& i : CaseGrid->selectionModel()->selectedIndexes())
            if (i.row() >= 1) rows.insert(i.row());
        if (rows.empty()) rows.insert(CaseGrid->Row());
        std::vector<bolt::SheetCase> cases;
        for (int r : rows) {
            bolt::SheetCase c;
            if (r >= 1 && !CaseGrid->TextMatrix(r, 7).trimmed().isEmpty() && ReadCase(CaseGrid, r, c.Pattern, c.Load))
                cases.push_back(c);
        }
        if (cases.empty()) {
            StatusLine->setText(QStringLiteral("Select the rows of the sheet: rows with a C."));
            return {};
        }
        const shell::SolverModel model = shell::SolverModelOf(ModelBox);
        return [cases, model](const sheet::TitleBlock& t) { return bolt::Bolt_Sheet(cases, model, t, appinfo::kVersion); };
    });
    sheetButtons_.SetEnabled(true);
    buttons->addWidget(sheetButtons_.Pdf, 2, 0);
    buttons->addWidget(sheetButtons_.Print, 2, 1);
    for (QPushButton* b : {SaveButton, ClearButton, AddRowButton, RemRowButton})
        b->setMinimumWidth(b->sizeHint().width() + 16);

    auto* top = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addWidget(stripCaption);
    left->addLayout(strip);
    top->addLayout(left);
    top->addStretch(1);
    auto* right = new QVBoxLayout;
    right->addStretch(1);
    right->addLayout(buttons);
    top->addLayout(right);

    ModelBox = shell::NewSolverModelBox(this);
    auto* modelRow = new QHBoxLayout;
    modelRow->addWidget(new QLabel(QStringLiteral("Model"), this));
    modelRow->addWidget(ModelBox, 1);
    right->insertLayout(0, modelRow);

    ModelCheck = new shell::ModelCheckLine(this);
    connect(ModelBox, &QComboBox::currentIndexChanged, this, &BoltCoefficientWindow::CheckRow);

    StatusLine = new QLabel(this);
    StatusLine->setObjectName(QStringLiteral("StatusLine"));
    StatusLine->setFrameShape(QFrame::StyledPanel);

    auto* main = new QVBoxLayout(this);
    main->setContentsMargins(12, 10, 12, 12);
    main->setSpacing(8);
    main->addWidget(heading);
    main->addLayout(top);
    main->addSpacing(4);
    main->addWidget(gridCaption);
    main->addWidget(CaseGrid, 1);
    main->addWidget(ModelCheck);
    main->addWidget(StatusLine);

    connect(AddRowButton, &QPushButton::clicked, this, &BoltCoefficientWindow::AddRowButton_Click);
    connect(RemRowButton, &QPushButton::clicked, this, &BoltCoefficientWindow::RemRowButton_Click);
    connect(ClearButton, &QPushButton::clicked, this, &BoltCoefficientWindow::ClearButton_Click);
    connect(SaveButton, &QPushButton::clicked, this, &BoltCoefficientWindow::SaveButton_Click);

    connect(CaseGrid, &CellGrid::KeyDown, this, &BoltCoefficientWindow::CaseGrid_KeyDown);
    connect(CaseGrid, &CellGrid::KeyPress, this, &BoltCoefficientWindow::CaseGrid_KeyPress);
    connect(CaseGrid, &CellGrid::DblClick, this, &BoltCoefficientWindow::CaseGrid_DblClick);
    connect(CaseGrid, &CellGrid::MouseDown, this, &BoltCoefficientWindow::CaseGrid_MouseDown);
    connect(CaseGrid, &CellGrid::SelChange, this, &BoltCoefficientWindow::ShowSelection);
    connect(CaseGrid, &CellGrid::LeaveCell, this, [this](int, int) { CloseEdit(); });
    connect(CaseGrid, &CellGrid::GotFocus, this, &BoltCoefficientWindow::CloseEdit);
    connect(CaseGrid, &CellGrid::Scroll, this, &BoltCoefficientWindow::CaseGrid_Scroll);
}

void BoltCoefficientWindow::Form_Load() {
    const QString stored = settings::GetSetting(settings::ProgramTitle(),
                                                QStringLiteral("TrussmereSetting"),
                                                QStringLiteral("cFlexRows"), QStringLiteral("16"));
    Rows = static_cast<float>(prim::Val(S(stored)));
    Rows = static_cast<float>(shell::MaxOf({Rows, kMinRows}));
    if (!(Rows <= static_cast<float>(kMaxRows))) Rows = static_cast<float>(kMaxRows);
    RemRowButton->setEnabled(Rows > kMinRows);
    Init_CaseGrid();
    Init_Strips();
    LoadRecords();
    shell::FitToScreen(this);  // as large as the grid wants, within the screen
}

// Room for every column and fifteen rows of the grid.
QSize BoltCoefficientWindow::sizeHint() const {
    const QSize base = QWidget::sizeHint();
    const QSize grid = CaseGrid->sizeHint();
    return base + QSize(std::max(0, preferredGrid_.width() - grid.width()),
                        std::max(0, preferredGrid_.height() - grid.height()));
}

void BoltCoefficientWindow::Init_CaseGrid() {
    CaseGrid->SetCols(kDataCols);
    CaseGrid->SetRows(GridRowsOf(Rows));
    QHeaderView* head = CaseGrid->horizontalHeader();
    head->setDefaultAlignment(Qt::Alignment(static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap)));
    for (int c = 0; c < kDataCols; ++c) {
        QTableWidgetItem* h = CaseGrid->Cell(0, c);
        h->setText(QString::fromUtf8(kHeadings[c]));
        h->setTextAlignment(Qt::Alignment(static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap)));
        h->setBackground(kHeadingBack);
        h->setForeground(c > 6 ? kBlue : kRed);
    }
    for (int r = 1; r < CaseGrid->Rows(); ++r) StyleDataRow(r);
    SizeGrid();
    CaseGrid->setCurrentCell(0, 1);
}

// Widths and heights of the grid's own units (1/1440 inch) at the screen's
// resolution, widened where the font needs more room so nothing is clipped.
void BoltCoefficientWindow::SizeGrid() {
    const double perUnit = logicalDpiY() / 1440.0;
    auto px = [perUnit](int units) { return static_cast<int>(std::lround(units * perUnit)); };
    const QFontMetrics fm(CaseGrid->font());
    QFont headFont = CaseGrid->horizontalHeader()->font();
    const QFontMetrics hm(headFont);

    int colWidth = px(1087);
    // The widest single word of a heading and the widest possible result must fit.
    for (const char* h : kHeadings) {
        for (const QString& w : QString::fromUtf8(h).split(QRegularExpression(QStringLiteral("[ \\n]")))) {
            colWidth = std::max(colWidth, hm.horizontalAdvance(w) + 14);
        }
    }
    colWidth = std::max(colWidth, fm.horizontalAdvance(QStringLiteral("99,999.000  ")) + 10);
    const int numberWidth =
        std::max(px(535), fm.horizontalAdvance(QStringLiteral("No.")) + 16);
    CaseGrid->setColumnWidth(0, numberWidth);
    for (int c = 1; c < kDataCols; ++c) CaseGrid->setColumnWidth(c, colWidth);

    int headHeight = px(952);
    for (int c = 0; c < kDataCols; ++c) {
        const QRect need = hm.boundingRect(QRect(0, 0, CaseGrid->columnWidth(c) - 8, 1000),
                                           Qt::AlignCenter | Qt::TextWordWrap,
                                           CaseGrid->TextMatrix(0, c));
        headHeight = std::max(headHeight, need.height() + 16);
    }
    CaseGrid->horizontalHeader()->setFixedHeight(headHeight);
    const int rowHeight = std::max(px(350), fm.height() + 8);
    CaseGrid->SetRowHeightAll(rowHeight);

    // The grid asks for room for every column and fifteen rows, but makes do
    // with less on a small screen: it scrolls, and grows with the window.
    int width = 2 * CaseGrid->frameWidth() + CaseGrid->verticalScrollBar()->sizeHint().width();
    for (int c = 0; c < kDataCols; ++c) width += CaseGrid->columnWidth(c);
    preferredGrid_ = QSize(width, 2 * CaseGrid->frameWidth() + headHeight + 15 * rowHeight);
    CaseGrid->setMinimumSize(std::min(width, 360), 2 * CaseGrid->frameWidth() + headHeight + 3 * rowHeight);
    CaseGrid->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    CaseGrid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void BoltCoefficientWindow::StyleDataRow(int row) {
    QTableWidgetItem* no = CaseGrid->Cell(row, 0);
    if (no == nullptr) return;
    no->setText(QString::number(row));
    no->setTextAlignment(Qt::AlignCenter);
    no->setForeground(kBlue);
    no->setBackground(kHeadingBack);
    for (int c = 1; c < kDataCols; ++c) {
        QTableWidgetItem* it = CaseGrid->Cell(row, c);
        it->setTextAlignment(c <= 2 ? Qt::AlignCenter : (Qt::AlignRight | Qt::AlignVCenter));
        if (c >= 7) it->setForeground(kBlue);
    }
}

void BoltCoefficientWindow::Init_Strips() {
    const double perUnit = logicalDpiY() / 1440.0;
    auto px = [perUnit](int units) { return static_cast<int>(std::lround(units * perUnit)); };
    const char* const names[2][4] = {{"m", "n", "sv", "sh"}, {"ex", "\u00D8", "C", "C'"}};
    CellGrid* grids[2] = {GroupStrip, LoadStrip};
    for (int g = 0; g < 2; ++g) {
        CellGrid* f = grids[g];
        QFont tahoma = CaseGrid->font();
        f->setFont(tahoma);
        f->SetCols(2);
        f->SetRows(4);
        const QFontMetrics fm(tahoma);
        f->SetRowHeightAll(std::max(px(295), fm.height() + 6));
        f->setColumnWidth(0, std::max(px(700), fm.horizontalAdvance(QStringLiteral("sv")) + 16));
        f->setColumnWidth(1, std::max(px(1060), fm.horizontalAdvance(QStringLiteral("9999 15/16\"   ")) + 8));
        f->setSelectionMode(QAbstractItemView::NoSelection);
        f->setFocusPolicy(Qt::NoFocus);
        f->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        f->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        f->setShowGrid(true);
        for (int r = 0; r < 4; ++r) {
            QTableWidgetItem* h = f->Cell(r, 0);
            h->setText(QString::fromUtf8(names[g][r]));
            h->setTextAlignment(Qt::AlignCenter);
            h->setBackground(kHeadingBack);
            h->setForeground(r >= 2 && g == 1 ? kBlue : kRed);
            QTableWidgetItem* v = f->Cell(r, 1);
            v->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            v->setFlags(Qt::ItemIsEnabled);
        }
        const int w = f->columnWidth(0) + f->columnWidth(1) + 2 * f->frameWidth();
        const int h = 4 * f->rowHeight(0) + 2 * f->frameWidth();
        f->setFixedSize(w, h);
    }
}

void BoltCoefficientWindow::LoadRecords() {
    using BoltRows::ReadResult;
    const ReadResult read = BoltRows::BoltData_Read(BoltRecords, S(DataFilePath()), [this](const std::string& m) {
        ShowMessage(QMessageBox::Critical, QStringLiteral("Warning:"), Q(m));
    });
    // A malformed file leaves the rows the program holds; they are shown.
    if (read != ReadResult::Loaded && read != ReadResult::Malformed) return;
    const int last = CaseGrid->Rows() - 1;
    for (const auto& rec : BoltRecords) {
        if (rec.Row < 1 || rec.Row > last) continue;
        const std::string* texts[8] = {&rec.M, &rec.N, &rec.Sv, &rec.Sh,
                                       &rec.Ex, &rec.Angle, &rec.C, &rec.CPrime};
        for (int c = 1; c <= 8; ++c) CaseGrid->SetTextMatrix(rec.Row, c, Q(*texts[c - 1]));
    }
}

void BoltCoefficientWindow::Calculate_C(int row) {
    if (row < 1 || row >= CaseGrid->Rows()) return;
    CaseGrid->Cell(row, 7)->setData(kCheckedC, QVariant());
    for (int c = 1; c <= 6; ++c) {
        if (CaseGrid->TextMatrix(row, c).trimmed().isEmpty()) {
            CaseGrid->SetTextMatrix(row, 7, QString());
            CaseGrid->SetTextMatrix(row, 8, QString());
            return;
        }
    }
    // A count that does not fit, or a group without bolts, leaves C and C' as
    // they were; the status line says why.
    const QString rowName = QStringLiteral("Row %1: ").arg(row);
    StatusLine->clear();
    bolt::BoltPattern pattern;
    bolt::BoltLoad load;
    if (!ReadCase(CaseGrid, row, pattern, load)) {
        StatusLine->setText(rowName + QStringLiteral("the numbers of bolt rows must be whole numbers up to 32,767."));
        return;
    }
    const bolt::SolveOptions options{shell::SolverModelOf(ModelBox)};
    const bolt::SolveResult cPrime = bolt::Solve(pattern, bolt::kCouple, options);
    // The window stays live during a long run.
    shell::ThrottledPump pump;
    const bolt::SolveResult c = cPrime.Refused ? cPrime : bolt::Solve(pattern, load, options, pump.AsYield());
    if (guard_.ClosePending()) return;
    if (c.Refused) {
        StatusLine->setText(
            rowName +
            QStringLiteral("no bolt group: m and n must both be at least 1, with m × n at most 32,767 bolts."));
        return;
    }
    if (!c.Converged) {
        StatusLine->setText(rowName + QStringLiteral("the AISC element model finds no equilibrium for this load."));
        return;
    }
    CaseGrid->SetTextMatrix(row, 7, Q(prim::Format(c.Value, "##,##0.000  ")));
    CaseGrid->SetTextMatrix(row, 8, Q(prim::Format(cPrime.Converged ? cPrime.Value : 0.0, "##,##0.000  ")));
    if (shell::CrossCheckModel(options.Model)) CaseGrid->Cell(row, 7)->setData(kCheckedC, c.Value);
}

// The C of the current row's group and load by the model the chosen one is
// checked against, beside the C shown, solved aside. Nothing for a row
// without a C of the chosen model, or where that model has no cross-check.
void BoltCoefficientWindow::CheckRow() {
    const int r = CaseGrid->Row();
    const QTableWidgetItem* cell = CaseGrid->Cell(r, 7);
    const QVariant c = cell != nullptr ? cell->data(kCheckedC) : QVariant();
    const bolt::SolveOptions options{shell::SolverModelOf(ModelBox)};
    bolt::BoltPattern pattern;
    bolt::BoltLoad load;
    QString key;
    if (shell::CrossCheckModel(options.Model) && c.isValid() && !cell->text().trimmed().isEmpty() &&
        ReadCase(CaseGrid, r, pattern, load)) {
        key = QString::number(r) + QLatin1Char('|') + QString::number(c.toDouble(), 'g', 17);
        for (int col = 1; col <= 6; ++col) key += QLatin1Char('|') + CaseGrid->TextMatrix(r, col).trimmed();
    }
    if (key == checkedKey_) return;  // already shown or under way
    checkedKey_ = key;
    if (key.isEmpty()) {
        ModelCheck->Clear();
        return;
    }
    ModelCheck->Check(c.toDouble(), bolt::CrossCheck(pattern, load, options), QString(), 3);
}

void BoltCoefficientWindow::FormatCell(QLineEdit* edit) {
    if (edit->text().trimmed().isEmpty()) return;
    edit->setText(Q(prim::Format(prim::Val(S(edit->text())), "0.000##  ")));
}

bool BoltCoefficientWindow::RowHasEntry(int row) const {
    for (int c = 1; c <= 6; ++c)
        if (!CaseGrid->TextMatrix(row, c).trimmed().isEmpty()) return true;
    return false;
}

int BoltCoefficientWindow::CountEntries() const {
    int count = 0;
    for (int r = 1; r < CaseGrid->Rows(); ++r)
        if (RowHasEntry(r)) ++count;
    return count;
}

void BoltCoefficientWindow::RestoreRow(int row) {
    for (const auto& rec : BoltRecords) {
        if (rec.Row != row) continue;
        const std::string* texts[8] = {&rec.M, &rec.N, &rec.Sv, &rec.Sh,
                                       &rec.Ex, &rec.Angle, &rec.C, &rec.CPrime};
        for (int c = 1; c <= 8; ++c) CaseGrid->SetTextMatrix(row, c, Q(*texts[c - 1]));
        return;
    }
}

void BoltCoefficientWindow::ShowSelection() {
    const int r = CaseGrid->Row();
    auto trimmedWith = [this, r](int col, const QString& tail) {
        const QString t = CaseGrid->TextMatrix(r, col).trimmed();
        return t.isEmpty() ? t : t + tail;
    };
    auto inches = [this, r](int col) {
        const QString t = CaseGrid->TextMatrix(r, col);
        if (t.trimmed().isEmpty()) return QString();
        return Q(Imperial::Imperial_Text(prim::Val(S(t)) / 12.0, 16, 1, 0)) + QStringLiteral("   ");
    };
    GroupStrip->SetTextMatrix(0, 1, trimmedWith(1, QStringLiteral("    ")));
    GroupStrip->SetTextMatrix(1, 1, trimmedWith(2, QStringLiteral("    ")));
    GroupStrip->SetTextMatrix(2, 1, inches(3));
    GroupStrip->SetTextMatrix(3, 1, inches(4));
    LoadStrip->SetTextMatrix(0, 1, inches(5));
    LoadStrip->SetTextMatrix(1, 1, CaseGrid->TextMatrix(r, 6).trimmed() + QStringLiteral("\u00B0  "));
    LoadStrip->SetTextMatrix(2, 1, trimmedWith(7, QStringLiteral("   ")));
    LoadStrip->SetTextMatrix(3, 1, trimmedWith(8, QStringLiteral("   ")));
    CheckRow();
    ShowPattern();
}

void BoltCoefficientWindow::ShowPattern() {
    const int r = CaseGrid->Row();
    bolt::BoltPattern pattern;
    bolt::BoltLoad load;
    const bool read = ReadCase(CaseGrid, r, pattern, load);
    Pattern->SetGroup(read ? bolt::Pattern_Outline(pattern) : ResultPicture::Outline{}, false);
    const QTableWidgetItem* c = CaseGrid->Cell(r, 7);
    if (!read || c == nullptr || c->text().trimmed().isEmpty()) return Pattern->ClearResults();
    const bolt::SolveResult result = bolt::Solve(pattern, load, {shell::SolverModelOf(ModelBox), true});
    Pattern->SetResults(result, bolt::Pattern_Labels(result));
}

void BoltCoefficientWindow::AddRowButton_Click() {
    const auto busy = guard_.Enter();
    if (Rows >= static_cast<float>(kMaxRows)) return;
    Rows += 1.0f;
    CaseGrid->SetRows(GridRowsOf(Rows));
    const int last = CaseGrid->Rows() - 1;
    StyleDataRow(last);
    CaseGrid->SetTopRow(std::max(1, CaseGrid->Rows() - 11));
    CaseGrid->SetRow(last);
    RestoreRow(last);
    RemRowButton->setEnabled(Rows > kMinRows);
}

void BoltCoefficientWindow::RemRowButton_Click() {
    const auto busy = guard_.Enter();
    Rows = static_cast<float>(shell::MaxOf({Rows - 1.0f, kMinRows}));
    CaseGrid->SetRows(GridRowsOf(Rows));
    RemRowButton->setEnabled(Rows > kMinRows);
}

void BoltCoefficientWindow::ClearButton_Click() {
    const auto busy = guard_.Enter();
    if (CountEntries() == 0) {
        ShowMessage(QMessageBox::Warning, QStringLiteral("Warning:"),
                    QStringLiteral("No Entries to Clear ! "));
        return;
    }
    QMessageBox ask(QMessageBox::Critical, QStringLiteral("Warning:"),
                    QStringLiteral("Are you sure you really want to clear Entries?"),
                    QMessageBox::Yes | QMessageBox::No, this);
    if (ask.exec() != QMessageBox::Yes) return;
    CellEditor->setVisible(false);
    for (int r = 1; r < CaseGrid->Rows(); ++r)
        for (int c = 1; c <= 8; ++c) CaseGrid->SetTextMatrix(r, c, QString());
    const QString path = DataFilePath();
    if (QFile::exists(path)) QFile::remove(path);
    CheckRow();
}

void BoltCoefficientWindow::SaveButton_Click() {
    const auto busy = guard_.Enter();
    const int count = CountEntries();
    if (count < 1) {
        ShowMessage(QMessageBox::Warning, QStringLiteral("For Your Info:"),
                    QStringLiteral("No Entries to Save ! "));
        return;
    }
    BoltRecords.assign(static_cast<size_t>(count), {});
    size_t next = 0;
    for (int r = 1; r < CaseGrid->Rows() && next < BoltRecords.size(); ++r) {
        if (!RowHasEntry(r)) continue;
        auto& rec = BoltRecords[next++];
        rec.Row = static_cast<int16_t>(r);
        std::string* texts[8] = {&rec.M, &rec.N, &rec.Sv, &rec.Sh,
                                 &rec.Ex, &rec.Angle, &rec.C, &rec.CPrime};
        for (int c = 1; c <= 8; ++c) *texts[c - 1] = S(CaseGrid->TextMatrix(r, c));
    }
    BoltRows::BoltData_Write(BoltRecords, S(DataFilePath()), [this](const std::string& m) {
        ShowMessage(QMessageBox::Critical, QStringLiteral("Warning:"), Q(m));
    });
    ShowMessage(QMessageBox::Information, QStringLiteral("Warning:"),
                QStringLiteral("Entries succesfully Saved ! "));
}

void BoltCoefficientWindow::ShowMessage(int icon, const QString& title, const QString& text) {
    QMessageBox box(static_cast<QMessageBox::Icon>(icon), title, text, QMessageBox::Ok, this);
    box.exec();
}

void BoltCoefficientWindow::CaseGrid_KeyDown(int16_t keyCode, int, bool& handled) {
    const auto busy = guard_.Enter();
    const int col = CaseGrid->Col();
    if (col < 1 || col > 6) return;
    if (keyCode == Delete) {
        handled = true;
        CaseGrid->SetTextMatrix(CaseGrid->Row(), col, QString());
        CellEditor->setText(QString());
        Calculate_C(CaseGrid->Row());
        CheckRow();
    } else if (keyCode == F2) {
        handled = true;
        OpenEditor(Space, true);
    }
}

int16_t BoltCoefficientWindow::FilterKey(int col, int16_t key, bool boxIsRefilled) const {
    // A key that opens the box replaces its text, so it is judged against an empty box.
    KeyFilters::BoxState box = boxIsRefilled ? KeyFilters::BoxState{} : GridEditor::StateOf(CellEditor);
    if (col == 1 || col == 2) return KeyFilters::Key_Digit(key);
    if (col >= 3 && col <= 5) return KeyFilters::Key_UnsignedDecimal(key, box);
    if (col == 6) return KeyFilters::Key_SignedDecimal(key, box);
    return 0;
}

void BoltCoefficientWindow::CaseGrid_KeyPress(int16_t key) {
    const auto busy = guard_.Enter();
    if (key == Esc) return;
    const int col = CaseGrid->Col();
    if (col < 1 || col > 6) return;
    const int16_t passed = FilterKey(col, key, true);
    if (passed != 0) OpenEditor(passed, true);
}

void BoltCoefficientWindow::CaseGrid_DblClick() {
    const auto busy = guard_.Enter();
    const int col = CaseGrid->Col();
    if (col >= 1 && col <= 6) OpenEditor(Space, true);
}

void BoltCoefficientWindow::CaseGrid_MouseDown(Qt::MouseButton button) {
    const auto busy = guard_.Enter();
    if (button != Qt::LeftButton) return;
    RowClicked = true;
    ShowSelection();
}

void BoltCoefficientWindow::CaseGrid_Scroll() {
    const auto busy = guard_.Enter();
    const int col = CaseGrid->Col();
    if (CellEditor->isVisible() && col >= 1 && col <= 6) GridEditor::Flex_OpenEditor(CaseGrid, CellEditor, 0, false);
}

void BoltCoefficientWindow::OpenEditor(int16_t key, bool takeKey) {
    editRow_ = CaseGrid->Row();
    editCol_ = CaseGrid->Col();
    CellEditor->setAlignment(editCol_ <= 2 ? Qt::AlignCenter : (Qt::AlignRight | Qt::AlignVCenter));
    GridEditor::Flex_OpenEditor(CaseGrid, CellEditor, key, takeKey);
}

void BoltCoefficientWindow::CloseEdit() {
    const auto busy = guard_.Enter();
    if (closingEdit_) return;
    ShowSelection();
    if (!CellEditor->isVisible()) return;
    closingEdit_ = true;
    const int row = editRow_;
    const int col = editCol_;
    if (col >= 3 && col <= 6) FormatCell(CellEditor);
    if (col >= 1 && col <= 6) CaseGrid->SetTextMatrix(row, col, CellEditor->text());
    if (CellEditor->hasFocus()) CaseGrid->setFocus();
    CellEditor->setVisible(false);
    closingEdit_ = false;
    if (col >= 1 && col <= 6) Calculate_C(row);
    CheckRow();
}

bool BoltCoefficientWindow::CellEditor_KeyPress(QKeyEvent* event) {
    const int shift = static_cast<int>(event->modifiers());
    auto leave = [&](int16_t how) {
        GridEditor::Flex_LeaveEditor(CaseGrid, CellEditor, how, shift, [this] { CloseEdit(); });
    };
    auto commit = [this] {
        if (editCol_ >= 3 && editCol_ <= 6) FormatCell(CellEditor);
    };
    return GridEditor::Editor_KeyDown(event, CellEditor, commit, leave,
                                          [this](int16_t ch) { return FilterKey(editCol_, ch, false); });
}

bool BoltCoefficientWindow::eventFilter(QObject* watched, QEvent* event) {
    const auto busy = guard_.Enter();
    if (watched == CellEditor) {
        if (event->type() == QEvent::KeyPress) return CellEditor_KeyPress(static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::FocusOut) {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) CloseEdit();
        }
    }
    return QWidget::eventFilter(watched, event);
}

// The children outlive this object's own destructor: while they go, a scroll
// bar or the edit box may still signal or filter through this window.
BoltCoefficientWindow::~BoltCoefficientWindow() {
    CaseGrid->disconnect(this);
    CellEditor->removeEventFilter(this);
}

void BoltCoefficientWindow::closeEvent(QCloseEvent* event) {
    setObjectName(QString());  // a new request opens a new window
    // A handler still on the stack (a long run serving events) finishes first.
    if (guard_.DeferClose(event)) return;
    event->accept();
    deleteLater();
}
