// The "Model" choice of the weld and bolt windows: the program's own
// iteration (the default) or the AISC element model. One remembered choice
// for every window that offers it.
#pragma once

#include "shell/core/SolverModel.h"

class QComboBox;
class QWidget;

namespace shell {

// A combo box named "ModelBox" with "Iterative (default)" and "AISC element
// model", set to the remembered choice; every change is remembered at once.
QComboBox* NewSolverModelBox(QWidget* parent);
SolverModel SolverModelOf(const QComboBox* box);

}  // namespace shell
