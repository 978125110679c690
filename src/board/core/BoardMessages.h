// The message boxes of the board's edit commands and its line data dialog,
// as data: the window shows them with its own message box.
#pragma once

#include <string>

namespace BoardMessages {

enum class Icon { Stop, Exclamation, Critical };

struct BoardMessage {
    std::string Text;
    std::string Title;
    Icon MessageIcon = Icon::Stop;
    bool YesNo = false;  // asks a question with the buttons Yes and No
};

inline const BoardMessage kNoSelection{"No Line(s) selected !   ", "Warning:", Icon::Stop, false};
inline const BoardMessage kBoardEmpty{"Drawing Board is empty ! ", "Warning:", Icon::Exclamation, false};
inline const BoardMessage kConfirmDeleteAll{"Are you sure you really want to Delete Drawing?  ", "Warning:", Icon::Stop,
                                            true};
inline const BoardMessage kInvalidLength{"Invalid Length Input !  ", "Warning:", Icon::Critical, false};

}  // namespace BoardMessages
