#include "board/MainFrm.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include "shell/AboutFrm.h"
#include "shell/AppInfo.h"
#include "shell/RecentFiles.h"

MainFrm::MainFrm(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("MainFrm"));
    setWindowTitle(QString::fromUtf8(appinfo::kStartCaption));
    resize(1000, 720);

    QMenu* file = AddMenu(QStringLiteral("mnuFile"), QStringLiteral("&File"));
    AddAction(file, QStringLiteral("mnuFileNew"), QStringLiteral("&New"));
    AddAction(file, QStringLiteral("mnuOpenData"), QStringLiteral("&Open Data..."));
    AddAction(file, QStringLiteral("mnuSaveData"), QStringLiteral("&Save Data"));
    AddAction(file, QStringLiteral("mnuSaveAs"), QStringLiteral("Save Data &As..."));
    file->addSeparator();
    recentAnchor_ = file;
    QAction* first = AddAction(file, QStringLiteral("mnuRecDocs"), QStringLiteral("Empty"));
    mnuRecDocs_.push_back(first);
    recentSeparator_ = file->addSeparator();
    QAction* close = AddAction(file, QStringLiteral("mnuClose"), QStringLiteral("&Close"), true);
    connect(close, &QAction::triggered, this, &QWidget::close);
    connect(file, &QMenu::aboutToShow, this, &MainFrm::mnuFile_Click);

    QMenu* mode = AddMenu(QStringLiteral("mnuMode"), QStringLiteral("&Mode"));
    AddAction(mode, QStringLiteral("mnuDrawMode"), QStringLiteral("Draw Mode"));
    AddAction(mode, QStringLiteral("mnuSelectionMode"), QStringLiteral("Selection Mode "));
    AddAction(mode, QStringLiteral("mnuFreeMode"), QStringLiteral("Dimension Mode   "));
    AddAction(mode, QStringLiteral("mnuEditMode"), QStringLiteral("Edit Mode"));
    AddAction(mode, QStringLiteral("mnuPanMode"), QStringLiteral("Pan Mode"));
    AddAction(mode, QStringLiteral("mnuZoomWindow"), QStringLiteral("Zoom Mode"));
    AddAction(mode, QStringLiteral("mnuLoadMode"), QStringLiteral("Calculation Mode   "));

    QMenu* edit = AddMenu(QStringLiteral("mnuEdit"), QStringLiteral("&Edit"));
    AddAction(edit, QStringLiteral("mnuMove"), QStringLiteral("Move"));
    AddAction(edit, QStringLiteral("mnuRotate"), QStringLiteral("Rotate"));
    AddAction(edit, QStringLiteral("mnuDeleteSelection"), QStringLiteral("Delete Selection"));
    AddAction(edit, QStringLiteral("mnuDeleteAll"), QStringLiteral("Delete All"));
    AddAction(edit, QStringLiteral("mnuClearDim"), QStringLiteral("Clear Dimensions"));

    QMenu* view = AddMenu(QStringLiteral("mnuView"), QStringLiteral("&View"));
    AddAction(view, QStringLiteral("mnuZoomExtent"), QStringLiteral("Zoom Extent"));
    AddAction(view, QStringLiteral("mnuRefresh"), QStringLiteral("Refresh"));

    QMenu* osnap = AddMenu(QStringLiteral("mnuOsnap"), QStringLiteral("&Osnap"));
    AddAction(osnap, QStringLiteral("mnuFreeSnap"), QStringLiteral("Free Snap   "));
    AddAction(osnap, QStringLiteral("mnuEndPoint"), QStringLiteral("EndPoint"));
    AddAction(osnap, QStringLiteral("mnuMidPoint"), QStringLiteral("MidPoint"));
    AddAction(osnap, QStringLiteral("mnuNearest"), QStringLiteral("Nearest"));
    AddAction(osnap, QStringLiteral("mnuIntersection"), QStringLiteral("Intersection"));
    AddAction(osnap, QStringLiteral("mnuPerpendicular"), QStringLiteral("Perpendicular"));

    QMenu* sel = AddMenu(QStringLiteral("mnuSelection"), QStringLiteral("&Selection"));
    AddAction(sel, QStringLiteral("mnuWindowSelect"), QStringLiteral("Window  "));
    AddAction(sel, QStringLiteral("mnuCrossingSelect"), QStringLiteral("Crossing  "));
    AddAction(sel, QStringLiteral("mnuAllSelect"), QStringLiteral("Select All"));
    AddAction(sel, QStringLiteral("mnuRemoveSelect"), QStringLiteral("Remove from Selection"));
    AddAction(sel, QStringLiteral("mnuClearSelect"), QStringLiteral("Clear Selection"));

    QMenu* calcs = AddMenu(QStringLiteral("mnuCalcs"), QStringLiteral("&Calcs"));
    AddAction(calcs, QStringLiteral("mnuSciCal"), QStringLiteral("Scientific Calculator"));
    AddAction(calcs, QStringLiteral("mnuBoltCoefficient"), QStringLiteral("Bolt Group Coefficient"));
    AddAction(calcs, QStringLiteral("mnuWeldCoefficient"), QStringLiteral("Weld Group Coefficient"));

    QMenu* help = AddMenu(QStringLiteral("mnuHelp"), QStringLiteral("&Help"));
    QAction* about = AddAction(help, QStringLiteral("mnuAbout"), QStringLiteral("&About Ferrolith"), true);
    connect(about, &QAction::triggered, this, &MainFrm::mnuAbout_Click);

    // The drawing board: white paper until the board's surface is in place.
    auto* board = new QWidget(this);
    board->setObjectName(QStringLiteral("DrawingBoard"));
    board->setAutoFillBackground(true);
    QPalette pal = board->palette();
    pal.setColor(QPalette::Window, Qt::white);
    board->setPalette(pal);
    setCentralWidget(board);

    auto* status = new QLabel(QStringLiteral("   Active Mode:  Free Mode"), this);
    status->setObjectName(QStringLiteral("DumLabel"));
    statusBar()->addWidget(status, 1);
}

QMenu* MainFrm::AddMenu(const QString& name, const QString& caption) {
    QMenu* m = menuBar()->addMenu(caption);
    m->setObjectName(name);
    return m;
}

QAction* MainFrm::AddAction(QMenu* menu, const QString& name, const QString& caption, bool enabled) {
    QAction* a = menu->addAction(caption);
    a->setObjectName(name);
    a->setEnabled(enabled);
    return a;
}

QAction* MainFrm::action(const QString& objectName) const {
    return findChild<QAction*>(objectName);
}

QMenu* MainFrm::menu(const QString& objectName) const { return findChild<QMenu*>(objectName); }

void MainFrm::Clear_Recent_Items() {
    for (int i = 1; i < mnuRecDocs_.size(); ++i) {
        recentAnchor_->removeAction(mnuRecDocs_[i]);
        mnuRecDocs_[i]->deleteLater();
    }
    mnuRecDocs_.resize(1);
    mnuRecDocs_[0]->setText(QStringLiteral("Empty"));
    mnuRecDocs_[0]->setEnabled(false);
}

int MainFrm::Add_Recent_Item(const QString& path) {
    if (mnuRecDocs_[0]->text() == QStringLiteral("Empty")) {
        mnuRecDocs_[0]->setEnabled(true);
        mnuRecDocs_[0]->setText(path);
        return 0;
    }
    auto* a = new QAction(path, recentAnchor_);
    a->setObjectName(QStringLiteral("mnuRecDocs"));
    recentAnchor_->insertAction(recentSeparator_, a);
    mnuRecDocs_.push_back(a);
    return static_cast<int>(mnuRecDocs_.size()) - 1;
}

void MainFrm::mnuFile_Click() {
    Clear_Recent_Items();
    for (const QString& p : recent::RecentPaths()) Add_Recent_Item(p);
}

void MainFrm::mnuAbout_Click() {
    AboutFrm box(AboutFrm::Kind::Board, this);
    box.exec();
}
