#include "bolt/ui/BoltCoefficientWindow.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "board/ui/MainWindow.h"
#include "shell/ui/GridEditor.h"
#include "shell/ui/SettingsStore.h"
#include "support/GuiTestSupport.h"

// Readable QString values in failure messages.
inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

class BoltWindow : public testing::Test {
protected:
    void SetUp() override {
        QFile::remove(BoltCoefficientWindow::DataFilePath());
        settings::SaveSetting(settings::ProgramTitle(), "TrussmereSetting", "cFlexRows", "16");
    }
    void TearDown() override {
        delete frm_;
        QFile::remove(BoltCoefficientWindow::DataFilePath());
    }

    void Open() {
        delete frm_;
        frm_ = new BoltCoefficientWindow(records_);
        frm_->show();
        QApplication::setActiveWindow(frm_);
        grid_ = frm_->findChild<CellGrid*>("cFlex");
        box_ = frm_->findChild<QLineEdit*>("EdiTxt");
    }
    QPushButton* Button(const char* name) { return frm_->findChild<QPushButton*>(name); }
    QString Strip(const char* name, int row) { return frm_->findChild<CellGrid*>(name)->TextMatrix(row, 1); }
    QString Cell(int row, int col) { return grid_->TextMatrix(row, col); }
    QLabel* Label(const char* name) { return frm_->findChild<QLabel*>(name); }
    const QList<guitest::SeenBox>& Seen() { return boxes_.Seen(); }

    // Types a value into a cell of data row `row` (counted from 1).
    void Type(int row, int col, const QString& text) { guitest::TypeInGridCell(grid_, box_, row - 1, col, text); }
    void TypeRow(int row, const QStringList& values) {
        for (int c = 0; c < values.size(); ++c) Type(row, c + 1, values[c]);
    }

    // Answers every message box, so none can hang a test; tests read what it saw.
    guitest::ModalWatchdog boxes_;
    std::vector<BoltRows::BoltRecord> records_;
    BoltCoefficientWindow* frm_ = nullptr;
    CellGrid* grid_ = nullptr;
    QLineEdit* box_ = nullptr;
};

TEST_F(BoltWindow, OpensWithTheRowsOfTheSetting) {
    const std::pair<const char*, int> cases[] = {{"16", 16}, {"5", 16}, {"30", 30}, {"junk", 16}, {"17.5", 18}};
    for (const auto& [stored, rows] : cases) {
        settings::SaveSetting(settings::ProgramTitle(), "TrussmereSetting", "cFlexRows", stored);
        Open();
        EXPECT_EQ(grid_->Rows(), rows) << stored;
        EXPECT_EQ(Cell(rows - 1, 0), QString::number(rows - 1)) << stored;
        EXPECT_EQ(Button("RemRowButton")->isEnabled(), rows > 16) << stored;
    }
}

TEST_F(BoltWindow, TypedRowGetsItsCoefficientsAndStrip) {
    Open();
    TypeRow(1, {"4", "2", "3", "3", "6", "0"});
    EXPECT_EQ(Cell(1, 1), "4");
    EXPECT_EQ(Cell(1, 3), "3.000  ");
    EXPECT_EQ(Cell(1, 7), "3.756  ");
    EXPECT_EQ(Cell(1, 8), "26.032  ");
    // Return moved down a row; back on row 1 the strip repeats it.
    EXPECT_EQ(grid_->Row(), 2);
    grid_->setCurrentCell(0, 3);
    EXPECT_EQ(Strip("ccFlex", 0), "4    ");
    EXPECT_EQ(Strip("ccFlex", 2), "3\"   ");
    EXPECT_EQ(Strip("xxFlex", 0), "6\"   ");
    EXPECT_EQ(Strip("xxFlex", 1), "0.000\u00B0  ");
    EXPECT_EQ(Strip("xxFlex", 2), "3.756   ");
    // Fractions of an inch in the strip; a comma in a large C'.
    Type(5, 3, "3.0625");
    EXPECT_EQ(Cell(5, 3), "3.0625  ");
    grid_->setCurrentCell(4, 1);
    EXPECT_EQ(Strip("ccFlex", 2), "3 1/16\"   ");
    TypeRow(4, {"30", "8", "6", "6", "0", "0"});
    EXPECT_EQ(Cell(4, 7), "240.000  ");
    EXPECT_TRUE(Cell(4, 8).endsWith("  ") && Cell(4, 8).contains(','));
}

TEST_F(BoltWindow, KeyFiltersPerColumnAndIncompleteOrImpossibleRows) {
    Open();
    // Letters never open the editor; a minus only in the angle column.
    grid_->setCurrentCell(0, 1);
    for (char key : {'a', '-', '.'}) QTest::keyClick(grid_, key);
    EXPECT_FALSE(box_->isVisible());
    grid_->setCurrentCell(0, 6);
    QTest::keyClick(grid_, '-');
    ASSERT_TRUE(box_->isVisible());
    QTest::keyClicks(box_, "12.5.-x");  // second point, second minus and letter refused
    EXPECT_EQ(box_->text(), "-12.5");
    QTest::keyClick(box_, Qt::Key_Return);
    EXPECT_EQ(Cell(1, 6), "-12.500  ");
    EXPECT_EQ(Cell(1, 7), "") << "only the angle is there: no calculation";
    // C and C' refuse every edit.
    grid_->setCurrentCell(0, 7);
    QTest::keyClick(grid_, '5');
    EXPECT_FALSE(box_->isVisible());
    // m of 0 is let through; the group has no bolts, C and C' keep their text
    // and the status line says why until the row can be worked out again.
    TypeRow(2, {"4", "2", "3", "3", "6", "0"});
    Type(2, 1, "0");
    EXPECT_EQ(Cell(2, 1), "0");
    EXPECT_EQ(Cell(2, 7), "3.756  ");
    EXPECT_TRUE(Label("StatusLine")->text().startsWith("Row 2: no bolt group")) << Label("StatusLine")->text().toStdString();
    Type(2, 1, "4");
    EXPECT_TRUE(Label("StatusLine")->text().isEmpty());
}

TEST_F(BoltWindow, TheEditorOpensLeavesAndFollowsTheGrid) {
    Open();
    for (int i = 0; i < 10; ++i) Button("AddRowButton")->click();
    grid_->scrollToTop();
    auto centre = [this](int row, int col) { return grid_->visualRect(grid_->model()->index(row - 1, col)).center(); };
    TypeRow(3, {"4", "2", "3", "3", "6", "0"});
    // Delete blanks the cell and the coefficients.
    grid_->setCurrentCell(2, 5);
    QTest::keyClick(grid_, Qt::Key_Delete);
    EXPECT_EQ(Cell(3, 5), "");
    EXPECT_EQ(Cell(3, 7) + Cell(3, 8), "");
    // F2 and a double click open the box with the cell's text; Esc leaves the cell as it was.
    grid_->setCurrentCell(2, 3);
    QTest::keyClick(grid_, Qt::Key_F2);
    ASSERT_TRUE(box_->isVisible());
    QTest::keyClicks(box_, "77");
    QTest::keyClick(box_, Qt::Key_Escape);
    EXPECT_FALSE(box_->isVisible());
    EXPECT_EQ(Cell(3, 3), "3.000  ");
    QTest::mouseDClick(grid_->viewport(), Qt::LeftButton, {}, centre(3, 4));
    ASSERT_TRUE(box_->isVisible());
    EXPECT_EQ(box_->text(), "3.000");
    // Left leaves the cell only with the caret at the start.
    QTest::keyClick(box_, Qt::Key_Left);
    EXPECT_TRUE(box_->isVisible());
    box_->setCursorPosition(0);
    QTest::keyClick(box_, Qt::Key_Left);
    EXPECT_FALSE(box_->isVisible());
    EXPECT_EQ(grid_->Col(), 3);
    // Clicking another cell commits what was typed and works out the row.
    grid_->setCurrentCell(2, 5);
    QTest::keyClick(grid_, '1');
    QTest::keyClick(box_, '2');
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, centre(1, 2));
    EXPECT_FALSE(box_->isVisible());
    EXPECT_EQ(Cell(3, 5), "12.000  ");
    EXPECT_EQ(Cell(3, 7), "2.094  ");
    EXPECT_EQ(grid_->Row(), 1);
    // Right at the end of the last editable column leaves to the right.
    grid_->setCurrentCell(0, 6);
    QTest::keyClick(grid_, '1');
    QTest::keyClick(box_, Qt::Key_Right);
    EXPECT_FALSE(box_->isVisible());
    EXPECT_EQ(grid_->Col(), 7);
    EXPECT_EQ(Cell(1, 6), "1.000  ");
    // With the box showing, scrolling carries it along with its cell (the grid
    // may already have scrolled to show the cell: the scroll is taken from there).
    grid_->setCurrentCell(5, 3);
    QTest::keyClick(grid_, '7');
    const int before = box_->y(), from = grid_->verticalScrollBar()->value();
    grid_->verticalScrollBar()->setValue(from + 2);
    const int moved = grid_->verticalScrollBar()->value() - from;
    EXPECT_TRUE(box_->isVisible());
    EXPECT_EQ(box_->text(), "7");
    EXPECT_EQ(box_->y(), before - moved * grid_->rowHeight(0));
}

TEST_F(BoltWindow, LongRunKeepsTheWindowLiveAndMayBeClosed) {
    Open();
    // A tiny arm: the run creeps for some 190,000 passes.
    TypeRow(1, {"3", "2", "3", "3", "0.5"});
    QPointer<BoltCoefficientWindow> alive(frm_);
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { ++ticks; });
    ticker.start(2);
    QTimer::singleShot(15, frm_, [this] { frm_->close(); });
    Type(1, 6, "89");
    EXPECT_GE(ticks, 2);  // events were served during the run
    frm_ = nullptr;       // the window goes once the run has returned
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(alive.isNull());
}

TEST_F(BoltWindow, SavedRowsComeBackWithTheirGaps) {
    Open();
    Button("RemRowButton")->click();  // not below sixteen
    EXPECT_EQ(grid_->Rows(), 16);
    for (int i = 0; i < 5; ++i) Button("AddRowButton")->click();  // 21 rows: row 20 exists
    EXPECT_EQ(grid_->Row(), 20);
    EXPECT_EQ(Cell(20, 0), "20");
    TypeRow(1, {"4", "2", "3", "3", "6", "0"});
    TypeRow(5, {"6", "1", "3", "3", "8", "0"});
    Type(9, 1, "3");  // a partly filled row is saved too
    TypeRow(19, {"4", "2", "3", "3", "6", "75"});
    TypeRow(20, {"2", "2", "3", "3", "4", "0"});
    Button("SaveButton")->click();
    ASSERT_EQ(Seen().size(), 1);
    EXPECT_EQ(Seen()[0].title, "Warning:");
    EXPECT_EQ(Seen()[0].text, "Entries succesfully Saved ! ");
    EXPECT_EQ(Seen()[0].icon, QMessageBox::Information);
    ASSERT_EQ(records_.size(), 5u);

    // A new window starts at 16 rows: row 20 stays in the array until five Add Rows.
    records_.clear();
    Open();
    EXPECT_EQ(records_.size(), 5u);
    EXPECT_EQ(Cell(5, 7), "2.907  ");
    EXPECT_EQ(Cell(5, 8), "25.093  ");
    EXPECT_EQ(Cell(9, 1), "3");
    EXPECT_EQ(Cell(9, 2), "");
    for (int r : {2, 3, 4, 6, 7, 8, 10}) EXPECT_TRUE(Cell(r, 1).isEmpty()) << r;
    for (int i = 0; i < 4; ++i) Button("AddRowButton")->click();
    EXPECT_EQ(Cell(19, 7), "6.237  ");
    Button("AddRowButton")->click();
    EXPECT_EQ(Cell(20, 7), "1.706  ");
    EXPECT_EQ(Seen().size(), 1);
}

TEST_F(BoltWindow, ClearSaveAndDamagedFileMessages) {
    boxes_.SetAnswer(QMessageBox::Yes);
    {
        QFile f(BoltCoefficientWindow::DataFilePath());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(QByteArray("\x01\x00\x05\x00\x00\x00\x00\x00\x00\x00\x01\x00", 12));
    }
    Open();
    Button("ClearButton")->click();
    Button("SaveButton")->click();
    const std::tuple<QString, QString, QMessageBox::Icon> said[] = {
        {"Error No. 62:  Input past end of file", "Warning:", QMessageBox::Critical},
        {"No Entries to Clear ! ", "Warning:", QMessageBox::Warning},
        {"No Entries to Save ! ", "For Your Info:", QMessageBox::Warning},
    };
    ASSERT_EQ(Seen().size(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Seen()[i].text, std::get<0>(said[i]));
        EXPECT_EQ(Seen()[i].title, std::get<1>(said[i]));
        EXPECT_EQ(Seen()[i].icon, std::get<2>(said[i]));
    }

    TypeRow(2, {"4", "2", "3", "3", "6", "0"});
    Button("SaveButton")->click();
    ASSERT_TRUE(QFile::exists(BoltCoefficientWindow::DataFilePath()));
    boxes_.SetAnswer(QMessageBox::No);
    Button("ClearButton")->click();
    EXPECT_EQ(Cell(2, 1), "4");
    boxes_.SetAnswer(QMessageBox::Yes);
    Button("ClearButton")->click();
    EXPECT_EQ(Seen().last().text, "Are you sure you really want to clear Entries?");
    EXPECT_EQ(Seen().last().icon, QMessageBox::Critical);
    EXPECT_EQ(Cell(2, 1) + Cell(2, 7), "");
    EXPECT_FALSE(QFile::exists(BoltCoefficientWindow::DataFilePath()));
}

TEST_F(BoltWindow, HeadingsFitTheirCellsAndTheGridGrowsOnSmallScreens) {
    Open();
    frm_->resize(frm_->sizeHint());
    QApplication::processEvents();
    QHeaderView* head = grid_->horizontalHeader();
    const QFontMetrics fm(head->font());
    for (int c = 0; c < grid_->Cols(); ++c) {
        const QRect need = fm.boundingRect(QRect(0, 0, grid_->columnWidth(c) - 8, 1000),
                                           Qt::AlignCenter | Qt::TextWordWrap, Cell(0, c));
        EXPECT_LE(need.height(), head->height()) << c;
        EXPECT_LE(need.width(), grid_->columnWidth(c)) << c;
    }
    // All nine columns and fifteen rows are in view.
    EXPECT_FALSE(grid_->horizontalScrollBar()->isVisible());
    EXPECT_EQ(grid_->rowAt(grid_->viewport()->height() - 2), 14);
    EXPECT_EQ(guitest::GrowthFromMinimum(frm_, grid_, QSize(300, 200), "bolt"), QSize(300, 200))
        << "the grid takes all the room the window gains";
}

TEST(BoltWindowFromMain, CalcsMenuOpensOneWindow) {
    guitest::ModalWatchdog strayBoxes;
    QFile::remove(BoltCoefficientWindow::DataFilePath());
    MainWindow w;
    QAction* a = w.action("mnuBoltCoefficient");
    ASSERT_NE(a, nullptr);
    a->trigger();
    a->trigger();
    const auto open = w.findChildren<BoltCoefficientWindow*>();
    ASSERT_EQ(open.size(), 1);
    EXPECT_TRUE(open[0]->isVisible());
    open[0]->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(w.findChildren<BoltCoefficientWindow*>().isEmpty());
    a->trigger();
    EXPECT_EQ(w.findChildren<BoltCoefficientWindow*>().size(), 1);
}

TEST_F(BoltWindow, TableCopiesAsTabSeparatedText) {
    Open();
    TypeRow(1, {"4", "2", "3", "3", "6", "0"});
    QTest::keyClick(grid_, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    ASSERT_GE(lines.size(), 2);
    EXPECT_EQ(lines[0],
              "No.\tNumber of Bolt Rows on the Vertical\tNumber of Bolt Rows on the Horizontal\tBolt Spacing on the "
              "Vertical\tBolt Spacing on the Horizontal\tLoad Eccentricity\tLoad Angle from the Vertical "
              "[degrees]\tBolt Group Coefficient [C]\tBolt Group Coefficient [C']");
    EXPECT_EQ(lines[1], "1\t4\t2\t3.000\t3.000\t6.000\t0.000\t3.756\t26.032");
}

TEST_F(BoltWindow, CurrentRowIsCrossCheckedWithTheElementModel) {
    // Both models find the same center; the iteration's C comes out 1.9 %
    // higher, as it measures the forces by the farthest bolt's force rather
    // than the ultimate one: within the default threshold, a warning at 1 %.
    for (const QString percent : {"5", "1"}) {
        settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", "ModelCheckPercent", percent);
        Open();
        TypeRow(1, {"3", "1", "3", "3", "36", "0"});
        EXPECT_TRUE(Label("ModelCheckText")->text().isEmpty()) << "the cursor went on to the empty row 2";
        grid_->setCurrentCell(0, 3);
        QTRY_VERIFY_WITH_TIMEOUT(Label("ModelCheckText")->text().startsWith("AISC element model: 0.164 (-1.9 %)"), 5000);
        EXPECT_EQ(Label("ModelCheckIcon")->isVisible(), percent == "1");
    }
    EXPECT_TRUE(Label("ModelCheckText")->text().endsWith(
        "\nThe iteration exceeds the AISC element model by 1.9 %: the lower value governs."));
    guitest::SaveScreenFits(frm_, "bolt-check");
    frm_->findChild<QComboBox*>("ModelBox")->setCurrentIndex(1);
    EXPECT_TRUE(Label("ModelCheckText")->text().isEmpty()) << "nothing to compare with the element model chosen";
    frm_->findChild<QComboBox*>("ModelBox")->setCurrentIndex(0);
    settings::SaveSetting(settings::ProgramTitle(), "FerrolithSetting", "ModelCheckPercent", "5");
}

}  // namespace
