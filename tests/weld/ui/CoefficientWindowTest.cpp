#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include "shell/ui/GridEditor.h"
#include "shell/ui/SettingsStore.h"
#include "support/GuiTestSupport.h"
#include "weld/ui/CoefficientWindow.h"
#include "weld/ui/WeldPictureView.h"

inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

// C of the nine configurations at L 10, kL 5, aL 8, 15 degrees and 1/32", as
// `ferrolith-cli weld-c N 10 5 8 15` prints them.
const char* const kC[9] = {"1.25749", "1.52844", "1.58240", "3.31771", "2.88174",
                           "2.53692", "2.21870", "2.08161", "2.19819"};

class CoefficientWindowTest : public testing::Test {
protected:
    void SetUp() override {
        CoefficientWindow::WeldConfigStore() = {};
        settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", "WeldStrip", "3");
        settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", "WeldView", "1");
        settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", "SolverModel", "iterative");
    }
    void TearDown() override { delete frm_.data(); }

    void Open() {
        frm_ = new CoefficientWindow;
        frm_->show();
        QApplication::setActiveWindow(frm_);
        grid_ = frm_->findChild<CellGrid*>("WeldFlex");
        box_ = frm_->findChild<QLineEdit*>("EdiTxtA");
    }
    template <class T> T* W(const char* name) { return frm_->findChild<T*>(name); }
    QPushButton* Button(const char* name) { return W<QPushButton>(name); }
    QString CBox() { return W<QLineEdit>("CBox")->text(); }
    QString Cell(int row) { return grid_->TextMatrix(row, 1); }

    void Choose(int config) {
        auto* view = W<QListWidget>("WeldView");
        const QRect r = view->visualItemRect(view->item(config - 1));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, r.center());
    }
    // Types into the value cell of `row`.
    void Type(int row, const QString& text, Qt::Key commit = Qt::Key_Return) {
        guitest::TypeInGridCell(grid_, box_, row, 1, text, commit);
    }
    void TypeAll(const QStringList& values) {
        for (int r = 0; r < values.size(); ++r) Type(r, values[r]);
    }

    guitest::ModalWatchdog boxes_{QMessageBox::Yes};
    QPointer<CoefficientWindow> frm_;
    CellGrid* grid_ = nullptr;
    QLineEdit* box_ = nullptr;
};

TEST_F(CoefficientWindowTest, EveryConfigurationGivesTheHeadlessC) {
    Open();
    EXPECT_EQ(frm_->windowTitle(), "Weld Group Coefficient Calculator    -    [Weld Configuration 1]");
    EXPECT_EQ(grid_->TextMatrix(3, 0), "   Load Rotation Angle,  \u00D8");
    EXPECT_EQ(Button("StartIterationButton")->text(), "Start Iteration");
    EXPECT_TRUE(CBox().isEmpty()) << "the window starts no run by itself";
    for (int n = 1; n <= 9; ++n) {
        SCOPED_TRACE(n);
        Choose(n);
        TypeAll({"10", "5", "8", "15"});
        EXPECT_EQ(Cell(0), "10.000     ");
        QTest::mouseClick(Button("StartIterationButton"), Qt::LeftButton);
        EXPECT_EQ(CBox(), QString(kC[n - 1]) + "  ");
        EXPECT_TRUE(W<QPlainTextEdit>("IterationDisplayBox")->toPlainText().contains("Instantaneous Center LOCATED"));
    }
    // The element model names itself and is not cross-checked by itself.
    W<QComboBox>("ModelBox")->setCurrentIndex(1);
    QTest::mouseClick(Button("StartIterationButton"), Qt::LeftButton);
    EXPECT_TRUE(W<QPlainTextEdit>("IterationDisplayBox")->toPlainText().contains("AISC element model"));
    EXPECT_FALSE(CBox().isEmpty());
    EXPECT_NE(CBox().trimmed(), kC[8]);
    EXPECT_TRUE(W<QLabel>("ModelCheckText")->text().isEmpty());
}

TEST_F(CoefficientWindowTest, ConfigurationsKeepTheirCellsAndCentroids) {
    Open();
    Choose(8);
    TypeAll({"10", "4", "6", "0"});
    EXPECT_EQ(Cell(4).trimmed(), "0.571");  // xL of an angle 10 by 4
    EXPECT_NE(Cell(5).trimmed(), "");
    Choose(6);
    EXPECT_EQ(Cell(0), "");
    EXPECT_EQ(Cell(5), "             Midpoint");
    EXPECT_EQ(Cell(4), "");
    TypeAll({"3"});
    Choose(2);
    EXPECT_EQ(Cell(4), "             Midpoint");
    Choose(8);
    EXPECT_EQ(Cell(0), "10.000     ");
    EXPECT_EQ(Cell(3), "0.000     ");
    Choose(6);
    EXPECT_EQ(Cell(0), "3.000     ");
}

TEST_F(CoefficientWindowTest, IncompleteOrImpossibleInputIsExplained) {
    Open();
    Choose(2);
    TypeAll({"0", "5"});
    QTest::mouseClick(Button("StartIterationButton"), Qt::LeftButton);
    ASSERT_EQ(boxes_.Seen().size(), 1);
    EXPECT_EQ(boxes_.Seen()[0].text, "Incomplete Parameter Input ! ");
    EXPECT_EQ(boxes_.Seen()[0].title, "Warning:");
    EXPECT_EQ(boxes_.Seen()[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(CBox().isEmpty());
    EXPECT_FALSE(Button("StopIterationButton")->isEnabled());
    EXPECT_TRUE(Button("StartIterationButton")->isEnabled());
    // A row that cannot give a coefficient says why in the status line.
    TypeAll({"0", "5", "8", "15"});
    QTest::mouseClick(Button("StartIterationButton"), Qt::LeftButton);
    EXPECT_EQ(W<QLabel>("StatusLine")->text(), "No coefficient: the base length L must be greater than 0.");
    Type(0, "10");
    QTest::mouseClick(Button("StartIterationButton"), Qt::LeftButton);
    EXPECT_TRUE(W<QLabel>("StatusLine")->text().isEmpty());
}

TEST_F(CoefficientWindowTest, OldResultIsWipedOnlyByAChangeAtThreeDecimals) {
    Open();
    Choose(4);
    TypeAll({"10", "5", "8", "15"});
    QTest::mouseClick(Button("StartIterationButton"), Qt::LeftButton);
    ASSERT_FALSE(CBox().isEmpty());
    // The element model's C for the same shape comes under the result.
    QTRY_VERIFY_WITH_TIMEOUT(W<QLabel>("ModelCheckText")->text().contains(QRegularExpression(
                                 R"(^AISC element model: \d\.\d{5} \([+-]\d+\.\d %\))")),
                             5000);
    Type(0, "10.0004", Qt::Key_Tab);
    EXPECT_FALSE(CBox().isEmpty()) << "10.0004 reads 10.000";
    Type(0, "10.001", Qt::Key_Tab);
    EXPECT_TRUE(CBox().isEmpty());
    EXPECT_TRUE(W<QLabel>("ModelCheckText")->text().isEmpty());
    EXPECT_TRUE(W<QPlainTextEdit>("IterationDisplayBox")->toPlainText().isEmpty());
}

TEST_F(CoefficientWindowTest, StopAndResumeAsInTheCapacityWindow) {
    Open();
    Choose(6);
    TypeAll({"100", "40", "150", "30"});  // a group that keeps iterating
    QTimer::singleShot(60, frm_, [this] {
        EXPECT_TRUE(frm_->RunActive());
        EXPECT_FALSE(W<CellGrid>("WeldFlex")->isEnabled());
        EXPECT_FALSE(W<QListWidget>("WeldView")->isEnabled());
        QTest::mouseClick(Button("StopIterationButton"), Qt::LeftButton);
    });
    QTest::mouseClick(Button("StartIterationButton"), Qt::LeftButton);
    EXPECT_EQ(Button("StopIterationButton")->text(), "Resume Iteration");
    EXPECT_TRUE(CBox().startsWith("** "));
    EXPECT_TRUE(grid_->isEnabled());
    QTimer::singleShot(60, frm_, [this] { QTest::mouseClick(Button("StopIterationButton"), Qt::LeftButton); });
    QTest::mouseClick(Button("StopIterationButton"), Qt::LeftButton);  // resume, stopped again by the timer
    EXPECT_EQ(Button("StopIterationButton")->text(), "Resume Iteration");
    EXPECT_TRUE(W<QPlainTextEdit>("IterationDisplayBox")->toPlainText().endsWith("13th Edition"));
    QTest::mouseClick(Button("ClearDisplayButton"), Qt::LeftButton);
    EXPECT_FALSE(Button("StopIterationButton")->isEnabled());
    EXPECT_TRUE(W<QLabel>("ElapsedIndicator")->text().isEmpty());
}

TEST_F(CoefficientWindowTest, SettingsSpanInputAndSmallScreens) {
    settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", "WeldView", "12");
    Open();
    EXPECT_EQ(W<QListWidget>("WeldView")->currentRow(), 8);
    EXPECT_EQ(frm_->windowTitle(), "Weld Group Coefficient Calculator    -    [Weld Configuration 9]");
    EXPECT_TRUE(CoefficientWindow::Span_Input_Ok("5'-3 1/2\"") && CoefficientWindow::Span_Input_Ok("12.5"));
    EXPECT_FALSE(CoefficientWindow::Span_Input_Ok("5-3"));
    const QSize growth = guitest::GrowthFromMinimum(frm_, grid_, QSize(300, 200), "coefficient");
    EXPECT_GT(growth.width(), 0);
    EXPECT_GT(growth.height(), 0);
    Choose(4);
    frm_->close();
    EXPECT_EQ(settings::GetSetting(settings::ProgramTitle(), "FerrolithSetting", "WeldView"), "4");
}

// With FERROLITH_SHOTS set to a folder, the window and the nine pictures at
// two proportions are saved there.
TEST_F(CoefficientWindowTest, Screenshots) {
    const QString dir = qEnvironmentVariable("FERROLITH_SHOTS");
    if (dir.isEmpty()) GTEST_SKIP() << "FERROLITH_SHOTS not set";
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR", "1");
    Open();
    Choose(6);
    TypeAll({"10", "4", "6", "20"});
    QTest::mouseClick(Button("StartIterationButton"), Qt::LeftButton);
    frm_->grab().save(dir + "/coefficient-x" + scale + ".png");
    frm_->resize(frm_->minimumSizeHint());
    frm_->grab().save(dir + "/coefficient-min-x" + scale + ".png");
    WeldImageView view;
    view.resize(260, 240);
    const double ka[2][3] = {{0.4, 0.3, 0}, {1.5, 1.2, 30}};
    for (int n = 1; n <= 9; ++n)
        for (int v = 0; v < 2; ++v) {
            view.SetPicture(WeldPicture::Picture(static_cast<int16_t>(n), ka[v][0], ka[v][1], ka[v][2]));
            view.grab().save(QStringLiteral("%1/picture-%2-%3-x%4.png").arg(dir).arg(n).arg(v).arg(scale));
        }
}

}  // namespace
