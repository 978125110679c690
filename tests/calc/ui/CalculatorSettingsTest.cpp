#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "support/GuiTestSupport.h"
#include "calc/ui/CalculatorSettings.h"
#include "calc/core/CalculatorState.h"
#include "calc/ui/Voice.h"
#include "shell/ui/SettingsStore.h"

namespace {

class CalcSettingsTest : public testing::Test {
protected:
    void SetUp() override { Clean(); }
    void TearDown() override { Clean(); }
    void Clean() {
        QFile::remove(CalculatorSettings::RegisterFilePath());
        QDir(CalculatorSettings::RegisterFilePath()).removeRecursively();
        QFile::remove(CalculatorSettings::DataFilePath());
        QFile::remove(settings::SettingsFilePath());
    }
    // A calculator that has been used: registers, data, M memory.
    static void Fill(CalculatorState& s) {
        s.Registers[0] = {12.5, "beam span"};
        s.Registers[99] = {-3e-20, "Grüße"};
        s.DataValues.kind = CalculatorFiles::DataList::Kind::List;
        s.DataValues.Values = {1, 2.5, -7};
        s.MemoryValue = 42.125;
    }

    guitest::ModalWatchdog boxes_;
};

TEST_F(CalcSettingsTest, ReadOutLoudIsAnyNumberButZero) {
    EXPECT_FALSE(CalculatorSettings::ReadOutLoud());
    const char* on[] = {"1", "5", " -1", "2.5"};
    const char* off[] = {"0", "abc", "", "0.0"};
    const QString title = settings::ProgramTitle();
    for (const char* v : on) {
        settings::SaveSetting(title, "SciCalcSetting", "CalcReadOutLoud", v);
        EXPECT_TRUE(CalculatorSettings::ReadOutLoud()) << v;
    }
    for (const char* v : off) {
        settings::SaveSetting(title, "SciCalcSetting", "CalcReadOutLoud", v);
        EXPECT_FALSE(CalculatorSettings::ReadOutLoud()) << v;
    }
}

TEST_F(CalcSettingsTest, ReadOutMenuTogglesStoresAndCutsOff) {
    Voice voice;
    CalculatorState s;
    EXPECT_TRUE(CalculatorSettings::Toggle_Read_Out(s, &voice));
    EXPECT_TRUE(s.ReadOutOn);
    EXPECT_EQ(settings::GetSetting(settings::ProgramTitle(), "SciCalcSetting", "CalcReadOutLoud"), "1");
    EXPECT_TRUE(CalculatorSettings::ReadOutLoud());
    EXPECT_FALSE(CalculatorSettings::Toggle_Read_Out(s, &voice));
    EXPECT_FALSE(s.ReadOutOn);
    EXPECT_EQ(settings::GetSetting(settings::ProgramTitle(), "SciCalcSetting", "CalcReadOutLoud"), "0");
    EXPECT_EQ(voice.Speaking(), "");
}

TEST_F(CalcSettingsTest, MemoryInIsKeptUnderTheProgramFolder) {
    EXPECT_EQ(CalculatorSettings::MemoryIn(), 0.0);
    for (double v : {42.125, -1.5e-20, 1e300, 0.0}) {
        CalculatorSettings::SaveMemoryIn(v);
        EXPECT_EQ(CalculatorSettings::MemoryIn(), v);
    }
    CalculatorSettings::SaveMemoryIn(7);
    const QString folder = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
    EXPECT_EQ(settings::GetSetting(folder, "Setting", "MemoryIn"), "7");
    EXPECT_EQ(settings::GetSetting(settings::ProgramTitle(), "Setting", "MemoryIn"), "");
}

TEST_F(CalcSettingsTest, RegistersDataAndMemorySurviveARestart) {
    {
        CalculatorState s;
        CalculatorSettings::Load_Files(s, nullptr);  // first run: nothing there
        EXPECT_EQ(s.Registers[0].Value, 0.0);
        EXPECT_FALSE(s.DataValues.IsList());
        EXPECT_EQ(s.Shown.MemoryMark, "");
        Fill(s);
        CalculatorSettings::Save_Files(s, nullptr);
    }
    EXPECT_EQ(QFileInfo(CalculatorSettings::RegisterFilePath()).size(), 1000 + 9 + 5);  // descriptions in Windows-1252
    CalculatorState s;
    CalculatorSettings::Load_Files(s, nullptr);
    EXPECT_EQ(s.Registers[0].Value, 12.5);
    EXPECT_EQ(s.Registers[0].Description, "beam span");
    EXPECT_EQ(s.Registers[99].Value, -3e-20);
    EXPECT_EQ(s.Registers[99].Description, "Grüße");
    EXPECT_EQ(s.DataValues.Values, (std::vector<double>{1, 2.5, -7}));
    EXPECT_EQ(s.MemoryValue, 42.125);
    EXPECT_EQ(s.Shown.MemoryMark, "MEM");
    EXPECT_TRUE(boxes_.Seen().isEmpty());
}

TEST_F(CalcSettingsTest, DamagedFileIsDeletedWithTheWarningAndNothingElseIsLost) {
    CalculatorState before;
    Fill(before);
    CalculatorSettings::Save_Files(before, nullptr);
    QFile f(CalculatorSettings::RegisterFilePath());
    ASSERT_TRUE(f.resize(500));  // cut short

    CalculatorState s;
    CalculatorSettings::Load_Files(s, nullptr);
    ASSERT_EQ(boxes_.Seen().size(), 1);
    EXPECT_EQ(boxes_.Seen()[0].title, "Warning:");
    EXPECT_EQ(boxes_.Seen()[0].text, "Error No. 62:  Input past end of file");
    EXPECT_EQ(boxes_.Seen()[0].icon, QMessageBox::Critical);
    EXPECT_FALSE(QFileInfo::exists(CalculatorSettings::RegisterFilePath()));
    EXPECT_EQ(s.Registers[0].Value, 0.0);
    EXPECT_EQ(s.DataValues.Values, before.DataValues.Values);  // the other file is read as usual
    EXPECT_EQ(s.MemoryValue, 42.125);
}

TEST_F(CalcSettingsTest, FileThatCannotBeOpenedIsKeptAndNeverOverwritten) {
    // A folder where the register file should be: it cannot be opened.
    ASSERT_TRUE(QDir().mkpath(CalculatorSettings::RegisterFilePath() + "/inside"));
    CalculatorState s;
    s.Registers[5] = {5, "from this run"};
    CalculatorSettings::Load_Files(s, nullptr);
    ASSERT_EQ(boxes_.Seen().size(), 1);
    EXPECT_EQ(boxes_.Seen()[0].text, "Error No. 75:  Path/File access error");
    EXPECT_EQ(s.Registers[5].Description, "from this run");
    EXPECT_TRUE(QFileInfo::exists(CalculatorSettings::RegisterFilePath() + "/inside"));

    boxes_.Clear();
    s.DataValues.kind = CalculatorFiles::DataList::Kind::List;
    s.DataValues.Values = {3};
    CalculatorSettings::Save_Files(s, nullptr);
    ASSERT_EQ(boxes_.Seen().size(), 1);
    EXPECT_EQ(boxes_.Seen()[0].text, "Error No. 75:  Path/File access error");
    EXPECT_TRUE(QFileInfo::exists(CalculatorSettings::RegisterFilePath() + "/inside"));
    EXPECT_TRUE(QFileInfo(CalculatorSettings::DataFilePath()).isFile());  // the other file is written
}

}  // namespace
