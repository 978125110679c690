// What the calculator keeps between runs: the read-out switch and the M
// memory in the settings, the registers and data in their files, with the
// warnings the window shows.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "calc/core/CalculatorState.h"
#include "calc/ui/CalculatorSettings.h"
#include "calc/ui/Voice.h"
#include "shell/ui/SettingsStore.h"
#include "support/GuiTestSupport.h"

namespace {

class CalcSettingsTest : public testing::Test {
protected:
    void SetUp() override { Clean(); }
    void TearDown() override { Clean(); }
    void Clean() {
        QFile::remove(CalculatorSettings::RegisterFilePath());
        QDir(CalculatorSettings::RegisterFilePath()).removeRecursively();
        QFile::remove(CalculatorSettings::DataFilePath());
        QDir(CalculatorSettings::DataFilePath()).removeRecursively();
        QFile::remove(settings::SettingsFilePath());
    }
    // A calculator that has been used: registers, data, M memory.
    static void Fill(CalculatorState& s) {
        s.Registers[0] = {12.5, "beam span"};
        s.Registers[99] = {-3e-20, "Grüße"};
        s.DataValues = {CalculatorFiles::DataList::Kind::List, {1, 2.5, -7}};
        s.MemoryValue = 42.125;
    }
    QString ReadOutSetting() {
        return settings::GetSetting(settings::ProgramTitle(), "SciCalcSetting", "CalcReadOutLoud");
    }

    guitest::ModalWatchdog boxes_;
};

TEST_F(CalcSettingsTest, ReadOutLoudIsAnyNumberButZeroAndTheMenuTogglesIt) {
    EXPECT_FALSE(CalculatorSettings::ReadOutLoud());
    const std::pair<const char*, bool> values[] = {{"1", true},  {"5", true},    {" -1", true}, {"2.5", true},
                                                   {"0", false}, {"abc", false}, {"", false},   {"0.0", false}};
    for (const auto& [v, on] : values) {
        settings::SaveSetting(settings::ProgramTitle(), "SciCalcSetting", "CalcReadOutLoud", v);
        EXPECT_EQ(CalculatorSettings::ReadOutLoud(), on) << v;
    }
    Voice voice;
    CalculatorState s;
    EXPECT_TRUE(CalculatorSettings::Toggle_Read_Out(s, &voice));
    EXPECT_TRUE(s.ReadOutOn);
    EXPECT_EQ(ReadOutSetting(), "1");
    EXPECT_FALSE(CalculatorSettings::Toggle_Read_Out(s, &voice));
    EXPECT_EQ(ReadOutSetting(), "0");
    EXPECT_EQ(voice.Speaking(), "");
}

TEST_F(CalcSettingsTest, MemoryInIsKeptUnderTheProgramFolder) {
    EXPECT_EQ(CalculatorSettings::MemoryIn(), 0.0);
    CalculatorSettings::SaveMemoryIn(-1.5e-20);
    EXPECT_EQ(CalculatorSettings::MemoryIn(), -1.5e-20);
    const QString folder = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
    EXPECT_EQ(settings::GetSetting(folder, "Setting", "MemoryIn"), "-1.5E-20");
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
    EXPECT_EQ(QFileInfo(CalculatorSettings::RegisterFilePath()).size(), 1000 + 9 + 5);  // in Windows-1252
    CalculatorState s, before;
    Fill(before);
    CalculatorSettings::Load_Files(s, nullptr);
    EXPECT_EQ(s.Registers[99].Description, "Grüße");
    EXPECT_EQ(CalculatorFiles::Encode_Registers(s.Registers), CalculatorFiles::Encode_Registers(before.Registers));
    EXPECT_EQ(s.DataValues.Values, before.DataValues.Values);
    EXPECT_EQ(s.MemoryValue, 42.125);
    EXPECT_EQ(s.Shown.MemoryMark, "MEM");
    EXPECT_TRUE(boxes_.Seen().isEmpty());
}

// A damaged register file is deleted; a data file that cannot be opened is
// kept, and never overwritten; each with its warning, and nothing else lost.
TEST_F(CalcSettingsTest, DamagedAndUnreadableFilesWithTheirWarnings) {
    CalculatorState before;
    Fill(before);
    CalculatorSettings::Save_Files(before, nullptr);
    ASSERT_TRUE(QFile(CalculatorSettings::RegisterFilePath()).resize(500));  // cut short
    ASSERT_TRUE(QFile::remove(CalculatorSettings::DataFilePath()));
    const QString inside = CalculatorSettings::DataFilePath() + "/inside";  // a folder: it cannot be opened
    ASSERT_TRUE(QDir().mkpath(inside));
    CalculatorState s;
    s.DataValues = {CalculatorFiles::DataList::Kind::List, {3}};  // the data of this run stay
    CalculatorSettings::Load_Files(s, nullptr);
    EXPECT_FALSE(QFileInfo::exists(CalculatorSettings::RegisterFilePath()));
    EXPECT_EQ(s.Registers[0].Value, 0.0);
    EXPECT_EQ(s.DataValues.Values, std::vector<double>{3});
    EXPECT_EQ(s.MemoryValue, 42.125);            // the settings are read as usual
    CalculatorSettings::Save_Files(s, nullptr);  // the close
    QStringList boxes;
    for (const auto& box : boxes_.Seen()) boxes << box.title + " " + box.text;
    EXPECT_EQ(boxes, (QStringList{"Warning: Error No. 62:  Input past end of file",
                                  "Warning: Error No. 75:  Path/File access error",
                                  "Warning: Error No. 75:  Path/File access error"}));
    EXPECT_EQ(boxes_.Seen()[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(QFileInfo::exists(inside));
    EXPECT_TRUE(QFileInfo(CalculatorSettings::RegisterFilePath()).isFile());  // written anew
}

}  // namespace
