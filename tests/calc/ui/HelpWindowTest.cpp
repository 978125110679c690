// The voice and the help window. Speech is checked by synthesising into
// memory: no sound device is needed, and the word events arrive from the
// engine's thread as they would when speaking.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

#include "calc/core/CalculatorEngine.h"
#include "calc/core/HelpTopics.h"
#include "calc/ui/HelpWindow.h"
#include "calc/ui/Voice.h"
#include "shell/ui/QtText.h"
#include "support/GuiTestSupport.h"

namespace {

bool MemoryVoice() {
    Voice::SetOutput(Voice::Output::Memory);
    return Voice::Available();
}

// Waits for the voice to have said `count` texts to their end.
bool WaitFinished(QSignalSpy& finished, int count) {
    QElapsedTimer t;
    t.start();
    while (finished.count() < count && t.elapsed() < 20000) QTest::qWait(10);
    return finished.count() >= count;
}

QString Topic(int index) {
    std::string title, text;
    HelpTopics::Fill_Help(index, title, text);
    return Q(HelpTopics::Spoken_Topic(title, text));
}

TEST(CalcVoice, KeysAreSpokenWordByWord) {
    if (!MemoryVoice()) GTEST_SKIP() << "no speech engine";
    Voice voice;
    CalculatorState s;
    Calculator::Initial_Routine(s);
    s.ReadOutOn = true;
    QStringList said, words;
    QObject::connect(&voice, &Voice::Word, [&](int pos, int len) { words << voice.Speaking().mid(pos, len); });
    QSignalSpy finished(&voice, &Voice::Finished);
    s.Speak = [&](const std::string& w) {
        said << Q(w);
        voice.Speak(Q(w));
    };
    int done = 0;
    for (const char* key : {"1", "2", "*", "3", "=", "pm", "sqrt"}) {
        const qsizetype before = words.size();
        ASSERT_TRUE(Calculator::Press_Key(s, key)) << key;
        ASSERT_TRUE(WaitFinished(finished, ++done)) << key;
        EXPECT_GT(finished.last().at(0).toLongLong(), 1000) << "sound made for " << key;
        EXPECT_GT(words.size(), before) << key;
    }
    // The root of -36 is an error: it is said, and the key's own word is not.
    EXPECT_EQ(said, (QStringList{"1", "2", "times", "3", "= 36", "negative", "Error :::: Undefined"}));
    EXPECT_TRUE(words.contains("times") && words.contains("36"));
    EXPECT_EQ(words.mid(words.size() - 2), (QStringList{"Error", "Undefined"}));
}

TEST(CalcVoice, NewSpeechCutsOffTheOldAndEmptyTextStops) {
    if (!MemoryVoice()) GTEST_SKIP() << "no speech engine";
    Voice voice;
    QSignalSpy finished(&voice, &Voice::Finished);
    QSignalSpy words(&voice, &Voice::Word);
    voice.Speak("one two three four five six seven eight nine ten eleven twelve thirteen fourteen");
    voice.Speak("short");
    ASSERT_TRUE(WaitFinished(finished, 1));
    QTest::qWait(100);
    EXPECT_EQ(finished.count(), 1);
    ASSERT_EQ(words.count(), 1);
    EXPECT_EQ(words.first(), (QList<QVariant>{0, 5}));
    voice.Speak("this is cut off at once");
    voice.Speak("");
    EXPECT_EQ(voice.Speaking(), "");
    QTest::qWait(300);
    EXPECT_EQ(finished.count(), 1);
}

class HelpWindowTest : public testing::Test {
protected:
    void SetUp() override {
        MemoryVoice();  // before the window makes its voice
        frm_ = std::make_unique<HelpWindow>(s_);
        frm_->show();
        menu_ = frm_->findChild<QListWidget*>("MenuBox");
        pane_ = frm_->findChild<QTextEdit*>("HBox");
    }
    void ClickTopic(int row) {
        QTest::mouseClick(menu_->viewport(), Qt::LeftButton, {}, menu_->visualItemRect(menu_->item(row)).center());
    }

    guitest::ModalWatchdog boxes_;
    CalculatorState s_;
    std::unique_ptr<HelpWindow> frm_;
    QListWidget* menu_ = nullptr;
    QTextEdit* pane_ = nullptr;
};

TEST_F(HelpWindowTest, ListsTheTopicsAndShowsTheChosenTextSilentlyWithReadOutOff) {
    QStringList items;
    for (int i = 0; i < menu_->count(); ++i) items << menu_->item(i)->text();
    EXPECT_EQ(items, (QStringList{"Overview", "Calculator Capabilities", "Mode Settings", "Display Modes",
                                  "Angle Specification Modes", "Numeric keys", "Arithmetic Operation keys",
                                  "About the Author"}));
    ClickTopic(5);
    EXPECT_TRUE(pane_->toPlainText().contains("Any numeric key pressed after the 15th digit is ignored."));
    EXPECT_FALSE(pane_->toPlainText().contains('\r'));
    EXPECT_EQ(pane_->textCursor().position(), 0);
    EXPECT_EQ(frm_->HelpVoice()->Speaking(), "");
    auto* author = frm_->findChild<QLabel*>("DemImage");
    EXPECT_FALSE(author->isVisible());
    ClickTopic(7);
    EXPECT_TRUE(author->isVisible());
    EXPECT_FALSE(pane_->isVisible());
    QTest::keyClick(menu_, Qt::Key_Up);  // the keyboard goes back to the last topic
    EXPECT_TRUE(pane_->isVisible());
    EXPECT_TRUE(pane_->toPlainText().contains("'x^y'"));
    QTest::mouseClick(frm_->findChild<QPushButton*>("ExitButton"), Qt::LeftButton);
    EXPECT_FALSE(frm_->isVisible());
}

TEST_F(HelpWindowTest, SpokenWordsAreMarkedInThePane) {
    if (!MemoryVoice()) GTEST_SKIP() << "no speech engine";
    s_.ReadOutOn = true;
    Voice* voice = frm_->HelpVoice();
    std::string title, text;
    HelpTopics::Fill_Help(6, title, text);
    const QString spoken = Topic(6);
    // Up to the first sign the voice is given in words, pane and voice agree.
    const QString shown = Q(text), words = spoken.mid(int(title.size()) + 6);
    int same = 0;
    while (same < shown.size() && shown[same] == words[same]) ++same;
    // After the window marks a word, compare the mark with the spoken word.
    int checked = 0, titleWords = 0;
    QStringList mismatches;
    QObject::connect(voice, &Voice::Word, frm_.get(), [&](int pos, int len) {
        const int inText = pos - int(title.size()) - 6;
        if (inText < 0) {
            ++titleWords;
            EXPECT_FALSE(pane_->textCursor().hasSelection());
        } else if (inText + len <= same) {
            ++checked;
            if (pane_->textCursor().selectedText() != spoken.mid(pos, len))
                mismatches << pane_->textCursor().selectedText() + " / " + spoken.mid(pos, len);
        }
    });
    QSignalSpy finished(voice, &Voice::Finished);
    ClickTopic(5);
    EXPECT_EQ(voice->Speaking(), spoken);
    ASSERT_TRUE(WaitFinished(finished, 1));
    EXPECT_GE(titleWords, 2);  // "Numeric keys"
    EXPECT_GE(checked, 8);
    EXPECT_TRUE(mismatches.isEmpty()) << mismatches.join(", ").toStdString();
}

TEST_F(HelpWindowTest, AnotherTopicCutsOffTheLastAndClosingCutsOffAll) {
    if (!MemoryVoice()) GTEST_SKIP() << "no speech engine";
    s_.ReadOutOn = true;
    Voice* voice = frm_->HelpVoice();
    QSignalSpy finished(voice, &Voice::Finished);
    QSignalSpy words(voice, &Voice::Word);
    ClickTopic(1);
    ASSERT_TRUE(words.wait(10000));
    ClickTopic(4);
    EXPECT_EQ(voice->Speaking(), Topic(5));
    ASSERT_TRUE(WaitFinished(finished, 1));
    QTest::qWait(100);
    EXPECT_EQ(finished.count(), 1);  // the first topic was cut off
    EXPECT_TRUE(pane_->toPlainText().startsWith("Angles are taken"));
    ClickTopic(2);
    EXPECT_FALSE(voice->Speaking().isEmpty());
    frm_->close();
    EXPECT_EQ(voice->Speaking(), "");
}

}  // namespace
