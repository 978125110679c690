#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "board/ui/LineDataDialog.h"
#include "support/BoardTestDoc.h"
#include "support/GuiTestSupport.h"

inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

using namespace boardtest;

class LineDataWindow : public testing::Test {
protected:
    void SetUp() override {
        doc_ = DocWith({L(1, 3, 3, 3), L(0, 0, 1, 1)});
        doc_.Lines[0].Selected = -1;  // as the board leaves the line it opens
    }
    void TearDown() override { delete frm_; }

    void Open(int16_t index = 0) {
        frm_ =
            new LineDataDialog(doc_, index, {[this] { ++redraws_; }, [this](const LineRec& r) { grips_ = r.MidPt; }});
        frm_->show();
        QApplication::setActiveWindow(frm_);
    }
    template <class W>
    W* Child(const char* name) {
        W* w = frm_->findChild<W*>(QString::fromLatin1(name));
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    QString Text(const char* label) { return Child<QLabel>(label)->text(); }
    void TypeIn(const char* box, const QString& text) {
        QLineEdit* e = Child<QLineEdit>(box);
        e->selectAll();
        QTest::keyClick(e, Qt::Key_Backspace);
        QTest::keyClicks(e, text);
    }
    void Apply() { QTest::mouseClick(Child<QPushButton>("ApplyButton"), Qt::LeftButton); }

    LayoutDocument doc_;
    LineDataDialog* frm_ = nullptr;
    int redraws_ = 0;
    PointRec grips_;
};

TEST_F(LineDataWindow, ShowsTheLineAndItsCaptionsFit) {
    Open();
    EXPECT_EQ(frm_->windowTitle(), "Line Data");
    EXPECT_EQ(Text("LineNameBox") + Text("SegLen"), "Line Number 1    L =  2.000");
    EXPECT_EQ(Text("xRotAng"), QString::fromUtf8("   Ø =  360.0°"));
    EXPECT_EQ(Child<QComboBox>("BasePtBox")->currentText(), "   Start Point");
    EXPECT_TRUE(Child<QFrame>("StartBox")->isVisible());
    EXPECT_FALSE(Child<QFrame>("MidBox")->isVisible());
    QTest::mouseClick(Child<QCheckBox>("DisplayModeBox"), Qt::LeftButton);
    EXPECT_EQ(Text("EndPTx"), "    X =  3\"");
    QTest::keyClicks(Child<QLineEdit>("RotBox"), "1a2-.3.x");  // a signed decimal only
    EXPECT_EQ(Child<QLineEdit>("RotBox")->text(), "12-.3");
    TypeIn("LenBox", "5'-3 1/2\"");
    Apply();
    for (const char* name : {"StartPTx", "EndPTy", "SegLen", "RotAng", "xRotAng"}) {
        QLabel* l = Child<QLabel>(name);
        EXPECT_LE(l->fontMetrics().horizontalAdvance(l->text()), l->contentsRect().width()) << name;
    }
}

TEST_F(LineDataWindow, ApplyLengthThenAngleAboutTheMiddle) {
    Open();
    QComboBox* base = Child<QComboBox>("BasePtBox");
    QTest::keyClick(base, Qt::Key_Down);
    ASSERT_EQ(base->currentIndex(), 1);
    EXPECT_TRUE(Child<QFrame>("MidBox")->isVisible());
    TypeIn("LenBox", "0'-4\"");
    TypeIn("RotBox", "-90");
    Apply();
    const LineRec& r = doc_.Lines[0];
    EXPECT_NEAR(r.MidPt.Y, 3, 1e-5);
    EXPECT_NEAR(r.EndPt.Y, 5, 1e-5);  // -90: down on the screen
    EXPECT_EQ(Child<QLineEdit>("LenBox")->text(), "4\"");
    EXPECT_EQ(Child<QLineEdit>("RotBox")->text(), "270");
    EXPECT_EQ(Text("RotAng"), QString::fromUtf8("   Ø =  90.0°"));
    EXPECT_EQ(redraws_, 1);
    EXPECT_FLOAT_EQ(grips_.X, r.MidPt.X);
    // A bare number is inches and reads back in feet; Enter applies.
    TypeIn("LenBox", "60");
    TypeIn("RotBox", "");
    QTest::keyClick(Child<QLineEdit>("LenBox"), Qt::Key_Return);
    EXPECT_EQ(Child<QLineEdit>("LenBox")->text(), "5'-0\"");
    EXPECT_EQ(Text("SegLen"), "    L =  60.000");
    // A length that does not read is refused with a warning, the angle too.
    guitest::ModalWatchdog dog;
    TypeIn("LenBox", "5FT");
    TypeIn("RotBox", "45");
    Apply();
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].title, "Warning:");
    EXPECT_EQ(dog.Seen()[0].text, "Invalid Length Input !  ");
    EXPECT_EQ(dog.Seen()[0].icon, QMessageBox::Critical);
    EXPECT_EQ(Text("SegLen"), "    L =  60.000");
    EXPECT_EQ(Child<QLineEdit>("LenBox")->selectedText(), "5FT");
    EXPECT_EQ(redraws_, 2);
}

TEST_F(LineDataWindow, ExitUnselectsTheLineEscLeavesIt) {
    Open();
    QTest::mouseClick(Child<QPushButton>("ExitButton"), Qt::LeftButton);
    EXPECT_TRUE(!frm_->isVisible() && doc_.Lines[0].Selected == 0);
    delete frm_;
    doc_.Lines[1].Selected = -1;
    Open(1);
    QTest::keyClick(Child<QLineEdit>("LenBox"), Qt::Key_Escape);
    EXPECT_TRUE(!frm_->isVisible() && doc_.Lines[1].Selected != 0);
}

}  // namespace
