#include "calc/ui/ConstantsWindow.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "calc/ui/ListView.h"
#include "calc/core/CalculatorState.h"
#include "calc/core/Constants.h"
#include "shell/core/Primitives.h"
#include "shell/ui/QtText.h"

namespace {

constexpr const char* kValuePicture = "##,##0.00####################";

}  // namespace

ConstantsWindow::ConstantsWindow(CalculatorState& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("CalcConstantFrm");
    setWindowTitle("Constants");

    list_ = ListView::New_ItemBox(this);

    valueFrame_ = new QGroupBox("Constant No.", this);
    valueFrame_->setObjectName("ValueFrame");
    value_ = new QLineEdit(valueFrame_);
    value_->setObjectName("ValueBox");
    value_->setReadOnly(true);
    auto* frameLayout = new QHBoxLayout(valueFrame_);
    frameLayout->addWidget(value_);

    ok_ = new QPushButton("OK", this);
    ok_->setObjectName("OKButton");
    ok_->setEnabled(false);
    exit_ = new QPushButton("Exit", this);
    exit_->setObjectName("ExitButton");
    for (QPushButton* b : {ok_, exit_}) b->setAutoDefault(false);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(valueFrame_, 1);
    bottom->addWidget(ok_, 0, Qt::AlignBottom);
    bottom->addWidget(exit_, 0, Qt::AlignBottom);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_, 1);
    layout->addLayout(bottom);

    // A row picked by click or arrow key is selected; the list's own choice of
    // a current row when it takes the focus is not, and picks nothing.
    connect(list_, &QTreeWidget::itemSelectionChanged, this, [this] {
        if (!list_->selectedItems().isEmpty()) Row_Picked(list_->currentItem());
    });
    // A double click takes the row at once.
    connect(list_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        Row_Picked(item);
        Take_Value();
    });
    connect(ok_, &QPushButton::clicked, this, &ConstantsWindow::Take_Value);
    connect(exit_, &QPushButton::clicked, this, &ConstantsWindow::Leave);
    Fill_List();
}

void ConstantsWindow::Open(CalculatorState& s, QWidget* parent) {
    ConstantsWindow frm(s, parent);
    frm.exec();
}

void ConstantsWindow::Fill_List() {
    list_->setHeaderLabels({" No.", "Symbol", "Description", "Value  ", "Unit"});
    list_->headerItem()->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    Constants::Load_Constants(s_.Constants);
    for (const Constants::ConstantRecord& r : s_.Constants.ConstantData) {
        auto* item = new QTreeWidgetItem(list_);
        item->setText(0, QString::number(r.Number) + "  ");
        item->setText(1, Q(r.Symbol));
        item->setText(2, Q(r.Description));
        item->setText(3, Q(prim::Format(r.Value, kValuePicture)));
        item->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(4, Q(r.Unit));
    }
    for (int c = 0; c < list_->columnCount(); ++c) list_->resizeColumnToContents(c);
    list_->setColumnWidth(2, std::min(list_->columnWidth(2), fontMetrics().averageCharWidth() * 34));
    resize(ListView::Columns_Width(list_) + 60, 460);
}

void ConstantsWindow::Row_Picked(QTreeWidgetItem* item) {
    if (item == nullptr) return;
    const int row = list_->indexOfTopLevelItem(item);
    if (row < 0 || row >= Constants::kConstantCount) return;
    const Constants::ConstantRecord& r = s_.Constants.ConstantData[size_t(row)];
    ok_->setEnabled(true);
    valueFrame_->setTitle("Constant No. " + QString::number(r.Number));
    value_->setText("  " + Q(prim::PlainText(r.Value)));
}

void ConstantsWindow::Take_Value() {
    s_.ConstantChoice = prim::Variant(S(value_->text()));
    accept();
}

void ConstantsWindow::Leave() {
    s_.ConstantChoice = prim::Variant();
    reject();
}
