#include "board/MainFrm.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>
#include <initializer_list>

#include "bolt/BoltCalcFrm.h"
#include "calc/CalcMainFrm.h"
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

    // Menus whose entries lead to the board's modes, commands and tool windows.
    struct Entry {
        const char* name;
        const char* caption;
    };
    struct MenuDef {
        const char* name;
        const char* caption;
        std::initializer_list<Entry> entries;
    };
    const MenuDef menus[] = {
        {"mnuMode", "&Mode",
         {{"mnuDrawMode", "Draw Mode"}, {"mnuSelectionMode", "Selection Mode "}, {"mnuFreeMode", "Dimension Mode   "},
          {"mnuEditMode", "Edit Mode"}, {"mnuPanMode", "Pan Mode"}, {"mnuZoomWindow", "Zoom Mode"},
          {"mnuLoadMode", "Calculation Mode   "}}},
        {"mnuEdit", "&Edit",
         {{"mnuMove", "Move"}, {"mnuRotate", "Rotate"}, {"mnuDeleteSelection", "Delete Selection"},
          {"mnuDeleteAll", "Delete All"}, {"mnuClearDim", "Clear Dimensions"}}},
        {"mnuView", "&View", {{"mnuZoomExtent", "Zoom Extent"}, {"mnuRefresh", "Refresh"}}},
        {"mnuOsnap", "&Osnap",
         {{"mnuFreeSnap", "Free Snap   "}, {"mnuEndPoint", "EndPoint"}, {"mnuMidPoint", "MidPoint"},
          {"mnuNearest", "Nearest"}, {"mnuIntersection", "Intersection"}, {"mnuPerpendicular", "Perpendicular"}}},
        {"mnuSelection", "&Selection",
         {{"mnuWindowSelect", "Window  "}, {"mnuCrossingSelect", "Crossing  "}, {"mnuAllSelect", "Select All"},
          {"mnuRemoveSelect", "Remove from Selection"}, {"mnuClearSelect", "Clear Selection"}}},
        {"mnuCalcs", "&Calcs",
         {{"mnuSciCal", "Scientific Calculator"}, {"mnuBoltCoefficient", "Bolt Group Coefficient"},
          {"mnuWeldCoefficient", "Weld Group Coefficient"}}},
    };
    // Entries stay disabled until the command or window behind them is connected.
    for (const MenuDef& m : menus) {
        QMenu* menu = AddMenu(QString::fromLatin1(m.name), QString::fromLatin1(m.caption));
        for (const Entry& e : m.entries) AddAction(menu, QString::fromLatin1(e.name), QString::fromLatin1(e.caption));
    }

    // One bolt coefficient window at a time; a second request brings it forward.
    QAction* bolt = action(QStringLiteral("mnuBoltCoefficient"));
    bolt->setEnabled(true);
    connect(bolt, &QAction::triggered, this, [this] {
        BoltCalcFrm* w = findChild<BoltCalcFrm*>(QStringLiteral("BoltCalcFrm"));
        if (w == nullptr) w = new BoltCalcFrm(BoltRecords, this);
        w->show();
        w->raise();
        w->activateWindow();
    });

    // One calculator window at a time; it works on CalcState, so closing and
    // opening it again within the run finds the calculator as it was left.
    QAction* sciCal = action(QStringLiteral("mnuSciCal"));
    sciCal->setEnabled(true);
    connect(sciCal, &QAction::triggered, this, [this] {
        CalcMainFrm* w = findChild<CalcMainFrm*>(QStringLiteral("CalcMainFrm"));
        if (w == nullptr) {
            w = new CalcMainFrm(CalcState, this);
            w->setAttribute(Qt::WA_DeleteOnClose);
        }
        w->show();
        w->raise();
        w->activateWindow();
    });

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

// The calculator window uses CalcState, a member: it goes before the members do.
MainFrm::~MainFrm() { delete findChild<CalcMainFrm*>(QStringLiteral("CalcMainFrm")); }

void MainFrm::mnuAbout_Click() {
    AboutFrm box(AboutFrm::Kind::Board, this);
    box.exec();
}
