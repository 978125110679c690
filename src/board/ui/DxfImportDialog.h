// The choices of a DXF import: which layers (each with its count of usable
// segments, all ticked at first), the units the drawing's numbers are read
// in (the drawing's own when it states them, else inches, to be confirmed),
// and whether the lines replace the layout or join it.
#pragma once

#include <QDialog>
#include <vector>

#include "board/core/DxfFile.h"
#include "board/core/DxfLayout.h"

class QComboBox;
class QDialogButtonBox;
class QListWidget;
class QRadioButton;

class DxfImportDialog : public QDialog {
    Q_OBJECT
public:
    DxfImportDialog(const Dxf::Drawing& drawing, const std::vector<int32_t>& usable, QWidget* parent = nullptr);
    // The layers ticked, the units chosen and replace or add.
    DxfLayout::ImportOptions Options() const;

private:
    void Layers_Changed();

    QListWidget* layerList_;
    QComboBox* unitsBox_;
    QRadioButton* replaceButton_;
    QDialogButtonBox* buttons_;
};
