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

    ItemBox = ListView::New_ItemBox(this);

    AllButton = new QPushButton("Select All", this);
    AllButton->setObjectName("AllButton");
    ClearButton = new QPushButton("Clear", this);
    ClearButton->setObjectName("ClearButton");
    DeleteButton = new QPushButton("Delete", this);
    DeleteButton->setObjectName("DeleteButton");
    DeleteButton->setEnabled(false);
    ExitButton = new QPushButton("Exit", this);
    ExitButton->setObjectName("ExitButton");
    for (QPushButton* b : {AllButton, ClearButton, DeleteButton, ExitButton}) b->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(AllButton);
    buttons->addWidget(ClearButton);
    buttons->addStretch(1);
    buttons->addWidget(DeleteButton);
    buttons->addWidget(ExitButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ItemBox, 1);
    layout->addLayout(buttons);

    connect(ItemBox, &QTreeWidget::itemChanged, this, [this] {
        if (!filling_) ItemBox_ItemCheck();
    });
    connect(AllButton, &QPushButton::clicked, this, &StatisticsWindow::AllButton_Click);
    connect(ClearButton, &QPushButton::clicked, this, &StatisticsWindow::ClearButton_Click);
    connect(DeleteButton, &QPushButton::clicked, this, &StatisticsWindow::DeleteButton_Click);
    connect(ExitButton, &QPushButton::clicked, this, &QDialog::reject);
    Form_Load();
}

void StatisticsWindow::Open(CalculatorState& s, QWidget* parent) {
    StatisticsWindow frm(s, parent);
    frm.exec();
}

void StatisticsWindow::Form_Load() {
    ItemBox->setHeaderLabels({"   Data", "              Value"});
    Fill_List();
    ListView::Size_Columns(ItemBox, {1200, 2900});
    resize(ListView::Columns_Width(ItemBox) + 60, 400);
}

void StatisticsWindow::Fill_List() {
    filling_ = true;
    ItemBox->clear();
    if (s_.DataValues.IsList()) {
        const std::vector<double>& values = s_.DataValues.Values;
        for (size_t i = 0; i < values.size(); ++i) {
            auto* item = new QTreeWidgetItem(ItemBox);
            item->setText(0, Q(CalculatorFiles::Data_Name(int(i))));
            item->setText(1, Q(Calculator::Data_Value_Text(values[i])));
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            item->setCheckState(0, Qt::Unchecked);
        }
    }
    filling_ = false;
}

void StatisticsWindow::ItemBox_ItemCheck() {
    bool any = false;
    for (int i = 0; i < ItemBox->topLevelItemCount() && !any; ++i)
        any = ItemBox->topLevelItem(i)->checkState(0) == Qt::Checked;
    DeleteButton->setEnabled(any);
}

void StatisticsWindow::SetAllChecks(Qt::CheckState state) {
    filling_ = true;
    for (int i = 0; i < ItemBox->topLevelItemCount(); ++i) ItemBox->topLevelItem(i)->setCheckState(0, state);
    filling_ = false;
}

void StatisticsWindow::AllButton_Click() {
    SetAllChecks(Qt::Checked);
    DeleteButton->setEnabled(true);
}

void StatisticsWindow::ClearButton_Click() {
    SetAllChecks(Qt::Unchecked);
    DeleteButton->setEnabled(false);
}

void StatisticsWindow::DeleteButton_Click() {
    if (QMessageBox::critical(this, "Warning", "Are you sure you want to delete Selected Data?",
                              QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    std::vector<bool> checked;
    for (int i = 0; i < ItemBox->topLevelItemCount(); ++i)
        checked.push_back(ItemBox->topLevelItem(i)->checkState(0) == Qt::Checked);
    Calculator::Delete_Data(s_, checked);
    Fill_List();
    DeleteButton->setEnabled(false);
}
