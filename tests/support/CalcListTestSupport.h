// Mouse and keyboard on the lists of the register, data and constant windows.
#pragma once

#include <QTest>
#include <QTreeWidget>

namespace calctest {

// Row `row` (from 1) scrolled into view: its centre, or a point in its first column.
inline QPoint RowPoint(QTreeWidget* list, int row, bool firstColumn = false) {
    QTreeWidgetItem* item = list->topLevelItem(row - 1);
    list->scrollToItem(item);
    const QPoint centre = list->visualItemRect(item).center();
    return firstColumn ? QPoint(list->columnWidth(0) / 2, centre.y()) : centre;
}

inline void ClickRow(QTreeWidget* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowPoint(list, row));
}

// Space on the first column turns a row's check box over.
inline void CheckRow(QTreeWidget* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowPoint(list, row, true));
    QTest::keyClick(list, Qt::Key_Space);
}

}  // namespace calctest
