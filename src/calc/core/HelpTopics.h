// The calculator's help: seven topics kept in code, the form in which the
// voice reads a topic, and where a spoken word lies in the shown text.
#pragma once

#include <optional>
#include <string>

namespace HelpTopics {

// Indices 1 to 21 may hold a topic; 1 to 7 do, the rest give empty texts.
constexpr int kHelpIndexCount = 21;
// The last entry of the topic list, after the topics.
inline constexpr const char* kAuthorItem = "About the Author";

// Title and text of topic `index`. Lines are joined by "\r\n", paragraphs
// by two of them. Both empty outside 1 to 7.
void Fill_Help(int index, std::string& title, std::string& text);

// The text as the voice is given it: line breaks become pauses (":::") and
// the key signs are written out ("^" " TO THE POWER ", "'/'" "SLASH", "/"
// " OVER ", "'.'" " PERIOD ", "'='" " EQUAL ", "'-'" " DASH "), in that order.
std::string Spoken_Help(const std::string& text);
// What the voice says for a topic: the title, a pause, the spoken text.
std::string Spoken_Topic(const std::string& title, const std::string& text);

// Where the word the voice has reached is marked in the shown text: from the
// word's character position in Spoken_Topic (0-based) and the title's length.
// Nothing while the title and its pause are read. The marking runs ahead of
// the word further into a topic, since the spoken text is the longer one.
struct Mark {
    int Start = 0;
    int Length = 0;
};
std::optional<Mark> Word_Mark(int characterPosition, int length, int titleLength);

}  // namespace HelpTopics
