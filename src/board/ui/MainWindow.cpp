#include "board/ui/MainWindow.h"
#include "shell/ui/SheetOutput.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <initializer_list>

#include "board/ui/BoardSurface.h"
#include "board/core/Viewport.h"
#include "board/core/SnapSearch.h"
#include "bolt/ui/BoltCoefficientWindow.h"
#include "calc/ui/CalculatorWindow.h"
#include "weld/ui/CoefficientWindow.h"
#include "shell/ui/AboutBox.h"
#include "shell/core/AppInfo.h"
#include "shell/ui/QtText.h"
#include "shell/ui/RecentFiles.h"
#include "shell/ui/SettingsStore.h"
#include "shell/ui/SingleInstance.h"


namespace {

struct ModeDef {
    int16_t index;
    const char* menu;
    const char* button;
};
// Mode bar buttons by their index; the odd indexes are separators.
constexpr ModeDef kModeDefs[] = {
    {BoardState::DRAW, "mnuDrawMode", "   Draw  Mode"},
    {BoardState::SELECTION, "mnuSelectionMode", "  Selection Mode  "},
    {BoardState::DIMENSION, "mnuFreeMode", "   Dimension Mode  "},
    {BoardState::EDIT, "mnuEditMode", "Edit Mode"},
    {BoardState::PAN, "mnuPanMode", "Pan Mode"},
    {BoardState::ZOOM, "mnuZoomWindow", "     Zoom Mode      "},
    {BoardState::CALCULATION, "mnuLoadMode", "  Calculation Mode  "},
};

const char* const kSnapMenus[] = {"mnuFreeSnap",  "mnuEndPoint",     "mnuMidPoint",
                                  "mnuNearest",   "mnuIntersection", "mnuPerpendicular"};

}  // namespace

MainWindow::MainWindow(QWidget* parent, const QString& commandLine) : QMainWindow(parent) {
    setObjectName(QStringLiteral("MainFrm"));
    setWindowTitle(QString::fromUtf8(appinfo::kStartCaption));
    resize(1000, 720);

    DrawingBoard = new BoardSurface(this);
    board_ = std::make_unique<BoardState::Board>(doc_, *DrawingBoard);
    board_->Yield = boardPump_.AsYield();
    board_->hooks.Show_Message = [this](const BoardMessages::BoardMessage& m) { return Show_Message(m); };
    board_->hooks.Show_LineData = [this](int16_t index) { Show_LineData(index); };
    BuildMenus();
    BuildBoardArea();
    qApp->installEventFilter(this);
    Startup(commandLine);
}

// The calculator window uses CalcState, a member: it goes before the members do.
MainWindow::~MainWindow() {
    qApp->removeEventFilter(this);
    delete findChild<CalculatorWindow*>(QStringLiteral("CalcMainFrm"));
}

void MainWindow::BuildMenus() {
    QMenu* file = AddMenu(QStringLiteral("mnuFile"), QStringLiteral("&File"));
    connect(AddAction(file, QStringLiteral("mnuFileNew"), QStringLiteral("&New"), true), &QAction::triggered, this,
            &MainWindow::mnuFileNew_Click);
    connect(AddAction(file, QStringLiteral("mnuOpenData"), QStringLiteral("&Open Data..."), true),
            &QAction::triggered, this, &MainWindow::mnuOpenData_Click);
    connect(AddAction(file, QStringLiteral("mnuSaveData"), QStringLiteral("&Save Data"), true), &QAction::triggered,
            this, &MainWindow::mnuSaveData_Click);
    connect(AddAction(file, QStringLiteral("mnuSaveAs"), QStringLiteral("Save Data &As..."), true),
            &QAction::triggered, this, &MainWindow::mnuSaveAs_Click);
    file->addSeparator();
    connect(AddAction(file, QStringLiteral("mnuImportDxf"), QStringLiteral("&Import DXF..."), true),
            &QAction::triggered, this, &MainWindow::mnuImportDxf_Click);
    connect(AddAction(file, QStringLiteral("mnuExportDxf"), QStringLiteral("&Export DXF..."), true),
            &QAction::triggered, this, &MainWindow::mnuExportDxf_Click);
    file->addSeparator();
    QAction* print = AddAction(file, QStringLiteral("mnuPrintCalc"), QStringLiteral("&Print Calculation..."));
    print->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    connect(print, &QAction::triggered, this, [this] { mnuSheet_Click(true); });
    QAction* pdf = AddAction(file, QStringLiteral("mnuExportCalcPdf"), QStringLiteral("Export Calculation as P&DF..."));
    pdf->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    connect(pdf, &QAction::triggered, this, [this] { mnuSheet_Click(false); });
    connect(AddAction(file, QStringLiteral("mnuTitleBlock"), QStringLiteral("Title &Block..."), true),
            &QAction::triggered, this, [this] {
                sheet::TitleBlock t;
                sheetui::Title_Block(this, t, true);
            });
    file->addSeparator();
    recentAnchor_ = file;
    QAction* first = AddAction(file, QStringLiteral("mnuRecDocs"), QStringLiteral("Empty"));
    connect(first, &QAction::triggered, this, [this, first] { mnuRecDocs_Click(first->text()); });
    mnuRecDocs_.push_back(first);
    recentSeparator_ = file->addSeparator();
    QAction* close = AddAction(file, QStringLiteral("mnuClose"), QStringLiteral("&Close"), true);
    connect(close, &QAction::triggered, this, &QWidget::close);
    connect(file, &QMenu::aboutToShow, this, &MainWindow::mnuFile_Click);

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

    // Undo and redo head the Edit menu; their captions name the step.
    QMenu* edit = menu(QStringLiteral("mnuEdit"));
    QAction* undo = new QAction(QStringLiteral("Undo"), edit);
    undo->setObjectName(QStringLiteral("mnuUndo"));
    undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    QAction* redo = new QAction(QStringLiteral("Redo"), edit);
    redo->setObjectName(QStringLiteral("mnuRedo"));
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    QAction* editFirst = edit->actions().value(0);
    edit->insertActions(editFirst, {undo, redo});
    edit->insertSeparator(editFirst);
    connect(undo, &QAction::triggered, this, [this] { History_Command(true); });
    connect(redo, &QAction::triggered, this, [this] { History_Command(false); });

    // Board commands behind the menus.
    auto route = [this](const char* name, auto fn) {
        QAction* a = action(QString::fromLatin1(name));
        a->setEnabled(true);
        connect(a, &QAction::triggered, this, fn);
    };
    for (const ModeDef& m : kModeDefs) {
        QAction* a = action(QString::fromLatin1(m.menu));
        a->setCheckable(true);
        const int16_t index = m.index;
        route(m.menu, [this, index] { Set_Mode(index); });
    }
    for (int i = 0; i < 6; ++i) {
        QAction* a = action(QString::fromLatin1(kSnapMenus[i]));
        a->setCheckable(true);
        route(kSnapMenus[i], [this, i] { SnapButton[i]->setChecked(true); });
    }
    route("mnuMove", Board_Command(&BoardState::Board::MoveButton_Click));
    route("mnuRotate", Board_Command(&BoardState::Board::RotateButton_Click));
    route("mnuDeleteSelection", Board_Command(&BoardState::Board::DeleteButton_Click));
    route("mnuWindowSelect", [this] { Type_Reply(QStringLiteral("W")); });
    route("mnuCrossingSelect", [this] { Type_Reply(QStringLiteral("C")); });
    route("mnuAllSelect", [this] { Type_Reply(QStringLiteral("A")); });
    route("mnuRemoveSelect", [this] { Type_Reply(QStringLiteral("R")); });
    route("mnuDeleteAll", &MainWindow::ClearButton_Click);
    route("mnuClearDim", &MainWindow::ClearDimButton_Click);
    route("mnuRefresh", [this] {
        board_->RefreshButton_Click();
        SyncUi();
        FocusCommandBox();
    });
    route("mnuZoomExtent", [this] {
        board_->ZoomExtentButton_Click();
        SyncUi();
    });
    // "Show Results": the last capacity run's center and forces over the
    // calculation display, on or off as the user last left it.
    menu(QStringLiteral("mnuView"))->addSeparator();
    QAction* results = AddAction(menu(QStringLiteral("mnuView")), QStringLiteral("mnuShowResults"),
                                 QStringLiteral("Show Results"), true);
    results->setCheckable(true);
    const QString section = QStringLiteral("FerrolithSetting"), key = QStringLiteral("ShowResults");
    results->setChecked(settings::GetSettingInt(settings::ProgramTitle(), section, key, 1) != 0);
    board_->Set_Show_Results(results->isChecked());
    connect(results, &QAction::toggled, this, [this, section, key](bool on) {
        settings::SaveSetting(settings::ProgramTitle(), section, key, on ? QStringLiteral("1") : QStringLiteral("0"));
        board_->Set_Show_Results(on);
        SyncUi();
    });
    route("mnuClearSelect", [this] {
        board_->Form_KeyDown(BoardState::Key::Escape);
        SyncUi();
    });

    // One bolt coefficient window at a time; a second request brings it forward.
    QAction* bolt = action(QStringLiteral("mnuBoltCoefficient"));
    bolt->setEnabled(true);
    connect(bolt, &QAction::triggered, this, [this] {
        BoltCoefficientWindow* w = findChild<BoltCoefficientWindow*>(QStringLiteral("BoltCalcFrm"));
        if (w == nullptr) w = new BoltCoefficientWindow(BoltRecords, this);
        w->show();
        w->raise();
        w->activateWindow();
    });

    QAction* weld = action(QStringLiteral("mnuWeldCoefficient"));
    weld->setEnabled(true);
    connect(weld, &QAction::triggered, this, [this] { CoefficientWindow::ShowFor(this); });
    // One calculator window at a time; it works on CalcState, so closing and
    // opening it again within the run finds the calculator as it was left.
    QAction* sciCal = action(QStringLiteral("mnuSciCal"));
    sciCal->setEnabled(true);
    connect(sciCal, &QAction::triggered, this, [this] {
        CalculatorWindow* w = findChild<CalculatorWindow*>(QStringLiteral("CalcMainFrm"));
        if (w == nullptr && calcGuard_ && !calcGuard_->IsFirst() && calcGuard_->HandOver()) return;
        if (w == nullptr) {
            w = new CalculatorWindow(CalcState, this);
            w->setAttribute(Qt::WA_DeleteOnClose);
        }
        w->show();
        w->raise();
        w->activateWindow();
    });

    QMenu* help = AddMenu(QStringLiteral("mnuHelp"), QStringLiteral("&Help"));
    QAction* about = AddAction(help, QStringLiteral("mnuAbout"), QStringLiteral("&About Ferrolith"), true);
    connect(about, &QAction::triggered, this, &MainWindow::mnuAbout_Click);
}

void MainWindow::BuildBoardArea() {
    // The mode bar: a button per mode at the even indexes, separators between.
    ModeBar = addToolBar(QStringLiteral("Modes"));
    ModeBar->setObjectName(QStringLiteral("ModeBar"));
    ModeBar->setMovable(false);
    for (const ModeDef& m : kModeDefs) {
        QAction* sep = ModeBar->addSeparator();
        sep->setObjectName(QStringLiteral("ModeBar_%1").arg(m.index - 1));
        QAction* a = ModeBar->addAction(QString::fromLatin1(m.button));
        a->setObjectName(QStringLiteral("ModeBar_%1").arg(m.index));
        a->setCheckable(true);
        ModeBar->widgetForAction(a)->setObjectName(QStringLiteral("ModeBarButton_%1").arg(m.index));
        const int16_t index = m.index;
        connect(a, &QAction::triggered, this, [this, index] { ModeBar_Click(index); });
    }

    auto* central = new QWidget(this);
    auto* outer = new QVBoxLayout(central);
    outer->setContentsMargins(6, 6, 6, 6);
    auto* row = new QHBoxLayout;
    outer->addLayout(row, 1);
    row->addWidget(DrawingBoard, 1);

    auto* side = new QVBoxLayout;
    row->addLayout(side);
    auto* snapFrame = new QGroupBox(QStringLiteral("Object Snap"), central);
    snapFrame->setObjectName(QStringLiteral("Picture2"));
    auto* snapLay = new QVBoxLayout(snapFrame);
    for (int i = 0; i < 6; ++i) {
        auto* b = new QRadioButton(Q(Viewport::Snap_ButtonCaption(static_cast<int16_t>(i))), snapFrame);
        b->setObjectName(QStringLiteral("SnapButton_%1").arg(i));
        snapLay->addWidget(b);
        SnapButton.push_back(b);
        connect(b, &QRadioButton::toggled, this, [this, i](bool on) {
            if (!on) return;
            for (int k = 0; k < 6; ++k) action(QString::fromLatin1(kSnapMenus[k]))->setChecked(k == i);
            board_->SnapButton_Click(i);
            FocusCommandBox();
        });
    }
    side->addWidget(snapFrame);
    OrthoBox = new QCheckBox(QStringLiteral("OrthoMode"), central);
    OrthoBox->setObjectName(QStringLiteral("OrthoBox"));
    PolyBox = new QCheckBox(QStringLiteral("PolyMode"), central);
    PolyBox->setObjectName(QStringLiteral("PolyBox"));
    side->addWidget(OrthoBox);
    side->addWidget(PolyBox);
    connect(OrthoBox, &QCheckBox::toggled, this, [this](bool on) {
        board_->OrthoBox_Click(on);
        FocusCommandBox();
    });
    connect(PolyBox, &QCheckBox::toggled, this, [this](bool on) {
        board_->PolyBox_Click(on);
        FocusCommandBox();
    });

    auto button = [&](const char* name, const char* caption, bool enabled, auto fn) {
        auto* b = new QPushButton(QString::fromLatin1(caption), central);
        b->setObjectName(QString::fromLatin1(name));
        b->setEnabled(enabled);
        b->setFocusPolicy(Qt::NoFocus);
        side->addWidget(b);
        connect(b, &QPushButton::clicked, this, fn);
        return b;
    };
    button("zUPButton", "Zoom In", true, [this] {
        board_->Zoom_Button(1.05f);
        SyncUi();
        FocusCommandBox();
    });
    button("zDNButton", "Zoom Out", true, [this] {
        board_->Zoom_Button(0.95f);
        SyncUi();
        FocusCommandBox();
    });
    button("ZoomExtentButton", "Zoom Extent", true, [this] {
        board_->ZoomExtentButton_Click();
        SyncUi();
        FocusCommandBox();
    });
    button("RefreshButton", "Refresh", true, [this] {
        board_->RefreshButton_Click();
        SyncUi();
        FocusCommandBox();
    });
    side->addSpacing(8);
    button("MoveButton", "Move", true, Board_Command(&BoardState::Board::MoveButton_Click));
    button("RotateButton", "Rotate", true, Board_Command(&BoardState::Board::RotateButton_Click));
    button("DeleteButton", "Delete Selection", true, Board_Command(&BoardState::Board::DeleteButton_Click));
    button("ClearButton", "Delete All", true, &MainWindow::ClearButton_Click);
    button("ClearDimButton", "Clear Dimensions", true, &MainWindow::ClearDimButton_Click);
    LoadParamBox = new QGroupBox(QStringLiteral("Load Parameters"), central);
    LoadParamBox->setObjectName(QStringLiteral("LoadParamBox"));
    LoadParamBox->hide();
    BuildLoadParamBox();
    side->addWidget(LoadParamBox);
    side->addStretch(1);

    auto* hotKeyHint = new QLabel(QStringLiteral("F8 = Toggle OrthoMode,   F9 = Toggle PolyMode"), central);
    hotKeyHint->setObjectName(QStringLiteral("Label3"));
    ModeCaption = new QLabel(QStringLiteral("   Active Mode:  Free Mode"), central);
    ModeCaption->setObjectName(QStringLiteral("DumLabel"));
    auto* labels = new QHBoxLayout;
    labels->addWidget(ModeCaption, 1);
    labels->addWidget(hotKeyHint);
    outer->addLayout(labels);

    auto* cmd = new QGridLayout;
    cmd->addWidget(new QLabel(QStringLiteral("Command Request:"), central), 0, 0);
    CommandName = new QLabel(central);
    CommandName->setObjectName(QStringLiteral("CommandName"));
    cmd->addWidget(CommandName, 0, 1);
    cmd->addWidget(new QLabel(QStringLiteral("Command Response:"), central), 1, 0);
    CommandBox = new QLineEdit(central);
    CommandBox->setObjectName(QStringLiteral("CommandBox"));
    cmd->addWidget(CommandBox, 1, 1);
    cmd->setColumnStretch(1, 1);
    outer->addLayout(cmd);
    setCentralWidget(central);

    CoordinatePanel = new QLabel(this);
    CoordinatePanel->setObjectName(QStringLiteral("StatusPanel1"));
    CoordinatePanel->setMinimumWidth(280);
    FindingPanel = new QLabel(this);
    FindingPanel->setObjectName(QStringLiteral("StatusPanel2"));
    statusBar()->addWidget(CoordinatePanel);
    statusBar()->addWidget(FindingPanel, 1);

    // The board's events go to the board's procedures.
    connect(DrawingBoard, &BoardSurface::MouseDown, this, &MainWindow::Board_MouseDown);
    connect(DrawingBoard, &BoardSurface::MouseMove, this, &MainWindow::Board_MouseMove);
    connect(DrawingBoard, &BoardSurface::MouseUp, this, &MainWindow::Board_MouseUp);
    connect(DrawingBoard, &BoardSurface::DoubleClick, this, &MainWindow::Board_DoubleClick);
    connect(CommandBox, &QLineEdit::textChanged, this, &MainWindow::CommandBox_Change);
    // The drawing keeps its board coordinates when the board changes size (it
    // stays anchored at the top left); an empty board takes the new lower edge
    // as world Y = 0.
    connect(DrawingBoard, &BoardSurface::Resized, this, [this] {
        board_->Surface_Resized();
        SyncUi();
    });
}

QMenu* MainWindow::AddMenu(const QString& name, const QString& caption) {
    QMenu* m = menuBar()->addMenu(caption);
    m->setObjectName(name);
    return m;
}

QAction* MainWindow::AddAction(QMenu* menu, const QString& name, const QString& caption, bool enabled) {
    QAction* a = menu->addAction(caption);
    a->setObjectName(name);
    a->setEnabled(enabled);
    return a;
}

QAction* MainWindow::action(const QString& objectName) const { return findChild<QAction*>(objectName); }

QMenu* MainWindow::menu(const QString& objectName) const { return findChild<QMenu*>(objectName); }

void MainWindow::RepaintBoard(bool showSelection) { board_->Repaint(showSelection); }

void MainWindow::FocusCommandBox() {
    if (CommandBox->isEnabled()) CommandBox->setFocus();
}

void MainWindow::SyncUi() {
    BoardState::BoardUi& ui = board_->Ui;
    CommandName->setText(Q(ui.Prompt));
    CommandBox->setEnabled(ui.CommandBoxEnabled);
    if (ui.CommandTextSerial != syncedSerial_) {
        CommandBox->setText(Q(ui.CommandText));
        syncedSerial_ = ui.CommandTextSerial;
    }
    // An echo takes the focus with its text selected, so the first key typed replaces it.
    if (ui.CommandFocus) FocusCommandBox();
    if (ui.CommandSelectAll && CommandBox->isEnabled()) CommandBox->selectAll();
    ui.CommandFocus = ui.CommandSelectAll = false;
    ModeCaption->setText(Q(ui.ModeCaption));
    CoordinatePanel->setText(Q(ui.CoordinateStatus));
    FindingPanel->setText(Q(ui.FindingStatus));
    LoadParamBox->setVisible(ui.LoadParamBoxVisible);
    SyncLoadPanel();
    DrawingBoard->SetMarks(ui.Marks);
    for (const ModeDef& m : kModeDefs) {
        action(QString::fromLatin1(m.menu))->setChecked(ui.CheckedMode == m.index);
        ModeBar->findChild<QAction*>(QStringLiteral("ModeBar_%1").arg(m.index))
            ->setChecked(ui.CheckedMode == m.index);
    }
    // The boxes follow the board's flags without firing their handlers again.
    const QSignalBlocker b1(OrthoBox), b2(PolyBox);
    OrthoBox->setChecked(ui.OrthoBox);
    PolyBox->setChecked(ui.PolyBox);
    // Undo also gives up a command under way.
    const Undo::History& history = board_->History;
    QAction* undo = action(QStringLiteral("mnuUndo"));
    undo->setText(Q(history.UndoText()));
    undo->setEnabled(history.CanUndo() || board_->Mode().Busy());
    QAction* redo = action(QStringLiteral("mnuRedo"));
    redo->setText(Q(history.RedoText()));
    redo->setEnabled(history.CanRedo());
}

void MainWindow::Set_Mode(int16_t index) {
    board_->Set_Mode(index);
    SyncUi();
}

void MainWindow::ModeBar_Click(int16_t index) {
    Set_Mode(index);
    FocusCommandBox();
}

void MainWindow::changeEvent(QEvent* e) {
    if (e->type() == QEvent::ActivationChange && isActiveWindow() && Board_Changed) {
        board_->Repaint(true);
        board_->RefreshButton_Click();
        SyncUi();
    }
    if (e->type() == QEvent::ActivationChange && isActiveWindow()) Board_Changed = false;
    QMainWindow::changeEvent(e);
}


void MainWindow::mnuAbout_Click() {
    AboutBox box(AboutBox::Kind::Board, this);
    box.exec();
}
