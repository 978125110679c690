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
    QStringList words;
    QObject::connect(&voice, &Voice::Word, [&](int pos, int len) { words << voice.Speaking().mid(pos, len); });
    QSignalSpy finished(&voice, &Voice::Finished);
    s.Speak = [&](const std::string& w) { voice.Speak(Q(w)); };
    int done = 0;
    for (const char* key : {"1", "2", "*", "3", "=", "pm", "sqrt"}) {
        const qsizetype before = words.size();
        ASSERT_TRUE(Calculator::Press_Key(s, key)) << key;
        ASSERT_TRUE(WaitFinished(finished, ++done)) << key;
        EXPECT_GT(finished.last().at(0).toLongLong(), 1000) << "sound made for " << key;
        EXPECT_GT(words.size(), before) << key;
    }
    // The root of -36 is an error: it is said, and the key's own word is not.
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

TEST_F(HelpWindowTest, SpokenWordsAreMarkedInThePaneAndClosingCutsOffAll) {
    if (!MemoryVoice()) GTEST_SKIP() << "no speech engine";
    s_.ReadOutOn = true;
    Voice* voice = frm_->HelpVoice();
    const QString spoken = Topic(6);
    const int textStart = int(QString("Numeric keys").size()) + 6;  // after the title and its pause
    // The first 70 characters of the topic hold no sign: voice and pane agree
    // on them. The window marks each word before this test looks.
    int titleWords = 0;
    QStringList marked, said;
    QObject::connect(voice, &Voice::Word, frm_.get(), [&](int pos, int len) {
        if (pos < textStart) {
            ++titleWords;
            EXPECT_FALSE(pane_->textCursor().hasSelection());
        } else if (pos - textStart + len <= 70) {
            marked << pane_->textCursor().selectedText();
            said << spoken.mid(pos, len);
        }
    });
    QSignalSpy finished(voice, &Voice::Finished);
    ClickTopic(5);
    EXPECT_EQ(voice->Speaking(), spoken);
    ASSERT_TRUE(WaitFinished(finished, 1));
    EXPECT_GE(titleWords, 2);  // "Numeric keys"
    EXPECT_GE(said.size(), 8);
    EXPECT_EQ(marked, said);

    // Another topic is spoken over the last (cutting off is the voice's own
    // test above) and closing cuts off all.
    ClickTopic(1);
    ClickTopic(4);
    EXPECT_EQ(frm_->HelpVoice()->Speaking(), Topic(5));
    EXPECT_TRUE(pane_->toPlainText().startsWith("Angles are taken"));
    frm_->close();
    EXPECT_EQ(frm_->HelpVoice()->Speaking(), "");
}

}  // namespace
