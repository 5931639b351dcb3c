#include "text/input/key_press.h"

#include "config/menu_picks.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/leave_reasons.h"
#include "frame/protocol/send.h"
#include "frame/window/text_window.h"
#include "platform/display/keys.h"
#include "requesters/file_reports.h"
#include "text/edit/block_marking.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/line_operations.h"
#include "text/edit/viewport.h"
#include "text/input/bound_keys.h"
#include "text/record/text_record.h"

namespace {

// Size of the buffer that a key's characters are converted into.
constexpr int KeyTextSize = 254;
constexpr int32_t LastEditBookmark = 12;

bool ShiftHeld(uint16_t qualifier)
{
    return (qualifier & IEQUALIFIER_SHIFT) != 0;
}

bool CtrlHeld(uint16_t qualifier)
{
    return (qualifier & IEQUALIFIER_CONTROL) != 0;
}

bool AltHeld(uint16_t qualifier)
{
    return (qualifier & IEQUALIFIER_ALT) != 0;
}

bool IsFunctionKey(uint16_t code)
{
    return (code >= RAWKEY_F1 && code <= RAWKEY_F10) || code == RAWKEY_F11 || code == RAWKEY_F12;
}

// One row of a key table. `Marked` rows mark while Ctrl is held: the block
// starts at the cursor before the move and its end follows the cursor.
struct KeyAction {
    uint16_t Code;
    void (*Run)(TextRecord* record, uint16_t qualifier);
    bool Marked;
};

void ToFirstLine(TextRecord* record)
{
    SetCursor(record, ColumnIndex{record->CursorColumn}, LineIndex{0});
}

void ToLastLine(TextRecord* record)
{
    SetCursor(record, ColumnIndex{record->CursorColumn}, LineIndex{record->LineCount - 1});
}

void ToBottomRow(TextRecord* record)
{
    SetCursorOnRow(record, 0, record->VisibleRows - 1);
}

void ToLastEdit(TextRecord* record)
{
    Bookmark lastEdit;
    lastEdit.Owner = record;
    lastEdit.Line = record->LastEditLine;
    lastEdit.Column = record->LastEditColumn;
    GotoPosition(record, &lastEdit);
}

const KeyAction AltKeys[] = {
    {RAWKEY_BACKSPACE, [](TextRecord* r, uint16_t) { DeleteWordBack(r); }, false},
    {RAWKEY_TAB, [](TextRecord* r, uint16_t) { TabBack(r, false); }, false},
    {RAWKEY_DEL, [](TextRecord* r, uint16_t) { RecallKilledLine(r); }, false},
    {RAWKEY_PAGEUP,
        [](TextRecord* r, uint16_t) {
            ScrollPage(r, -1);
            ToFirstLine(r);
        },
        true},
    {RAWKEY_PAGEDOWN, [](TextRecord* r, uint16_t) { ToLastLine(r); }, true},
    {RAWKEY_END, [](TextRecord* r, uint16_t) { ToLastLine(r); }, true},
    {RAWKEY_CRSRUP,
        [](TextRecord* r, uint16_t q) {
            if (ShiftHeld(q))
                SetCursorOnRow(r, 0, 0);
            else
                ScrollLineUp(r);
        },
        false},
    {RAWKEY_CRSRDOWN,
        [](TextRecord* r, uint16_t q) {
            if (CtrlHeld(q))
                ToLastLine(r);
            else if (ShiftHeld(q))
                ToBottomRow(r);
            else
                ScrollLineDown(r);
        },
        false},
    {RAWKEY_CRSRRIGHT,
        [](TextRecord* r, uint16_t q) {
            if (ShiftHeld(q)) {
                r->CursorColumn = r->EditLength < r->MaxLineLength ? r->EditLength : r->MaxLineLength - 1;
                FollowCursor(r, false);
            } else {
                CursorWordRight(r);
            }
        },
        true},
    {RAWKEY_CRSRLEFT,
        [](TextRecord* r, uint16_t q) {
            if (ShiftHeld(q))
                CursorFirstNonBlank(r);
            else
                CursorWordLeft(r);
        },
        true},
    {RAWKEY_HOME, [](TextRecord* r, uint16_t) { SetCursor(r, ColumnIndex{0}, LineIndex{0}); }, true},
};

const KeyAction ShiftKeys[] = {
    {RAWKEY_BACKSPACE, [](TextRecord* r, uint16_t) { DeleteToLineStart(r); }, false},
    {RAWKEY_TAB, [](TextRecord* r, uint16_t) { TabBack(r, true); }, false},
    {RAWKEY_ENTER, [](TextRecord* r, uint16_t) { SplitLine(r, true); }, false},
    {RAWKEY_RETURN, [](TextRecord* r, uint16_t) { SplitLine(r, true); }, false},
    {RAWKEY_ESC, [](TextRecord* r, uint16_t) { ToLastEdit(r); }, false},
    {RAWKEY_DEL, [](TextRecord* r, uint16_t) { DeleteToLineEnd(r); }, false},
    {RAWKEY_PAGEUP, [](TextRecord* r, uint16_t) { ScrollPage(r, -1); }, false},
    {RAWKEY_PAGEDOWN, [](TextRecord* r, uint16_t) { ScrollPage(r, 1); }, false},
    {RAWKEY_CRSRUP, [](TextRecord* r, uint16_t) { ScrollPage(r, -1); }, true},
    {RAWKEY_CRSRDOWN, [](TextRecord* r, uint16_t) { ScrollPage(r, 1); }, true},
    {RAWKEY_CRSRRIGHT, [](TextRecord* r, uint16_t) { CursorLineEnd(r); }, true},
    {RAWKEY_CRSRLEFT, [](TextRecord* r, uint16_t) { CursorLineStart(r); }, true},
    {RAWKEY_HELP, [](TextRecord* r, uint16_t) { GotoBlockEnd(r, false); }, false},
    {RAWKEY_HOME, [](TextRecord* r, uint16_t) { SetCursorOnRow(r, 0, 0); }, true},
    {RAWKEY_END, [](TextRecord* r, uint16_t) { ToBottomRow(r); }, true},
};

const KeyAction CtrlKeys[] = {
    {RAWKEY_TAB, [](TextRecord* r, uint16_t) { TabForward(r, false); }, false},
    {RAWKEY_ESC, [](TextRecord* r, uint16_t) { SendToMainWait(r, CMD_GOTO_BOOKMARK, LastEditBookmark); }, false},
    {RAWKEY_DEL, [](TextRecord* r, uint16_t) { KillLine(r); }, false},
    {RAWKEY_PAGEUP, [](TextRecord* r, uint16_t) { ScrollPage(r, -1); }, true},
    {RAWKEY_PAGEDOWN, [](TextRecord* r, uint16_t) { ScrollPage(r, 1); }, true},
    {RAWKEY_CRSRUP, [](TextRecord* r, uint16_t) { CursorUp(r); }, true},
    {RAWKEY_CRSRDOWN, [](TextRecord* r, uint16_t) { CursorDown(r); }, true},
    {RAWKEY_CRSRLEFT, [](TextRecord* r, uint16_t) { CursorLeft(r); }, true},
    {RAWKEY_CRSRRIGHT, [](TextRecord* r, uint16_t) { CursorRight(r); }, true},
    {RAWKEY_HELP, [](TextRecord* r, uint16_t) { GotoBlockEnd(r, true); }, false},
    {RAWKEY_HOME, [](TextRecord* r, uint16_t) { SetCursor(r, ColumnIndex{0}, LineIndex{r->CursorLine}); }, true},
    {RAWKEY_END, [](TextRecord* r, uint16_t) { CursorLineEnd(r); }, true},
};

// Help without qualifiers looks a word up in the help document, which
// this program doesn't have: the key is taken and does nothing.
const KeyAction PlainKeys[] = {
    {RAWKEY_BACKSPACE, [](TextRecord* r, uint16_t) { DeleteBack(r); }, false},
    {RAWKEY_TAB, [](TextRecord* r, uint16_t) { TabForward(r, true); }, false},
    {RAWKEY_ENTER, [](TextRecord* r, uint16_t) { SplitLine(r, false); }, false},
    {RAWKEY_RETURN, [](TextRecord* r, uint16_t) { InsertLineAfter(r); }, false},
    {RAWKEY_ESC, [](TextRecord* r, uint16_t) { UnmarkBlock(r); }, false},
    {RAWKEY_DEL, [](TextRecord* r, uint16_t) { DeleteChar(r); }, false},
    {RAWKEY_PAGEUP, [](TextRecord* r, uint16_t) { ScrollPage(r, -1); }, false},
    {RAWKEY_PAGEDOWN, [](TextRecord* r, uint16_t) { ScrollPage(r, 1); }, false},
    {RAWKEY_CRSRUP, [](TextRecord* r, uint16_t) { CursorUp(r); }, false},
    {RAWKEY_CRSRDOWN, [](TextRecord* r, uint16_t) { CursorDown(r); }, false},
    {RAWKEY_CRSRLEFT, [](TextRecord* r, uint16_t) { CursorLeft(r); }, false},
    {RAWKEY_CRSRRIGHT, [](TextRecord* r, uint16_t) { CursorRight(r); }, false},
    {RAWKEY_HELP, [](TextRecord*, uint16_t) {}, false},
    {RAWKEY_HOME, [](TextRecord* r, uint16_t) { SetCursor(r, ColumnIndex{0}, LineIndex{r->CursorLine}); }, false},
    {RAWKEY_END, [](TextRecord* r, uint16_t) { CursorLineEnd(r); }, false},
};

template <size_t N>
const KeyAction* FindKey(const KeyAction (&table)[N], uint16_t code)
{
    for (const KeyAction& action : table) {
        if (action.Code == code)
            return &action;
    }
    return nullptr;
}

// The table of the first qualifier group held: Alt, Shift, Ctrl, none.
const KeyAction* TableEntry(uint16_t code, uint16_t qualifier)
{
    if (AltHeld(qualifier))
        return FindKey(AltKeys, code);
    if (ShiftHeld(qualifier))
        return FindKey(ShiftKeys, code);
    if (CtrlHeld(qualifier))
        return FindKey(CtrlKeys, code);
    return FindKey(PlainKeys, code);
}

void RunAction(TextRecord* record, const KeyAction& action, uint16_t qualifier)
{
    bool marking = action.Marked && CtrlHeld(qualifier);
    if (marking)
        MarkBlockStart(record);
    action.Run(record, qualifier);
    if (marking)
        ExtendBlock(record);
}

// Alt with a digit d of the numeric pad brings the text at index d of the
// list to the front: 0 the first text, 9 the tenth. The main process counts
// positions from 1.
bool SelectTextByDigit(TextRecord* record, const IntuiMessage& message, KeyOutcome* outcome)
{
    char digit[8];
    if (KeyToText(&message, digit, sizeof digit, 0) != 1 || digit[0] < '0' || digit[0] > '9')
        return false;
    const intptr_t number = digit[0] - '0' + 1;
    intptr_t result = SendToMainWait(record, CMD_SELECT_TEXT, number);
    if (result != 0)
        ErrorRequester(record, MessageId{static_cast<int>(result)});
    else
        outcome->UpdateTitle = false;
    return true;
}

// Ctrl with a key that gives one character: a control code is the menu
// shortcut of the letter 0x40 above it (Ctrl + Q closes the text as its
// close gadget does), any other character (such as "-", "/", "." or a
// digit) is looked up among the shortcuts as it stands, and with or
// without a shortcut the key ends here: nothing is typed. True when the key
// was taken; a key that gives several characters is typed.
bool ControlKey(TextRecord* record, const char* text, int count, KeyOutcome* outcome)
{
    if (count != 1)
        return false;
    auto code = static_cast<unsigned char>(text[0]);
    const char shortcut = static_cast<char>(code >= 1 && code <= 31 ? code + 0x40 : code);
    outcome->Leave = RunMenuShortcut(record, shortcut);
    if (outcome->Leave)
        outcome->UpdateTitle = false;
    return true;
}

KeyOutcome CharacterPath(TextRecord* record, const IntuiMessage& message)
{
    KeyOutcome outcome;
    uint16_t qualifier = message.Qualifier;
    if (RunBoundCharacter(record, message))
        return outcome;
    if (AltHeld(qualifier) && (qualifier & IEQUALIFIER_NUMERICPAD) && SelectTextByDigit(record, message, &outcome))
        return outcome;
    char text[KeyTextSize];
    int count = KeyToText(&message, text, sizeof text);
    if (count == 0)
        return outcome;
    if (CtrlHeld(qualifier) && ControlKey(record, text, count, &outcome))
        return outcome;
    if (record->TextState & WindowOpen)
        InsertText(record, text);
    else
        RaiseTextWindow(record);
    return outcome;
}

} // namespace

KeyOutcome HandleRawKey(TextRecord* record, const IntuiMessage& message)
{
    uint16_t code = message.Code;
    if (code & IECODE_UP_PREFIX)
        return {};
    if (code <= RAWKEY_SPACE)
        return CharacterPath(record, message);
    if (IsFunctionKey(code)) {
        PressFunctionKey(record, message);
        return {};
    }
    if (!(record->TextState & WindowOpen))
        return CharacterPath(record, message);
    if (code == RAWKEY_INSERT) {
        ToggleInsertMode(record);
        return {};
    }
    const KeyAction* action = TableEntry(code, message.Qualifier);
    if (!action)
        return CharacterPath(record, message);
    RunAction(record, *action, message.Qualifier);
    return {};
}
