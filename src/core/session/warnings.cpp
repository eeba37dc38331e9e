#include "session/session.h"

namespace halvo {

int MsgBox(Session& s, const std::string& text, int buttons, const std::string& title) {
    if (!s.ui) return DefaultAnswer(buttons);
    return s.ui->ask(Message{title, text, buttons});
}

// The arithmetic is kept as the program has always done it: 0 becomes OK+Cancel, every other set gets
// bit 0 (so 48 becomes 49, and YesNo+Question becomes RetryCancel+Question); only a plain YesNo
// stays, with a two-blank suffix so that it cannot silence anything. With warnings off nothing is
// shown and `buttons` keeps that adjusted value, which callers test as the answer.
void WarningBox(Session& s, const std::string& text, const std::string& title, int& buttons, std::string& suffix) {
    const bool plainYesNo = buttons == mb::YesNo;
    buttons = buttons == 0 ? 1 : (buttons | 1);
    if (suffix.empty())
        suffix = " (press Cancel to silence this message)";
    else if (suffix.front() != ' ')
        suffix = " " + suffix;
    if (plainYesNo) {
        buttons = mb::YesNo;
        suffix = "  ";
    }
    if (!s.WarningsFlag) return;
    buttons = MsgBox(s, text + suffix, buttons, title);
    if (buttons == mb::Cancel) SetWarningsFlag(s, false);
}

int WarningBox(Session& s, const std::string& text, const std::string& title, int buttons) {
    std::string suffix;
    WarningBox(s, text, title, buttons, suffix);
    return buttons;
}

void SetWarningsFlag(Session& s, bool value) {
    s.WarningsFlag = value;
    s.lists.Label19 = value ? "Warnings shown" : "Warnings not shown";
    s.lists.Label19Marked = !value;
    if (!value) s.WarningsAsked = false;
}

void Label19_Click(Session& s) { SetWarningsFlag(s, !s.WarningsFlag); }

void MarkSaved(Session& s, bool saved) {
    s.UnsavedMark = saved ? "" : " - Unsaved";
    s.MainTitle = s.MainTitleBase + " - " + s.BatchName + s.UnsavedMark;
}

}  // namespace halvo
