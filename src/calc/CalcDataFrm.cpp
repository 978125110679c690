#include "calc/CalcDataFrm.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <vector>

#include "calc/CalcFiles.h"
#include "calc/CalcListView.h"
#include "calc/CalcProcs.h"
#include "calc/CalcVariables.h"
#include "shell/QtText.h"

CalcDataFrm::CalcDataFrm(CalcVariables& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("CalcDataFrm");
    setWindowTitle("Statistics Data");

    ItemBox = CalcListView::New_ItemBox(this);

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
    connect(AllButton, &QPushButton::clicked, this, &CalcDataFrm::AllButton_Click);
    connect(ClearButton, &QPushButton::clicked, this, &CalcDataFrm::ClearButton_Click);
    connect(DeleteButton, &QPushButton::clicked, this, &CalcDataFrm::DeleteButton_Click);
    connect(ExitButton, &QPushButton::clicked, this, &QDialog::reject);
    Form_Load();
}

void CalcDataFrm::Open(CalcVariables& s, QWidget* parent) {
    CalcDataFrm frm(s, parent);
    frm.exec();
}

void CalcDataFrm::Form_Load() {
    ItemBox->setHeaderLabels({"   Data", "              Value"});
    Fill_List();
    CalcListView::Size_Columns(ItemBox, {1200, 2900});
    resize(CalcListView::Columns_Width(ItemBox) + 60, 400);
}

void CalcDataFrm::Fill_List() {
    filling_ = true;
    ItemBox->clear();
    if (s_.DataValues.IsList()) {
        const std::vector<double>& values = s_.DataValues.Values;
        for (size_t i = 0; i < values.size(); ++i) {
            auto* item = new QTreeWidgetItem(ItemBox);
            item->setText(0, Q(CalcFiles::Data_Name(int(i))));
            item->setText(1, Q(CalcProcs::Data_Value_Text(values[i])));
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            item->setCheckState(0, Qt::Unchecked);
        }
    }
    filling_ = false;
}

void CalcDataFrm::ItemBox_ItemCheck() {
    bool any = false;
    for (int i = 0; i < ItemBox->topLevelItemCount() && !any; ++i)
        any = ItemBox->topLevelItem(i)->checkState(0) == Qt::Checked;
    DeleteButton->setEnabled(any);
}

void CalcDataFrm::SetAllChecks(Qt::CheckState state) {
    filling_ = true;
    for (int i = 0; i < ItemBox->topLevelItemCount(); ++i) ItemBox->topLevelItem(i)->setCheckState(0, state);
    filling_ = false;
}

void CalcDataFrm::AllButton_Click() {
    SetAllChecks(Qt::Checked);
    DeleteButton->setEnabled(true);
}

void CalcDataFrm::ClearButton_Click() {
    SetAllChecks(Qt::Unchecked);
    DeleteButton->setEnabled(false);
}

void CalcDataFrm::DeleteButton_Click() {
    if (QMessageBox::critical(this, "Warning", "Are you sure you want to delete Selected Data?",
                              QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    std::vector<bool> checked;
    for (int i = 0; i < ItemBox->topLevelItemCount(); ++i)
        checked.push_back(ItemBox->topLevelItem(i)->checkState(0) == Qt::Checked);
    CalcProcs::Delete_Data(s_, checked);
    Fill_List();
    DeleteButton->setEnabled(false);
}
