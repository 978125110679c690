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
    void Form_Load();
    void Fill_List();
    void ItemBox_ItemCheck();
    void AllButton_Click();
    void ClearButton_Click();
    void DeleteButton_Click();
    void SetAllChecks(Qt::CheckState state);

    CalculatorState& s_;
    bool filling_ = false;
    QTreeWidget* ItemBox = nullptr;
    QPushButton* AllButton = nullptr;
    QPushButton* ClearButton = nullptr;
    QPushButton* DeleteButton = nullptr;
    QPushButton* ExitButton = nullptr;
};
