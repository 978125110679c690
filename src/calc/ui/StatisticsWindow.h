// The statistics data window: the data list with check boxes, to delete some
// rows or all of them.
#pragma once

#include <QDialog>

struct CalculatorState;
class QPushButton;
class QTreeWidget;

class StatisticsWindow : public QDialog {
    Q_OBJECT
public:
    StatisticsWindow(CalculatorState& s, QWidget* parent = nullptr);

    // Opens the window modally; deletions go straight into s.DataValues.
    static void Open(CalculatorState& s, QWidget* parent);

private:
    void Set_Up();
    void Fill_List();
    void Checks_Changed();
    void Select_All();
    void Clear_Checks();
    void Delete_Checked();
    void SetAllChecks(Qt::CheckState state);

    CalculatorState& s_;
    bool filling_ = false;
    QTreeWidget* list_ = nullptr;
    QPushButton* selectAll_ = nullptr;
    QPushButton* clearChecks_ = nullptr;
    QPushButton* delete_ = nullptr;
    QPushButton* exit_ = nullptr;
};
