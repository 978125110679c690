// The report lists of the calculator's register, data and constant windows.
#pragma once

#include <QFontMetrics>
#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>
#include <initializer_list>

namespace ListView {

// A flat list with whole-row selection, named "ItemBox".
inline QTreeWidget* New_ItemBox(QWidget* parent) {
    auto* list = new QTreeWidget(parent);
    list->setObjectName("ItemBox");
    list->setRootIsDecorated(false);
    list->setAllColumnsShowFocus(true);
    list->setUniformRowHeights(true);
    return list;
}

// Columns as wide as their width in twips (1/1440 inch at the font's usual
// size) asks, and never narrower than their longest text.
inline void Size_Columns(QTreeWidget* list, std::initializer_list<int> twips) {
    const int charWidth = list->fontMetrics().averageCharWidth();
    int c = 0;
    for (int t : twips) {
        list->resizeColumnToContents(c);
        list->setColumnWidth(c, std::max(list->columnWidth(c) + charWidth, charWidth * t / 105));
        ++c;
    }
}

// How many rows have their check box set.
inline int Checked_Count(const QTreeWidget* list) {
    int n = 0;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        if (list->topLevelItem(i)->checkState(0) == Qt::Checked) ++n;
    return n;
}

// Sets or clears the check box of every row.
inline void Set_All_Checks(QTreeWidget* list, Qt::CheckState state) {
    for (int i = 0; i < list->topLevelItemCount(); ++i) list->topLevelItem(i)->setCheckState(0, state);
}

// Sum of the column widths, for the window's first size.
inline int Columns_Width(const QTreeWidget* list) {
    int width = 0;
    for (int c = 0; c < list->columnCount(); ++c) width += list->columnWidth(c);
    return width;
}

}  // namespace ListView
