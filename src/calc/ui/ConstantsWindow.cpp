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

    ItemBox = ListView::New_ItemBox(this);

    ValueFrame = new QGroupBox("Constant No.", this);
    ValueFrame->setObjectName("ValueFrame");
    ValueBox = new QLineEdit(ValueFrame);
    ValueBox->setObjectName("ValueBox");
    ValueBox->setReadOnly(true);
    auto* frameLayout = new QHBoxLayout(ValueFrame);
    frameLayout->addWidget(ValueBox);

    OKButton = new QPushButton("OK", this);
    OKButton->setObjectName("OKButton");
    OKButton->setEnabled(false);
    ExitButton = new QPushButton("Exit", this);
    ExitButton->setObjectName("ExitButton");
    for (QPushButton* b : {OKButton, ExitButton}) b->setAutoDefault(false);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(ValueFrame, 1);
    bottom->addWidget(OKButton, 0, Qt::AlignBottom);
    bottom->addWidget(ExitButton, 0, Qt::AlignBottom);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ItemBox, 1);
    layout->addLayout(bottom);

    // A row picked by click or arrow key is selected; the list's own choice of
    // a current row when it takes the focus is not, and picks nothing.
    connect(ItemBox, &QTreeWidget::itemSelectionChanged, this, [this] {
        if (!ItemBox->selectedItems().isEmpty()) ItemBox_ItemClick(ItemBox->currentItem());
    });
    // A double click takes the row at once.
    connect(ItemBox, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        ItemBox_ItemClick(item);
        OKButton_Click();
    });
    connect(OKButton, &QPushButton::clicked, this, &ConstantsWindow::OKButton_Click);
    connect(ExitButton, &QPushButton::clicked, this, &ConstantsWindow::ExitButton_Click);
    Form_Load();
}

void ConstantsWindow::Open(CalculatorState& s, QWidget* parent) {
    ConstantsWindow frm(s, parent);
    frm.exec();
}

void ConstantsWindow::Form_Load() {
    ItemBox->setHeaderLabels({" No.", "Symbol", "Description", "Value  ", "Unit"});
    ItemBox->headerItem()->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    Constants::Load_Constants(s_.Constants);
    for (const Constants::ConstantRecord& r : s_.Constants.ConstantData) {
        auto* item = new QTreeWidgetItem(ItemBox);
        item->setText(0, QString::number(r.Number) + "  ");
        item->setText(1, Q(r.Symbol));
        item->setText(2, Q(r.Description));
        item->setText(3, Q(prim::Format(r.Value, kValuePicture)));
        item->setTextAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(4, Q(r.Unit));
    }
    for (int c = 0; c < ItemBox->columnCount(); ++c) ItemBox->resizeColumnToContents(c);
    ItemBox->setColumnWidth(2, std::min(ItemBox->columnWidth(2), fontMetrics().averageCharWidth() * 34));
    resize(ListView::Columns_Width(ItemBox) + 60, 460);
}

void ConstantsWindow::ItemBox_ItemClick(QTreeWidgetItem* item) {
    if (item == nullptr) return;
    const int row = ItemBox->indexOfTopLevelItem(item);
    if (row < 0 || row >= Constants::kConstantCount) return;
    const Constants::ConstantRecord& r = s_.Constants.ConstantData[size_t(row)];
    OKButton->setEnabled(true);
    ValueFrame->setTitle("Constant No. " + QString::number(r.Number));
    ValueBox->setText("  " + Q(prim::PlainText(r.Value)));
}

void ConstantsWindow::OKButton_Click() {
    s_.ConstantChoice = prim::Variant(S(ValueBox->text()));
    accept();
}

void ConstantsWindow::ExitButton_Click() {
    s_.ConstantChoice = prim::Variant();
    reject();
}
