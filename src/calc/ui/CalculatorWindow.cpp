#include "calc/ui/CalculatorWindow.h"

#include <QActionGroup>
#include <QButtonGroup>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QThread>
#include <QVBoxLayout>
#include <vector>

#include "calc/ui/ConstantsWindow.h"
#include "calc/ui/StatisticsWindow.h"
#include "calc/ui/HelpWindow.h"
#include "calc/ui/RegistersWindow.h"
#include "calc/core/CalculatorEngine.h"
#include "calc/ui/CalculatorSettings.h"
#include "calc/ui/Voice.h"
#include "shell/ui/AboutBox.h"
#include "shell/ui/QtText.h"
#include "shell/ui/SettingsStore.h"

namespace {

const QString kSection = QStringLiteral("SciCalcSetting");
const QString kReadOutKey = QStringLiteral("CalcReadOutLoud");

// The pages of SelectTab: caption and the keys on it (the angle and display
// pages add their option buttons).
constexpr int kPageCount = 4;
const char* const kPageNames[kPageCount] = {"Functions", "Angles", "Memory && Data", "Display"};

QLabel* MakeLabel(QWidget* parent, const char* name, Qt::Alignment align, int pointDelta, bool bold = false) {
    auto* l = new QLabel(parent);
    l->setObjectName(QString::fromLatin1(name));
    l->setAlignment(align);
    QFont f = l->font();
    f.setPointSizeF(f.pointSizeF() + pointDelta);
    f.setBold(bold);
    l->setFont(f);
    return l;
}

QRadioButton* MakeOption(QWidget* parent, const char* name, const QString& caption) {
    auto* b = new QRadioButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setFocusPolicy(Qt::NoFocus);
    return b;
}

// A titled box of exclusive options stacked in a column; gives the buttons in order.
std::vector<QRadioButton*> MakeOptionBox(QWidget* page, const QString& title,
                                         std::initializer_list<std::pair<const char*, QString>> options,
                                         QGroupBox*& box) {
    box = new QGroupBox(title, page);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(8, 2, 8, 2);
    column->setSpacing(0);
    auto* group = new QButtonGroup(box);
    std::vector<QRadioButton*> buttons;
    for (const auto& [name, caption] : options) {
        QRadioButton* b = MakeOption(box, name, caption);
        column->addWidget(b);
        group->addButton(b);
        buttons.push_back(b);
    }
    return buttons;
}

}  // namespace

CalculatorWindow::CalculatorWindow(CalculatorState& state, QWidget* parent)
    : QMainWindow(parent, Qt::Window), s_(state), guard_(this) {
    setObjectName(QStringLiteral("CalcMainFrm"));
    setWindowTitle(QStringLiteral("Scientific Calculator"));

    auto* central = new QWidget(this);
    auto* v = new QVBoxLayout(central);
    v->setContentsMargins(8, 8, 8, 8);
    v->setSpacing(6);
    Build_Display();
    v->addWidget(Frame1_);

    SelectTab_ = new QTabWidget(central);
    SelectTab_->setObjectName(QStringLiteral("SelectTab"));
    SelectTab_->tabBar()->setFocusPolicy(Qt::NoFocus);
    SelectTab_->addTab(Build_Page({"sqr", "sqrt", "cube", "cubt", "rcp", "log", "alog", "ln", "aln", "fact", "PI",
                                   "rand", "x-y", "frc", "dc", "engl", "engr"},
                                  5),
                       QString::fromLatin1(kPageNames[0]));
    SelectTab_->addTab(Build_Angle_Page(), QString::fromLatin1(kPageNames[1]));
    SelectTab_->addTab(Build_Page({"min", "mo", "mplus", "mminus", "kin", "ko", "xk", "kac", "cnst", "data", "del",
                                   "dtn", "dts", "ave", "sqr1", "sqr2", "strd0", "strd1"},
                                  5),
                       QString::fromLatin1(kPageNames[2]));
    SelectTab_->addTab(Build_Display_Page(), QString::fromLatin1(kPageNames[3]));
    v->addWidget(SelectTab_);
    v->addWidget(Build_KeyPad(), 1);

    // Hidden box that hands the copied text to the clipboard.
    DummyBox_ = new QLineEdit(central);
    DummyBox_->setObjectName(QStringLiteral("DummyBox"));
    DummyBox_->hide();
    setCentralWidget(central);
    Build_Menus();

    // Hooks of the engine; all capture this window and are removed with it.
    s_.Speak = [this](const std::string& words) { Say(words); };
    s_.ClipboardText = [] { return S(QGuiApplication::clipboard()->text()); };
    s_.ShowMessage = [this](const std::string& text, const std::string& title) {
        QMessageBox box(QMessageBox::Critical, Q(title), Q(text), QMessageBox::Ok, this);
        box.exec();
    };
    s_.ShowRegisterWindow = [this](CalculatorState& st) { Show_Register_Window(st); };
    s_.ShowConstantWindow = [this](CalculatorState& st) { Show_Constant_Window(st); };

    s_.ReadOutOn = CalculatorSettings::ReadOutLoud();
    // The files are read at the first opening in a run; later openings find
    // the state as the last close left it.
    if (!s_.FilesLoaded) {
        s_.FilesLoaded = true;
        CalculatorSettings::Load_CalcFiles(s_, this);
    }
    Calculator::Initial_Routine(s_);
    Refresh();
    Frame1_->setFocus();
}

CalculatorWindow::~CalculatorWindow() {
    s_.TimeShown = false;
    s_.Speak = nullptr;
    s_.ClipboardText = nullptr;
    s_.ShowMessage = nullptr;
    s_.ShowRegisterWindow = nullptr;
    s_.ShowConstantWindow = nullptr;
}

// =====================================================================================
// Building the window
// =====================================================================================

void CalculatorWindow::Build_Display() {
    Frame1_ = new QFrame(this);
    Frame1_->setObjectName(QStringLiteral("Frame1"));
    Frame1_->setFrameShape(QFrame::Panel);
    Frame1_->setFrameShadow(QFrame::Sunken);
    Frame1_->setFocusPolicy(Qt::StrongFocus);
    Frame1_->setAutoFillBackground(true);
    QPalette pal = Frame1_->palette();
    pal.setColor(QPalette::Window, QColor(0xdf, 0xe8, 0xd2));
    pal.setColor(QPalette::WindowText, QColor(0x1a, 0x1f, 0x16));
    Frame1_->setPalette(pal);

    auto* g = new QGridLayout(Frame1_);
    g->setContentsMargins(10, 6, 10, 6);
    g->setHorizontalSpacing(10);
    g->setVerticalSpacing(2);
    Mode_Indicator_ = MakeLabel(Frame1_, "Mode_Indicator", Qt::AlignLeft | Qt::AlignVCenter, -1);
    DispMode_Indicator_ = MakeLabel(Frame1_, "DispMode_Indicator", Qt::AlignLeft | Qt::AlignVCenter, -1);
    CCalc_Indicator_ = MakeLabel(Frame1_, "CCalc_Indicator", Qt::AlignLeft | Qt::AlignVCenter, -1, true);
    Mem_Indicator_ = MakeLabel(Frame1_, "Mem_Indicator", Qt::AlignLeft | Qt::AlignVCenter, -1, true);
    auto* indicators = new QHBoxLayout;
    indicators->setSpacing(14);
    for (QLabel* l : {Mode_Indicator_, DispMode_Indicator_, CCalc_Indicator_, Mem_Indicator_}) indicators->addWidget(l);
    indicators->addStretch(1);
    g->addLayout(indicators, 0, 0, 1, 3);

    OperatorIndicator_ = MakeLabel(Frame1_, "OperatorIndicator", Qt::AlignLeft | Qt::AlignVCenter, 6, true);
    OperatorIndicator_->setMinimumWidth(OperatorIndicator_->fontMetrics().horizontalAdvance(QStringLiteral("÷ ")));
    DisplayBox_ = MakeLabel(Frame1_, "DisplayBox", Qt::AlignRight | Qt::AlignVCenter, 12, true);
    DisplayBox_->setMinimumWidth(DisplayBox_->fontMetrics().horizontalAdvance(QStringLiteral("-8.88888888888888.")));
    ExpoBox_ = MakeLabel(Frame1_, "ExpoBox", Qt::AlignLeft | Qt::AlignTop, 2, true);
    ExpoBox_->setMinimumWidth(ExpoBox_->fontMetrics().horizontalAdvance(QStringLiteral("-88 ")));
    g->addWidget(OperatorIndicator_, 1, 0);
    g->addWidget(DisplayBox_, 1, 1);
    g->addWidget(ExpoBox_, 1, 2);
    DateBox_ = MakeLabel(Frame1_, "DateBox", Qt::AlignRight | Qt::AlignVCenter, 0);
    g->addWidget(DateBox_, 2, 0, 1, 3);
    g->setColumnStretch(1, 1);
}

QWidget* CalculatorWindow::Key_Button(const Calculator::KeyDef& key) {
    auto* b = new QPushButton(QString::fromUtf8(key.caption));
    b->setObjectName(QString::fromLatin1(key.control));
    b->setFocusPolicy(Qt::NoFocus);
    b->setAutoDefault(false);
    b->setMinimumSize(58, 32);
    b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    const Calculator::KeyDef* k = &key;
    connect(b, &QPushButton::clicked, this, [this, k] { Key_Click(*k); });
    return b;
}

QWidget* CalculatorWindow::Build_Page(std::initializer_list<const char*> tokens, int columns) {
    auto* page = new QWidget;
    auto* g = new QGridLayout(page);
    g->setContentsMargins(6, 6, 6, 6);
    g->setSpacing(4);
    int i = 0;
    for (const char* t : tokens) {
        const Calculator::KeyDef* k = Calculator::Find_Key(t);
        if (k == nullptr) continue;
        g->addWidget(Key_Button(*k), i / columns, i % columns);
        ++i;
    }
    return page;
}

QWidget* CalculatorWindow::Build_Angle_Page() {
    QWidget* page = Build_Page({"sin", "cos", "tan", "ptor", "iSin", "iCos", "iTan", "rtop", "sinh", "cosh", "tanh",
                                "sexa", "isinh", "icosh", "itanh", "asex"},
                               4);
    auto* g = static_cast<QGridLayout*>(page->layout());
    QGroupBox* box = nullptr;
    const auto angle = MakeOptionBox(page, QStringLiteral("Angle"),
                                     {{"DegButton", QStringLiteral("Degree")},
                                      {"RadButton", QStringLiteral("Radian")},
                                      {"GradButton", QStringLiteral("Gradian")}},
                                     box);
    DegButton_ = angle[0];
    RadButton_ = angle[1];
    GradButton_ = angle[2];
    const std::pair<QRadioButton*, AngleMode> options[] = {
        {DegButton_, AngleMode::Degree}, {RadButton_, AngleMode::Radian}, {GradButton_, AngleMode::Gradian}};
    for (const auto& [b, mode] : options) {
        const AngleMode m = mode;
        connect(b, &QRadioButton::clicked, this, [this, m] { Angle_Click(m); });
    }
    g->addWidget(box, 0, 4, 4, 1);
    return page;
}

QWidget* CalculatorWindow::Build_Display_Page() {
    auto* page = new QWidget;
    auto* g = new QGridLayout(page);
    g->setContentsMargins(6, 6, 6, 6);
    g->setSpacing(4);
    QGroupBox* box = nullptr;
    const auto display = MakeOptionBox(page, QStringLiteral("Display"),
                                       {{"StdButton", QStringLiteral("Normal")},
                                        {"FxnButton", QStringLiteral("Fixed")},
                                        {"ScnButton", QStringLiteral("Scientific")}},
                                       box);
    StdButton_ = display[0];
    FxnButton_ = display[1];
    ScnButton_ = display[2];
    const std::pair<QRadioButton*, DisplayMode> modes[] = {
        {StdButton_, DisplayMode::Normal}, {FxnButton_, DisplayMode::Fixed}, {ScnButton_, DisplayMode::Scientific}};
    for (const auto& [b, mode] : modes) {
        const DisplayMode m = mode;
        connect(b, &QRadioButton::clicked, this, [this, m] { Calculator::Set_Display_Mode(s_, m), Refresh(); });
    }
    g->addWidget(box, 0, 0, 2, 1);

    PrecLab_ = new QLabel(QStringLiteral("Places:"), page);
    PrecLab_->setObjectName(QStringLiteral("PrecLab"));
    PrecBox_ = new QComboBox(page);
    PrecBox_->setObjectName(QStringLiteral("PrecBox"));
    PrecBox_->setFocusPolicy(Qt::ClickFocus);
    PrecBox_->setMinimumContentsLength(3);
    for (int i = 0; i <= 14; ++i) PrecBox_->addItem(QString::number(i));
    connect(PrecBox_, &QComboBox::activated, this, [this](int index) {
        Calculator::Set_Places(s_, index);
        Refresh();
        Frame1_->setFocus();
    });
    PrecLab_->setBuddy(PrecBox_);
    auto* prec = new QHBoxLayout;
    prec->addWidget(PrecLab_);
    prec->addWidget(PrecBox_);
    prec->addStretch(1);
    g->addLayout(prec, 0, 1);
    QWidget* time = Key_Button(*Calculator::Find_Key("time"));
    time->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    time->setMinimumWidth(110);
    g->addWidget(time, 1, 1, Qt::AlignLeft | Qt::AlignTop);
    g->setColumnStretch(1, 1);
    g->setRowStretch(1, 1);
    return page;
}

QWidget* CalculatorWindow::Build_KeyPad() {
    static const char* const kRows[4][6] = {{"7", "8", "9", "ers", "C", "AC"},
                                            {"4", "5", "6", "*", "/", "xy"},
                                            {"1", "2", "3", "+", "-", "root"},
                                            {"0", "dot", "pm", "exp", "=", nullptr}};
    auto* pad = new QWidget(this);
    pad->setObjectName(QStringLiteral("KeyPad"));
    auto* g = new QGridLayout(pad);
    g->setContentsMargins(6, 0, 6, 0);
    g->setSpacing(4);
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 6; ++c) {
            if (kRows[r][c] == nullptr) continue;
            QWidget* b = Key_Button(*Calculator::Find_Key(kRows[r][c]));
            b->setMinimumHeight(38);
            bool wide = r == 3 && c == 4;  // "=" takes the last two places
            g->addWidget(b, r, c, 1, wide ? 2 : 1);
        }
    }
    return pad;
}

void CalculatorWindow::Build_Menus() {
    auto add = [this](QMenu* m, const char* name, const QString& caption, auto slot) {
        QAction* a = m->addAction(caption);
        a->setObjectName(QString::fromLatin1(name));
        connect(a, &QAction::triggered, this, slot);
        return a;
    };
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    file->setObjectName(QStringLiteral("mnuFile"));
    mnuReadOut_ = add(file, "mnuReadOut", QStringLiteral("&Read Out Loud"), [this] { mnuReadOut_Click(); });
    mnuReadOut_->setCheckable(true);
    file->addSeparator();
    auto* pages = new QActionGroup(this);
    for (int i = 0; i < kPageCount; ++i) {
        const std::string name = "mnuFunct" + std::to_string(i + 1);
        QString caption = QStringLiteral("%1\tF%2").arg(QString::fromLatin1(kPageNames[i])).arg(i + 1);
        QAction* a = add(file, name.c_str(), caption, [this, i] { SelectTab_->setCurrentIndex(i); });
        a->setCheckable(true);
        pages->addAction(a);
    }
    file->addSeparator();
    add(file, "mnuExit", QStringLiteral("E&xit"), [this] { close(); });
    connect(file, &QMenu::aboutToShow, this, [this] { mnuFile_Click(); });

    QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
    edit->setObjectName(QStringLiteral("mnuEdit"));
    mnuCopy_ = add(edit, "mnuCopy", QStringLiteral("&Copy"), [this] { mnuCopy_Click(); });
    mnuCopyDigits_ =
        add(edit, "mnuCopyDigits", QStringLiteral("Copy &Display as Digits"), [this] { mnuCopyDigits_Click(); });
    add(edit, "mnuPaste", QStringLiteral("&Paste"), [this] {
        // The clock gives way to the paste, except on the angle page.
        if (s_.TimeShown && SelectTab_->currentIndex() != 1) Calculator::Toggle_Clock(s_);
        Press("xtract");
    });
    connect(edit, &QMenu::aboutToShow, this, [this] {
        mnuCopy_->setEnabled(!s_.TimeShown);
        mnuCopyDigits_->setEnabled(!s_.TimeShown);
    });

    QMenu* mode = menuBar()->addMenu(QStringLiteral("&Mode"));
    mode->setObjectName(QStringLiteral("mnuMode"));
    QMenu* angular = mode->addMenu(QStringLiteral("&Angle"));
    angular->setObjectName(QStringLiteral("mnuAngular"));
    add(angular, "mnuDegree", QStringLiteral("&Degree"), [this] { DegButton_->click(); })->setCheckable(true);
    add(angular, "mnuRadian", QStringLiteral("&Radian"), [this] { RadButton_->click(); })->setCheckable(true);
    add(angular, "mnuGradian", QStringLiteral("&Gradian"), [this] { GradButton_->click(); })->setCheckable(true);
    QMenu* display = mode->addMenu(QStringLiteral("&Display"));
    display->setObjectName(QStringLiteral("mnuDisplayMode"));
    add(display, "mnuNormal", QStringLiteral("&Normal"), [this] { StdButton_->click(); })->setCheckable(true);
    add(display, "mnuFixed", QStringLiteral("&Fixed"), [this] {
        SelectTab_->setCurrentIndex(3);
        FxnButton_->click();
    })->setCheckable(true);
    add(display, "mnuSci", QStringLiteral("&Scientific"), [this] {
        SelectTab_->setCurrentIndex(3);
        ScnButton_->click();
    })->setCheckable(true);
    mode->addSeparator();
    // The entry exists and does nothing: the register keys alone take the window off the top.
    add(mode, "mnuOnTop", QStringLiteral("Always on &Top"), [] {});
    connect(mode, &QMenu::aboutToShow, this, [this] { mnuMode_Click(); });

    QMenu* windows = menuBar()->addMenu(QStringLiteral("&Windows"));
    windows->setObjectName(QStringLiteral("mnuWindows"));
    add(windows, "mnuRegisters", QStringLiteral("&Registers..."), [this] { mnuRegisters_Click(); });
    add(windows, "mnuData", QStringLiteral("Statistics &Data..."), [this] { mnuData_Click(); });
    add(windows, "mnuConstants", QStringLiteral("&Constants..."), [this] { mnuConstants_Click(); });

    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->setObjectName(QStringLiteral("mnuHelp"));
    add(help, "mnuHelpTopics", QStringLiteral("Help &Topics"), [this] { mnuHelpTopics_Click(); });
    add(help, "mnuAbout", QStringLiteral("&About Calculator"), [this] {
        AboutBox box(AboutBox::Kind::Calculator, this);
        box.exec();
    });
}

// =====================================================================================
// Keys
// =====================================================================================

void CalculatorWindow::Press(const std::string& token) {
    if (const Calculator::KeyDef* k = Calculator::Find_Key(token)) Key_Click(*k);
}

void CalculatorWindow::Key_Click(const Calculator::KeyDef& key) {
    if (key.kind == Calculator::KeyKind::Window) {
        if (std::string(key.token) == "time")
            key_Time_Click();
        else
            mnuData_Click();
    } else {
        // The register keys take the calculator off the top so that the
        // register window can stand above it.
        if (key.registerAction == RegisterAction::In || key.registerAction == RegisterAction::Recall ||
            key.registerAction == RegisterAction::Swap)
            Stay_On_Top(false);
        Calculator::Press_Key(s_, key.token);
    }
    if (guard_.ClosePending()) return;
    Refresh();
    Frame1_->setFocus();
}

CalculatorWindow::KeyStroke CalculatorWindow::Keyboard_Of(int qtKey, Qt::KeyboardModifiers modifiers) {
    using Calculator::Keyboard;
    const bool keypad = modifiers.testFlag(Qt::KeypadModifier);
    const Qt::KeyboardModifiers rest = modifiers & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    const Calculator::Modifiers held = rest != Qt::NoModifier                  ? Calculator::Modifiers::Other
                                       : modifiers.testFlag(Qt::ShiftModifier) ? Calculator::Modifiers::Shift
                                                                               : Calculator::Modifiers::None;
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) {
        const int d = qtKey - Qt::Key_0;
        return {keypad ? Calculator::Keypad_Digit(d) : Calculator::Row_Digit(d), held};
    }
    // Characters that share a key with a digit arrive as their own Qt keys;
    // they are the digit key with Shift.
    static const std::pair<int, int> kShifted[] = {
        {Qt::Key_ParenRight, 0},  {Qt::Key_Exclam, 1},    {Qt::Key_At, 2},
        {Qt::Key_NumberSign, 3},  {Qt::Key_Dollar, 4},    {Qt::Key_Percent, 5},
        {Qt::Key_AsciiCircum, 6}, {Qt::Key_Ampersand, 7}, {Qt::Key_ParenLeft, 9}};
    for (const auto& [qt, digit] : kShifted)
        if (qtKey == qt)
            return {Calculator::Row_Digit(digit),
                    held == Calculator::Modifiers::Other ? held : Calculator::Modifiers::Shift};
    // clang-format off
    static const std::pair<int, Keyboard> kKeys[] = {
        {Qt::Key_Asterisk, Keyboard::Asterisk}, {Qt::Key_Plus, Keyboard::Plus},     {Qt::Key_Slash, Keyboard::Slash},
        {Qt::Key_Period, Keyboard::Point},      {Qt::Key_Equal, Keyboard::Equal},   {Qt::Key_Return, Keyboard::Enter},
        {Qt::Key_Enter, Keyboard::Enter},       {Qt::Key_Delete, Keyboard::Delete}, {Qt::Key_Backspace, Keyboard::Backspace},
        {Qt::Key_Escape, Keyboard::Escape},     {Qt::Key_Up, Keyboard::Up},         {Qt::Key_F1, Keyboard::F1},
        {Qt::Key_F2, Keyboard::F2},             {Qt::Key_F3, Keyboard::F3},         {Qt::Key_F4, Keyboard::F4},
        {Qt::Key_F8, Keyboard::F8},             {Qt::Key_F9, Keyboard::F9}};
    // clang-format on
    if (qtKey == Qt::Key_Minus) return {keypad ? Keyboard::KeypadMinus : Keyboard::Minus, held};
    for (const auto& [qt, key] : kKeys)
        if (qtKey == qt) return {key, held};
    return {};
}

void CalculatorWindow::keyPressEvent(QKeyEvent* event) {
    const KeyStroke k = Keyboard_Of(event->key(), event->modifiers());
    if (const int page = Calculator::Keyboard_Page(k.key); page >= 0) {
        event->accept();
        SelectTab_->setCurrentIndex(page);
    } else if (const Calculator::KeyDef* key = Calculator::Keyboard_Key(k.key, k.modifiers)) {
        event->accept();
        Key_Click(*key);
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

// =====================================================================================
// Clock
// =====================================================================================

void CalculatorWindow::key_Time_Click() {
    if (!Calculator::Toggle_Clock(s_)) return;  // off again, or an error shows
    auto scope = guard_.Enter();
    shell::ThrottledPump pump;
    int shownSecond = -1;
    // Any later key ends the clock (the engine clears TimeShown); so does
    // closing or hiding the window.
    while (s_.TimeShown && !guard_.ClosePending() && isVisible()) {
        const QDateTime now = QDateTime::currentDateTime();
        const QDate d = now.date();
        const QTime t = now.time();
        if (t.second() != shownSecond) {
            shownSecond = t.second();
            Calculator::Show_Clock(s_, d.year(), d.month(), d.day(), d.dayOfWeek() % 7, t.hour(), t.minute(),
                                  t.second());
            Refresh();
        }
        pump();
        QThread::msleep(5);
    }
    if (s_.TimeShown && !guard_.ClosePending()) Calculator::Toggle_Clock(s_);  // hidden: the clock goes off
}

// =====================================================================================
// Labels
// =====================================================================================

void CalculatorWindow::Refresh() {
    DisplayBox_->setText(Q(s_.DisplayBox));
    ExpoBox_->setText(Q(s_.ExpoBox));
    DateBox_->setText(Q(s_.DateBox));
    OperatorIndicator_->setText(Q(s_.OperatorIndicator));
    CCalc_Indicator_->setText(Q(s_.CCalc_Indicator));
    Mem_Indicator_->setText(Q(s_.Mem_Indicator));
    Mode_Indicator_->setText(Q(s_.Mode_Indicator));
    DispMode_Indicator_->setText(Q(s_.DispMode_Indicator));

    const QSignalBlocker block(PrecBox_);
    DegButton_->setChecked(s_.Angle == AngleMode::Degree);
    RadButton_->setChecked(s_.Angle == AngleMode::Radian);
    GradButton_->setChecked(s_.Angle == AngleMode::Gradian);
    StdButton_->setChecked(s_.Mode == DisplayMode::Normal);
    FxnButton_->setChecked(s_.Mode == DisplayMode::Fixed);
    ScnButton_->setChecked(s_.Mode == DisplayMode::Scientific);
    PrecBox_->setCurrentIndex(s_.Places);
    // The places are chosen for fixed and scientific only.
    PrecBox_->setEnabled(s_.Mode != DisplayMode::Normal);
    PrecLab_->setEnabled(s_.Mode != DisplayMode::Normal);
}

// =====================================================================================
// Menus
// =====================================================================================

void CalculatorWindow::mnuCopy_Click() {
    DummyBox_->setText(Q(Calculator::Copy_Text(s_)));
    DummyBox_->selectAll();
    QClipboard* clip = QGuiApplication::clipboard();
    clip->clear();
    clip->setText(DummyBox_->selectedText());
}

void CalculatorWindow::mnuCopyDigits_Click() {
    const std::string digits = Calculator::Display_Digits(s_);
    if (digits.empty()) return;  // an error or the clock: nothing worth pasting
    QClipboard* clip = QGuiApplication::clipboard();
    clip->clear();
    clip->setText(Q(digits));
}

void CalculatorWindow::mnuReadOut_Click() {
    s_.ReadOutOn = !s_.ReadOutOn;
    mnuReadOut_->setChecked(s_.ReadOutOn);
    settings::SaveSetting(settings::ProgramTitle(), kSection, kReadOutKey,
                          s_.ReadOutOn ? QStringLiteral("1") : QStringLiteral("0"));
    Say("");
}

void CalculatorWindow::mnuFile_Click() {
    s_.ReadOutOn = settings::GetSettingInt(settings::ProgramTitle(), kSection, kReadOutKey, 0) != 0;
    mnuReadOut_->setChecked(s_.ReadOutOn);
    const std::string name = "mnuFunct" + std::to_string(SelectTab_->currentIndex() + 1);
    if (QAction* a = findChild<QAction*>(QString::fromStdString(name))) a->setChecked(true);
}

void CalculatorWindow::mnuMode_Click() {
    auto check = [this](const char* name, bool on) {
        if (QAction* a = findChild<QAction*>(QString::fromLatin1(name))) a->setChecked(on);
    };
    check("mnuDegree", DegButton_->isChecked());
    check("mnuRadian", RadButton_->isChecked());
    check("mnuGradian", GradButton_->isChecked());
    check("mnuNormal", StdButton_->isChecked());
    check("mnuFixed", FxnButton_->isChecked());
    check("mnuSci", ScnButton_->isChecked());
}

void CalculatorWindow::Angle_Click(AngleMode mode) {
    Calculator::Set_Angle_Mode(s_, mode);
    Refresh();
    Frame1_->setFocus();
}

void CalculatorWindow::Stay_On_Top(bool on) {
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) == on) return;
    setWindowFlag(Qt::WindowStaysOnTopHint, on);
    show();  // a change of window flags hides the window
}

void CalculatorWindow::closeEvent(QCloseEvent* event) {
    s_.TimeShown = false;  // a running clock ends with the window
    if (guard_.DeferClose(event)) return;
    if (voice_) voice_->Speak(QString());
    CalculatorSettings::Save_CalcFiles(s_, this);
    event->accept();
}

// =====================================================================================
// The register, data, constant and help windows, and the voice
// =====================================================================================

// Register window for the keys K IN, K OUT, X<->K, M+, M- and K AC: reads
// s.MemoryAction, sets s.RegisterChoice (-1 for Exit) and s.RegisterText.
// Opens nothing yet, so the keys leave the registers alone.
void CalculatorWindow::Show_Register_Window(CalculatorState& s) { RegistersWindow::Open(s, this); }

void CalculatorWindow::Show_Constant_Window(CalculatorState& s) { ConstantsWindow::Open(s, this); }

// The menu entries work as the keys do: through the engine, so the results
// reach the display.
void CalculatorWindow::mnuRegisters_Click() {
    Calculator::Press_Key(s_, "kin");
    Refresh();
}
void CalculatorWindow::mnuData_Click() { StatisticsWindow::Open(s_, this); }
void CalculatorWindow::mnuConstants_Click() {
    Calculator::Press_Key(s_, "cnst");
    Refresh();
}
void CalculatorWindow::mnuHelpTopics_Click() { HelpWindow::Open(s_, this); }

void CalculatorWindow::Say(const std::string& words) {
    if (!voice_) voice_ = new Voice(this);
    voice_->Speak(Q(words));
}
