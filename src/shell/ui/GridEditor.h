// Editing in grid cells: a table with fixed heading rows and columns that
// behaves like the program's grids (row and column numbers count the fixed
// ones, texts by TextMatrix, cell events as signals), the floating edit box
// that lies over the current cell, and the key filters applied to line edits.
#pragma once

#include <QLineEdit>
#include <QTableWidget>
#include <cstdint>
#include <functional>

#include "shell/core/KeyFilters.h"

// A grid whose row 0 (when FixedRows is 1) is the horizontal header and whose
// first FixedCols columns hold labels that never become current. Rows() and
// Row() count the fixed row, as TextMatrix does.
class CellGrid : public QTableWidget {
    Q_OBJECT
public:
    CellGrid(int fixedRows, int fixedCols, QWidget* parent = nullptr);

    int FixedRows() const { return fixedRows_; }
    int FixedCols() const { return fixedCols_; }
    int Rows() const { return rowCount() + fixedRows_; }
    int Cols() const { return columnCount(); }
    void SetRows(int rows);
    void SetCols(int cols);
    int Row() const { return currentRow() < 0 ? fixedRows_ : currentRow() + fixedRows_; }
    int Col() const { return currentColumn() < 0 ? fixedCols_ : currentColumn(); }
    void SetRow(int row);
    void SetCol(int col);
    void SetTopRow(int row);

    QString TextMatrix(int row, int col) const;
    void SetTextMatrix(int row, int col, const QString& text);
    // The cell item (created on demand) or the heading item of a fixed row;
    // nullptr outside the grid.
    QTableWidgetItem* Cell(int row, int col);
    void SetRowHeightAll(int height);

    // The cell's rectangle in the coordinates of the grid's parent widget.
    QRect CellRectInParent(int row, int col) const;

    // Text for a spreadsheet: cells trimmed, tab-separated, one line a row.
    // SelectionText covers the selected range (the current cell when nothing
    // is selected); TableText the whole grid with its headings and labels.
    // Ctrl+C copies the selection, Ctrl+Shift+C the table; both are also in
    // the grid's context menu.
    QString SelectionText() const;
    QString TableText() const;
    void CopySelection() const;
    void CopyTable() const;

signals:
    // Key codes as KeyFilters::KeyCode; `shift` holds the Qt modifiers.
    void KeyDown(int16_t keyCode, int shift, bool& handled);
    // Character codes of typed keys (Latin-1), Backspace, Enter and Esc included.
    void KeyPress(int16_t key);
    void DblClick();
    void MouseDown(Qt::MouseButton button);
    // The current cell has moved away from (row, col).
    void LeaveCell(int row, int col);
    void SelChange();
    void GotFocus();
    void Scroll();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    int fixedRows_;
    int fixedCols_;
};

class QKeyEvent;

namespace GridEditor {

// The key code of a Qt key as the editors know it (Enter, arrows, Esc, Tab,
// Delete, F2), or 0.
int16_t KeyCodeOf(int qtKey);

// Puts `box` over the grid's current cell and shows it with the focus. With
// TakeKey, a printable key (above 32) becomes the box's only text, any other
// key loads the trimmed cell text; without it the box keeps its text, which
// serves to move it along when the grid scrolls.
void Flex_OpenEditor(CellGrid* grid, QLineEdit* box, int16_t key, bool TakeKey);

// Leaves the edit box by a key: Enter and Down move one row down, Up one row
// up, Left and Right one column, each within the grid; Tab one cell right
// (with Shift left), going on to the next (previous) row; Esc throws the box's
// text away and hides it. The focus goes to the grid first, which lets the
// grid's leaving handler copy the box into the cell; `leaveCell` is that
// handler, run here when the grid did not receive the focus (an inactive window).
void Flex_LeaveEditor(CellGrid* grid, QLineEdit* box, int16_t keyCode, int shift,
                      const std::function<void()>& leaveCell = nullptr);

// The filters of KeyFilters applied to a line edit's text and selection.
KeyFilters::BoxState StateOf(const QLineEdit* box);
int16_t Key_SignedDecimal(int16_t key, const QLineEdit* box);
int16_t Key_UnsignedDecimal(int16_t key, const QLineEdit* box);
int16_t Key_Architectural(int16_t key, const QLineEdit* box);
bool Box_HasMinus(const QLineEdit* box);

// A key in a grid's floating editor: Tab and Enter commit the text (commit
// runs first) and leave the cell, the arrows leave it at the text's ends, Up,
// Down and Esc leave at once; a typed character goes through filter, which
// gives 0 to refuse it. True when the key is taken from the edit box.
bool Editor_KeyDown(QKeyEvent* event, QLineEdit* box, const std::function<void()>& commit,
                    const std::function<void(int16_t)>& leave, const std::function<int16_t(int16_t)>& filter);

}  // namespace GridEditor
