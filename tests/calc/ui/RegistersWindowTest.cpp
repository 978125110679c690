// The register window, opened by the register keys and driven as a user
// drives it: rows clicked or checked, a description typed, OK, Exit, Escape.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <functional>
#include <sstream>

#include "calc/core/CalculatorEngine.h"
#include "calc/ui/RegistersWindow.h"
#include "support/CalcListTestSupport.h"
#include "support/GuiTestSupport.h"

namespace {

class RegisterWindow : public testing::Test {
protected:
    void SetUp() override {
        Calculator::Initial_Routine(s_);
        // Each register key opens the window; the test's script plays the user.
        s_.ShowRegisterWindow = [this](CalculatorState& s) {
            delete frm_;
            frm_ = new RegistersWindow(s);
            frm_->show();
            list_ = frm_->findChild<QTreeWidget*>("ItemBox");
            ++opened_;
            if (script_) script_();
        };
    }
    void TearDown() override { delete frm_; }

    void Keys(const std::string& keys) {
        std::istringstream in(keys);
        for (std::string k; in >> k;) ASSERT_TRUE(Calculator::Press_Key(s_, k)) << k;
    }
    // Runs `script` in the window the key opens.
    void Open(const char* key, std::function<void()> script) {
        script_ = std::move(script);
        Keys(key);
        EXPECT_FALSE(frm_->isVisible()) << key;
    }
    void ClickRow(int row) { calctest::ClickRow(list_, row); }
    void Click(const char* button) { QTest::mouseClick(frm_->findChild<QPushButton*>(button), Qt::LeftButton); }
    QString Value(int row) { return list_->topLevelItem(row - 1)->text(1); }
    QLineEdit* Desc() { return frm_->findChild<QLineEdit*>("DescBox"); }
    QPushButton* Ok() { return frm_->findChild<QPushButton*>("OKButton"); }

    guitest::ModalWatchdog boxes_{QMessageBox::Yes};
    CalculatorState s_;
    RegistersWindow* frm_ = nullptr;
    QTreeWidget* list_ = nullptr;
    std::function<void()> script_;
    int opened_ = 0;
};

TEST_F(RegisterWindow, CaptionsFollowTheAction) {
    const struct {
        const char *key, *title, *prompt, *ok;
        bool open;
    } cases[] = {
        {"kin", "Memory IN", "Choose memory address to SAVE to.", "Save", true},
        {"ko", "Memory RECALL", "Choose memory address to RECALL value.", "Recall", false},
        {"xk", "Memory SWAP", "Choose memory address to SWAP value.", "Swap", true},
        {"mplus", "Memory ADD", "Choose memory address to ADD value to.", "Apply", true},
        {"mminus", "Memory MINUS", "Choose memory address to SUBTRACT value from.", "Apply", true},
        {"kac", "Memory DELETE", "Choose memory address to DELETE value.", "Delete", false},
    };
    for (const auto& c : cases) {
        Open(c.key, [&] {
            EXPECT_EQ(frm_->windowTitle(), c.title);
            EXPECT_EQ(frm_->findChild<QLabel*>("Lab1")->text(), c.prompt);
            EXPECT_EQ(Ok()->text(), c.ok);
            EXPECT_FALSE(Ok()->isEnabled());
            EXPECT_EQ(Desc()->isReadOnly(), !c.open);
            EXPECT_EQ(frm_->findChild<QGroupBox*>("DecFrame")->title(), c.open ? "Specify Description" : "Description");
            const bool del = std::string(c.key) == "kac";
            EXPECT_EQ(frm_->findChild<QGroupBox*>("DeleteFrame")->isVisible(), del);
            EXPECT_EQ(list_->topLevelItem(0)->data(0, Qt::CheckStateRole).isValid(), del);
            EXPECT_EQ(list_->headerItem()->text(0) + "|" + list_->headerItem()->text(1),
                      "   Address|              Value");
            ASSERT_EQ(list_->topLevelItemCount(), 100);
            EXPECT_EQ(list_->topLevelItem(0)->text(0) + list_->topLevelItem(99)->text(0), "Reg-001Reg-100");
            EXPECT_EQ(Value(1), "0.0   ");
            list_->setFocus();  // taking the focus picks no row
            EXPECT_FALSE(Ok()->isEnabled());
            EXPECT_EQ(Desc()->text(), "");
            Click("ExitButton");
        });
    }
    EXPECT_EQ(opened_, 6);
}

TEST_F(RegisterWindow, SaveWithPreviewAndDescription) {
    Keys("1 2 dot 5");
    Open("kin", [&] {
        ClickRow(3);
        EXPECT_TRUE(Ok()->isEnabled());
        EXPECT_EQ(Value(3), "12.5   ");  // preview only
        EXPECT_EQ(Desc()->text(), "No specified description");
        ClickRow(5);
        EXPECT_EQ(Value(3) + "|" + Value(5), "0.0   |12.5   ");  // back to what it holds
        Desc()->clear();
        QTest::keyClicks(Desc(), "  beam span ");
        Click("OKButton");
    });
    EXPECT_TRUE(boxes_.Seen().isEmpty());  // a free register takes the value with no question
    EXPECT_EQ(s_.Registers[4].Value, 12.5);
    EXPECT_EQ(s_.Registers[4].Description, "beam span");
    EXPECT_EQ(s_.Registers[2].Value, 0.0);

    Keys("AC 7");  // reopened, the list shows what was stored
    Open("ko", [&] {
        EXPECT_EQ(Value(5), "12.5   ");
        ClickRow(5);
        EXPECT_EQ(Desc()->text(), "beam span");
        Click("OKButton");
    });
    EXPECT_EQ(s_.Shown.Number, "12.5");
}

TEST_F(RegisterWindow, OverwriteIsAskedAndNoKeepsTheWindowOpen) {
    s_.Registers[6] = {3, "old"};
    Keys("9");
    Open("kin", [&] {
        ClickRow(7);
        boxes_.SetAnswer(QMessageBox::No);
        Click("OKButton");
        ASSERT_EQ(boxes_.Seen().size(), 1);
        EXPECT_EQ(boxes_.Seen()[0].title, "Warning");
        EXPECT_EQ(boxes_.Seen()[0].text, "Do you wish to OVERWRITE Reg-007 ?");
        EXPECT_EQ(boxes_.Seen()[0].icon, QMessageBox::Critical);
        EXPECT_TRUE(frm_->isVisible());
        EXPECT_EQ(s_.RegisterChoice, -1);
        boxes_.SetAnswer(QMessageBox::Yes);
        Click("OKButton");
    });
    EXPECT_EQ(s_.Registers[6].Value, 9.0);
    EXPECT_EQ(s_.Registers[6].Description, "old");  // the description box showed it and gave it back
}

TEST_F(RegisterWindow, AddMinusAndSwapPreviewTheirValueAndKeepTheDescription) {
    s_.Registers[99] = {10, "total"};
    s_.Registers[0] = {4, ""};
    const struct {
        const char *keys, *key;
        int row;
        const char* preview;
        double stored;
    } cases[] = {{"AC 2 dot 5", "mplus", 100, "12.5   ", 12.5},
                 {"AC 4", "mminus", 100, "8.5   ", 8.5},
                 {"AC 6", "xk", 1, "6.0   ", 6}};
    for (const auto& c : cases) {
        Keys(c.keys);
        Open(c.key, [&] {
            ClickRow(c.row);
            EXPECT_EQ(Value(c.row), c.preview);
            Desc()->setText("changed");
            Click("OKButton");
        });
        EXPECT_EQ(s_.Registers[size_t(c.row - 1)].Value, c.stored) << c.key;
    }
    EXPECT_EQ(s_.Registers[99].Description, "total");
    EXPECT_EQ(s_.Shown.Number, "4.");    // the swap showed the register's value
    EXPECT_EQ(boxes_.Seen().size(), 3);  // each register held a value: asked each time
}

TEST_F(RegisterWindow, ExitEscapeAndAnErrorChooseNothing) {
    s_.Registers[1] = {5, "x"};
    Keys("3");
    Open("kin", [&] {
        ClickRow(2);
        Click("ExitButton");
    });
    Open("kin", [&] {
        ClickRow(2);
        QTest::keyClick(frm_, Qt::Key_Escape);
    });
    EXPECT_EQ(s_.Registers[1].Value, 5.0);
    EXPECT_EQ(s_.RegisterChoice, -1);
    EXPECT_TRUE(boxes_.Seen().isEmpty());
    Keys("1 / 0 = kin");  // a register key during an error opens nothing
    EXPECT_EQ(opened_, 2);
}

TEST_F(RegisterWindow, DeleteCheckedRowsThenAll) {
    for (int i = 0; i < 100; ++i) s_.Registers[size_t(i)] = {double(i + 1), "r"};
    Open("kac", [&] {
        calctest::CheckRow(list_, 2);
        calctest::CheckRow(list_, 4);
        EXPECT_TRUE(Ok()->isEnabled());
        boxes_.SetAnswer(QMessageBox::No);
        Click("OKButton");
        EXPECT_EQ(s_.Registers[1].Value, 2.0);
        boxes_.SetAnswer(QMessageBox::Yes);
        Click("OKButton");
        EXPECT_TRUE(frm_->isVisible());  // the window stays for more
        EXPECT_FALSE(Ok()->isEnabled());
        EXPECT_EQ(Value(2) + "|" + Value(3), "0.0   |3.0   ");
        Click("SelectAllButton");
        EXPECT_TRUE(Ok()->isEnabled());
        Click("CLRButton");
        EXPECT_FALSE(Ok()->isEnabled());
        Click("SelectAllButton");
        Click("OKButton");
        Click("ExitButton");
    });
    ASSERT_EQ(boxes_.Seen().size(), 3);
    EXPECT_EQ(boxes_.Seen()[0].text, "Are you sure you want to delete Selected Data?");
    EXPECT_EQ(boxes_.Seen()[0].title, "Warning");
    for (const auto& r : s_.Registers) {
        EXPECT_EQ(r.Value, 0.0);
        EXPECT_EQ(r.Description, "");
    }
}

TEST_F(RegisterWindow, OpenRunsModally) {
    s_.ShowRegisterWindow = [](CalculatorState& s) { RegistersWindow::Open(s, nullptr); };
    boxes_.SetDialogHandler([](QDialog* dlg) {
        calctest::ClickRow(dlg->findChild<QTreeWidget*>("ItemBox"), 10);
        QTest::mouseClick(dlg->findChild<QPushButton*>("OKButton"), Qt::LeftButton);
        return true;
    });
    Keys("8 kin");
    EXPECT_EQ(s_.Registers[9].Value, 8.0);
}

}  // namespace
