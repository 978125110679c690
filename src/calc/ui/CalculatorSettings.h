// What the calculator keeps between runs: the read-out-loud switch and the M
// memory in the settings store, the registers in CalcMem.mem and the
// statistics data in SdfInput.sdf in the program's data folder.
#pragma once

#include <QString>

struct CalculatorState;
class QWidget;
class Voice;

namespace CalculatorSettings {

// "CalcReadOutLoud" in "SciCalcSetting", under the program's title: any
// number but 0 means on; 0 when missing.
bool ReadOutLoud();
void SaveReadOutLoud(bool on);

// The read-out-loud menu command: turns speech over, stores the switch (1 or
// 0) and cuts off the voice. Gives the new state for the menu's check mark.
bool Toggle_Read_Out(CalculatorState& s, Voice* voice);

// "MemoryIn" in "Setting", under the program's folder path: the M memory as
// plain number text; 0 when missing.
double MemoryIn();
void SaveMemoryIn(double value);

QString RegisterFilePath();  // <data folder>/CalcMem.mem
QString DataFilePath();      // <data folder>/SdfInput.sdf

// First opening of the calculator window in a run, before Initial_Routine:
// the registers from CalcMem.mem, the statistics data from SdfInput.sdf and
// the M memory. Later openings find them in the state, as the last close left
// them, even when a file could not be written. A damaged file is deleted with
// the warning box; a file that cannot be opened is kept, with the warning box.
void Load_Files(CalculatorState& s, QWidget* parent);
// Close of the calculator window: registers, data and the M memory. A file
// that could not be opened at the start is not overwritten; the box says so.
void Save_Files(CalculatorState& s, QWidget* parent);

}  // namespace CalculatorSettings
