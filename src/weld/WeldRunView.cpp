#include "weld/WeldRunView.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "shell/QtText.h"

WeldFunctions::WeldRunHooks WeldRunHooksOf(WeldRunContext& ctx) {
    WeldFunctions::WeldRunHooks hooks;
    hooks.Yield = ctx.pump.AsYield();
    WeldFunctions::WeldRunState* run = &ctx.run;
    RunControl::DisplayBuffer* display = &ctx.display;
    hooks.DisplayCapacity = [run, display](double, double x, double y, double divisor, bool computed) {
        RunControl::Display_Iteration(*run, *display, x, y, divisor, computed, RunControl::Clock::now());
    };
    hooks.DisplayCoefficient = [run, display](double, double x, double y, double divisor) {
        RunControl::Display_Iteration(*run, *display, x, y, divisor, true, RunControl::Clock::now());
    };
    return hooks;
}

void WeldRunWindowGone(WeldRunContext& ctx) {
    ctx.windowGone = true;
    ctx.run.IterationStop = -1;
    ctx.pump.BeforePump = nullptr;
}

void FlushDisplay(RunControl::DisplayBuffer& d, QPlainTextEdit* box, QLabel* elapsed) {
    if (d.ReplaceAll) {
        box->setPlainText(Q(RunControl::ForWidget(d.Pending)));
    } else if (!d.Pending.empty()) {
        box->moveCursor(QTextCursor::End);
        box->insertPlainText(Q(RunControl::ForWidget(d.Pending)));
    }
    if (d.ReplaceAll || !d.Pending.empty()) box->moveCursor(QTextCursor::End);
    d.Pending.clear();
    d.ReplaceAll = false;
    if (d.ElapsedChanged) {
        elapsed->setText(Q(d.ElapsedCaption));
        d.ElapsedChanged = false;
    }
}

void ApplyRunButtons(const RunControl::Controls& c, QPushButton* start, QPushButton* stop, QPushButton* clear) {
    stop->setText(Q(c.StopCaption));
    stop->setEnabled(c.StopEnabled);
    start->setEnabled(c.StartEnabled);
    clear->setEnabled(c.ClearEnabled);
}

void SetResultBox(QLineEdit* box, const QString& text, bool red) {
    QPalette p = box->palette();
    p.setColor(QPalette::Text, red ? QColor(255, 0, 0) : QColor(0, 0, 0));
    box->setPalette(p);
    box->setText(text);
}

QPlainTextEdit* NewIterationDisplay(QWidget* parent) {
    auto* box = new QPlainTextEdit(parent);
    box->setObjectName(QStringLiteral("IterationDisplayBox"));
    box->setReadOnly(true);
    QFont mono(QStringLiteral("Monospace"));
    mono.setStyleHint(QFont::TypeWriter);
    box->setFont(mono);
    return box;
}
