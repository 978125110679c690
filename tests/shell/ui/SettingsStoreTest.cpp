#include <gtest/gtest.h>

#include <QFile>

#include "shell/ui/RecentFiles.h"
#include "shell/ui/SettingsStore.h"

namespace {

class SettingsStoreTest : public ::testing::Test {
protected:
    void SetUp() override {
        QFile::remove(settings::SettingsFilePath());
        QFile::remove(recent::RecentFilePath());
    }
};

TEST_F(SettingsStoreTest, ValuesAreKeptByApplicationSectionAndKeyAndMissingOnesGiveTheirDefaults) {
    EXPECT_EQ(settings::GetSetting("Ferrolith", "FerrolithSetting", "WeldStrip", "3"), "3");
    EXPECT_EQ(settings::GetSettingInt("Ferrolith", "TrussmereSetting", "cFlexRows", 16), 16);
    settings::SaveSetting("Ferrolith", "FerrolithSetting", "WeldSize", "7");
    settings::SaveSetting("unwanted instance", "FerrolithSetting", "WeldSize", "2");
    settings::SaveSetting("/opt/ferrolith/bin", "Setting", "MemoryIn", "3.25");
    EXPECT_EQ(settings::GetSetting("Ferrolith", "FerrolithSetting", "WeldSize"), "7");
    EXPECT_EQ(settings::GetSetting("unwanted instance", "FerrolithSetting", "WeldSize"), "2");
    EXPECT_EQ(settings::GetSetting("/opt/ferrolith/bin", "Setting", "MemoryIn"), "3.25");
    EXPECT_EQ(settings::GetSetting("Ferrolith", "SciCalcSetting", "WeldSize", "none"), "none");
    settings::SaveSetting("Ferrolith", "FerrolithSetting", "WeldSize", "x");
    EXPECT_EQ(settings::GetSettingInt("Ferrolith", "FerrolithSetting", "WeldSize", 3), 3);
}

TEST_F(SettingsStoreTest, RecentListRollsAndNeverRepeats) {
    recent::SaveAsRecent("/a.wld");
    recent::SaveAsRecent("/a.wld");  // reopening the only entry keeps one
    EXPECT_EQ(recent::RecentPaths(), QStringList({"/a.wld"}));
    for (int i = 1; i <= 9; ++i) recent::SaveAsRecent(QString("/tmp/f%1.wld").arg(i));
    QStringList list = recent::RecentPaths();
    ASSERT_EQ(list.size(), 8);
    EXPECT_EQ(list.first(), "/tmp/f9.wld");
    EXPECT_EQ(list.last(), "/tmp/f2.wld") << "the first one falls off";

    recent::SaveAsRecent("/tmp/f5.wld");
    list = recent::RecentPaths();
    ASSERT_EQ(list.size(), 8);
    EXPECT_EQ(list.mid(0, 6), QStringList({"/tmp/f5.wld", "/tmp/f9.wld", "/tmp/f8.wld", "/tmp/f7.wld",
                                           "/tmp/f6.wld", "/tmp/f4.wld"}));
    EXPECT_EQ(list.count("/tmp/f5.wld"), 1);

    recent::SaveAsRecent("unnamed.WLD");
    EXPECT_EQ(recent::RecentPaths().first(), "/tmp/f5.wld");
    recent::SaveAsRecent("/tmp/F5.wld");
    EXPECT_EQ(recent::RecentPaths().mid(0, 2), QStringList({"/tmp/F5.wld", "/tmp/f5.wld"}))
        << "paths that differ in case are different entries";
}

}  // namespace
