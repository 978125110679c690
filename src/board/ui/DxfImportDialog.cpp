#include "board/ui/DxfImportDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "shell/ui/QtText.h"

namespace {

// The units the box offers, in its order.
constexpr Dxf::Units kUnits[] = {Dxf::Units::Inches, Dxf::Units::Feet, Dxf::Units::Millimetres,
                                 Dxf::Units::Centimetres, Dxf::Units::Metres};
const char* const kUnitNames[] = {"Inches", "Feet", "Millimetres", "Centimetres", "Metres"};

}  // namespace

DxfImportDialog::DxfImportDialog(const Dxf::Drawing& drawing, const std::vector<int32_t>& usable, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("DxfImportFrm"));
    setWindowTitle(QStringLiteral("Import DXF"));
    auto* layout = new QVBoxLayout(this);

    layout->addWidget(new QLabel(QStringLiteral("Layers with their straight segments:"), this));
    layerList_ = new QListWidget(this);
    layerList_->setObjectName(QStringLiteral("DxfLayerList"));
    for (size_t i = 0; i < drawing.Layers.size(); ++i) {
        const int32_t n = i < usable.size() ? usable[i] : 0;
        auto* item = new QListWidgetItem(QStringLiteral("%1  (%2)").arg(Q(drawing.Layers[i])).arg(n), layerList_);
        // A layer without a usable segment is shown but cannot be ticked.
        item->setFlags(n > 0 ? Qt::ItemIsUserCheckable | Qt::ItemIsEnabled : Qt::NoItemFlags);
        item->setCheckState(n > 0 ? Qt::Checked : Qt::Unchecked);
    }
    layout->addWidget(layerList_);

    auto* form = new QFormLayout();
    unitsBox_ = new QComboBox(this);
    unitsBox_->setObjectName(QStringLiteral("DxfUnitsBox"));
    int chosen = 0;
    for (int i = 0; i < static_cast<int>(std::size(kUnits)); ++i) {
        unitsBox_->addItem(QString::fromLatin1(kUnitNames[i]));
        if (kUnits[i] == drawing.units) chosen = i;
    }
    unitsBox_->setCurrentIndex(chosen);
    form->addRow(QStringLiteral("Units:"), unitsBox_);
    layout->addLayout(form);
    const bool stated = drawing.units != Dxf::Units::Unitless && drawing.units != Dxf::Units::Other;
    auto* note = new QLabel(stated ? QStringLiteral("The drawing states its units.")
                                   : QStringLiteral("The drawing states no units the board takes: choose them."),
                            this);
    note->setObjectName(QStringLiteral("DxfUnitsNote"));
    note->setWordWrap(true);
    layout->addWidget(note);

    replaceButton_ = new QRadioButton(QStringLiteral("Replace the layout"), this);
    replaceButton_->setObjectName(QStringLiteral("DxfReplaceButton"));
    replaceButton_->setChecked(true);
    auto* add = new QRadioButton(QStringLiteral("Add to the layout"), this);
    add->setObjectName(QStringLiteral("DxfAddButton"));
    layout->addWidget(replaceButton_);
    layout->addWidget(add);

    buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons_->setObjectName(QStringLiteral("DxfButtons"));
    buttons_->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("DxfOkButton"));
    buttons_->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("DxfCancelButton"));
    layout->addWidget(buttons_);
    connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(layerList_, &QListWidget::itemChanged, this, &DxfImportDialog::Layers_Changed);
    Layers_Changed();
}

// With no layer ticked there is nothing to import.
void DxfImportDialog::Layers_Changed() {
    bool any = false;
    for (int i = 0; i < layerList_->count(); ++i) any = any || layerList_->item(i)->checkState() == Qt::Checked;
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(any);
}

DxfLayout::ImportOptions DxfImportDialog::Options() const {
    DxfLayout::ImportOptions o;
    for (int i = 0; i < layerList_->count(); ++i) o.layers.push_back(layerList_->item(i)->checkState() == Qt::Checked);
    o.units = kUnits[std::max(0, unitsBox_->currentIndex())];
    o.replace = replaceButton_->isChecked();
    return o;
}
