// The calculator's list windows (registers, constants, statistics data),
// opened by their keys and driven as a user drives them: rows clicked or
// checked, a description typed, OK, Exit, Escape.
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
#include "calc/core/RegisterList.h"
#include "calc/ui/ConstantsWindow.h"
#include "calc/ui/RegistersWindow.h"
#include "calc/ui/StatisticsWindow.h"
#include "support/CalcListTestSupport.h"
#include "support/GuiTestSupport.h"

namespace {

// A calculator whose register and constant keys open their windows, where the
// test's script plays the user.
class ListWindow : public testing::Test {
protected:
    void SetUp() override {
        Calculator::Initial_Routine(s_);
        s_.ShowRegisterWindow = [this](CalculatorState& s) { Show(std::make_unique<RegistersWindow>(s)); };
        s_.ShowConstantWindow = [this](CalculatorState& s) { Show(std::make_unique<ConstantsWindow>(s)); };
    }
    void Show(std::unique_ptr<QDialog> window) {
        frm_ = std::move(window);
        frm_->show();
        list_ = frm_->findChild<QTreeWidget*>("ItemBox");
        ++opened_;
        if (script_) script_();
    }
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
    // The data window, after the numbers went in by the data key.
    void OpenData(const std::string& numbers) {
        Keys(numbers.empty() ? "" : numbers + " data");
        Show(std::make_unique<StatisticsWindow>(s_));
    }
    void ClickRow(int row) { calctest::ClickRow(list_, row); }
    void Click(const char* button) { QTest::mouseClick(Button(button), Qt::LeftButton); }
    QPushButton* Button(const char* name) { return frm_->findChild<QPushButton*>(name); }
    QString Value(int row) { return list_->topLevelItem(row - 1)->text(1); }
    QLineEdit* Desc() { return frm_->findChild<QLineEdit*>("DescBox"); }
    QStringList Rows() {
        QStringList out;
        for (int i = 0; i < list_->topLevelItemCount(); ++i)
            out << list_->topLevelItem(i)->text(0) + "=" + Value(i + 1);
        return out;
    }

    guitest::ModalWatchdog boxes_{QMessageBox::Yes};
    CalculatorState s_;
    std::unique_ptr<QDialog> frm_;
    QTreeWidget* list_ = nullptr;
    std::function<void()> script_;
    int opened_ = 0;
};

TEST_F(ListWindow, RegisterKeysOpenTheWindowForTheirAction) {
    for (const auto& k : Calculator::Key_Table()) {
        if (!k.registerAction) continue;
        const RegisterList::MemoryCaptions c = RegisterList::Memory_Captions(*k.registerAction);
        Open(k.token, [&] {
            EXPECT_EQ(
                frm_->windowTitle() + "|" + frm_->findChild<QLabel*>("Lab1")->text() + "|" + Button("OKButton")->text(),
                QString(c.Title) + "|" + c.Prompt + "|" + c.OkCaption);
            EXPECT_EQ(frm_->findChild<QGroupBox*>("DecFrame")->title(), c.FrameCaption);
            EXPECT_EQ(Desc()->isReadOnly(), !c.DescriptionOpen);
            EXPECT_FALSE(Button("OKButton")->isEnabled());
            const bool del = *k.registerAction == RegisterAction::Delete;
            EXPECT_EQ(frm_->findChild<QGroupBox*>("DeleteFrame")->isVisible(), del);
            EXPECT_EQ(list_->topLevelItem(0)->data(0, Qt::CheckStateRole).isValid(), del);
            EXPECT_EQ(list_->headerItem()->text(0) + "|" + list_->headerItem()->text(1),
                      "   Address|              Value");
            ASSERT_EQ(list_->topLevelItemCount(), 100);
            EXPECT_EQ(list_->topLevelItem(0)->text(0) + list_->topLevelItem(99)->text(0), "Reg-001Reg-100");
            EXPECT_EQ(Value(1), "0.0   ");
            list_->setFocus();  // taking the focus picks no row
            EXPECT_FALSE(Button("OKButton")->isEnabled());
            EXPECT_EQ(Desc()->text(), "");
            Click("ExitButton");
        });
    }
    EXPECT_EQ(opened_, 6);
}

TEST_F(ListWindow, RegistersSaveWithPreviewAndDescription) {
    Keys("1 2 dot 5");
    Open("kin", [&] {
        ClickRow(3);
        EXPECT_TRUE(Button("OKButton")->isEnabled());
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

    Keys("AC 7");  // reopened, the list shows what was stored
    Open("ko", [&] {
        EXPECT_EQ(Value(5), "12.5   ");
        ClickRow(5);
        EXPECT_EQ(Desc()->text(), "beam span");
        Click("OKButton");
    });
    EXPECT_EQ(s_.Shown.Number, "12.5");
}

TEST_F(ListWindow, RegistersOverwriteAndAddAskAndNoKeepsTheWindowOpen) {
    s_.Registers[6] = {3, "old"};
    Keys("9");
    Open("kin", [&] {
        ClickRow(7);
        boxes_.SetAnswer(QMessageBox::No);
        Click("OKButton");
        ASSERT_EQ(boxes_.Seen().size(), 1);
        EXPECT_EQ(boxes_.Seen()[0].title + ": " + boxes_.Seen()[0].text, "Warning: Do you wish to OVERWRITE Reg-007 ?");
        EXPECT_EQ(boxes_.Seen()[0].icon, QMessageBox::Critical);
        EXPECT_TRUE(frm_->isVisible());
        EXPECT_EQ(s_.RegisterChoice, -1);
        boxes_.SetAnswer(QMessageBox::Yes);
        Click("OKButton");
    });
    EXPECT_EQ(s_.Registers[6].Value, 9.0);
    EXPECT_EQ(s_.Registers[6].Description, "old");  // the description box showed it and gave it back

    // M+ previews the sum, asks as the register holds a value, keeps its description.
    s_.Registers[99] = {10, "total"};
    Keys("AC 2 dot 5");
    Open("mplus", [&] {
        ClickRow(100);
        EXPECT_EQ(Value(100), "12.5   ");
        Desc()->setText("changed");
        Click("OKButton");
    });
    EXPECT_EQ(boxes_.Seen().size(), 3);  // the register held a value: asked
    EXPECT_EQ(s_.Registers[99].Value, 12.5);
    EXPECT_EQ(s_.Registers[99].Description, "total");
}

TEST_F(ListWindow, RegistersExitEscapeAndAnErrorChooseNothing) {
    s_.Registers[1] = {5, "x"};
    Keys("3");
    Open("kin", [&] {
        ClickRow(2);
        Click("ExitButton");
    });
    Open("kin", [&] {
        ClickRow(2);
        QTest::keyClick(frm_.get(), Qt::Key_Escape);
    });
    EXPECT_EQ(s_.Registers[1].Value, 5.0);
    EXPECT_EQ(s_.RegisterChoice, -1);
    EXPECT_TRUE(boxes_.Seen().isEmpty());
    Keys("1 / 0 = kin");  // a register key during an error opens nothing
    EXPECT_EQ(opened_, 2);
}

TEST_F(ListWindow, RegistersDeleteCheckedRowsThenAll) {
    for (int i = 0; i < 100; ++i) s_.Registers[size_t(i)] = {double(i + 1), "r"};
    Open("kac", [&] {
        calctest::CheckRow(list_, 2);
        calctest::CheckRow(list_, 4);
        EXPECT_TRUE(Button("OKButton")->isEnabled());
        boxes_.SetAnswer(QMessageBox::No);
        Click("OKButton");
        EXPECT_EQ(s_.Registers[1].Value, 2.0);
        boxes_.SetAnswer(QMessageBox::Yes);
        Click("OKButton");
        EXPECT_TRUE(frm_->isVisible());  // the window stays for more
        EXPECT_FALSE(Button("OKButton")->isEnabled());
        EXPECT_EQ(Value(2) + "|" + Value(3), "0.0   |3.0   ");
        Click("SelectAllButton");
        EXPECT_TRUE(Button("OKButton")->isEnabled());
        Click("CLRButton");
        EXPECT_FALSE(Button("OKButton")->isEnabled());
        Click("SelectAllButton");
        Click("OKButton");
        Click("ExitButton");
    });
    ASSERT_EQ(boxes_.Seen().size(), 3);
    EXPECT_EQ(boxes_.Seen()[0].title + ": " + boxes_.Seen()[0].text,
              "Warning: Are you sure you want to delete Selected Data?");
    EXPECT_EQ(CalculatorFiles::Encode_Registers(s_.Registers), std::string(1000, '\0'));  // all free, no texts
}

TEST_F(ListWindow, ConstantsAll128RowsWithColumnsAndFormats) {
    Open("cnst", [&] {
        QStringList heads, first;
        for (int c = 0; c < list_->columnCount(); ++c) heads << list_->headerItem()->text(c);
        for (int c = 0; c < list_->columnCount(); ++c) first << list_->topLevelItem(0)->text(c);
        EXPECT_EQ(heads, (QStringList{" No.", "Symbol", "Description", "Value  ", "Unit"}));
        EXPECT_EQ(first, (QStringList{"1  ", "°", "degree (angle)", "0.0174533", "rad"}));
        ASSERT_EQ(list_->topLevelItemCount(), 128);
        const std::pair<int, const char*> values[] = {
            {89, "299,792,000.00"}, {72, "-17.7778"}, {114, "0.0000000000000000043598"}};
        for (const auto& [row, text] : values) EXPECT_EQ(list_->topLevelItem(row)->text(3), text);
        EXPECT_EQ(list_->topLevelItem(127)->text(0), "128  ");
        EXPECT_FALSE(Button("OKButton")->isEnabled());
        Click("ExitButton");
    });
}

TEST_F(ListWindow, ConstantsClickShowsTheValueOkOrADoubleClickTakesItExitDoesNot) {
    Keys("5 +");
    Open("cnst", [&] {
        ClickRow(115);
        EXPECT_EQ(frm_->findChild<QGroupBox*>("ValueFrame")->title(), "Constant No. 115");
        EXPECT_EQ(frm_->findChild<QLineEdit*>("ValueBox")->text(), "  4.35981E-18");
        EXPECT_TRUE(Button("OKButton")->isEnabled());
        ClickRow(73);
        EXPECT_EQ(frm_->findChild<QLineEdit*>("ValueBox")->text(), "  -17.7778");
        Click("OKButton");
    });
    Keys("=");
    EXPECT_EQ(s_.Shown.Number, "-12.7778");  // the constant was the operand

    // Exit leaves the calculator as it was; a double click takes the row.
    Keys("AC 4 2");
    Open("cnst", [&] {
        ClickRow(5);
        Click("ExitButton");
    });
    EXPECT_EQ(s_.Shown.Number + "|" + s_.EntryText, "42.|42");
    EXPECT_TRUE(s_.ConstantChoice.IsEmpty());
    Open("cnst", [&] {
        ClickRow(90);
        QTest::mouseDClick(list_->viewport(), Qt::LeftButton, {}, calctest::RowPoint(list_, 90));
        EXPECT_EQ(s_.ConstantChoice.text, "  299792000");
    });
    EXPECT_EQ(s_.Shown.Number, "299792000.");
}

TEST_F(ListWindow, DataInEntryOrder) {
    OpenData("");
    EXPECT_EQ(list_->topLevelItemCount(), 0);
    EXPECT_EQ(list_->headerItem()->text(0) + "|" + list_->headerItem()->text(1), "   Data|              Value");
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());
    Click("ExitButton");
    EXPECT_FALSE(frm_->isVisible());
    OpenData("3 data 2 dot 5 data 1 0");
    EXPECT_EQ(Rows(), (QStringList{"Data-01=3   ", "Data-02=2.5   ", "Data-03=10   "}));
    EXPECT_EQ(list_->topLevelItem(0)->checkState(0), Qt::Unchecked);
}

TEST_F(ListWindow, DataDeleteCheckedRowsAsksFirstAndDeleteAllLeavesNoList) {
    OpenData("1 data 2 data 3 data 4");
    calctest::CheckRow(list_, 2);
    calctest::CheckRow(list_, 4);
    EXPECT_TRUE(Button("DeleteButton")->isEnabled());
    boxes_.SetAnswer(QMessageBox::No);
    Click("DeleteButton");
    EXPECT_EQ(s_.DataValues.Values.size(), 4u);
    boxes_.SetAnswer(QMessageBox::Yes);
    Click("DeleteButton");
    ASSERT_EQ(boxes_.Seen().size(), 2);
    EXPECT_EQ(boxes_.Seen()[1].title + ": " + boxes_.Seen()[1].text,
              "Warning: Are you sure you want to delete Selected Data?");
    EXPECT_EQ(boxes_.Seen()[1].icon, QMessageBox::Critical);
    EXPECT_EQ(Rows(), (QStringList{"Data-01=1   ", "Data-02=3   "}));
    EXPECT_FALSE(Button("DeleteButton")->isEnabled());

    // Delete all leaves no list.
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
}

}  // namespace
