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

// Sum of the column widths, for the window's first size.
inline int Columns_Width(const QTreeWidget* list) {
    int width = 0;
    for (int c = 0; c < list->columnCount(); ++c) width += list->columnWidth(c);
    return width;
}

}  // namespace ListView
