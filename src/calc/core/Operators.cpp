// Operator priority evaluation: the pending-operator chain of + - * / and
// power and root, the undo table that lets a higher operator take back the
// last step of a lower one, and the constant (K) calculation.
#include <cmath>

#include "calc/core/Functions.h"
#include "calc/core/EngineInternal.h"

namespace Calculator {

using namespace detail;
using namespace prim;

void Operator_Step(CalculatorState& s) {
    std::string k = LCase(Trim(s.KeyToken));
    if (k == "+" || k == "-" || k == "/" || k == "*" || k == "expt" || k == "invexpt") {
        if (!s.EntryText.empty()) Finish_Polar(s);
        if (!s.EntryText.empty()) Finish_Rect(s);
        if (s.ErrorLock) return;
        Press_Operator(s);
    } else if (k == "=") {
        Finish_Polar(s);
        Finish_Rect(s);
        if (s.ErrorLock) return;
        Press_Equal(s);
    } else {
        s.ConversionArmed = false;
        return;
    }
    if (!s.PolarPending && !s.RectPending) s.SecondValue = s.RunningTotal;
    // A finished conversion has handed its x on as the operand; the next
    // conversion starts from its own radius or x.
    if (s.PolarPending) s.PolarRadius = Variant();
    if (s.RectPending) s.RectX = Variant();
    s.PolarPending = false;
    s.RectPending = false;
    s.ConversionArmed = false;
}

void Press_Operator(CalculatorState& s) {
    std::string& e = s.EntryText;
    if (e.empty()) e.swap(s.CarryText);  // the carried operand, leaving CarryText empty
    if (!e.empty()) {
        s.Operands.push_back(Val(e));
        s.RepeatOps.clear();
    }
    if (s.RepeatOps.empty()) s.RepeatOps.push_back(s.KeyToken);
    if (s.PendingOp != s.KeyToken || !e.empty())
        s.RepeatOps.assign(1, s.KeyToken);
    else
        s.RepeatOps.push_back(s.KeyToken);
    if (s.RepeatOps.size() % 2 == 0) {
        s.KValue = Variant(X(s));
        s.KOperator = s.RepeatOps.front();
        s.Shown.ConstantMark.assign(1, 'K');
    } else {
        s.KValue = Variant();
        s.KOperator.clear();
        s.Shown.ConstantMark.clear();
    }
    Evaluate_Pending(s);
    if (!s.PriorOp.empty()) s.OldestOp = s.PriorOp;
    if (!s.PendingOp.empty() && !e.empty()) s.PriorOp = s.PendingOp;
    if (!s.KeyToken.empty()) s.PendingOp = s.KeyToken;
    e.clear();
}

void Press_Equal(CalculatorState& s) {
    std::string& e = s.EntryText;
    if (e.empty()) e.swap(s.CarryText);  // the carried operand, leaving CarryText empty
    // An armed constant applies again at every "=".
    if (e.empty() && !Empty(s.KValue) && !s.KOperator.empty()) e = Text(s.RunningTotal);
    if (!e.empty()) s.Operands.push_back(Val(e));
    Evaluate_Pending(s);
    s.PendingOp.clear();
    s.PriorOp.clear();
    s.OldestOp.clear();
    s.Operands.clear();
    if (!Empty(s.RunningTotal) && s.RunningTotal.IsNumber()) s.Operands.push_back(s.RunningTotal.number);
    e.clear();
}

namespace {

void SetError(CalculatorState& s, const char* word) {
    s.RunningTotal = Variant("Error");
    s.ErrorWord = Variant(word);
}

void Add(CalculatorState& s, double sign) {
    Reduce_Operands(s);
    s.RunningTotal = Variant(Num(s.RunningTotal) + sign * s.Operand0);
}

void Multiply(CalculatorState& s) {
    Reduce_Operands(s);
    double t = Num(s.RunningTotal), x0 = s.Operand0, x1 = s.Operand1;
    Guard g;
    double r;
    if (s.PriorOp == "+")
        r = g(g(t - x1) + g(x1 * x0));
    else if (s.PriorOp == "-")
        r = g(g(t + x1) - g(x1 * x0));
    else
        r = g(t * x0);
    if (g.bad)
        SetError(s, "Infinity");
    else
        s.RunningTotal = Variant(r);
}

void Divide(CalculatorState& s) {
    Reduce_Operands(s);
    double t = Num(s.RunningTotal), x0 = s.Operand0, x1 = s.Operand1;
    if (x0 == 0) {
        SetError(s, "Divide by Zero");
        return;
    }
    double r;
    if (s.PriorOp == "+")
        r = (t - x1) + x1 / x0;
    else if (s.PriorOp == "-")
        r = (t + x1) - x1 / x0;
    else
        r = t / x0;
    if (!std::isfinite(r))
        SetError(s, "Infinity");
    else
        s.RunningTotal = Variant(r);
}

// Power and root share the undo table; `root` puts 1 / x0 where the exponent
// stands. The two plain-chain rows of the root are not mirrors of the power
// rows; they are kept the way the key has always worked.
void PowerOrRoot(CalculatorState& s, bool root) {
    Reduce_Operands(s);
    double t = Num(s.RunningTotal), x0 = s.Operand0, x1 = s.Operand1, x2 = s.Operand2;
    if (x0 == 0 && t == 0) {
        SetError(s, "Divide by Zero");  // 0 to the 0
        return;
    }
    Guard g;
    bool invalid = false;
    auto P = [&](double a, double b) {
        double r = 0;
        if (!std::isfinite(a) || !std::isfinite(b) || !Functions::Safe_Power(a, b, r)) invalid = true;
        return r;
    };
    double ex = root ? g(1 / x0) : x0;  // the exponent where x0 stands
    const std::string& prior = s.PriorOp;
    const std::string& oldest = s.OldestOp;
    bool oldestPlain = oldest.empty() || oldest == "/" || oldest == "*";
    bool oldestPow = oldest == "expt" || oldest == "invexpt";
    double r = t;
    if (prior == "+") {
        r = g(g(t - x1) + P(x1, ex));
    } else if (prior == "-") {
        r = g(g(t + x1) - P(x1, ex));
    } else if (prior == "*" && oldest == "+") {
        double a = g(t - g(x1 * x2));
        r = g(a + g(x2 * P(x1, ex)));
    } else if (prior == "*" && oldest == "-") {
        double a = g(t + g(x1 * x2));
        r = g(a - g(x2 * P(x1, ex)));
    } else if (prior == "*" && oldestPlain) {
        r = root ? g(t * P(x1, g(1 - g(1 / x0)))) : g(t * P(x1, x0 - 1));
    } else if (prior == "*" && oldestPow) {
        double inner = oldest == "expt" ? x2 : g(1 / x2);
        double a = g(std::exp(g(g(std::log(g(t / x1))) / inner)));
        if (!(t / x1 > 0)) g.bad = true;
        r = g(P(a, inner) * P(x1, ex));
    } else if (prior == "/" && oldest == "+") {
        double a = g(t - g(x2 / x1));
        r = g(a + g(x2 / P(x1, ex)));
    } else if (prior == "/" && oldest == "-") {
        double a = g(t + g(x2 / x1));
        r = g(a - g(x2 / P(x1, ex)));
    } else if (prior == "/" && oldestPlain) {
        r = root ? g(t * P(x1, 1 - (1 - x0))) : g(t * P(x1, 1 - x0));
    } else if (prior == "/" && oldestPow) {
        double inner = oldest == "expt" ? x2 : g(1 / x2);
        double a = g(std::exp(g(g(std::log(g(t * x1))) / inner)));
        if (!(t * x1 > 0)) g.bad = true;
        r = g(P(a, inner) / P(x1, ex));
    } else if (prior.empty() || prior == "expt" || prior == "invexpt") {
        // A power of a power is worked left to right.
        r = P(t, ex);
    }
    if (invalid || g.bad) {
        SetError(s, "Invalid Power");
        return;
    }
    s.RunningTotal = Variant(r);
}

}  // namespace

void Evaluate_Pending(CalculatorState& s) {
    const std::string& p = s.PendingOp;
    if (s.KOperator.empty() && !s.EntryText.empty() && p == "+")
        Add(s, 1);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "-")
        Add(s, -1);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "/")
        Divide(s);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "*")
        Multiply(s);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "expt")
        PowerOrRoot(s, false);
    else if (s.KOperator.empty() && !s.EntryText.empty() && p == "invexpt")
        PowerOrRoot(s, true);
    else
        Apply_Constant(s);

    if (IsErrorText(s.RunningTotal)) {
        Show_Error(s);
        return;
    }
    double t = Num(s.RunningTotal);
    if (!std::isfinite(t)) {
        s.ErrorWord = Variant("Infinity");
        s.RunningTotal = Variant("Error");
        Show_Error(s);
        return;
    }
    int e = TextExponent(t);
    if (t != 0 && e > 99) {
        s.ErrorWord = Variant("Infinity");
        Show_Error(s);
        return;
    }
    if (e < -99) s.RunningTotal = Variant(0.0);
    // Only "=" or a repeat of the same operator shows the total: after
    // "2", "*", "3", "+" the display keeps 3 although the total is 6.
    if (s.KeyToken == "=" || s.PendingOp == s.KeyToken) Show_Value(s, s.RunningTotal, "");
}

void Reduce_Operands(CalculatorState& s) {
    std::vector<double> w(s.Operands.rbegin(), s.Operands.rend());
    auto at = [&](size_t i) { return i < w.size() ? w[i] : 0.0; };
    const std::string &p = s.PendingOp, &q = s.PriorOp;
    bool reduce = true;
    double c = 0;
    auto keep = [&](double v) {
        if (std::isfinite(v)) c = v;  // a failing statement leaves its target as it was
    };
    if ((p == "*" && q == "*") || (p == "/" && q == "*")) {
        keep(at(2) * at(1));
    } else if ((p == "/" && q == "/") || (p == "*" && q == "/")) {
        if (at(1) != 0) keep(at(2) / at(1));
    } else if ((p == "expt" && q == "expt") || (p == "invexpt" && q == "expt")) {
        double r = 0;
        if (Functions::Safe_Power(at(2), at(1), r)) keep(r);
    } else if ((p == "invexpt" && q == "invexpt") || (p == "expt" && q == "invexpt")) {
        double r = 0;
        if (at(1) != 0 && Functions::Safe_Power(at(2), 1 / at(1), r)) keep(r);
    } else {
        reduce = false;
    }
    if (reduce) {
        s.Operands = {at(3), c, at(0)};
        s.PriorOp = s.OldestOp;
    }
    w.assign(s.Operands.rbegin(), s.Operands.rend());
    if (w.size() > 2) s.Operand2 = w[2];
    if (w.size() > 1) s.Operand1 = w[1];
    if (w.size() > 0) s.Operand0 = w[0];
}

void Apply_Constant(CalculatorState& s) {
    double t = !s.EntryText.empty() ? Val(s.EntryText) : X(s);
    s.RunningTotal = Variant(t);
    if (Empty(s.KValue) || s.KOperator.empty() || s.KeyToken != "=") return;
    double k = Num(s.KValue);
    const std::string& op = s.KOperator;
    double r = t;
    bool error = false;
    if (op == "expt") {
        if (k == 0 && t == 0) error = true;
        else if (!Functions::Safe_Power(t, k, r)) {
            SetError(s, "Invalid Power");
            return;
        }
    } else if (op == "invexpt") {
        if (k == 0) error = true;
        else if (!Functions::Safe_Power(t, 1 / k, r)) {
            SetError(s, "Invalid Power");
            return;
        }
    } else if (op == "/") {
        if (k == 0) error = true;
        else r = t / k;
    } else if (op == "*") {
        r = t * k;
    } else if (op == "+") {
        r = t + k;
    } else if (op == "-") {
        r = t - k;
    }
    if (error) {
        SetError(s, "Divide by Zero");
        return;
    }
    s.RunningTotal = Variant(r);
}

}  // namespace Calculator
