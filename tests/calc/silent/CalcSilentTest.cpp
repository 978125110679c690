// Without a speech engine the calculator and its help work as usual and say
// nothing. A process of its own, since the engine is chosen once a process.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

#include "calc/core/CalculatorEngine.h"
#include "calc/ui/HelpWindow.h"
#include "calc/ui/Voice.h"
#include "shell/ui/QtText.h"
#include "support/GuiTestSupport.h"

TEST(CalcSilent, NoEngineMeansNoSpeechAndNoMarking) {
    Voice::SetOutput(Voice::Output::None);
    guitest::ModalWatchdog boxes;
    EXPECT_FALSE(Voice::Available());
    CalculatorState s;
    Calculator::Initial_Routine(s);
    s.ReadOutOn = true;
    Voice voice;
    QSignalSpy words(&voice, &Voice::Word);
    int said = 0;
    s.Speak = [&](const std::string& w) {
        ++said;
        voice.Speak(Q(w));
    };
    for (const char* k : {"7", "*", "6", "="}) Calculator::Press_Key(s, k);
    EXPECT_EQ(s.Shown.Number, "42.");
    EXPECT_EQ(said, 4);               // the calculator asked ...
    EXPECT_EQ(voice.Speaking(), "");  // ... and nothing was said

    HelpWindow help(s);
    help.show();
    auto* menu = help.findChild<QListWidget*>("MenuBox");
    QTest::mouseClick(menu->viewport(), Qt::LeftButton, {}, menu->visualItemRect(menu->item(1)).center());
    auto* pane = help.findChild<QTextEdit*>("HBox");
    EXPECT_TRUE(pane->toPlainText().startsWith("Abacorne offers:"));
    QTest::qWait(200);
    EXPECT_EQ(words.count(), 0);
    EXPECT_FALSE(pane->textCursor().hasSelection());
    EXPECT_TRUE(boxes.Seen().isEmpty());
}
