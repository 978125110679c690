// CALCULATION on the main window, driven as a user drives it: the mode bar,
// a click for the load's side, the load panel's boxes and buttons, and the
// capacity window it opens.
#include <gtest/gtest.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "support/BoardWindow.h"
#include "support/GuiTestSupport.h"
#include "board/ui/BoardSurface.h"
#include "board/core/Viewport.h"
#include "board/core/LayoutFile.h"
#include "board/ui/MainWindow.h"
#include "shell/ui/SettingsStore.h"
#include "board/ui/CapacityWindow.h"

namespace {

const QString kExamples = QStringLiteral(FERROLITH_SOURCE_DIR "/examples/");

class MainFrmCalc : public testing::Test {
protected:
    void SetUp() override {
        // The capacity window at its first-start settings, as the command line runs.
        for (const char* key : {"WeldStrip", "WeldSize", "WeldClass", "DesignMethod"})
            settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", key, "");
        settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", "SolverModel", "iterative");
        ASSERT_TRUE(dir.isValid());
    }
    void Open(const QString& file) {
        w = std::make_unique<MainWindow>(nullptr, kExamples + file);
        w->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(w.get()));
    }
    template <class T> T* W(const char* name) { return w->findChild<T*>(name); }
    void EnterCalculation() { QTest::mouseClick(W<QWidget>("ModeBarButton_14"), Qt::LeftButton); }
    // Just right of the center of gravity, or near the left edge: both stay
    // inside the small offscreen screen at any scale.
    void ClickBoard(bool right) {
        BoardSurface& s = w->Surface();
        const double cx = Viewport::Centroid_X(w->Document().Lines);
        const QPoint at(right ? qRound(cx * s.logicalDpiX()) + 40 : 20, s.height() / 2);
        QTest::mouseMove(&s, at);
        QTest::mouseClick(&s, Qt::LeftButton, {}, at);
    }
    void Type(const char* box, const QString& text, bool enter = false) {
        auto* e = W<QLineEdit>(box);
        e->setFocus();
        QTest::keyClick(e, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(e, text);
        if (enter) QTest::keyClick(e, Qt::Key_Return);
    }
    // Clicks the calculate button and reads CBox once the capacity window's run ended.
    QString RunCapacity() {
        QString result;
        dog.SetDialogHandler([&](QDialog* d) {
            auto* frm = qobject_cast<CapacityWindow*>(d);
            if (frm == nullptr) return false;
            const QString cbox = frm->findChild<QLineEdit*>("CBox")->text();
            if (frm->RunActive() || cbox.isEmpty()) return true;
            result = cbox.trimmed();
            d->close();
            return true;
        });
        QTest::mouseClick(W<QPushButton>("CalcWeldCapButton"), Qt::LeftButton);
        dog.SetDialogHandler({});
        return result;
    }
    // What the command line prints for the document with its present load.
    QString CliCapacity() {
        const QString path = dir.filePath("load.wld");
        EXPECT_FALSE(LayoutFile::Write_Layout(w->Document(), path.toStdString()).Failed());
        QProcess cli;
        cli.start(QStringLiteral(FERROLITH_CLI), {"capacity", path});
        EXPECT_TRUE(cli.waitForFinished(120000));
        return QString::fromUtf8(cli.readAllStandardOutput()).section('\n', 0, 0);
    }

    guitest::ModalWatchdog dog;
    QTemporaryDir dir;
    std::unique_ptr<MainWindow> w;
};

TEST_F(MainFrmCalc, PlacedLoadRunsToTheCommandLinesCapacity) {
    Open("c-shape-right.wld");
    EnterCalculation();
    ASSERT_TRUE(W<QGroupBox>("LoadParamBox")->isVisible());
    EXPECT_EQ(W<QLineEdit>("EcInput")->text(), "9\"");
    EXPECT_EQ(W<QLineEdit>("RotInput")->text(), QString::fromUtf8("0\u00B0"));

    QString previous;
    for (const char* angle : {"0", "45"}) {
        SCOPED_TRACE(angle);
        const bool right = previous.isEmpty();  // on the right at 0 degrees, then on the left at 45
        ClickBoard(right);
        Type("EcInput", "0'-6\"");
        Type("RotInput", angle);
        const QString shown = RunCapacity();
        const auto& load = w->Document().Load;
        EXPECT_EQ(load.LoadSide, right ? 1 : 0);
        EXPECT_EQ(load.LoadEccentricity, 0.5);
        EXPECT_EQ(load.LoadAngle, QString(angle).toDouble());
        EXPECT_EQ(W<QLineEdit>("EcInput")->text(), "6\"");
        ASSERT_FALSE(shown.isEmpty());
        EXPECT_EQ(shown, CliCapacity());
        EXPECT_NE(shown, previous);
        previous = shown;
    }
}

TEST_F(MainFrmCalc, BoxesFilterKeysAndRefuseWhatIsNoValue) {
    Open("angle-left.wld");
    EnterCalculation();
    auto* ec = W<QLineEdit>("EcInput");
    Type("EcInput", "1a'b-3x");
    EXPECT_EQ(ec->text(), "1'-3");
    Type("RotInput", "-1-2.5.0e");
    EXPECT_EQ(W<QLineEdit>("RotInput")->text(), "-12.50");
    Type("RotInput", "-10.5", true);  // Enter applies
    EXPECT_EQ(W<QLineEdit>("RotInput")->text(), QString::fromUtf8("350.5\u00B0"));
    EXPECT_EQ(w->Document().Load.LoadAngle, 350.5);

    const double ecc = w->Document().Load.LoadEccentricity;
    Type("EcInput", "5-3");
    QTest::mouseClick(W<QPushButton>("CalcWeldCapButton"), Qt::LeftButton);
    ASSERT_EQ(dog.Seen().size(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "Invalid Length Input !  ");
    EXPECT_EQ(dog.Seen()[0].title, "Warning:");
    EXPECT_EQ(dog.Seen()[0].icon, QMessageBox::Critical);
    EXPECT_EQ(w->Document().Load.LoadEccentricity, ecc);
    EXPECT_EQ(ec->selectedText(), "5-3");
}

// Pictures of the calculation display with the load on either side at 0 and
// 30 degrees, when FERROLITH_SHOTS names a folder.
TEST_F(MainFrmCalc, Screenshots) {
    const QString out = qEnvironmentVariable("FERROLITH_SHOTS");
    if (out.isEmpty()) GTEST_SKIP() << "set FERROLITH_SHOTS to a folder to take pictures";
    QDir().mkpath(out);
    Open("c-shape-right.wld");
    EnterCalculation();
    for (bool right : {false, true}) {
        for (const char* angle : {"0", "30"}) {
            ClickBoard(right);
            Type("RotInput", angle, true);
            const QString file = QStringLiteral("%1/calc_%2_%3_x%4.png")
                                     .arg(out, right ? "right" : "left", angle)
                                     .arg(w->devicePixelRatioF());
            EXPECT_TRUE(w->grab().save(file));
            // The symbol's corner of the board at full size.
            const QPointF at = w->Surface().ToDevice(w->Document().Load.LoadPoint.X, w->Document().Load.LoadPoint.Y);
            const QRect box(at.toPoint() - QPoint(300, 200), QSize(600, 700));
            EXPECT_TRUE(w->Surface().Image().copy(box).save(QString(file).replace(".png", "_symbol.png")));
        }
    }
}

// A line lit by the EDIT hover or a snap found in DRAW, then a change of
// mode or of view: no mark, status text or tool tip keeps the old finding,
// Delete removes nothing, and the next pointer move leaves the picture alone.
TEST(BoardFeedback, ChangeOfViewLeavesNoHoverOrSnapBehind) {
    guitest::ModalWatchdog dog;
    struct Case {
        const char* name;
        int mode;            // where the finding is made
        const char* change;  // a mode bar button or a tool button
    };
    for (const Case& c : {Case{"hover, then CALCULATION", BoardState::EDIT, "ModeBarButton_14"},
                          Case{"hover, then zoom extent", BoardState::EDIT, "ZoomExtentButton"},
                          Case{"hover, then Refresh", BoardState::EDIT, "RefreshButton"},
                          Case{"snap, then CALCULATION", BoardState::DRAW, "ModeBarButton_14"},
                          Case{"snap, then zoom in", BoardState::DRAW, "zUPButton"}}) {
        SCOPED_TRACE(c.name);
        boardwindow::BoardWindow b(kExamples + "c-shape-right.wld");
        b.Snap(1);
        b.Mode(c.mode);
        const Layout::LineRec line = b.Doc().Lines[0];
        const Layout::PointRec at = c.mode == BoardState::EDIT ? line.MidPt : line.StartPt;
        b.MoveTo(QPoint(qRound(at.X * b.s.logicalDpiX()), qRound(at.Y * b.s.logicalDpiY())));
        auto* panel = b.w.findChild<QLabel*>("StatusPanel2");
        ASSERT_FALSE(panel->text().isEmpty());

        QTest::mouseClick(b.w.findChild<QWidget*>(c.change), Qt::LeftButton);
        EXPECT_EQ(panel->text(), "");
        EXPECT_EQ(b.s.toolTip(), "");
        const auto& marks = b.s.Marks();
        EXPECT_FALSE(marks.PickBox.Visible || marks.StartBox.Visible || marks.MidBox.Visible || marks.EndBox.Visible);
        // Back in the mode of the finding, the Delete key of EDIT finds no line
        // until the pointer is over one again.
        if (b.Board().Mode().Index() != c.mode) b.Mode(c.mode);
        b.Key(Qt::Key_Delete);
        EXPECT_EQ(Viewport::Line_Count(b.Doc().Lines), 3);
        const QImage shown = b.s.Image().copy();
        b.MoveTo(b.Px(2, 5));  // inside the C, on no line
        EXPECT_TRUE(b.s.Image() == shown);
    }
}

// Each way out of CALCULATION after a load edit and a Refresh: the zoom
// buttons end in DRAW, and every way brings back the working display, the
// dimension included, with the load panel hidden and the command line on.
TEST(BoardFeedback, LeavingCalculationBringsBackTheWorkingDisplay) {
    guitest::ModalWatchdog dog;
    for (const char* way : {"ModeBarButton_2", "ModeBarButton_4", "zUPButton", "zDNButton", "ZoomExtentButton"}) {
        SCOPED_TRACE(way);
        boardwindow::BoardWindow b;
        for (const char* reply : {"1,1", "1,4", "1,1", "3,1"}) b.Type(reply);
        b.Snap(1);
        b.Mode(BoardState::DIMENSION);
        for (QPoint p : {b.Px(1, 1), b.Px(1, 4), b.Px(0.5, 2.5)}) b.ClickAt(p);
        ASSERT_EQ(Viewport::Line_Count(b.Doc().Dims), 1);
        b.Mode(BoardState::CALCULATION);
        b.ClickAt(QPoint(b.s.width() - 20, b.s.height() / 2));
        b.w.findChild<QLineEdit*>("EcInput")->setText("2'");
        b.Press("EcButton");
        b.Press("RefreshButton");

        QTest::mouseClick(b.w.findChild<QWidget*>(way), Qt::LeftButton);
        EXPECT_EQ(b.Board().Mode().Index(), QString(way) == "ModeBarButton_4" ? BoardState::SELECTION : BoardState::DRAW);
        EXPECT_FALSE(b.w.findChild<QWidget*>("LoadParamBox")->isVisible());
        EXPECT_TRUE(b.box->isEnabled());
        const QImage shown = b.s.Image().copy();
        b.Board().Repaint(false);
        EXPECT_TRUE(b.s.Image() == shown);
        EXPECT_EQ(dog.Seen().size(), 0);
    }
}

// The question on closing compares the saved lines with the present ones in
// world terms through the present view: the fit of the calculation display
// counts as a change until the layout is saved; the same fit again, or a
// return to DRAW, does not.
TEST(BoardFeedback, TheCalculationFitAsksForASaveUntilSaved) {
    QTemporaryDir dir;
    const QString copy = dir.filePath("c-shape.wld");
    ASSERT_TRUE(QFile::copy(kExamples + "c-shape-right.wld", copy));
    guitest::ModalWatchdog dog(QMessageBox::Cancel);
    boardwindow::BoardWindow b(copy);
    auto questions = [&] {
        dog.Clear();
        b.w.close();
        return dog.Seen().size();
    };
    EXPECT_EQ(questions(), 0);
    b.w.show();
    b.Mode(BoardState::CALCULATION);
    EXPECT_EQ(questions(), 1);
    EXPECT_EQ(dog.Seen()[0].text, "Save Changes To " + copy.toUpper() + " ?");
    b.w.action("mnuSaveData")->trigger();
    b.Press("RefreshButton");
    b.Mode(BoardState::DRAW);
    EXPECT_EQ(questions(), 0);
}

}  // namespace
