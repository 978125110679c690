// The constants window: the table in a list; a row's value goes to X.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "calc/core/CalculatorEngine.h"
#include "calc/ui/ConstantsWindow.h"
#include "support/CalcListTestSupport.h"
#include "support/GuiTestSupport.h"

namespace {

class ConstantWindow : public testing::Test {
protected:
    void SetUp() override { Calculator::Initial_Routine(s_); }
    void Open() {
        frm_ = std::make_unique<ConstantsWindow>(s_);
        frm_->show();
        list_ = frm_->findChild<QTreeWidget*>("ItemBox");
    }
    // The constant key opens the window, where `script` plays the user.
    void PressConstantKey(std::function<void()> script) {
        s_.ShowConstantWindow = [&](CalculatorState&) {
            Open();
            script();
        };
        Calculator::Press_Key(s_, "cnst");
        EXPECT_FALSE(frm_->isVisible());
    }
    void ClickRow(int number) { calctest::ClickRow(list_, number); }
    QPushButton* Button(const char* name) { return frm_->findChild<QPushButton*>(name); }
    QString Box() { return frm_->findChild<QLineEdit*>("ValueBox")->text(); }

    guitest::ModalWatchdog boxes_;
    CalculatorState s_;
    std::unique_ptr<ConstantsWindow> frm_;
    QTreeWidget* list_ = nullptr;
};

TEST_F(ConstantWindow, ListsAll128RowsWithColumnsAndFormats) {
    Open();
    QStringList heads;
    for (int c = 0; c < list_->columnCount(); ++c) heads << list_->headerItem()->text(c);
    EXPECT_EQ(heads, (QStringList{" No.", "Symbol", "Description", "Value  ", "Unit"}));
    ASSERT_EQ(list_->topLevelItemCount(), 128);
    QStringList first;
    for (int c = 0; c < list_->columnCount(); ++c) first << list_->topLevelItem(0)->text(c);
    EXPECT_EQ(first, (QStringList{"1  ", "°", "degree (angle)", "0.0174533", "rad"}));
    const std::pair<int, const char*> values[] = {
        {89, "299,792,000.00"}, {72, "-17.7778"}, {114, "0.0000000000000000043598"}};
    for (const auto& [row, text] : values) EXPECT_EQ(list_->topLevelItem(row)->text(3), text);
    EXPECT_EQ(list_->topLevelItem(127)->text(0), "128  ");
    EXPECT_FALSE(Button("OKButton")->isEnabled());
}

TEST_F(ConstantWindow, ClickShowsTheValueAndOkTakesIt) {
    Calculator::Press_Key(s_, "5");
    Calculator::Press_Key(s_, "+");
    PressConstantKey([&] {
        ClickRow(115);
        EXPECT_EQ(frm_->findChild<QGroupBox*>("ValueFrame")->title(), "Constant No. 115");
        EXPECT_EQ(Box(), "  4.35981E-18");
        EXPECT_TRUE(Button("OKButton")->isEnabled());
        ClickRow(73);
        EXPECT_EQ(Box(), "  -17.7778");
        QTest::mouseClick(Button("OKButton"), Qt::LeftButton);
    });
    EXPECT_EQ(s_.Shown.Number, "-17.7778");
    Calculator::Press_Key(s_, "=");
    EXPECT_EQ(s_.Shown.Number, "-12.7778");  // the constant is the operand
}

TEST_F(ConstantWindow, ExitLeavesTheCalculatorAsItWasAndADoubleClickTakesTheRow) {
    Calculator::Press_Key(s_, "4");
    Calculator::Press_Key(s_, "2");
    PressConstantKey([&] {
        ClickRow(5);
        QTest::mouseClick(Button("ExitButton"), Qt::LeftButton);
    });
    EXPECT_EQ(s_.Shown.Number, "42.");
    EXPECT_EQ(s_.EntryText, "42");
    EXPECT_TRUE(s_.ConstantChoice.IsEmpty());
    PressConstantKey([&] {
        ClickRow(90);
        QTest::mouseDClick(list_->viewport(), Qt::LeftButton, {}, calctest::RowPoint(list_, 90));
        EXPECT_EQ(s_.ConstantChoice.text, "  299792000");
    });
    EXPECT_EQ(s_.Shown.Number, "299792000.");
}

}  // namespace
