// The scientific calculator's window: a display with its indicators, a key
// pad, four pages of keys in the tab strip SelectTab, and the menus. It turns
// clicks and keys into tokens for the engine and copies the engine's display
// fields to its labels; the state it works on outlives the window.
#pragma once

#include <QMainWindow>
#include <string>

#include "calc/core/CalculatorState.h"
#include "calc/core/KeyTable.h"
#include "shell/ui/RunPump.h"

class QAction;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QRadioButton;
class QTabWidget;

class Voice;

class CalculatorWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit CalculatorWindow(CalculatorState& state, QWidget* parent = nullptr);
    ~CalculatorWindow() override;

    // A Qt key press as the calculator's keyboard key and modifiers.
    struct KeyStroke {
        Calculator::Keyboard key = Calculator::Keyboard::None;
        Calculator::Modifiers modifiers = Calculator::Modifiers::None;
    };
    static KeyStroke Keyboard_Of(int qtKey, Qt::KeyboardModifiers modifiers);

    // Presses the key with this token as its button would.
    void Press(const std::string& token);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Build_Display();
    QWidget* Build_KeyPad();
    QWidget* Build_Page(std::initializer_list<const char*> tokens, int columns);
    QWidget* Build_Angle_Page();
    QWidget* Build_Display_Page();
    void Build_Menus();
    QWidget* Key_Button(const Calculator::KeyDef& key);

    void Key_Click(const Calculator::KeyDef& key);
    void Run_Clock();
    void Refresh();

    // ---- Menus ------------------------------------------------------------------
    void Copy_Value();   // the plain value of X to the clipboard
    void Copy_Digits();  // the display as digits to the clipboard
    void Toggle_Read_Out();
    void Check_File_Menu();  // the read-out switch and the page shown, as the menu opens
    void Check_Mode_Menu();  // the angle and display modes, as the menu opens
    void Choose_Angle(AngleMode mode);
    void Stay_On_Top(bool on);

    // ---- The register, data, constant and help windows ---------------------------
    void Show_Register_Window(CalculatorState& s);  // engine hook of the register keys
    void Show_Constant_Window(CalculatorState& s);  // engine hook of the constant key
    void Open_Registers();
    void Open_Data();  // also the key key_Del
    void Open_Constants();
    void Open_Help();
    // Speech hook: the words of a key or result, "" to cut off.
    void Say(const std::string& words);

    CalculatorState& s_;
    shell::RunGuard guard_;
    Voice* voice_ = nullptr;  // made at the first word spoken
    QFrame* display_ = nullptr;  // the display panel, which keeps the keyboard focus
    // The display's labels: number, exponent, date line and the indicators.
    QLabel *number_ = nullptr, *exponent_ = nullptr, *date_ = nullptr;
    QLabel *operatorMark_ = nullptr, *constantMark_ = nullptr, *memoryMark_ = nullptr;
    QLabel *angleName_ = nullptr, *modeName_ = nullptr;
    QLineEdit* copyBox_ = nullptr;  // hidden: hands the copied text to the clipboard
    QTabWidget* pages_ = nullptr;   // the four pages of keys
    QLabel* placesLabel_ = nullptr;
    QComboBox* places_ = nullptr;
    QRadioButton *degree_ = nullptr, *radian_ = nullptr, *gradian_ = nullptr;
    QRadioButton *normal_ = nullptr, *fixed_ = nullptr, *scientific_ = nullptr;
    QAction *readOutAction_ = nullptr, *copyAction_ = nullptr, *copyDigitsAction_ = nullptr;
};
