// Calculation sheets read back as an engineer's reader sees them: the text
// of the PDF (pdftotext) holds every input and result with the digits the
// window and the command line show, the other model beside them; page 1
// rasterised (pdftoppm) shows the drawing and the red of the load.
#include <gtest/gtest.h>

#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QPushButton>
#include <QTest>

#include "board/ui/CapacityWindow.h"
#include "shell/print/SheetPrinter.h"
#include "support/BoardWindow.h"
#include "support/GuiTestSupport.h"
#include "support/TempFolder.h"

namespace {

struct Ran {
    int code = -1;
    QString out, err;
};

Ran Exec(const QString& program, const QStringList& args) {
    QProcess p;
    p.setWorkingDirectory(QStringLiteral(FERROLITH_TEST_DATA "/../../.."));
    p.start(program, args);
    p.waitForFinished(120000);
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}
Ran Cli(const QStringList& args) { return Exec(QStringLiteral(FERROLITH_CLI), args); }
QString PdfText(const QString& pdf) { return Exec("pdftotext", {"-layout", pdf, "-"}).out; }

class CalculationSheet : public testutil::TempFolder {
protected:
    QString Path(const char* name) const { return QString::fromStdString(P(name)); }
};

TEST_F(CalculationSheet, TheCommandLineSheetHoldsWhatTheCapacityCommandPrints) {
    for (const char* example : {"c-shape-right", "angle-left", "box-inclined", "single-line-concentric"}) {
        SCOPED_TRACE(example);
        const QString wld = QStringLiteral("examples/%1.wld").arg(example), pdf = Path("sheet.pdf");
        const QStringList choice = {"--method", "lrfd", "--size", "5"};
        const Ran capacity = Cli(QStringList{"capacity", wld, "--no-check"} + choice);
        const Ran aisc = Cli(QStringList{"capacity", wld, "--model", "aisc"} + choice);
        ASSERT_EQ(capacity.code, 0) << capacity.err.toStdString();
        const Ran made = Cli(QStringList{"sheet", wld, "-o", pdf, "--project", "Bay 4", "--job", "J-17"} + choice);
        ASSERT_EQ(made.code, 0) << made.err.toStdString();
        EXPECT_TRUE(made.err.isEmpty()) << made.err.toStdString();
        const QString text = PdfText(pdf);
        for (const QString& want : {capacity.out.split('\n')[0], capacity.out.split('\n')[1], aisc.out.split('\n')[0],
                                    QStringLiteral("Bay 4"), QStringLiteral("J-17"), QStringLiteral("E90XX"),
                                    QStringLiteral("5/16\""), QStringLiteral("LRFD"), QStringLiteral("\u03C6 = 0.75"),
                                    QStringLiteral("Scale:"), QStringLiteral("Page 1 of ")})
            EXPECT_TRUE(text.contains(want)) << want.toStdString() << "\n" << text.toStdString();
        EXPECT_TRUE(Exec("pdfinfo", {pdf}).out.contains("612 x 792 pts (letter)"));
    }
    // A4 on request; no run to converge, or nowhere to write: one line, no file.
    EXPECT_EQ(Cli({"sheet", "examples/angle-left.wld", "-o", Path("a4.pdf"), "--paper", "a4"}).code, 0);
    EXPECT_TRUE(Exec("pdfinfo", {Path("a4.pdf")}).out.contains("595 x 842 pts (A4)"));
    const Ran stopped = Cli({"sheet", "examples/c-shape-right.wld", "-o", Path("none.pdf"), "--max-passes", "1"});
    EXPECT_EQ(stopped.code, 3);
    EXPECT_EQ(stopped.err.count('\n'), 1);
    const Ran nowhere = Cli({"sheet", "examples/c-shape-right.wld", "-o", Path("no/such/folder/x.pdf")});
    EXPECT_EQ(nowhere.code, 1);
    EXPECT_FALSE(QFile::exists(Path("none.pdf")) || QFile::exists(Path("no/such/folder/x.pdf")));
}

TEST_F(CalculationSheet, CoefficientSheetsHoldTheValuesTheCommandsPrint) {
    const struct {
        QStringList args;
        QStringList want;  // besides every word of the command's own output
    } cases[] = {{{"weld-c", "4", "10", "5", "5", "30"}, {"Configuration", "k = 0.5", "a = 0.5", "30°"}},
                 {{"bolt-c", "4", "2", "3", "3", "6", "15"}, {"4 rows by 2 columns", "ex = 6 in", "C other"}}};
    for (const auto& c : cases) {
        const Ran plain = Cli(c.args + QStringList{"--no-check"}.mid(c.args[0] == "weld-c" ? 0 : 1));
        const Ran aisc = Cli(c.args + QStringList{"--model", "aisc"});
        const Ran made = Cli(c.args + QStringList{"--sheet", Path("c.pdf"), "--engineer", "R. Ames"});
        ASSERT_EQ(made.code, 0) << made.err.toStdString();
        EXPECT_EQ(made.out, plain.out);
        const QString text = PdfText(Path("c.pdf"));
        for (const QString& want : plain.out.split(QRegularExpression("\\s+"), Qt::SkipEmptyParts) +
                                       QStringList{aisc.out.split(QRegularExpression("\\s+"), Qt::SkipEmptyParts)[0],
                                                   "R. Ames"} +
                                       c.want)
            EXPECT_TRUE(text.contains(want)) << c.args[0].toStdString() << ": " << want.toStdString();
    }
}

TEST_F(CalculationSheet, PageOneShowsTheGroupAndTheRedOfTheLoad) {
    ASSERT_EQ(Cli({"sheet", "examples/box-inclined.wld", "-o", Path("box.pdf")}).code, 0);
    ASSERT_EQ(Exec("pdftoppm", {"-r", "72", "-png", "-f", "1", "-l", "1", Path("box.pdf"), Path("page")}).code, 0);
    const QImage page(Path("page-1.png"));
    ASSERT_FALSE(page.isNull());
    // The drawing's frame lies below the title block: dark pixels there, and red ones.
    int ink = 0, red = 0;
    for (int y = 150; y < 400; ++y)
        for (int x = 50; x < page.width() - 50; ++x) {
            const QColor c = page.pixelColor(x, y);
            ink += c.lightness() < 100;
            red += c.red() > 150 && c.green() < 80 && c.blue() < 80;
        }
    EXPECT_GT(ink, 200);
    EXPECT_GT(red, 20);
}

TEST_F(CalculationSheet, TheCapacityWindowMakesTheSheetOfItsRun) {
    boardwindow::DialogSeam seam;
    seam.save = Path("window.pdf");
    guitest::ModalWatchdog dog;
    dog.SetDialogHandler([](QDialog* d) {
        if (d->objectName() != "TitleBlockFrm") return false;
        guitest::SaveScreenFits(d, "TitleBlockFrm");
        auto* project = d->findChild<QLineEdit*>("SheetProject");
        project->setFocus();
        QTest::keyClicks(project, "Mill bay");
        d->accept();
        return true;
    });
    boardwindow::BoardWindow b;
    for (const char* reply : {"0,0", "0,10", "0,0", "4,0", "0,10", "4,10"}) b.Type(reply);
    b.Mode(14);
    b.ClickAt(b.Px(7, 2));
    b.w.findChild<QLineEdit*>("EcInput")->setText("0'-9\"");
    auto* window = new CapacityWindow(b.Doc(), &b.w, QStringLiteral("/tmp/c-shape.wld"));
    window->show();
    auto* pdf = window->findChild<QPushButton*>("SheetPdfButton");
    EXPECT_FALSE(pdf->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(!window->RunActive() && pdf->isEnabled(), 20000);
    QTest::mouseClick(pdf, Qt::LeftButton);
    const QString text = PdfText(Path("window.pdf"));
    EXPECT_TRUE(text.contains(window->findChild<QLineEdit*>("CBox")->text().trimmed()));
    EXPECT_TRUE(text.contains("Mill bay"));
    EXPECT_TRUE(text.contains("c-shape.wld"));
    EXPECT_TRUE(text.contains("AISC element model (for comparison)"));
    window->close();
}

TEST(SheetScale, TheLargestUsualScaleThatFits) {
    const struct {
        double extent, room;
        const char* text;
    } cases[] = {{2, 6, "2\" = 1\""},        {10, 6, "6\" = 1'-0\""},   {20, 6, "3\" = 1'-0\""},
                 {60, 6, "1\" = 1'-0\""},   {280, 6, "1/4\" = 1'-0\""}, {5000, 6, "1:1600"}};
    for (const auto& c : cases) EXPECT_EQ(sheetprint::Fit_Scale(c.extent, c.room).text, c.text) << c.extent;
}

}  // namespace
