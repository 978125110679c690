// The bolt window's picture of the selected row: its bolts, and once the row
// is worked out, the center and the force on every bolt.
#include <gtest/gtest.h>

#include <QFile>
#include <QLineEdit>
#include <QTest>

#include "bolt/ui/BoltCoefficientWindow.h"
#include "shell/ui/GridEditor.h"
#include "shell/ui/ResultPictureView.h"
#include "support/GuiTestSupport.h"

TEST(BoltPatternPicture, TheWorkedOutRowShowsItsCenterAndBoltForces) {
    guitest::ModalWatchdog boxes;
    QFile::remove(BoltCoefficientWindow::DataFilePath());
    std::vector<BoltRows::BoltRecord> records;
    {
        BoltCoefficientWindow frm(records);
        frm.show();
        QApplication::setActiveWindow(&frm);
        auto* grid = frm.findChild<CellGrid*>("cFlex");
        const QStringList values{"4", "2", "3", "3", "6", "15"};
        for (int c = 0; c < values.size(); ++c)
            guitest::TypeInGridCell(grid, frm.findChild<QLineEdit*>("EdiTxt"), 0, c + 1, values[c]);
        QTest::keyClick(grid, Qt::Key_Up);
        const auto* picture = frm.findChild<ResultPictureView*>("PatternPicture");
        ASSERT_EQ(picture->Results().Forces.size(), 8u);
        EXPECT_LT(picture->Results().CenterX, 0.0);  // across from the load on the right
        if (const QString dir = qEnvironmentVariable("FERROLITH_SHOTS"); !dir.isEmpty())
            frm.grab().save(dir + "/bolt-pattern-x" + qEnvironmentVariable("QT_SCALE_FACTOR", "1") + ".png");
    }
    QFile::remove(BoltCoefficientWindow::DataFilePath());
}
