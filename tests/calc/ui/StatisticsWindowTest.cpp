// The statistics data window: the data in entry order, rows checked and deleted.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "calc/core/CalculatorEngine.h"
#include "calc/ui/StatisticsWindow.h"
#include "support/CalcListTestSupport.h"
#include "support/GuiTestSupport.h"

namespace {

class DataWindow : public testing::Test {
protected:
    void SetUp() override { Calculator::Initial_Routine(s_); }
    // Enters the numbers with the data key, then opens the window.
    void Open(const std::string& numbers) {
        for (char c : numbers) Calculator::Press_Key(s_, c == ' ' ? "data" : c == '.' ? "dot" : std::string(1, c));
        if (!numbers.empty()) Calculator::Press_Key(s_, "data");
        frm_ = std::make_unique<StatisticsWindow>(s_);
        frm_->show();
        list_ = frm_->findChild<QTreeWidget*>("ItemBox");
    }
    void Click(const char* button) { QTest::mouseClick(Button(button), Qt::LeftButton); }
    QPushButton* Button(const char* name) { return frm_->findChild<QPushButton*>(name); }
    QStringList Rows() {
        QStringList out;
        for (int i = 0; i < list_->topLevelItemCount(); ++i)
            out << list_->topLevelItem(i)->text(0) + "=" + list_->topLevelItem(i)->text(1);
        return out;
    }

    guitest::ModalWatchdog boxes_{QMessageBox::Yes};
    CalculatorState s_;
    std::unique_ptr<StatisticsWindow> frm_;
    QTreeWidget* list_ = nullptr;
};

TEST_F(DataWindow, ShowsTheDataInEntryOrder) {
    Open("");
    EXPECT_EQ(list_->topLevelItemCount(), 0);
    EXPECT_EQ(list_->headerItem()->text(0) + "|" + list_->headerItem()->text(1), "   Data|              Value");
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());
    Click("ExitButton");
    EXPECT_FALSE(frm_->isVisible());
    Open("3 2.5 10");
    EXPECT_EQ(Rows(), (QStringList{"Data-01=3   ", "Data-02=2.5   ", "Data-03=10   "}));
    EXPECT_EQ(list_->topLevelItem(0)->checkState(0), Qt::Unchecked);
}

TEST_F(DataWindow, DeleteCheckedRowsAsksFirst) {
    Open("1 2 3 4");
    calctest::CheckRow(list_, 2);
    calctest::CheckRow(list_, 4);
    EXPECT_TRUE(Button("DeleteButton")->isEnabled());
    boxes_.SetAnswer(QMessageBox::No);
    Click("DeleteButton");
    EXPECT_EQ(s_.DataValues.Values.size(), 4u);
    boxes_.SetAnswer(QMessageBox::Yes);
    Click("DeleteButton");
    ASSERT_EQ(boxes_.Seen().size(), 2);
    EXPECT_EQ(boxes_.Seen()[1].text, "Are you sure you want to delete Selected Data?");
    EXPECT_EQ(boxes_.Seen()[1].title, "Warning");
    EXPECT_EQ(boxes_.Seen()[1].icon, QMessageBox::Critical);
    EXPECT_EQ(Rows(), (QStringList{"Data-01=1   ", "Data-02=3   "}));
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());
    Calculator::Press_Key(s_, "ave");  // the statistics keys read what is left
    EXPECT_EQ(s_.Shown.Number, "2.");
}

TEST_F(DataWindow, DeleteAllLeavesNoList) {
    Open("5 6");
    Click("AllButton");
    EXPECT_TRUE(Button("DeleteButton")->isEnabled());
    Click("ClearButton");
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());
    calctest::CheckRow(list_, 1);
    calctest::CheckRow(list_, 1);  // unchecked again
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());
    Click("AllButton");
    Click("DeleteButton");
    EXPECT_EQ(list_->topLevelItemCount(), 0);
    EXPECT_EQ(s_.DataValues.kind, CalculatorFiles::DataList::Kind::EmptyText);
    Calculator::Press_Key(s_, "ave");
    EXPECT_EQ(s_.Shown.Number, "*Empty Data*");
}

}  // namespace
