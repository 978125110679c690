#include "shell/ui/GridEditor.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

using KeyFilters::KeyCode::Down;
using KeyFilters::KeyCode::Enter;
using KeyFilters::KeyCode::Esc;
using KeyFilters::KeyCode::Left;
using KeyFilters::KeyCode::Right;
using KeyFilters::KeyCode::Up;

CellGrid::CellGrid(int fixedRows, int fixedCols, QWidget* parent)
    : QTableWidget(parent), fixedRows_(fixedRows), fixedCols_(fixedCols) {
    verticalHeader()->hide();
    if (fixedRows_ == 0) horizontalHeader()->hide();
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A range can be selected for copying; the editor works on the current cell.
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setWordWrap(false);
    auto* copy = new QAction(QStringLiteral("Copy"), this);
    copy->setObjectName(QStringLiteral("CopyAction"));
    connect(copy, &QAction::triggered, this, &CellGrid::CopySelection);
    auto* copyTable = new QAction(QStringLiteral("Copy table"), this);
    copyTable->setObjectName(QStringLiteral("CopyTableAction"));
    connect(copyTable, &QAction::triggered, this, &CellGrid::CopyTable);
    addAction(copy);
    addAction(copyTable);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { emit Scroll(); });
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { emit Scroll(); });
}

void CellGrid::SetRows(int rows) {
    const int count = std::max(0, rows - fixedRows_);
    const int before = rowCount();
    setRowCount(count);
    // Label cells of new rows look like the heading and cannot be selected.
    for (int r = before; r < count; ++r)
        for (int c = 0; c < fixedCols_ && c < columnCount(); ++c) Cell(r + fixedRows_, c);
}

void CellGrid::SetCols(int cols) { setColumnCount(std::max(0, cols)); }

void CellGrid::SetRow(int row) {
    if (row < fixedRows_ || row >= Rows()) return;
    setCurrentCell(row - fixedRows_, Col());
}

void CellGrid::SetCol(int col) {
    if (col < fixedCols_ || col >= Cols()) return;
    setCurrentCell(Row() - fixedRows_, col);
}

void CellGrid::SetTopRow(int row) {
    if (row < fixedRows_ || row >= Rows()) return;
    scrollTo(model()->index(row - fixedRows_, 0), QAbstractItemView::PositionAtTop);
}

QTableWidgetItem* CellGrid::Cell(int row, int col) {
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols()) return nullptr;
    if (row < fixedRows_) {
        QTableWidgetItem* h = horizontalHeaderItem(col);
        if (h == nullptr) {
            h = new QTableWidgetItem();
            setHorizontalHeaderItem(col, h);
        }
        return h;
    }
    QTableWidgetItem* it = item(row - fixedRows_, col);
    if (it == nullptr) {
        it = new QTableWidgetItem();
        if (col < fixedCols_) {
            it->setFlags(Qt::ItemIsEnabled);
            it->setBackground(palette().brush(QPalette::Button));
        } else {
            it->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        }
        setItem(row - fixedRows_, col, it);
    }
    return it;
}

QString CellGrid::TextMatrix(int row, int col) const {
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols()) return QString();
    const QTableWidgetItem* it =
        row < fixedRows_ ? horizontalHeaderItem(col) : item(row - fixedRows_, col);
    return it ? it->text() : QString();
}

void CellGrid::SetTextMatrix(int row, int col, const QString& text) {
    if (QTableWidgetItem* it = Cell(row, col)) it->setText(text);
}

void CellGrid::SetRowHeightAll(int height) {
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(height);
}

QRect CellGrid::CellRectInParent(int row, int col) const {
    if (row < fixedRows_ || row >= Rows() || col < 0 || col >= Cols()) return {};
    QRect r = visualRect(model()->index(row - fixedRows_, col));
    QWidget* target = parentWidget() ? parentWidget() : const_cast<CellGrid*>(this);
    return QRect(viewport()->mapTo(target, r.topLeft()), r.size());
}

namespace {
QString SheetCell(QString text) { return text.replace(QLatin1Char('\n'), QLatin1Char(' ')).trimmed(); }
}  // namespace

QString CellGrid::SelectionText() const {
    int top = Row(), bottom = Row(), left = Col(), right = Col();
    const QList<QTableWidgetSelectionRange> ranges = selectedRanges();
    if (!ranges.isEmpty()) {
        top = ranges.first().topRow() + fixedRows_;
        bottom = ranges.first().bottomRow() + fixedRows_;
        left = ranges.first().leftColumn();
        right = ranges.first().rightColumn();
    }
    QStringList lines;
    for (int r = top; r <= bottom; ++r) {
        QStringList cells;
        for (int c = left; c <= right; ++c) cells << SheetCell(TextMatrix(r, c));
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString CellGrid::TableText() const {
    QStringList lines;
    for (int r = 0; r < Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < Cols(); ++c) cells << SheetCell(TextMatrix(r, c));
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

void CellGrid::CopySelection() const { QApplication::clipboard()->setText(SelectionText()); }

void CellGrid::CopyTable() const { QApplication::clipboard()->setText(TableText()); }

void CellGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        CopySelection();
        return;
    }
    if (event->key() == Qt::Key_C && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
        CopyTable();
        return;
    }
    const int16_t code = GridEditor::KeyCodeOf(event->key());
    bool handled = false;
    if (code != 0) emit KeyDown(code, static_cast<int>(event->modifiers()), handled);
    if (handled) return;
    const QString text = event->text();
    if (text.size() == 1) {
        const int c = text.at(0).unicode();
        const bool typed = (c >= 32 && c < 256 && c != 127) || c == KeyFilters::KeyCode::Backspace ||
                           c == Enter || c == Esc;
        if (typed) {
            emit KeyPress(static_cast<int16_t>(c));
            return;
        }
    }
    QTableWidget::keyPressEvent(event);
}

void CellGrid::mousePressEvent(QMouseEvent* event) {
    emit MouseDown(event->button());
    QTableWidget::mousePressEvent(event);
}

void CellGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    // A double click edits through the floating box, never in place.
    const QModelIndex at = indexAt(event->position().toPoint());
    if (!at.isValid() || at.column() < fixedCols_) return;
    setCurrentIndex(at);
    emit DblClick();
}

void CellGrid::focusInEvent(QFocusEvent* event) {
    QTableWidget::focusInEvent(event);
    emit GotFocus();
}

void CellGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    // Label columns never hold the cursor: it goes on to the first data column.
    if (current.isValid() && current.column() < fixedCols_ && fixedCols_ < columnCount()) {
        setCurrentIndex(model()->index(current.row(), fixedCols_));
        return;
    }
    QTableWidget::currentChanged(current, previous);
    if (previous.isValid() && current != previous)
        emit LeaveCell(previous.row() + fixedRows_, previous.column());
    if (current != previous) emit SelChange();
}

namespace GridEditor {

int16_t KeyCodeOf(int qtKey) {
    switch (qtKey) {
        case Qt::Key_Return: case Qt::Key_Enter: return Enter;
        case Qt::Key_Down: return Down;
        case Qt::Key_Up: return Up;
        case Qt::Key_Left: return Left;
        case Qt::Key_Right: return Right;
        case Qt::Key_Escape: return Esc;
        case Qt::Key_Tab: case Qt::Key_Backtab: return KeyFilters::KeyCode::Tab;
        case Qt::Key_Delete: return KeyFilters::KeyCode::Delete;
        case Qt::Key_F2: return KeyFilters::KeyCode::F2;
        default: return 0;
    }
}

void Flex_OpenEditor(CellGrid* grid, QLineEdit* box, int16_t key, bool TakeKey) {
    const int row = grid->Row();
    const int col = grid->Col();
    if (TakeKey) {
        if (key < 0 || key > 32) {
            box->setText(QString(QChar(static_cast<char16_t>(static_cast<uint8_t>(key)))));
            box->setCursorPosition(box->text().size());
        } else {
            box->setText(grid->TextMatrix(row, col).trimmed());
            box->setCursorPosition(box->text().size());
        }
    }
    // The box covers the cell, leaving its grid lines visible.
    const QRect cell = grid->CellRectInParent(row, col);
    box->setGeometry(cell.left(), cell.top(), cell.width() - 1, cell.height() - 1);
    box->raise();
    box->setVisible(true);
    box->setFocus();
}

void Flex_LeaveEditor(CellGrid* grid, QLineEdit* box, int16_t keyCode, int shift,
                      const std::function<void()>& leaveCell) {
    auto toGrid = [&] {
        grid->setFocus();
        QCoreApplication::processEvents();
        if (box->isVisible() && leaveCell) leaveCell();
    };
    switch (keyCode) {
        case Enter:
        case Down:
            toGrid();
            if (grid->Row() < grid->Rows() - 1) grid->SetRow(grid->Row() + 1);
            break;
        case Up:
            toGrid();
            if (grid->Row() > grid->FixedRows()) grid->SetRow(grid->Row() - 1);
            break;
        case Left:
            toGrid();
            if (grid->Col() > grid->FixedCols()) grid->SetCol(grid->Col() - 1);
            break;
        case Right:
            toGrid();
            if (grid->Col() < grid->Cols() - 1) grid->SetCol(grid->Col() + 1);
            break;
        case KeyFilters::KeyCode::Tab:
            // As in a spreadsheet: the next cell to the right, or with Shift
            // the one to the left, going on to the next or previous row.
            toGrid();
            if (shift & Qt::ShiftModifier) {
                if (grid->Col() > grid->FixedCols()) grid->SetCol(grid->Col() - 1);
                else if (grid->Row() > grid->FixedRows()) {
                    grid->SetRow(grid->Row() - 1);
                    grid->SetCol(grid->Cols() - 1);
                }
            } else {
                if (grid->Col() < grid->Cols() - 1) grid->SetCol(grid->Col() + 1);
                else if (grid->Row() < grid->Rows() - 1) {
                    grid->SetRow(grid->Row() + 1);
                    grid->SetCol(grid->FixedCols());
                }
            }
            break;
        case Esc:
            box->setText(grid->TextMatrix(grid->Row(), grid->Col()));
            box->setVisible(false);
            grid->setFocus();
            break;
        default:
            break;
    }
}

KeyFilters::BoxState StateOf(const QLineEdit* box) {
    KeyFilters::BoxState s;
    s.Text = box->text().toStdString();
    s.AllSelected = !box->text().isEmpty() && box->selectedText() == box->text();
    return s;
}

int16_t Key_SignedDecimal(int16_t key, const QLineEdit* box) {
    return KeyFilters::Key_SignedDecimal(key, StateOf(box));
}

int16_t Key_UnsignedDecimal(int16_t key, const QLineEdit* box) {
    return KeyFilters::Key_UnsignedDecimal(key, StateOf(box));
}

int16_t Key_Architectural(int16_t key, const QLineEdit* box) {
    return KeyFilters::Key_Architectural(key, StateOf(box));
}

bool Box_HasMinus(const QLineEdit* box) { return KeyFilters::Box_HasMinus(StateOf(box)); }

bool Editor_KeyDown(QKeyEvent* event, QLineEdit* box, const std::function<void()>& commit,
                    const std::function<void(int16_t)>& leave, const std::function<int16_t(int16_t)>& filter) {
    using namespace KeyFilters::KeyCode;
    const int16_t code = KeyCodeOf(event->key());
    switch (code) {
        case Tab:
        case Enter:
            if (commit) commit();
            leave(code);
            return true;
        case Left:
            if (box->cursorPosition() != 0) return false;
            leave(Left);
            return true;
        case Right:
            if (box->cursorPosition() < box->text().size()) return false;
            leave(Right);
            return true;
        case Up:
        case Down:
        case Esc:
            leave(code);
            return true;
        default:
            break;
    }
    const QString text = event->text();
    if (text.isEmpty()) return false;  // navigation and modifier keys
    const int ch = text.at(0).unicode();
    if (ch >= 256) return true;
    return filter(static_cast<int16_t>(ch)) == 0;
}

}  // namespace GridEditor
