// CALCULATION on the main window, driven as a user drives it: a click for
// the load's side, the load panel's boxes and buttons, and the capacity
// window it opens. What the mode shows is in board_modes.script; what the
// capacity window computes is in CapacityWindowTest.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "board/ui/BoardSurface.h"
#include "board/ui/CapacityWindow.h"
#include "board/ui/MainWindow.h"
#include "support/GuiTestSupport.h"

namespace {

class MainFrmCalc : public testing::Test {
protected:
    void SetUp() override {
        w.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
        QTest::mouseClick(W<QWidget>("ModeBarButton_14"), Qt::LeftButton);
    }
    template <class T>
    T* W(const char* name) {
        return w.findChild<T*>(name);
    }
    void Type(const char* box, const QString& text, bool enter = false) {
        auto* e = W<QLineEdit>(box);
        e->setFocus();
        QTest::keyClick(e, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(e, text);
        if (enter) QTest::keyClick(e, Qt::Key_Return);
    }

    guitest::ModalWatchdog dog;
    MainWindow w{nullptr, QStringLiteral(FERROLITH_SOURCE_DIR "/examples/c-shape-right.wld")};
};

TEST_F(MainFrmCalc, ThePlacedLoadGoesToTheCapacityWindow) {
    ASSERT_TRUE(W<QGroupBox>("LoadParamBox")->isVisible());
    EXPECT_EQ(W<QLineEdit>("EcInput")->text(), "9\"");
    EXPECT_EQ(W<QLineEdit>("RotInput")->text(), QString::fromUtf8("0\u00B0"));
    // Near the left edge: inside the small offscreen screen at any scale.
    BoardSurface& s = w.Surface();
    QTest::mouseMove(&s, QPoint(20, s.height() / 2));
    QTest::mouseClick(&s, Qt::LeftButton, {}, QPoint(20, s.height() / 2));
    Type("EcInput", "0'-6\"");
    Type("RotInput", "45");
    QString title;
    dog.SetDialogHandler([&](QDialog* d) {
        auto* frm = qobject_cast<CapacityWindow*>(d);
        if (frm == nullptr) return false;
        title = d->windowTitle();
        if (!frm->RunActive()) d->close();
        return true;
    });
    QTest::mouseClick(W<QPushButton>("CalcWeldCapButton"), Qt::LeftButton);
    EXPECT_EQ(title, "Weld Group Capacity");
    const auto& load = w.Document().Load;
    EXPECT_EQ(load.LoadSide, 0);
    EXPECT_EQ(load.LoadEccentricity, 0.5);
    EXPECT_EQ(load.LoadAngle, 45.0);
    EXPECT_EQ(W<QLineEdit>("EcInput")->text(), "6\"");
}

TEST_F(MainFrmCalc, BoxesFilterKeysAndRefuseWhatIsNoValue) {
    auto* ec = W<QLineEdit>("EcInput");
    Type("EcInput", "1a'b-3x");
    EXPECT_EQ(ec->text(), "1'-3");
    Type("RotInput", "-1-0.5e", true);  // Enter applies
    EXPECT_EQ(W<QLineEdit>("RotInput")->text(), QString::fromUtf8("350.5\u00B0"));
    EXPECT_EQ(w.Document().Load.LoadAngle, 350.5);
    const double ecc = w.Document().Load.LoadEccentricity;
    Type("EcInput", "5-3");
    QTest::mouseClick(W<QPushButton>("CalcWeldCapButton"), Qt::LeftButton);
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "Invalid Length Input !  ");
    EXPECT_EQ(dog.Seen()[0].title, "Warning:");
    EXPECT_EQ(dog.Seen()[0].icon, QMessageBox::Critical);
    EXPECT_EQ(w.Document().Load.LoadEccentricity, ecc);
    EXPECT_EQ(ec->selectedText(), "5-3");
}

}  // namespace
