// The scientific calculator's state. One instance lives for the whole run of
// the program and is handed to every calculator procedure; the windows only
// turn clicks and keys into tokens and copy the display fields to labels, so
// the texts they show are kept here too.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "calc/core/CalculatorFiles.h"
#include "calc/core/Constants.h"
#include "shell/core/Variant.h"

// What the register window is opened for; the value is the window's action index.
enum class RegisterAction : int16_t { In = 0, Recall = 1, Swap = 2, Add = 3, Minus = 4, Delete = 5 };

// The unit angles are typed and shown in.
enum class AngleMode : uint8_t { Degree, Radian, Gradian };

// How results are written: as they come, with fixed places, or scientific.
enum class DisplayMode : uint8_t { Normal, Fixed, Scientific };

struct CalculatorState {
    using Variant = prim::Variant;

    // ---- Key engine ------------------------------------------------------
    std::string KeyToken;        // token being processed; functions put the result text here
    bool ErrorLock = false;      // "Error" shown: every token but "AC" is ignored
    bool FractionMode = false;   // a fraction is being typed
    std::string EntryText;       // the operand being typed
    bool ExpMode = false;        // exponent digits are being typed
    bool SignPressed = false;    // the sign key was used on a non-empty entry
    Variant SexaCount;           // step counter of the "sexa" key, empty when idle
    bool ExpNegative = false;    // sign of the exponent being typed
    bool NumberEntered = false;  // a digit or result came since AC
    bool ResultPending = false;  // Show_Result left a value for Enter_Digit
    double ResultValue = 0.0;
    std::string ResultFullText;  // ResultValue at full precision
    std::string CarryText;       // operand taken when EntryText is empty at an operator
    std::string MantissaText;    // last non-empty EntryText; the mantissa in exponent entry
    std::string ExponentText;    // exponent digits with their sign
    std::string FractionText;    // the fraction as typed, "a", "a/b" or "a/b/c"

    // ---- Priority evaluation ------------------------------------------------
    std::string PendingOp, PriorOp, OldestOp;
    std::vector<double> Operands;   // oldest first
    Variant RunningTotal;           // number, the text "Error", or empty
    double Operand0 = 0.0, Operand1 = 0.0, Operand2 = 0.0;
    Variant DisplayValue;           // X, the number on the display
    Variant DisplayText;            // its text form
    Variant KValue;                 // constant calculation
    std::string KOperator;
    std::vector<std::string> RepeatOps;  // empty: no list
    Variant ErrorWord;

    // ---- Functions and conversions -------------------------------------------
    bool PolarPending = false, RectPending = false, ConversionArmed = false;
    Variant PolarRadius, RectX, SecondValue;
    bool RandomShown = false;  // the next result is written with three places

    // ---- Display modes ------------------------------------------------------
    Variant FixDigits, SciDigits, SavedFixDigits, SavedSciDigits;
    DisplayMode Mode = DisplayMode::Normal;
    int Places = -1;                // places chosen for fixed or scientific, 0 to 14; -1: none

    // ---- Memory, data, angle mode ----------------------------------------------
    double MemoryValue = 0.0;
    CalculatorFiles::RegisterArray Registers{};
    RegisterAction MemoryAction = RegisterAction::In;
    int RegisterChoice = -1;        // chosen register index, -1 for none
    std::string RegisterText;       // description given in the register window
    double RegisterWork = 0.0;      // value kept aside by the register swap
    CalculatorFiles::DataList DataValues;
    // CalcMem.mem / SdfInput.sdf could not be opened at the start: it is kept
    // as it is, never overwritten at the close.
    bool RegisterFileUnread = false, DataFileUnread = false;
    // The registers, data and M memory have been read from their files in this run.
    bool FilesLoaded = false;
    Constants::ConstantTable Constants;  // row texts and records of the constant window
    Variant ConstantChoice;         // value text chosen in the constant window
    AngleMode Angle = AngleMode::Degree;
    bool TimeShown = false;         // the clock is on the display
    bool ReadOutOn = false;         // keys and results are spoken

    // ---- Sexagesimal and fraction keys ---------------------------------------------
    double SexaAccumulator = 0.0;   // running value of the "sexa" key
    int FractionStep = 0;           // step of the decimal/fraction key (1 mixed, 2 improper)
    std::string ImproperText;       // improper form left by Fraction_Value

    // ---- What the window's labels show (their objectNames behind) ------------------
    struct Readout {
        std::string Number;                // DisplayBox: the number with its point, an error or the time
        std::string Exponent;              // ExpoBox: " 03", "-20", or blank
        std::string Date;                  // DateBox: the date line of the clock
        std::string OperatorMark;          // OperatorIndicator: "+", "-", "x", "÷", "^" or blank
        std::string ConstantMark;          // CCalc_Indicator: "K" while a constant calculation is armed
        std::string MemoryMark;            // Mem_Indicator: "MEM" while M holds a number
        std::string AngleName = "DEGREE";  // Mode_Indicator: "DEGREE", "RADIAN", "GRADIAN"
        std::string ModeName = "NORM";     // DispMode_Indicator: "NORM", "FIX", "SCI"
    };
    Readout Shown;

    // ---- Hooks to the platform (all optional) ---------------------------------------
    // Speech: receives the words to say; an empty text cuts off what is being said.
    std::function<void(const std::string&)> Speak;
    // Present date-time as a day count from 30 Dec 1899 with the time as fraction
    // (the random key reads it); the system clock when not set.
    std::function<double()> Now;
    // Clipboard text for the paste key; empty when the clipboard holds none.
    std::function<std::string()> ClipboardText;
    // Warning box: text and title.
    std::function<void(const std::string&, const std::string&)> ShowMessage;
    // Modal register window: reads MemoryAction, sets RegisterChoice and RegisterText.
    std::function<void(CalculatorState&)> ShowRegisterWindow;
    // Modal constant window: sets ConstantChoice (empty at Exit).
    std::function<void(CalculatorState&)> ShowConstantWindow;
};
