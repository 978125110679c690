#include <gtest/gtest.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QProcess>
#include <QTemporaryDir>

#include "shell/ui/SingleInstance.h"

namespace {

class SingleInstanceTest : public testing::Test {
protected:
    void TearDown() override {
        if (first_.state() != QProcess::NotRunning) {
            first_.kill();
            first_.waitForFinished(5000);
        }
    }
    // Starts a copy that claims the name and waits until it listens.
    void StartFirst() {
        first_.start(FERROLITH_PROBE, {name_, "first"});
        ASSERT_TRUE(first_.waitForReadyRead(10000));
        ASSERT_EQ(first_.readLine(), "listening\n");
    }
    // Runs a second copy to its end; its exit code and run time.
    int RunSecond(qint64* ms = nullptr) {
        QProcess second;
        QElapsedTimer t;
        t.start();
        second.start(FERROLITH_PROBE, {name_, "second"});
        EXPECT_TRUE(second.waitForFinished(15000));
        if (ms) *ms = t.elapsed();
        return second.exitCode();
    }

    QTemporaryDir dir_;
    QString name_ = dir_.path() + "/calc.sock";
    QProcess first_;
};

TEST_F(SingleInstanceTest, SecondCopyHandsOverAndTheFirstIsRestored) {
    StartFirst();
    EXPECT_EQ(RunSecond(), 0);
    ASSERT_TRUE(first_.waitForReadyRead(5000));
    EXPECT_EQ(first_.readLine(), "raised minimized=0\n");
    // A third start is handed over just the same.
    EXPECT_EQ(RunSecond(), 0);
    EXPECT_EQ(first_.state(), QProcess::Running);
}

TEST_F(SingleInstanceTest, SocketOfACrashedCopyNeverBlocks) {
    StartFirst();
    first_.kill();  // no chance to tidy up
    ASSERT_TRUE(first_.waitForFinished(5000));
    ASSERT_TRUE(QFileInfo::exists(name_)) << "the dead copy's socket stays behind";
    qint64 ms = 0;
    EXPECT_EQ(RunSecond(&ms), 1);  // it became the first copy itself
    EXPECT_LT(ms, 8000);
    // And the next copy finds a live first one again.
    StartFirst();
    EXPECT_EQ(RunSecond(), 0);
}

TEST_F(SingleInstanceTest, StaleFileAtTheNameIsReplaced) {
    {
        QFile f(name_);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("left over");
    }
    SingleInstance instance(name_);
    EXPECT_TRUE(instance.Claim());
    EXPECT_TRUE(instance.IsFirst());
    EXPECT_TRUE(instance.Claim());  // claiming again changes nothing
    SingleInstance other(name_);
    EXPECT_FALSE(other.Claim());
    EXPECT_FALSE(other.IsFirst());
}

TEST_F(SingleInstanceTest, NoCopyMeansNoHandOver) {
    SingleInstance instance(name_);
    EXPECT_FALSE(instance.HandOver(1000));
    EXPECT_TRUE(instance.IsFirst());
    EXPECT_FALSE(instance.HandOver(1000));  // the first copy never hands over to itself
}

TEST_F(SingleInstanceTest, NameIsPerUser) {
    const QString name = SingleInstance::DefaultName();
    EXPECT_TRUE(name.contains("ferrolith-calculator"));
    EXPECT_TRUE(name.startsWith(qEnvironmentVariable("XDG_RUNTIME_DIR", "\x01")) ||
                name.endsWith("-" + QString::number(getuid())));
}

}  // namespace
