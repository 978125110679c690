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

    Lab1 = new QLabel(this);
    Lab1->setObjectName("Lab1");

    ItemBox = ListView::New_ItemBox(this);

    DecFrame = new QGroupBox(this);
    DecFrame->setObjectName("DecFrame");
    DescBox = new QLineEdit(DecFrame);
    DescBox->setObjectName("DescBox");
    auto* descLayout = new QHBoxLayout(DecFrame);
    descLayout->addWidget(DescBox);

    DeleteFrame = new QGroupBox("Selection", this);
    DeleteFrame->setObjectName("DeleteFrame");
    SelectAllButton = new QPushButton("Select All", DeleteFrame);
    SelectAllButton->setObjectName("SelectAllButton");
    CLRButton = new QPushButton("Clear", DeleteFrame);
    CLRButton->setObjectName("CLRButton");
    auto* delLayout = new QHBoxLayout(DeleteFrame);
    delLayout->addWidget(SelectAllButton);
    delLayout->addWidget(CLRButton);

    OKButton = new QPushButton(this);
    OKButton->setObjectName("OKButton");
    ExitButton = new QPushButton("Exit", this);
    ExitButton->setObjectName("ExitButton");
    for (QPushButton* b : {SelectAllButton, CLRButton, OKButton, ExitButton}) b->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(DeleteFrame);
    buttons->addStretch(1);
    buttons->addWidget(OKButton, 0, Qt::AlignBottom);
    buttons->addWidget(ExitButton, 0, Qt::AlignBottom);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Lab1);
    layout->addWidget(ItemBox, 1);
    layout->addWidget(DecFrame);
    layout->addLayout(buttons);

    // A row picked by click or arrow key is selected; the list's own choice of
    // a current row when it takes the focus is not, and picks nothing.
    connect(ItemBox, &QTreeWidget::itemSelectionChanged, this, [this] {
        if (!ItemBox->selectedItems().isEmpty()) ItemBox_ItemClick(ItemBox->currentItem());
    });
    connect(ItemBox, &QTreeWidget::itemChanged, this, [this] {
        if (!filling_) ItemBox_ItemCheck();
    });
    connect(SelectAllButton, &QPushButton::clicked, this, &RegistersWindow::SelectAllButton_Click);
    connect(CLRButton, &QPushButton::clicked, this, &RegistersWindow::CLRButton_Click);
    connect(OKButton, &QPushButton::clicked, this, &RegistersWindow::OKButton_Click);
    connect(ExitButton, &QPushButton::clicked, this, &RegistersWindow::ExitButton_Click);
    Form_Load();
}

void RegistersWindow::Open(CalculatorState& s, QWidget* parent) {
    RegistersWindow frm(s, parent);
    frm.exec();
}

void RegistersWindow::Form_Load() {
    const RegisterList::MemoryCaptions c = RegisterList::Memory_Captions(action_);
    setWindowTitle(c.Title);
    Lab1->setText(c.Prompt);
    OKButton->setText(c.OkCaption);
    DescBox->setReadOnly(!c.DescriptionOpen);
    DecFrame->setTitle(c.FrameCaption);
    DeleteFrame->setVisible(action_ == RegisterAction::Delete);
    OKButton->setEnabled(false);

    ItemBox->setHeaderLabels({"   Address", "              Value"});
    Fill_List();
    ListView::Size_Columns(ItemBox, {1200, 2900});
    resize(ListView::Columns_Width(ItemBox) + 60, 440);
}

void RegistersWindow::Fill_List() {
    filling_ = true;
    ItemBox->clear();
    for (int i = 0; i < CalculatorFiles::kRegisterCount; ++i) {
        auto* item = new QTreeWidgetItem(ItemBox);
        item->setText(0, Q(CalculatorFiles::Register_Name(i)));
        item->setText(1, Q(Calculator::Register_Value_Text(s_.Registers[size_t(i)].Value)));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        if (action_ == RegisterAction::Delete) item->setCheckState(0, Qt::Unchecked);
    }
    current_ = previous_ = 0;
    filling_ = false;
}

int RegistersWindow::CheckedCount() const {
    int n = 0;
    for (int i = 0; i < ItemBox->topLevelItemCount(); ++i)
        if (ItemBox->topLevelItem(i)->checkState(0) == Qt::Checked) ++n;
    return n;
}

void RegistersWindow::ItemBox_ItemClick(QTreeWidgetItem* item) {
    if (filling_ || item == nullptr) return;
    const int row = ItemBox->indexOfTopLevelItem(item);
    if (row < 0) return;
    OKButton->setEnabled(true);
    previous_ = current_;
    current_ = row + 1;

    filling_ = true;
    if (action_ != RegisterAction::Recall && action_ != RegisterAction::Delete)
        item->setText(1, Q(RegisterList::Register_Preview_Text(s_, action_, row)));
    if (previous_ != 0 && previous_ != current_)
        ItemBox->topLevelItem(previous_ - 1)
            ->setText(1, Q(Calculator::Register_Value_Text(s_.Registers[size_t(previous_ - 1)].Value)));
    filling_ = false;
    if (action_ == RegisterAction::Delete) OKButton->setEnabled(CheckedCount() > 0);

    DescBox->setText(Q(RegisterList::Register_Description_Text(s_.Registers[size_t(row)])));
}

void RegistersWindow::ItemBox_ItemCheck() { OKButton->setEnabled(CheckedCount() > 0); }

void RegistersWindow::SelectAllButton_Click() {
    filling_ = true;
    for (int i = 0; i < ItemBox->topLevelItemCount(); ++i) ItemBox->topLevelItem(i)->setCheckState(0, Qt::Checked);
    filling_ = false;
    OKButton->setEnabled(true);
    DescBox->clear();
}

void RegistersWindow::CLRButton_Click() {
    filling_ = true;
    for (int i = 0; i < ItemBox->topLevelItemCount(); ++i) ItemBox->topLevelItem(i)->setCheckState(0, Qt::Unchecked);
    filling_ = false;
    OKButton->setEnabled(false);
    DescBox->clear();
}

bool RegistersWindow::Ask(const QString& question) {
    return QMessageBox::critical(this, "Warning", question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void RegistersWindow::OKButton_Click() {
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
        OKButton->setEnabled(false);
        std::vector<int> checked;
        for (int r = 0; r < ItemBox->topLevelItemCount(); ++r)
            if (ItemBox->topLevelItem(r)->checkState(0) == Qt::Checked) checked.push_back(r);
        Calculator::Delete_Registers(s_, checked);
        Fill_List();
        DescBox->clear();
        return;
    }
    if (i < 0) return;
    const std::string question = RegisterList::Overwrite_Question(s_, i);
    if (!question.empty() && !Ask(Q(question))) {
        s_.RegisterChoice = -1;
        return;
    }
    s_.RegisterText = prim::Trim(S(DescBox->text()));
    s_.RegisterChoice = i;
    accept();
}

void RegistersWindow::ExitButton_Click() { reject(); }

void RegistersWindow::reject() {
    s_.RegisterText.clear();
    s_.RegisterChoice = -1;
    QDialog::reject();
}
