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
#include <functional>
#include <vector>

#include "calc/core/CalculatorEngine.h"
#include "calc/ui/CalculatorSettings.h"
#include "calc/ui/ConstantsWindow.h"
#include "calc/ui/HelpWindow.h"
#include "calc/ui/RegistersWindow.h"
#include "calc/ui/StatisticsWindow.h"
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

// A titled box of exclusive options stacked in a column; a click on the
// button at index i calls `chosen` with i. Gives the buttons in order.
std::vector<QRadioButton*> MakeOptionBox(QWidget* page, const QString& title,
                                         std::initializer_list<std::pair<const char*, QString>> options,
                                         QGroupBox*& box, const std::function<void(int)>& chosen) {
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
        const int index = int(buttons.size());
        QObject::connect(b, &QRadioButton::clicked, box, [chosen, index] { chosen(index); });
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
    v->addWidget(display_);

    pages_ = new QTabWidget(central);
    pages_->setObjectName(QStringLiteral("SelectTab"));
    pages_->tabBar()->setFocusPolicy(Qt::NoFocus);
    pages_->addTab(Build_Page({"sqr", "sqrt", "cube", "cubt", "rcp", "log", "alog", "ln", "aln", "fact", "PI", "rand",
                               "x-y", "frc", "dc", "engl", "engr"},
                              5),
                   QString::fromLatin1(kPageNames[0]));
    pages_->addTab(Build_Angle_Page(), QString::fromLatin1(kPageNames[1]));
    pages_->addTab(Build_Page({"min", "mo", "mplus", "mminus", "kin", "ko", "xk", "kac", "cnst", "data", "del", "dtn",
                               "dts", "ave", "sqr1", "sqr2", "strd0", "strd1"},
                              5),
                   QString::fromLatin1(kPageNames[2]));
    pages_->addTab(Build_Display_Page(), QString::fromLatin1(kPageNames[3]));
    v->addWidget(pages_);
    v->addWidget(Build_KeyPad(), 1);

    // Hidden box that hands the copied text to the clipboard.
    copyBox_ = new QLineEdit(central);
    copyBox_->setObjectName(QStringLiteral("DummyBox"));
    copyBox_->hide();
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
        CalculatorSettings::Load_Files(s_, this);
    }
    Calculator::Initial_Routine(s_);
    Refresh();
    display_->setFocus();
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
    display_ = new QFrame(this);
    display_->setObjectName(QStringLiteral("Frame1"));
    display_->setFrameShape(QFrame::Panel);
    display_->setFrameShadow(QFrame::Sunken);
    display_->setFocusPolicy(Qt::StrongFocus);
    display_->setAutoFillBackground(true);
    QPalette pal = display_->palette();
    pal.setColor(QPalette::Window, QColor(0xdf, 0xe8, 0xd2));
    pal.setColor(QPalette::WindowText, QColor(0x1a, 0x1f, 0x16));
    display_->setPalette(pal);

    auto* g = new QGridLayout(display_);
    g->setContentsMargins(10, 6, 10, 6);
    g->setHorizontalSpacing(10);
    g->setVerticalSpacing(2);
    angleName_ = MakeLabel(display_, "Mode_Indicator", Qt::AlignLeft | Qt::AlignVCenter, -1);
    modeName_ = MakeLabel(display_, "DispMode_Indicator", Qt::AlignLeft | Qt::AlignVCenter, -1);
    constantMark_ = MakeLabel(display_, "CCalc_Indicator", Qt::AlignLeft | Qt::AlignVCenter, -1, true);
    memoryMark_ = MakeLabel(display_, "Mem_Indicator", Qt::AlignLeft | Qt::AlignVCenter, -1, true);
    auto* indicators = new QHBoxLayout;
    indicators->setSpacing(14);
    for (QLabel* l : {angleName_, modeName_, constantMark_, memoryMark_}) indicators->addWidget(l);
    indicators->addStretch(1);
    g->addLayout(indicators, 0, 0, 1, 3);

    operatorMark_ = MakeLabel(display_, "OperatorIndicator", Qt::AlignLeft | Qt::AlignVCenter, 6, true);
    operatorMark_->setMinimumWidth(operatorMark_->fontMetrics().horizontalAdvance(QStringLiteral("÷ ")));
    number_ = MakeLabel(display_, "DisplayBox", Qt::AlignRight | Qt::AlignVCenter, 12, true);
    number_->setMinimumWidth(number_->fontMetrics().horizontalAdvance(QStringLiteral("-8.88888888888888.")));
    exponent_ = MakeLabel(display_, "ExpoBox", Qt::AlignLeft | Qt::AlignTop, 2, true);
    exponent_->setMinimumWidth(exponent_->fontMetrics().horizontalAdvance(QStringLiteral("-88 ")));
    g->addWidget(operatorMark_, 1, 0);
    g->addWidget(number_, 1, 1);
    g->addWidget(exponent_, 1, 2);
    date_ = MakeLabel(display_, "DateBox", Qt::AlignRight | Qt::AlignVCenter, 0);
    g->addWidget(date_, 2, 0, 1, 3);
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
    // The buttons stand in the order of the angle modes.
    const auto angle = MakeOptionBox(page, QStringLiteral("Angle"),
                                     {{"DegButton", QStringLiteral("Degree")},
                                      {"RadButton", QStringLiteral("Radian")},
                                      {"GradButton", QStringLiteral("Gradian")}},
                                     box, [this](int i) { Choose_Angle(AngleMode(i)); });
    degree_ = angle[0];
    radian_ = angle[1];
    gradian_ = angle[2];
    g->addWidget(box, 0, 4, 4, 1);
    return page;
}

QWidget* CalculatorWindow::Build_Display_Page() {
    auto* page = new QWidget;
    auto* g = new QGridLayout(page);
    g->setContentsMargins(6, 6, 6, 6);
    g->setSpacing(4);
    QGroupBox* box = nullptr;
    // The buttons stand in the order of the display modes.
    const auto display = MakeOptionBox(page, QStringLiteral("Display"),
                                       {{"StdButton", QStringLiteral("Normal")},
                                        {"FxnButton", QStringLiteral("Fixed")},
                                        {"ScnButton", QStringLiteral("Scientific")}},
                                       box, [this](int i) {
                                           Calculator::Set_Display_Mode(s_, DisplayMode(i));
                                           Refresh();
                                       });
    normal_ = display[0];
    fixed_ = display[1];
    scientific_ = display[2];
    g->addWidget(box, 0, 0, 2, 1);

    placesLabel_ = new QLabel(QStringLiteral("Places:"), page);
    placesLabel_->setObjectName(QStringLiteral("PrecLab"));
    places_ = new QComboBox(page);
    places_->setObjectName(QStringLiteral("PrecBox"));
    places_->setFocusPolicy(Qt::ClickFocus);
    places_->setMinimumContentsLength(3);
    for (int i = 0; i <= 14; ++i) places_->addItem(QString::number(i));
    connect(places_, &QComboBox::activated, this, [this](int index) {
        Calculator::Set_Places(s_, index);
        Refresh();
        display_->setFocus();
    });
    placesLabel_->setBuddy(places_);
    auto* prec = new QHBoxLayout;
    prec->addWidget(placesLabel_);
    prec->addWidget(places_);
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
    readOutAction_ = add(file, "mnuReadOut", QStringLiteral("&Read Out Loud"), [this] { Toggle_Read_Out(); });
    readOutAction_->setCheckable(true);
    file->addSeparator();
    auto* pages = new QActionGroup(this);
    for (int i = 0; i < kPageCount; ++i) {
        const std::string name = "mnuFunct" + std::to_string(i + 1);
        QString caption = QStringLiteral("%1\tF%2").arg(QString::fromLatin1(kPageNames[i])).arg(i + 1);
        QAction* a = add(file, name.c_str(), caption, [this, i] { pages_->setCurrentIndex(i); });
        a->setCheckable(true);
        pages->addAction(a);
    }
    file->addSeparator();
    add(file, "mnuExit", QStringLiteral("E&xit"), [this] { close(); });
    connect(file, &QMenu::aboutToShow, this, [this] { Check_File_Menu(); });

    QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
    edit->setObjectName(QStringLiteral("mnuEdit"));
    copyAction_ = add(edit, "mnuCopy", QStringLiteral("&Copy"), [this] { Copy_Value(); });
    copyDigitsAction_ =
        add(edit, "mnuCopyDigits", QStringLiteral("Copy &Display as Digits"), [this] { Copy_Digits(); });
    add(edit, "mnuPaste", QStringLiteral("&Paste"), [this] {
        // The clock gives way to the paste, except on the angle page.
        if (s_.TimeShown && pages_->currentIndex() != 1) Calculator::Toggle_Clock(s_);
        Press("xtract");
    });
    connect(edit, &QMenu::aboutToShow, this, [this] {
        copyAction_->setEnabled(!s_.TimeShown);
        copyDigitsAction_->setEnabled(!s_.TimeShown);
    });

    QMenu* mode = menuBar()->addMenu(QStringLiteral("&Mode"));
    mode->setObjectName(QStringLiteral("mnuMode"));
    QMenu* angular = mode->addMenu(QStringLiteral("&Angle"));
    angular->setObjectName(QStringLiteral("mnuAngular"));
    add(angular, "mnuDegree", QStringLiteral("&Degree"), [this] { degree_->click(); })->setCheckable(true);
    add(angular, "mnuRadian", QStringLiteral("&Radian"), [this] { radian_->click(); })->setCheckable(true);
    add(angular, "mnuGradian", QStringLiteral("&Gradian"), [this] { gradian_->click(); })->setCheckable(true);
    QMenu* display = mode->addMenu(QStringLiteral("&Display"));
    display->setObjectName(QStringLiteral("mnuDisplayMode"));
    add(display, "mnuNormal", QStringLiteral("&Normal"), [this] { normal_->click(); })->setCheckable(true);
    add(display, "mnuFixed", QStringLiteral("&Fixed"), [this] {
        pages_->setCurrentIndex(3);
        fixed_->click();
    })->setCheckable(true);
    add(display, "mnuSci", QStringLiteral("&Scientific"), [this] {
        pages_->setCurrentIndex(3);
        scientific_->click();
    })->setCheckable(true);
    mode->addSeparator();
    // The entry exists and does nothing: the register keys alone take the window off the top.
    add(mode, "mnuOnTop", QStringLiteral("Always on &Top"), [] {});
    connect(mode, &QMenu::aboutToShow, this, [this] { Check_Mode_Menu(); });

    QMenu* windows = menuBar()->addMenu(QStringLiteral("&Windows"));
    windows->setObjectName(QStringLiteral("mnuWindows"));
    add(windows, "mnuRegisters", QStringLiteral("&Registers..."), [this] { Open_Registers(); });
    add(windows, "mnuData", QStringLiteral("Statistics &Data..."), [this] { Open_Data(); });
    add(windows, "mnuConstants", QStringLiteral("&Constants..."), [this] { Open_Constants(); });

    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->setObjectName(QStringLiteral("mnuHelp"));
    add(help, "mnuHelpTopics", QStringLiteral("Help &Topics"), [this] { Open_Help(); });
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
            Run_Clock();
        else
            Open_Data();
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
    display_->setFocus();
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
        pages_->setCurrentIndex(page);
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

void CalculatorWindow::Run_Clock() {
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
    number_->setText(Q(s_.Shown.Number));
    exponent_->setText(Q(s_.Shown.Exponent));
    date_->setText(Q(s_.Shown.Date));
    operatorMark_->setText(Q(s_.Shown.OperatorMark));
    constantMark_->setText(Q(s_.Shown.ConstantMark));
    memoryMark_->setText(Q(s_.Shown.MemoryMark));
    angleName_->setText(Q(s_.Shown.AngleName));
    modeName_->setText(Q(s_.Shown.ModeName));

    const QSignalBlocker block(places_);
    degree_->setChecked(s_.Angle == AngleMode::Degree);
    radian_->setChecked(s_.Angle == AngleMode::Radian);
    gradian_->setChecked(s_.Angle == AngleMode::Gradian);
    normal_->setChecked(s_.Mode == DisplayMode::Normal);
    fixed_->setChecked(s_.Mode == DisplayMode::Fixed);
    scientific_->setChecked(s_.Mode == DisplayMode::Scientific);
    places_->setCurrentIndex(s_.Places);
    // The places are chosen for fixed and scientific only.
    places_->setEnabled(s_.Mode != DisplayMode::Normal);
    placesLabel_->setEnabled(s_.Mode != DisplayMode::Normal);
}

// =====================================================================================
// Menus
// =====================================================================================

void CalculatorWindow::Copy_Value() {
    copyBox_->setText(Q(Calculator::Copy_Text(s_)));
    copyBox_->selectAll();
    QClipboard* clip = QGuiApplication::clipboard();
    clip->clear();
    clip->setText(copyBox_->selectedText());
}

void CalculatorWindow::Copy_Digits() {
    const std::string digits = Calculator::Display_Digits(s_);
    if (digits.empty()) return;  // an error or the clock: nothing worth pasting
    QClipboard* clip = QGuiApplication::clipboard();
    clip->clear();
    clip->setText(Q(digits));
}

void CalculatorWindow::Toggle_Read_Out() {
    readOutAction_->setChecked(CalculatorSettings::Toggle_Read_Out(s_, voice_));
}

void CalculatorWindow::Check_File_Menu() {
    s_.ReadOutOn = settings::GetSettingInt(settings::ProgramTitle(), kSection, kReadOutKey, 0) != 0;
    readOutAction_->setChecked(s_.ReadOutOn);
    const std::string name = "mnuFunct" + std::to_string(pages_->currentIndex() + 1);
    if (QAction* a = findChild<QAction*>(QString::fromStdString(name))) a->setChecked(true);
}

void CalculatorWindow::Check_Mode_Menu() {
    auto check = [this](const char* name, bool on) {
        if (QAction* a = findChild<QAction*>(QString::fromLatin1(name))) a->setChecked(on);
    };
    check("mnuDegree", degree_->isChecked());
    check("mnuRadian", radian_->isChecked());
    check("mnuGradian", gradian_->isChecked());
    check("mnuNormal", normal_->isChecked());
    check("mnuFixed", fixed_->isChecked());
    check("mnuSci", scientific_->isChecked());
}

void CalculatorWindow::Choose_Angle(AngleMode mode) {
    Calculator::Set_Angle_Mode(s_, mode);
    Refresh();
    display_->setFocus();
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
    CalculatorSettings::Save_Files(s_, this);
    event->accept();
}

// =====================================================================================
// The register, data, constant and help windows, and the voice
// =====================================================================================

// Register window for the keys K IN, K OUT, X<->K, M+, M- and K AC: reads
// s.MemoryAction, sets s.RegisterChoice (-1 for Exit) and s.RegisterText.
void CalculatorWindow::Show_Register_Window(CalculatorState& s) { RegistersWindow::Open(s, this); }

void CalculatorWindow::Show_Constant_Window(CalculatorState& s) { ConstantsWindow::Open(s, this); }

// The menu entries work as the keys do: through the engine, so the results
// reach the display.
void CalculatorWindow::Open_Registers() {
    Calculator::Press_Key(s_, "kin");
    Refresh();
}
void CalculatorWindow::Open_Data() { StatisticsWindow::Open(s_, this); }
void CalculatorWindow::Open_Constants() {
    Calculator::Press_Key(s_, "cnst");
    Refresh();
}
void CalculatorWindow::Open_Help() { HelpWindow::Open(s_, this); }

void CalculatorWindow::Say(const std::string& words) {
    if (!voice_) voice_ = new Voice(this);
    voice_->Speak(Q(words));
}
