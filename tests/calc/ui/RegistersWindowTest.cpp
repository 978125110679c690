#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <functional>

#include "support/CalcListTestSupport.h"
#include "support/GuiTestSupport.h"
#include "calc/ui/RegistersWindow.h"
#include "calc/core/CalculatorEngine.h"
#include "calc/core/CalculatorState.h"

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

    void Keys(std::initializer_list<const char*> keys) {
        for (const char* k : keys) ASSERT_TRUE(Calculator::Press_Key(s_, k)) << k;
    }
    void ClickRow(int row) { calctest::ClickRow(list_, row); }
    void CheckRow(int row) { calctest::CheckRow(list_, row); }
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
    struct Case {
        const char* key;
        const char* title;
        const char* prompt;
        const char* ok;
        bool open;
        const char* frame;
    };
    const Case cases[] = {
        {"kin", "Memory IN", "Choose memory address to SAVE to.", "Save", true, "Specify Description"},
        {"ko", "Memory RECALL", "Choose memory address to RECALL value.", "Recall", false, "Description"},
        {"xk", "Memory SWAP", "Choose memory address to SWAP value.", "Swap", true, "Specify Description"},
        {"mplus", "Memory ADD", "Choose memory address to ADD value to.", "Apply", true, "Specify Description"},
        {"mminus", "Memory MINUS", "Choose memory address to SUBTRACT value from.", "Apply", true,
         "Specify Description"},
        {"kac", "Memory DELETE", "Choose memory address to DELETE value.", "Delete", false, "Description"},
    };
    for (const Case& c : cases) {
        script_ = [&] {
            EXPECT_EQ(frm_->windowTitle(), c.title);
            EXPECT_EQ(frm_->findChild<QLabel*>("Lab1")->text(), c.prompt);
            EXPECT_EQ(Ok()->text(), c.ok);
            EXPECT_FALSE(Ok()->isEnabled());
            EXPECT_EQ(Desc()->isReadOnly(), !c.open);
            EXPECT_EQ(frm_->findChild<QGroupBox*>("DecFrame")->title(), c.frame);
            const bool del = std::string(c.key) == "kac";
            EXPECT_EQ(frm_->findChild<QGroupBox*>("DeleteFrame")->isVisible(), del);
            EXPECT_EQ(list_->topLevelItem(0)->data(0, Qt::CheckStateRole).isValid(), del);
            EXPECT_EQ(list_->headerItem()->text(0), "   Address");
            EXPECT_EQ(list_->headerItem()->text(1), "              Value");
            ASSERT_EQ(list_->topLevelItemCount(), 100);
            EXPECT_EQ(list_->topLevelItem(0)->text(0), "Reg-001");
            EXPECT_EQ(list_->topLevelItem(99)->text(0), "Reg-100");
            EXPECT_EQ(Value(1), "0.0   ");
            // Taking the focus picks no row.
            list_->setFocus();
            EXPECT_FALSE(Ok()->isEnabled());
            EXPECT_EQ(Desc()->text(), "");
            Click("ExitButton");
        };
        Keys({c.key});
        EXPECT_FALSE(frm_->isVisible()) << c.key;
    }
    EXPECT_EQ(opened_, 6);
}

TEST_F(RegisterWindow, SaveWithPreviewAndDescription) {
    Keys({"1", "2", "dot", "5"});
    script_ = [&] {
        ClickRow(3);
        EXPECT_TRUE(Ok()->isEnabled());
        EXPECT_EQ(Value(3), "12.5   ");  // preview only
        EXPECT_EQ(Desc()->text(), "No specified description");
        ClickRow(5);
        EXPECT_EQ(Value(3), "0.0   ");  // back to what it holds
        EXPECT_EQ(Value(5), "12.5   ");
        Desc()->clear();
        QTest::keyClicks(Desc(), "  beam span ");
        Click("OKButton");
    };
    Keys({"kin"});
    EXPECT_FALSE(frm_->isVisible());
    EXPECT_TRUE(boxes_.Seen().isEmpty());  // a free register takes the value with no question
    EXPECT_EQ(s_.Registers[4].Value, 12.5);
    EXPECT_EQ(s_.Registers[4].Description, "beam span");
    EXPECT_EQ(s_.Registers[2].Value, 0.0);

    // Reopened, the list shows what was stored.
    Keys({"AC", "7"});
    script_ = [&] {
        EXPECT_EQ(Value(5), "12.5   ");
        ClickRow(5);
        EXPECT_EQ(Desc()->text(), "beam span");
        Click("OKButton");
    };
    Keys({"ko"});
    EXPECT_EQ(s_.Shown.Number.find("12.5"), 0u) << s_.Shown.Number;
}

TEST_F(RegisterWindow, OverwriteIsAskedAndNoKeepsTheWindowOpen) {
    s_.Registers[6] = {3, "old"};
    Keys({"9"});
    script_ = [&] {
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
    };
    Keys({"kin"});
    EXPECT_EQ(boxes_.Seen().size(), 2);
    EXPECT_EQ(s_.Registers[6].Value, 9.0);
    EXPECT_EQ(s_.Registers[6].Description, "old");  // the description box showed it and gave it back
}

TEST_F(RegisterWindow, AddAndMinusPreviewAskAndKeepTheDescription) {
    s_.Registers[99] = {10, "total"};
    Keys({"2", "dot", "5"});
    script_ = [&] {
        ClickRow(100);
        EXPECT_EQ(Value(100), "12.5   ");
        Desc()->setText("changed");
        Click("OKButton");
    };
    Keys({"mplus"});
    ASSERT_EQ(boxes_.Seen().size(), 1);
    EXPECT_EQ(boxes_.Seen()[0].text, "Do you wish to OVERWRITE Reg-100 ?");
    EXPECT_EQ(s_.Registers[99].Value, 12.5);
    EXPECT_EQ(s_.Registers[99].Description, "total");

    Keys({"4"});
    script_ = [&] {
        ClickRow(100);
        EXPECT_EQ(Value(100), "8.5   ");
        Click("OKButton");
    };
    Keys({"mminus"});
    EXPECT_EQ(s_.Registers[99].Value, 8.5);
}

TEST_F(RegisterWindow, SwapExchangesDisplayAndRegister) {
    s_.Registers[0] = {4, ""};
    Keys({"6"});
    script_ = [&] {
        ClickRow(1);
        EXPECT_EQ(Value(1), "6.0   ");
        Click("OKButton");
    };
    Keys({"xk"});
    EXPECT_EQ(s_.Registers[0].Value, 6.0);
    EXPECT_EQ(s_.Shown.Number.find("4"), 0u) << s_.Shown.Number;
}

TEST_F(RegisterWindow, ExitAndEscapeChooseNothing) {
    s_.Registers[1] = {5, "x"};
    Keys({"3"});
    script_ = [&] {
        ClickRow(2);
        Click("ExitButton");
    };
    Keys({"kin"});
    EXPECT_EQ(s_.Registers[1].Value, 5.0);
    script_ = [&] {
        ClickRow(2);
        QTest::keyClick(frm_, Qt::Key_Escape);
    };
    Keys({"kin"});
    EXPECT_FALSE(frm_->isVisible());
    EXPECT_EQ(s_.Registers[1].Value, 5.0);
    EXPECT_EQ(s_.RegisterChoice, -1);
    EXPECT_TRUE(boxes_.Seen().isEmpty());
}

TEST_F(RegisterWindow, DeleteCheckedRowsThenAll) {
    for (int i = 0; i < 100; ++i) s_.Registers[size_t(i)] = {double(i + 1), "r"};
    script_ = [&] {
        CheckRow(2);
        CheckRow(4);
        EXPECT_TRUE(Ok()->isEnabled());
        boxes_.SetAnswer(QMessageBox::No);
        Click("OKButton");
        EXPECT_EQ(s_.Registers[1].Value, 2.0);
        boxes_.SetAnswer(QMessageBox::Yes);
        Click("OKButton");
        EXPECT_TRUE(frm_->isVisible());  // the window stays for more
        EXPECT_FALSE(Ok()->isEnabled());
        EXPECT_EQ(Value(2), "0.0   ");
        EXPECT_EQ(Value(3), "3.0   ");
        Click("SelectAllButton");
        EXPECT_TRUE(Ok()->isEnabled());
        Click("CLRButton");
        EXPECT_FALSE(Ok()->isEnabled());
        Click("SelectAllButton");
        Click("OKButton");
        Click("ExitButton");
    };
    Keys({"kac"});
    ASSERT_EQ(boxes_.Seen().size(), 3);
    EXPECT_EQ(boxes_.Seen()[0].text, "Are you sure you want to delete Selected Data?");
    EXPECT_EQ(boxes_.Seen()[0].title, "Warning");
    for (const auto& r : s_.Registers) {
        EXPECT_EQ(r.Value, 0.0);
        EXPECT_EQ(r.Description, "");
    }
}

TEST_F(RegisterWindow, RegisterKeyDuringAnErrorOpensNothing) {
    Keys({"1", "/", "0", "="});
    ASSERT_TRUE(s_.ErrorLock);
    Keys({"kin"});
    EXPECT_EQ(opened_, 0);
}

TEST_F(RegisterWindow, OpenRunsModally) {
    s_.ShowRegisterWindow = [](CalculatorState& s) { RegistersWindow::Open(s, nullptr); };
    boxes_.SetDialogHandler([this](QDialog* dlg) {
        calctest::ClickRow(dlg->findChild<QTreeWidget*>("ItemBox"), 10);
        QTest::mouseClick(dlg->findChild<QPushButton*>("OKButton"), Qt::LeftButton);
        return true;
    });
    Keys({"8", "kin"});
    EXPECT_EQ(s_.Registers[9].Value, 8.0);
}

}  // namespace
