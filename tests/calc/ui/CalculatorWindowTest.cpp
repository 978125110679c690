// The calculator window driven as a user drives it: mouse clicks on its keys,
// key presses on the keyboard, menus; read back from its labels.
#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <memory>
#include <sstream>

#include "board/ui/MainWindow.h"
#include "calc/core/CalculatorEngine.h"
#include "calc/ui/CalculatorWindow.h"
#include "support/GuiTestSupport.h"

inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

class CalcWindow : public testing::Test {
protected:
    void SetUp() override { Open(); }
    void Open() {
        frm_ = std::make_unique<CalculatorWindow>(state_);
        frm_->show();
        QApplication::setActiveWindow(frm_.get());
    }
    QString Label(const char* name) { return frm_->findChild<QLabel*>(name)->text(); }
    QString Shown() { return Label("DisplayBox") + "|" + Label("ExpoBox"); }
    QAction* Menu(const char* name) { return frm_->findChild<QAction*>(name); }
    QTabWidget* Tabs() { return frm_->findChild<QTabWidget*>("SelectTab"); }

    // Clicks the keys named by their tokens, switching to the page that holds each.
    void Click(const std::string& tokens) {
        std::istringstream in(tokens);
        for (std::string t; in >> t;) {
            const Calculator::KeyDef* k = Calculator::Find_Key(t);
            ASSERT_NE(k, nullptr) << t;
            auto* b = frm_->findChild<QPushButton*>(k->control);
            ASSERT_NE(b, nullptr) << k->control;
            for (int i = 0; i < Tabs()->count(); ++i)
                if (Tabs()->widget(i)->isAncestorOf(b)) Tabs()->setCurrentIndex(i);
            ASSERT_TRUE(b->isVisible()) << k->control;
            QTest::mouseClick(b, Qt::LeftButton);
        }
    }
    // Presses `key` from inside the loop the clock runs, after `ms`.
    void PressInClock(int ms, std::function<void()> key) {
        QTimer::singleShot(ms, key);
        Click("time");  // returns when the clock has ended
    }

    CalculatorState state_;
    std::unique_ptr<CalculatorWindow> frm_;
    guitest::ModalWatchdog watchdog_;
};

// Every label follows the engine; the sums themselves are the engine's tests.
TEST_F(CalcWindow, MouseKeysWorkTheEngineAndEveryLabelFollows) {
    EXPECT_EQ(Shown(), "0.|");
    EXPECT_EQ(Label("Mode_Indicator") + Label("DispMode_Indicator"), "DEGREENORM");
    Click("1 2 /");
    EXPECT_EQ(Label("OperatorIndicator"), QString::fromUtf8("\xC3\xB7"));
    Click("/ 1 exp 2 0 pm");
    EXPECT_EQ(Shown(), "1.|-20");  // the exponent in its own label
    EXPECT_EQ(Label("CCalc_Indicator"), "K");
    Click("= min");
    EXPECT_EQ(Label("OperatorIndicator") + Label("Mem_Indicator"), "MEM");
    Click("1 / 0 = 5 C");
    EXPECT_EQ(Shown(), "*Divide by Zero*|");  // only AC opens the lock
    Click("AC mo");
    EXPECT_EQ(Shown(), "8.33333333333333|-22");  // 1E-20 / 12 went into M
    for (const auto& k : Calculator::Key_Table())
        EXPECT_NE(frm_->findChild<QObject*>(QString::fromLatin1(k.control)), nullptr) << k.control;
    for (const char* name : {"PrecLab", "DegButton", "GradButton", "FxnButton", "ScnButton", "mnuFunct1", "mnuFunct4",
                             "mnuDegree", "mnuSci", "mnuOnTop", "mnuAbout"})
        EXPECT_NE(frm_->findChild<QObject*>(name), nullptr) << name;
}

TEST_F(CalcWindow, KeyboardActsAsTheKeys) {
    QWidget* f = frm_->findChild<QWidget*>("Frame1");
    QTest::keyClicks(f, "12");
    QTest::keyClick(f, Qt::Key_Asterisk);  // Shift+8 on the row of digits
    QTest::keyClick(f, Qt::Key_3);
    QTest::keyClick(f, Qt::Key_Return);
    EXPECT_EQ(Shown(), "36.|");
    QTest::keyClick(f, Qt::Key_Delete);  // AC
    QTest::keyClick(f, Qt::Key_7, Qt::KeypadModifier);
    QTest::keyClick(f, Qt::Key_AsciiCircum, Qt::ShiftModifier);  // Shift+6: exponent
    QTest::keyClicks(f, "152");
    EXPECT_EQ(Shown(), "7.| 52");        // the exponent scrolls
    QTest::keyClick(f, Qt::Key_Escape);  // C
    EXPECT_EQ(Shown(), "0.|");
    QTest::keyClicks(f, "2.50");
    QTest::keyClick(f, Qt::Key_Backspace);
    EXPECT_EQ(Shown(), "2.5|");
    QTest::keyClick(f, Qt::Key_Up);  // power
    QTest::keyClick(f, Qt::Key_2);
    QTest::keyClick(f, Qt::Key_Equal);
    EXPECT_EQ(Shown(), "6.25|");
    QTest::keyClick(f, Qt::Key_Minus, Qt::ControlModifier);  // the row's minus takes no modifier
    QTest::keyClick(f, Qt::Key_1, Qt::ShiftModifier);        // "!" is no key
    EXPECT_EQ(Shown() + Label("OperatorIndicator"), "6.25|");
    QTest::keyClick(f, Qt::Key_F9);  // pi
    EXPECT_EQ(Shown(), "3.14159265358979|");
    QTest::keyClick(f, Qt::Key_F3);
    EXPECT_EQ(Tabs()->currentIndex(), 2);
    QTest::keyClick(f, Qt::Key_F1);
    EXPECT_EQ(Tabs()->currentIndex(), 0);
}

TEST_F(CalcWindow, ModesFromOptionButtonsAndMenus) {
    Click("PI");
    Menu("mnuFixed")->trigger();
    EXPECT_EQ(Tabs()->currentIndex(), 3);
    auto* places = frm_->findChild<QComboBox*>("PrecBox");
    EXPECT_TRUE(places->isEnabled());
    EXPECT_EQ(Label("DispMode_Indicator") + Shown(), "FIX3.|");  // item 0 at the first FIX
    places->activated(2);
    EXPECT_EQ(Shown(), "3.14|");
    QTest::mouseClick(frm_->findChild<QRadioButton*>("StdButton"), Qt::LeftButton);
    EXPECT_EQ(Shown(), "3.14159265358979|");
    EXPECT_FALSE(places->isEnabled());
    Menu("mnuRadian")->trigger();
    EXPECT_EQ(Label("Mode_Indicator"), "RADIAN");
    EXPECT_TRUE(frm_->findChild<QRadioButton*>("RadButton")->isChecked());
    Click("AC PI / 2 = sin");
    EXPECT_EQ(Shown(), "1.|");
}

TEST_F(CalcWindow, MenusOpenTheRegisterDataConstantAndHelpWindows) {
    for (const char* name : {"mnuRegisters", "mnuData", "mnuConstants", "mnuHelpTopics"}) {
        ASSERT_TRUE(Menu(name)->isEnabled()) << name;
        Menu(name)->trigger();
    }
    // Each window came up as a modal dialog, which the watchdog closed.
    ASSERT_EQ(watchdog_.Seen().size(), 4);
    for (const auto& seen : watchdog_.Seen()) EXPECT_FALSE(seen.title.isEmpty());
    EXPECT_EQ(watchdog_.Seen()[3].title, "Calculator Help");
}

// The calculator of the main window is one window, on state that outlives it.
TEST(CalcFromMainWindow, OneWindowOnStateThatOutlivesIt) {
    MainWindow main;
    main.show();
    QAction* open = main.action("mnuSciCal");
    CalculatorWindow* calc = nullptr;
    auto reopen = [&] {
        open->trigger();
        calc = main.findChild<CalculatorWindow*>("CalcMainFrm");
        ASSERT_NE(calc, nullptr);
    };
    auto click = [&](std::initializer_list<const char*> keys) {
        for (const char* key : keys) QTest::mouseClick(calc->findChild<QPushButton*>(key), Qt::LeftButton);
    };
    auto label = [&](const char* name) { return calc->findChild<QLabel*>(name)->text(); };
    reopen();
    click({"key_4", "key_2", "key_plus", "key_Min"});
    calc->findChild<QAction*>("mnuGradian")->trigger();
    open->trigger();
    EXPECT_EQ(main.findChildren<CalculatorWindow*>().size(), 1);
    calc->close();  // deletes the window
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(main.findChild<CalculatorWindow*>("CalcMainFrm"), nullptr);
    reopen();
    EXPECT_EQ(label("DisplayBox") + label("Mem_Indicator") + label("Mode_Indicator"), "42.MEMGRADIAN");
    click({"key_8", "key_equal"});
    EXPECT_EQ(label("DisplayBox"), "50.");  // the pending "+" came back too
}

TEST_F(CalcWindow, ClockRunsUntilTheNextKeyWhichItSwallowsOrTheWindowHides) {
    Click("9");
    QString date, time;
    PressInClock(150, [&] {
        date = Label("DateBox");
        time = Label("DisplayBox");
        QTest::mouseClick(frm_->findChild<QPushButton*>("key_5"), Qt::LeftButton);  // ends the clock, swallowed
    });
    EXPECT_TRUE(QRegularExpression("^[A-Z]+DAY [A-Z]{3} \\d{1,2}, \\d{4}$").match(date).hasMatch())
        << date.toStdString();
    EXPECT_TRUE(QRegularExpression("^\\d\\d:\\d\\d:\\d\\d [AP]M$").match(time).hasMatch()) << time.toStdString();
    EXPECT_EQ(Shown() + Label("DateBox"), "9.|");

    // Hiding or closing the window ends the clock.
    Click("AC 4");
    PressInClock(100, [&] { frm_->hide(); });
    EXPECT_FALSE(state_.TimeShown);
    EXPECT_EQ(Shown(), "4.|");
    frm_->show();
    QPointer<CalculatorWindow> w(frm_.get());
    PressInClock(100, [&] { w->close(); });
    EXPECT_FALSE(state_.TimeShown);
    ASSERT_FALSE(w.isNull());
    EXPECT_FALSE(w->isVisible());
}

TEST_F(CalcWindow, CopyAndPasteThroughTheClipboard) {
    QClipboard* clip = QGuiApplication::clipboard();
    Click("1 / 8 =");
    Menu("mnuFixed")->trigger();
    frm_->findChild<QComboBox*>("PrecBox")->activated(2);
    EXPECT_EQ(Shown(), "0.13|");
    Menu("mnuCopy")->trigger();
    EXPECT_EQ(clip->text(), "0.125");  // the value, not the display
    Menu("mnuCopyDigits")->trigger();
    EXPECT_EQ(clip->text(), "0.13");  // the display as digits
    Menu("mnuNormal")->trigger();
    clip->setText("  -3.25 kN");
    Menu("mnuPaste")->trigger();
    EXPECT_EQ(Shown(), "-3.25|");
    clip->clear();
    Menu("mnuPaste")->trigger();
    ASSERT_EQ(watchdog_.Seen().size(), 1);
    EXPECT_EQ(watchdog_.Seen()[0].title + ": " + watchdog_.Seen()[0].text,
              "Warning: Nothing to paste. Clipboard is EMPTY !");
    EXPECT_EQ(watchdog_.Seen()[0].icon, QMessageBox::Critical);
    EXPECT_EQ(Shown(), "-3.25|");
}

TEST_F(CalcWindow, RegisterKeysTakeTheWindowOffTheTopAndReadOutIsKept) {
    frm_->setWindowFlag(Qt::WindowStaysOnTopHint, true);
    frm_->show();
    Click("5 kin");
    EXPECT_FALSE(frm_->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(frm_->isVisible());
    // The read-out switch is kept in the settings.
    Menu("mnuReadOut")->trigger();
    EXPECT_TRUE(state_.ReadOutOn);
    frm_.reset();
    state_.ReadOutOn = false;
    Open();
    EXPECT_TRUE(state_.ReadOutOn);  // read from the settings
}

TEST(CalcProgram, HelpNamesTheCalculatorOptionWhichStartsTheCalculatorAlone) {
    QProcess help;
    help.start(FERROLITH_APP, {"--help"});
    ASSERT_TRUE(help.waitForFinished(10000));
    EXPECT_EQ(help.exitCode(), 0);
    EXPECT_TRUE(help.readAllStandardOutput().contains("--calculator"));
    QTemporaryDir home;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "offscreen");
    env.insert("XDG_CONFIG_HOME", home.filePath("config"));
    env.insert("XDG_DATA_HOME", home.filePath("data"));
    QProcess calc;
    calc.setProcessEnvironment(env);
    calc.start(FERROLITH_APP, {"--calculator"});
    ASSERT_TRUE(calc.waitForStarted(10000));
    EXPECT_FALSE(calc.waitForFinished(1500)) << "the calculator should keep running";
    calc.kill();
    calc.waitForFinished(5000);
}

// Pictures of every key page, a full-length number and the clock for a look
// by eye, written when FERROLITH_SHOTS names a folder (run once at scale 1
// and once with QT_SCALE_FACTOR=2).
TEST_F(CalcWindow, Screenshots) {
    const QString dir = qEnvironmentVariable("FERROLITH_SHOTS");
    if (dir.isEmpty()) GTEST_SKIP() << "FERROLITH_SHOTS not set";
    auto save = [&](const QString& name) {
        const QString file = QString("calc_%1_scale%2.png").arg(name, qEnvironmentVariable("QT_SCALE_FACTOR", "1"));
        EXPECT_TRUE(frm_->grab().save(QDir(dir).filePath(file)));
    };
    Click("1 2 3 4 dot 5 exp 1 2 min");
    frm_->adjustSize();
    for (int i = 0; i < Tabs()->count(); ++i) {
        Tabs()->setCurrentIndex(i);
        QTest::qWait(20);
        save(QString("page%1").arg(i));
    }
    Click("AC 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 pm *");
    save("long");
    PressInClock(100, [&] {
        save("clock");
        Click("AC");
    });
}

}  // namespace
