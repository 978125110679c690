// Thousands of random replies and pointer events on the real window, in
// every mode, with random load inputs in CALCULATION: whatever is typed or
// clicked, the document and its load stay valid.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <cmath>
#include <random>
#include <string>

#include "support/BoardWindow.h"
#include "support/GuiTestSupport.h"
#include "board/ui/LineDataDialog.h"

using boardwindow::BoardWindow;
using Layout::LayoutDocument;
using Layout::LineRec;
using Layout::PointRec;

namespace {

bool Finite(const PointRec& p) { return std::isfinite(p.X) && std::isfinite(p.Y); }

// Every line finite, MidPt the mean of its ends, no blank row but the only
// one, the counts consistent with the table and the numbering.
void ExpectValid(const LayoutDocument& doc, const std::string& step) {
    ASSERT_FALSE(doc.Lines.empty()) << step;
    ASSERT_FALSE(doc.Dims.empty()) << step;
    ASSERT_TRUE(std::isfinite(doc.ZoomScale) && std::isfinite(doc.OriginX) && std::isfinite(doc.OriginY)) << step;
    for (const auto& d : doc.Dims)
        ASSERT_TRUE(Finite(d.DimP1) && Finite(d.DimP2) && Finite(d.DimPos) && std::isfinite(d.DimLength)) << step;
    const int16_t count = Viewport::Line_Count(doc.Lines);
    if (count == 0) {
        ASSERT_EQ(doc.Lines.size(), 1u) << step;
        return;
    }
    ASSERT_EQ(static_cast<size_t>(count), doc.Lines.size()) << step;
    ASSERT_LE(count, doc.LineCounter) << step;
    for (const LineRec& r : doc.Lines) {
        ASSERT_TRUE(Finite(r.StartPt) && Finite(r.EndPt) && Finite(r.MidPt) && std::isfinite(r.Length)) << step;
        ASSERT_FLOAT_EQ(r.MidPt.X, static_cast<float>((static_cast<double>(r.StartPt.X) + r.EndPt.X) / 2)) << step;
    }
    for (const PointRec& p : doc.Intersections) ASSERT_TRUE(Finite(p)) << step;
    const auto& load = doc.Load;
    ASSERT_TRUE(Finite(load.LoadPoint) && std::isfinite(load.LoadEccentricity)) << step;
    ASSERT_TRUE(load.LoadAngle >= 0 && load.LoadAngle < 360) << step;
}

class Fuzzer {
public:
    explicit Fuzzer(unsigned seed) : rng_(seed) {}
    int Choice(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }

    // Half of the replies are well formed, so that lines get drawn, moved and
    // turned; the rest are random pieces.
    QString Reply() {
        if (Choice(2) == 0) {
            switch (Choice(4)) {
            case 0: return Number() + "," + Number();
            case 1: return Number() + "<" + QString::number(Choice(720) - 360);
            case 2: return QString::number(Choice(10) + 1);
            default: return QString("WCRA"[Choice(4)]);
            }
        }
        static const char* pieces[] = {"0",  "1",    "5",    "12",  "-",    "'",   "\"",   "<",     ",",
                                       " ",  "/",    ".",    "E",   "E39",  "1E38", "9E99", "1E-2", "w",
                                       "c",  "a",    "x",    "90",  "-45",  "360", "0'-6\"", "3'-6", "1/2",
                                       "--", "1,000", "1/0", "inf", "nan",  "D3"};
        QString s;
        for (int i = Choice(6); i > 0; --i) s += pieces[Choice(static_cast<int>(std::size(pieces)))];
        return s;
    }
    QString Number() {
        static const char* forms[] = {"%1", "%1'", "%1\"", "0'-%1\"", "%1'-3 1/2\""};
        const double v = (Choice(96) - 16) / 8.0;
        return QString(forms[Choice(static_cast<int>(std::size(forms)))]).arg(std::fabs(v)).prepend(v < 0 ? "-" : "");
    }

private:
    std::mt19937 rng_;
};

TEST(BoardFuzz, RandomRepliesAndPointerEventsKeepTheDocumentValid) {
    guitest::ModalWatchdog dog;  // the line data dialog's own message
    BoardWindow b;
    Fuzzer fz(20261123);
    // Messages answer at once and the line data dialog takes random input,
    // so that thousands of steps run in a few seconds.
    b.Board().hooks.Show_Message = [&](const BoardMessages::BoardMessage& m) { return m.YesNo && fz.Choice(4) == 0; };
    b.Board().hooks.Show_LineData = [&](int16_t index) {
        LineDataDialog d(b.Doc(), index, {[&] { b.Board().Repaint(true); }, {}}, &b.w);
        d.findChild<QComboBox*>("BasePtBox")->setCurrentIndex(fz.Choice(3));
        d.findChild<QLineEdit*>("LenBox")->setText(fz.Reply());
        d.findChild<QLineEdit*>("RotBox")->setText(fz.Reply());
        QTest::mouseClick(d.findChild<QPushButton*>("ApplyButton"), Qt::LeftButton);
    };
    const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    const char* tools[] = {"MoveButton", "RotateButton",     "DeleteButton", "zUPButton",
                           "zDNButton",  "ZoomExtentButton", "RefreshButton"};
    auto* loadPanel = b.w.findChild<QWidget*>("LoadParamBox");
    auto somewhere = [&] { return QPoint(fz.Choice(b.s.width() + 40) - 20, fz.Choice(b.s.height() + 40) - 20); };
    int mostLines = 0, calcMoves = 0, panelInputs = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string step = std::to_string(i);
        const int what = fz.Choice(12);
        if (what <= 2) {
            const QString reply = fz.Reply();
            step += " reply \"" + reply.toStdString() + "\"";
            if (b.box->isEnabled()) b.Type(reply);
        } else if (what <= 6) {
            const QPoint p = somewhere();
            const Qt::MouseButton button = buttons[fz.Choice(4)];
            const Qt::KeyboardModifiers mods = fz.Choice(4) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
            step += " pointer " + std::to_string(p.x()) + "," + std::to_string(p.y());
            switch (fz.Choice(5)) {
            case 0: QTest::mousePress(&b.s, button, mods, p); break;
            case 1: QTest::mouseRelease(&b.s, button, mods, p); break;
            case 2: b.DoubleClickAt(p); break;
            case 3: b.ClickAt(p, button, mods); break;
            default: {
                // The calculation display does not follow the pointer.
                const bool calc = b.Board().Mode().Index() == BoardState::CALCULATION;
                const QImage before = calc ? b.s.Image().copy() : QImage();
                b.MoveTo(p, fz.Choice(3) == 0 ? Qt::LeftButton : Qt::NoButton);
                if (calc) {
                    ASSERT_TRUE(b.s.Image() == before) << step;
                    ++calcMoves;
                }
            }
            }
        } else if (what == 7) {
            b.Mode(2 * (fz.Choice(7) + 1));
            // The load panel takes a typed eccentricity or angle now and then.
            if (loadPanel->isVisible() && fz.Choice(3) == 0) {
                ++panelInputs;
                const bool ec = fz.Choice(2) == 0;
                b.w.findChild<QLineEdit*>(ec ? "EcInput" : "RotInput")->setText(fz.Reply());
                b.Press(ec ? "EcButton" : "RotButton");
            }
        } else if (what == 8) {
            b.Snap(fz.Choice(6));
        } else if (what == 9) {
            if (fz.Choice(4) == 0) b.Press(tools[fz.Choice(static_cast<int>(std::size(tools)))]);
        } else if (what == 10) {
            const Qt::Key keys[] = {Qt::Key_Escape, Qt::Key_Delete, Qt::Key_F8, Qt::Key_F9};
            b.Key(keys[fz.Choice(4)]);
        } else if (fz.Choice(20) == 0) {
            b.Press(fz.Choice(2) == 0 ? "ClearButton" : "ClearDimButton");
        }
        for (auto* m : {b.w.menu("mnuOsnap"), b.w.menu("mnuSelection")}) m->close();
        ExpectValid(b.Doc(), step);
        if (testing::Test::HasFatalFailure()) return;
        mostLines = std::max<int>(mostLines, Viewport::Line_Count(b.Doc().Lines));
    }
    EXPECT_GT(mostLines, 5) << "the run drew lines";
    EXPECT_GT(calcMoves, 0) << "the run moved the pointer on the calculation display";
    EXPECT_GT(panelInputs, 0) << "the run typed into the load panel";
}

}  // namespace
