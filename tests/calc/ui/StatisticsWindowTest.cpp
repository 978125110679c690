#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "support/CalcListTestSupport.h"
#include "support/GuiTestSupport.h"
#include "calc/ui/StatisticsWindow.h"
#include "calc/core/CalculatorEngine.h"
#include "calc/core/CalculatorState.h"

namespace {

class DataWindow : public testing::Test {
protected:
    void SetUp() override { Calculator::Initial_Routine(s_); }
    void TearDown() override { delete frm_; }
    void Open() {
        delete frm_;
        frm_ = new StatisticsWindow(s_);
        frm_->show();
        list_ = frm_->findChild<QTreeWidget*>("ItemBox");
    }
    void Enter(std::initializer_list<const char*> numbers) {
        for (const char* n : numbers) {
            for (const char* c = n; *c; ++c) Calculator::Press_Key(s_, *c == '.' ? "dot" : std::string(1, *c));
            Calculator::Press_Key(s_, "data");
        }
    }
    void CheckRow(int row) { calctest::CheckRow(list_, row); }
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
    StatisticsWindow* frm_ = nullptr;
    QTreeWidget* list_ = nullptr;
};

TEST_F(DataWindow, ShowsTheDataInEntryOrder) {
    Open();
    EXPECT_EQ(list_->topLevelItemCount(), 0);
    EXPECT_EQ(list_->headerItem()->text(0), "   Data");
    EXPECT_EQ(list_->headerItem()->text(1), "              Value");
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());
    Click("ExitButton");
    EXPECT_FALSE(frm_->isVisible());

    Enter({"3", "2.5", "10"});
    Open();
    EXPECT_EQ(Rows(), (QStringList{"Data-01=3   ", "Data-02=2.5   ", "Data-03=10   "}));
    EXPECT_EQ(list_->topLevelItem(0)->checkState(0), Qt::Unchecked);
}

TEST_F(DataWindow, DeleteCheckedRowsAsksFirst) {
    Enter({"1", "2", "3", "4"});
    Open();
    CheckRow(2);
    CheckRow(4);
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
    EXPECT_EQ(s_.DataValues.Values, (std::vector<double>{1, 3}));
    EXPECT_EQ(Rows(), (QStringList{"Data-01=1   ", "Data-02=3   "}));
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());

    // The statistics keys read what is left.
    Calculator::Press_Key(s_, "ave");
    EXPECT_EQ(s_.Shown.Number.find("2"), 0u) << s_.Shown.Number;
}

TEST_F(DataWindow, DeleteAllLeavesNoList) {
    Enter({"5", "6"});
    Open();
    Click("AllButton");
    EXPECT_TRUE(Button("DeleteButton")->isEnabled());
    Click("ClearButton");
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());
    CheckRow(1);
    CheckRow(1);  // unchecked again
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());
    Click("AllButton");
    Click("DeleteButton");
    EXPECT_EQ(list_->topLevelItemCount(), 0);
    EXPECT_FALSE(s_.DataValues.IsList());
    EXPECT_EQ(s_.DataValues.kind, CalculatorFiles::DataList::Kind::EmptyText);
    Calculator::Press_Key(s_, "ave");
    EXPECT_NE(s_.Shown.Number.find("Empty Data"), std::string::npos) << s_.Shown.Number;
}

}  // namespace
