#include <gtest/gtest.h>

#include <vector>

#include "calc/core/HelpTopics.h"

using namespace HelpTopics;

namespace {

std::string Title(int i) {
    std::string t, x;
    Fill_Help(i, t, x);
    return t;
}
std::string Text(int i) {
    std::string t, x;
    Fill_Help(i, t, x);
    return x;
}

}  // namespace

TEST(CalcHelp, SevenTopicsInOrderAndTheRestEmpty) {
    const std::vector<std::string> titles = {
        "Overview",     "Calculator Capabilities",  "Mode Settings", "Display Modes", "Angle Specification Modes",
        "Numeric keys", "Arithmetic Operation keys"};
    for (int i = 1; i <= 7; ++i) {
        EXPECT_EQ(Title(i), titles[size_t(i - 1)]) << i;
        EXPECT_FALSE(Text(i).empty()) << i;
        EXPECT_EQ(Text(i).find('\n'), Text(i).find("\r\n") + 1) << "breaks are CR LF: " << i;
    }
    for (int i : {0, 8, 15, 21, 22}) {
        EXPECT_EQ(Title(i), "") << i;
        EXPECT_EQ(Text(i), "") << i;
    }
}

TEST(CalcHelp, PriorityTopicListsTheOrderTheEngineKeeps) {
    // Priority sequence, in order.
    const std::string t = Text(2);
    size_t at = 0;
    for (const char* step : {"functions", "polar to rectangular", "exponential", "multiplication", "division",
                             "addition", "subtraction"}) {
        size_t p = t.find(step, at);
        ASSERT_NE(p, std::string::npos) << step;
        at = p;
    }
}

TEST(CalcHelp, SpokenFormWritesOutSignsInOrder) {
    struct Case {
        const char* text;
        const char* spoken;
    };
    const Case cases[] = {
        {"'x^y'  raises", "'x TO THE POWER y'  raises"},
        {"a\r\nb\r\n\r\nc", "a:::b::::::c"},
        {"'/'   divides.", "SLASH   divides."},
        {"1/2", "1 OVER 2"},
        {"the '.' key", "the  PERIOD  key"},
        {"'='   works", " EQUAL    works"},
        {"'-'   subtracts.", " DASH    subtracts."},
        {"'+'   adds.", "'+'   adds."},
    };
    for (const Case& c : cases) EXPECT_EQ(Spoken_Help(c.text), c.spoken) << c.text;
    EXPECT_EQ(Spoken_Topic("Numeric keys", "Values"), "Numeric keys :::: Values");
}

TEST(CalcHelp, WordMarkSkipsTheTitleAndFollowsTheSpokenText) {
    const std::string title = "Overview";
    const int n = int(title.size());
    // Title word and the colons: nothing is marked.
    EXPECT_FALSE(Word_Mark(0, 8, n));
    EXPECT_FALSE(Word_Mark(n + 3, 1, n));
    // First word of the text sits at the start of the pane.
    auto m = Word_Mark(n + 6, 8, n);
    ASSERT_TRUE(m);
    EXPECT_EQ(m->Start, 0);
    EXPECT_EQ(m->Length, 8);
    m = Word_Mark(n + 6 + 12, 2, n);
    ASSERT_TRUE(m);
    EXPECT_EQ(m->Start, 12);
    // Never before the start of the pane.
    m = Word_Mark(n + 4, 1, n);
    ASSERT_TRUE(m);
    EXPECT_EQ(m->Start, 0);
}
