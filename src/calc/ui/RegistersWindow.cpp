#include "calc/ui/RegistersWindow.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "calc/core/CalculatorFiles.h"
#include "calc/ui/ListView.h"
#include "calc/core/RegisterList.h"
#include "calc/core/CalculatorEngine.h"
#include "calc/core/CalculatorState.h"
#include "shell/core/Primitives.h"
#include "shell/ui/QtText.h"

RegistersWindow::RegistersWindow(CalculatorState& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("CalcMemoryFrm");
    action_ = s.MemoryAction;

    prompt_ = new QLabel(this);
    prompt_->setObjectName("Lab1");

    list_ = ListView::New_ItemBox(this);

    descriptionFrame_ = new QGroupBox(this);
    descriptionFrame_->setObjectName("DecFrame");
    description_ = new QLineEdit(descriptionFrame_);
    description_->setObjectName("DescBox");
    auto* descLayout = new QHBoxLayout(descriptionFrame_);
    descLayout->addWidget(description_);

    selectionFrame_ = new QGroupBox("Selection", this);
    selectionFrame_->setObjectName("DeleteFrame");
    selectAll_ = new QPushButton("Select All", selectionFrame_);
    selectAll_->setObjectName("SelectAllButton");
    clearChecks_ = new QPushButton("Clear", selectionFrame_);
    clearChecks_->setObjectName("CLRButton");
    auto* delLayout = new QHBoxLayout(selectionFrame_);
    delLayout->addWidget(selectAll_);
    delLayout->addWidget(clearChecks_);

    ok_ = new QPushButton(this);
    ok_->setObjectName("OKButton");
    exit_ = new QPushButton("Exit", this);
    exit_->setObjectName("ExitButton");
    for (QPushButton* b : {selectAll_, clearChecks_, ok_, exit_}) b->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(selectionFrame_);
    buttons->addStretch(1);
    buttons->addWidget(ok_, 0, Qt::AlignBottom);
    buttons->addWidget(exit_, 0, Qt::AlignBottom);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(prompt_);
    layout->addWidget(list_, 1);
    layout->addWidget(descriptionFrame_);
    layout->addLayout(buttons);

    // A row picked by click or arrow key is selected; the list's own choice of
    // a current row when it takes the focus is not, and picks nothing.
    connect(list_, &QTreeWidget::itemSelectionChanged, this, [this] {
        if (!list_->selectedItems().isEmpty()) Row_Picked(list_->currentItem());
    });
    connect(list_, &QTreeWidget::itemChanged, this, [this] {
        if (!filling_) Checks_Changed();
    });
    connect(selectAll_, &QPushButton::clicked, this, &RegistersWindow::Select_All);
    connect(clearChecks_, &QPushButton::clicked, this, &RegistersWindow::Clear_Checks);
    connect(ok_, &QPushButton::clicked, this, &RegistersWindow::Take_Register);
    connect(exit_, &QPushButton::clicked, this, &RegistersWindow::Leave);
    Set_Captions();
}

void RegistersWindow::Open(CalculatorState& s, QWidget* parent) {
    RegistersWindow frm(s, parent);
    frm.exec();
}

void RegistersWindow::Set_Captions() {
    const RegisterList::MemoryCaptions c = RegisterList::Memory_Captions(action_);
    setWindowTitle(c.Title);
    prompt_->setText(c.Prompt);
    ok_->setText(c.OkCaption);
    description_->setReadOnly(!c.DescriptionOpen);
    descriptionFrame_->setTitle(c.FrameCaption);
    selectionFrame_->setVisible(action_ == RegisterAction::Delete);
    ok_->setEnabled(false);

    list_->setHeaderLabels({"   Address", "              Value"});
    Fill_List();
    ListView::Size_Columns(list_, {1200, 2900});
    resize(ListView::Columns_Width(list_) + 60, 440);
}

void RegistersWindow::Fill_List() {
    filling_ = true;
    list_->clear();
    for (int i = 0; i < CalculatorFiles::kRegisterCount; ++i) {
        auto* item = new QTreeWidgetItem(list_);
        item->setText(0, Q(CalculatorFiles::Register_Name(i)));
        item->setText(1, Q(Calculator::Register_Value_Text(s_.Registers[size_t(i)].Value)));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        if (action_ == RegisterAction::Delete) item->setCheckState(0, Qt::Unchecked);
    }
    current_ = previous_ = 0;
    filling_ = false;
}

void RegistersWindow::Row_Picked(QTreeWidgetItem* item) {
    if (filling_ || item == nullptr) return;
    const int row = list_->indexOfTopLevelItem(item);
    if (row < 0) return;
    ok_->setEnabled(true);
    previous_ = current_;
    current_ = row + 1;

    filling_ = true;
    if (action_ != RegisterAction::Recall && action_ != RegisterAction::Delete)
        item->setText(1, Q(RegisterList::Register_Preview_Text(s_, action_, row)));
    if (previous_ != 0 && previous_ != current_)
        list_->topLevelItem(previous_ - 1)
            ->setText(1, Q(Calculator::Register_Value_Text(s_.Registers[size_t(previous_ - 1)].Value)));
    filling_ = false;
    if (action_ == RegisterAction::Delete) ok_->setEnabled(ListView::Checked_Count(list_) > 0);

    description_->setText(Q(RegisterList::Register_Description_Text(s_.Registers[size_t(row)])));
}

void RegistersWindow::Checks_Changed() { ok_->setEnabled(ListView::Checked_Count(list_) > 0); }

void RegistersWindow::Select_All() {
    filling_ = true;
    ListView::Set_All_Checks(list_, Qt::Checked);
    filling_ = false;
    ok_->setEnabled(true);
    description_->clear();
}

void RegistersWindow::Clear_Checks() {
    filling_ = true;
    ListView::Set_All_Checks(list_, Qt::Unchecked);
    filling_ = false;
    ok_->setEnabled(false);
    description_->clear();
}

bool RegistersWindow::Ask(const QString& question) {
    return QMessageBox::critical(this, "Warning", question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void RegistersWindow::Take_Register() {
    const int i = current_ - 1;
    s_.RegisterText.clear();
    if (action_ == RegisterAction::Recall) {
        if (i < 0) return;
        s_.RegisterChoice = i;
        accept();
        return;
    }
    if (action_ == RegisterAction::Delete) {
        if (!Ask("Are you sure you want to delete Selected Data?")) return;
        ok_->setEnabled(false);
        std::vector<int> checked;
        for (int r = 0; r < list_->topLevelItemCount(); ++r)
            if (list_->topLevelItem(r)->checkState(0) == Qt::Checked) checked.push_back(r);
        Calculator::Delete_Registers(s_, checked);
        Fill_List();
        description_->clear();
        return;
    }
    if (i < 0) return;
    const std::string question = RegisterList::Overwrite_Question(s_, i);
    if (!question.empty() && !Ask(Q(question))) {
        s_.RegisterChoice = -1;
        return;
    }
    s_.RegisterText = prim::Trim(S(description_->text()));
    s_.RegisterChoice = i;
    accept();
}

void RegistersWindow::Leave() { reject(); }

void RegistersWindow::reject() {
    s_.RegisterText.clear();
    s_.RegisterChoice = -1;
    QDialog::reject();
}
