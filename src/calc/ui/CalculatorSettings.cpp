#include "calc/ui/CalculatorSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>

#include "calc/core/CalculatorFiles.h"
#include "calc/core/CalculatorState.h"
#include "calc/ui/Voice.h"
#include "shell/core/FileIO.h"
#include "shell/core/Primitives.h"
#include "shell/ui/QtText.h"
#include "shell/ui/SettingsStore.h"

namespace CalculatorSettings {

namespace {

QString ProgramFolder() { return QDir::toNativeSeparators(QCoreApplication::applicationDirPath()); }

void Warn(const CalculatorFiles::FileStatus& st, QWidget* parent) {
    if (!st.ShowMessage()) return;
    QMessageBox::critical(parent, CalculatorFiles::FileStatus::MessageTitle, Q(st.Message()));
}

// A file left unread at the start keeps its bytes; say again why it is not written.
void WarnUnread(const QString& path, QWidget* parent) {
    std::string bytes;
    fileio::IoError e;
    if (fileio::ReadWhole(S(path), 1, bytes, e) != fileio::ReadOutcome::Unreadable)
        e = fileio::MakeError(fileio::kErrPermission);
    QMessageBox::critical(parent, CalculatorFiles::FileStatus::MessageTitle, Q(e.Message()));
}

}  // namespace

bool ReadOutLoud() {
    const QString v = settings::GetSetting(settings::ProgramTitle(), "SciCalcSetting", "CalcReadOutLoud", "0");
    return prim::Val(S(v)) != 0;
}

void SaveReadOutLoud(bool on) {
    settings::SaveSetting(settings::ProgramTitle(), "SciCalcSetting", "CalcReadOutLoud", on ? "1" : "0");
}

bool Toggle_Read_Out(CalculatorState& s, Voice* voice) {
    s.ReadOutOn = !s.ReadOutOn;
    SaveReadOutLoud(s.ReadOutOn);
    if (voice != nullptr) voice->Speak(QString());
    return s.ReadOutOn;
}

double MemoryIn() { return prim::Val(S(settings::GetSetting(ProgramFolder(), "Setting", "MemoryIn", "0"))); }

void SaveMemoryIn(double value) {
    settings::SaveSetting(ProgramFolder(), "Setting", "MemoryIn", Q(prim::PlainText(value)));
}

QString RegisterFilePath() { return settings::DataFolder() + "/" + CalculatorFiles::kRegisterFileName; }
QString DataFilePath() { return settings::DataFolder() + "/" + CalculatorFiles::kDataFileName; }

void Load_Files(CalculatorState& s, QWidget* parent) {
    using Outcome = CalculatorFiles::FileStatus::Outcome;
    CalculatorFiles::RegisterArray registers;
    const CalculatorFiles::FileStatus st = CalculatorFiles::Load_Registers(S(RegisterFilePath()).c_str(), registers);
    // A file that cannot be opened leaves the registers of this run as they are.
    if (st.outcome != Outcome::Unreadable) s.Registers = registers;
    s.RegisterFileUnread = st.outcome == Outcome::Unreadable;
    Warn(st, parent);
    CalculatorFiles::DataList data;
    const CalculatorFiles::FileStatus sd = CalculatorFiles::Load_Data(S(DataFilePath()).c_str(), data);
    if (sd.outcome != Outcome::Unreadable) s.DataValues = data;
    s.DataFileUnread = sd.outcome == Outcome::Unreadable;
    Warn(sd, parent);
    s.MemoryValue = MemoryIn();
    s.Shown.MemoryMark = s.MemoryValue != 0 ? "MEM" : "";
}

void Save_Files(CalculatorState& s, QWidget* parent) {
    if (s.RegisterFileUnread)
        WarnUnread(RegisterFilePath(), parent);
    else
        Warn(CalculatorFiles::Save_Registers(S(RegisterFilePath()).c_str(), s.Registers), parent);
    if (s.DataFileUnread)
        WarnUnread(DataFilePath(), parent);
    else
        Warn(CalculatorFiles::Save_Data(S(DataFilePath()).c_str(), s.DataValues), parent);
    SaveMemoryIn(s.MemoryValue);
}

}  // namespace CalculatorSettings
