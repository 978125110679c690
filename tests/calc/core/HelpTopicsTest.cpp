// The help topics, their spoken form and where a spoken word is marked.
#include <gtest/gtest.h>

#include "calc/core/HelpTopics.h"

namespace {

using namespace HelpTopics;

std::string Text(int i) {
    std::string title, text;
    Fill_Help(i, title, text);
    return title.empty() ? "" : title + ":" + text;
}

TEST(CalcHelp, SevenTopicsWithLinesJoinedByCrLfAndTheRestEmpty) {
    for (int i = 1; i <= 7; ++i) {
        const std::string t = Text(i);
        EXPECT_GT(t.size(), t.find(':') + 1) << i;  // a title and a text
        EXPECT_EQ(t.find('\n'), t.find("\r\n") + 1) << "breaks are CR LF: " << i;
    }
    for (int i : {0, 8, 15, 21, 22}) EXPECT_EQ(Text(i), "") << i;
}

TEST(CalcHelp, SpokenFormWritesOutSignsInOrder) {
    const std::pair<const char*, const char*> cases[] = {{"'x^y'  raises", "'x TO THE POWER y'  raises"},
                                                         {"a\r\nb\r\n\r\nc", "a:::b::::::c"},
                                                         {"'/'   divides.", "SLASH   divides."},
                                                         {"1/2", "1 OVER 2"},
                                                         {"the '.' key", "the  PERIOD  key"},
                                                         {"'='   works", " EQUAL    works"},
                                                         {"'-'   subtracts.", " DASH    subtracts."},
                                                         {"'+'   adds.", "'+'   adds."}};
    for (const auto& [text, spoken] : cases) EXPECT_EQ(Spoken_Help(text), spoken) << text;
    EXPECT_EQ(Spoken_Topic("Numeric keys", "Values"), "Numeric keys :::: Values");
}

TEST(CalcHelp, WordMarkSkipsTheTitleAndFollowsTheSpokenText) {
    const int n = 8;  // "Overview"
    const struct {
        int position, length;
        const char* mark;         // start+length in the pane
    } marks[] = {{0, 8, "none"},  // the title and its pause: nothing is marked
                 {n + 3, 1, "none"},
                 {n + 6, 8, "0+8"},
                 {n + 6 + 12, 2, "12+2"},
                 {n + 4, 1, "0+1"}};  // never before the start of the pane
    for (const auto& m : marks) {
        const auto mark = Word_Mark(m.position, m.length, n);
        EXPECT_EQ(mark ? std::to_string(mark->Start) + "+" + std::to_string(mark->Length) : "none", m.mark);
    }
}

}  // namespace
