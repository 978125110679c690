#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "support/CalcListTestSupport.h"
#include "support/GuiTestSupport.h"
#include "calc/ui/ConstantsWindow.h"
#include "calc/core/CalculatorEngine.h"
#include "calc/core/CalculatorState.h"

namespace {

class ConstantWindow : public testing::Test {
protected:
    void SetUp() override { Calculator::Initial_Routine(s_); }
    void TearDown() override { delete frm_; }
    void Open() {
        frm_ = new ConstantsWindow(s_);
        frm_->show();
        list_ = frm_->findChild<QTreeWidget*>("ItemBox");
    }
    void ClickRow(int number) { calctest::ClickRow(list_, number); }
    QPushButton* Button(const char* name) { return frm_->findChild<QPushButton*>(name); }
    QString Box() { return frm_->findChild<QLineEdit*>("ValueBox")->text(); }

    guitest::ModalWatchdog boxes_;
    CalculatorState s_;
    ConstantsWindow* frm_ = nullptr;
    QTreeWidget* list_ = nullptr;
};

TEST_F(ConstantWindow, ListsAll128RowsWithColumnsAndFormats) {
    Open();
    QStringList heads;
    for (int c = 0; c < list_->columnCount(); ++c) heads << list_->headerItem()->text(c);
    EXPECT_EQ(heads, (QStringList{" No.", "Symbol", "Description", "Value  ", "Unit"}));
    ASSERT_EQ(list_->topLevelItemCount(), 128);
    QTreeWidgetItem* first = list_->topLevelItem(0);
    EXPECT_EQ(first->text(0), "1  ");
    EXPECT_EQ(first->text(1), "°");
    EXPECT_EQ(first->text(2), "degree (angle)");
    EXPECT_EQ(first->text(3), "0.0174533");
    EXPECT_EQ(first->text(4), "rad");
    EXPECT_EQ(list_->topLevelItem(89)->text(3), "299,792,000.00");
    EXPECT_EQ(list_->topLevelItem(72)->text(3), "-17.7778");
    EXPECT_EQ(list_->topLevelItem(114)->text(3), "0.0000000000000000043598");
    EXPECT_EQ(list_->topLevelItem(127)->text(0), "128  ");
    EXPECT_FALSE(Button("OKButton")->isEnabled());
}

TEST_F(ConstantWindow, ClickShowsTheValueAndOkTakesIt) {
    s_.ShowConstantWindow = [this](CalculatorState&) {
        Open();
        ClickRow(115);
        EXPECT_EQ(frm_->findChild<QGroupBox*>("ValueFrame")->title(), "Constant No. 115");
        EXPECT_EQ(Box(), "  4.35981E-18");
        EXPECT_TRUE(Button("OKButton")->isEnabled());
        ClickRow(73);
        EXPECT_EQ(Box(), "  -17.7778");
        QTest::mouseClick(Button("OKButton"), Qt::LeftButton);
        EXPECT_FALSE(frm_->isVisible());
    };
    Calculator::Press_Key(s_, "5");
    Calculator::Press_Key(s_, "+");
    Calculator::Press_Key(s_, "cnst");
    EXPECT_EQ(s_.Shown.Number.find("-17.7778"), 0u) << s_.Shown.Number;
    Calculator::Press_Key(s_, "=");
    EXPECT_EQ(s_.Shown.Number.find("-12.7778"), 0u) << s_.Shown.Number;
}

TEST_F(ConstantWindow, ExitLeavesTheCalculatorAsItWas) {
    Calculator::Press_Key(s_, "4");
    Calculator::Press_Key(s_, "2");
    const std::string before = s_.Shown.Number;
    s_.ShowConstantWindow = [this](CalculatorState&) {
        Open();
        ClickRow(5);
        QTest::mouseClick(Button("ExitButton"), Qt::LeftButton);
    };
    Calculator::Press_Key(s_, "cnst");
    EXPECT_EQ(s_.Shown.Number, before);
    EXPECT_EQ(s_.EntryText, "42");
    EXPECT_TRUE(s_.ConstantChoice.IsEmpty());
}

TEST_F(ConstantWindow, DoubleClickTakesTheRow) {
    Open();
    ClickRow(90);
    QTest::mouseDClick(list_->viewport(), Qt::LeftButton, {}, calctest::RowPoint(list_, 90));
    EXPECT_EQ(s_.ConstantChoice.text, "  299792000");
    EXPECT_FALSE(frm_->isVisible());
}

}  // namespace
