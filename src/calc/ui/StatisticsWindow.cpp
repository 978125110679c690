#include "calc/ui/StatisticsWindow.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <vector>

#include "calc/core/CalculatorFiles.h"
#include "calc/ui/ListView.h"
#include "calc/core/CalculatorEngine.h"
#include "calc/core/CalculatorState.h"
#include "shell/ui/QtText.h"

StatisticsWindow::StatisticsWindow(CalculatorState& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("CalcDataFrm");
    setWindowTitle("Statistics Data");

    list_ = ListView::New_ItemBox(this);

    selectAll_ = new QPushButton("Select All", this);
    selectAll_->setObjectName("AllButton");
    clearChecks_ = new QPushButton("Clear", this);
    clearChecks_->setObjectName("ClearButton");
    delete_ = new QPushButton("Delete", this);
    delete_->setObjectName("DeleteButton");
    delete_->setEnabled(false);
    exit_ = new QPushButton("Exit", this);
    exit_->setObjectName("ExitButton");
    for (QPushButton* b : {selectAll_, clearChecks_, delete_, exit_}) b->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(selectAll_);
    buttons->addWidget(clearChecks_);
    buttons->addStretch(1);
    buttons->addWidget(delete_);
    buttons->addWidget(exit_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_, 1);
    layout->addLayout(buttons);

    connect(list_, &QTreeWidget::itemChanged, this, [this] {
        if (!filling_) Checks_Changed();
    });
    connect(selectAll_, &QPushButton::clicked, this, &StatisticsWindow::Select_All);
    connect(clearChecks_, &QPushButton::clicked, this, &StatisticsWindow::Clear_Checks);
    connect(delete_, &QPushButton::clicked, this, &StatisticsWindow::Delete_Checked);
    connect(exit_, &QPushButton::clicked, this, &QDialog::reject);
    Set_Up();
}

void StatisticsWindow::Open(CalculatorState& s, QWidget* parent) {
    StatisticsWindow frm(s, parent);
    frm.exec();
}

void StatisticsWindow::Set_Up() {
    list_->setHeaderLabels({"   Data", "              Value"});
    Fill_List();
    ListView::Size_Columns(list_, {1200, 2900});
    resize(ListView::Columns_Width(list_) + 60, 400);
}

void StatisticsWindow::Fill_List() {
    filling_ = true;
    list_->clear();
    if (s_.DataValues.IsList()) {
        const std::vector<double>& values = s_.DataValues.Values;
        for (size_t i = 0; i < values.size(); ++i) {
            auto* item = new QTreeWidgetItem(list_);
            item->setText(0, Q(CalculatorFiles::Data_Name(int(i))));
            item->setText(1, Q(Calculator::Data_Value_Text(values[i])));
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            item->setCheckState(0, Qt::Unchecked);
        }
    }
    filling_ = false;
}

void StatisticsWindow::Checks_Changed() { delete_->setEnabled(ListView::Checked_Count(list_) > 0); }

void StatisticsWindow::SetAllChecks(Qt::CheckState state) {
    filling_ = true;
    ListView::Set_All_Checks(list_, state);
    filling_ = false;
}

void StatisticsWindow::Select_All() {
    SetAllChecks(Qt::Checked);
    delete_->setEnabled(true);
}

void StatisticsWindow::Clear_Checks() {
    SetAllChecks(Qt::Unchecked);
    delete_->setEnabled(false);
}

void StatisticsWindow::Delete_Checked() {
    if (QMessageBox::critical(this, "Warning", "Are you sure you want to delete Selected Data?",
                              QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    std::vector<bool> checked;
    for (int i = 0; i < list_->topLevelItemCount(); ++i)
        checked.push_back(list_->topLevelItem(i)->checkState(0) == Qt::Checked);
    Calculator::Delete_Data(s_, checked);
    Fill_List();
    delete_->setEnabled(false);
}
