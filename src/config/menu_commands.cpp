#include "config/menu_commands.h"

#include "config/build_menus.h"
#include "config/prefs_window.h"
#include "config/script_menu_commands.h"
#include "config/settings_toggles.h"
#include "config/toolbars.h"
#include "config/user_menu_commands.h"
#include "files/clipboard_commands.h"
#include "files/clipboard_paste.h"
#include "files/load_text.h"
#include "files/save_commands.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "frame/window/text_window.h"
#include "macro/direct_mode.h"
#include "requesters/command_requesters.h"
#include "requesters/file_reports.h"
#include "requesters/file_requesters.h"
#include "requesters/input_requesters.h"
#include "requesters/message_requesters.h"
#include "search/search_commands.h"
#include "search/search_window_request.h"
#include "services/messages.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/line_operations.h"
#include "text/record/line_access.h"
#include "text/record/text_record.h"

#include <cstdlib>

namespace {

// An option of this text alone, turned over with its check mark; a pick
// has already turned the mark, a shortcut hasn't, so the mark is set to
// what the option now is.
void ToggleOption(TextRecord* record, uint32_t bit, MenuNumber item)
{
    record->Options ^= bit;
    SetMenuCheck(record, item, (record->Options & bit) != 0);
}

void ToggleInsert(TextRecord* record)
{
    ToggleInsertMode(record);
    SetMenuCheck(record, InsertModeItem, (record->Options & InsertMode) != 0);
}

// Searches of this text ignore case or not; main keeps the search window's
// box in step.
void ToggleIgnoreCase(TextRecord* record)
{
    ToggleOption(record, IgnoreCase, IgnoreCaseItem);
    SendToMain(record, CMD_CASE_CHANGED, static_cast<intptr_t>(record->Options & IgnoreCase));
}

// "Set": the search window, with this text's case option.
void SetSearchCommand(TextRecord* record)
{
    OpenSearchWindow(record);
}

template <SettingsToggleRow Row>
void ToggleSetting(TextRecord* record)
{
    ToggleOption(record, SettingsToggles[Row].Bit, SettingsToggles[Row].Item);
}

void IndentRight(TextRecord* record)
{
    IndentBlock(record, 1);
}

void IndentLeft(TextRecord* record)
{
    IndentBlock(record, -1);
}

void UpperCase(TextRecord* record)
{
    ChangeCase(record, true);
}

void LowerCase(TextRecord* record)
{
    ChangeCase(record, false);
}

// "Load text": a file chosen from the text's directory. When another text
// holds a file of that path, or failing that of that name, the user may
// load it again, bring that text to the front instead, or cancel.
void LoadCommand(TextRecord* record)
{
    char path[FilePathSize];
    if (!AskTextFile(record, MessageId::LoadingFile, nullptr, path))
        return;
    const long found = static_cast<long>(SendToMainWait(record, CMD_FIND_OTHER, reinterpret_cast<intptr_t>(path)));
    if (found != 0) {
        const char* labels[] = {GetString(MessageId{97}), GetString(MessageId{98}), GetString(MessageId::Cancel)};
        const int answer = ChoiceRequester(record, 3, GetString(MessageId{found > 0 ? 71 : 72}), labels);
        if (answer == 2)
            SelectText(record, std::labs(found));
        if (answer != 1)
            return;
    }
    LoadTextChecked(record, path, false);
}

// "Insert": a file chosen from the text's directory goes in before the
// cursor's line.
void InsertCommand(TextRecord* record)
{
    char path[FilePathSize];
    if (AskTextFile(record, MessageId{62}, nullptr, path))
        LoadTextChecked(record, path, true);
}

// "Write block": the block to a file chosen from the text's directory,
// overwritten without a question.
void WriteBlockCommand(TextRecord* record)
{
    if (BlockLineCount(record, true) == 0)
        return;
    char path[FilePathSize];
    if (AskFileFrom(record, MessageId{178}, record->LastDirectory, "", path))
        WriteBlockToFile(record, path);
}

// "Goto line": the cursor to the chosen line, keeping its column; a line
// past the text's end is its last one.
void GotoLineCommand(TextRecord* record)
{
    const int32_t line = GotoLineRequester(record) - 1;
    if (line != record->CursorLine)
        SetCursor(record, ColumnIndex{record->CursorColumn}, LineIndex{ClampLine(record, line)});
}

// "Tabulations": the strip is made anew so that its label shows the size.
void TabulationsMenuCommand(TextRecord* record)
{
    const int16_t before = record->TabSize;
    TabulationsCommand(record);
    if (record->TabSize != before)
        BuildMenus(record);
}

constexpr MenuCommand Row(void (*handler)(TextRecord*), int help)
{
    return {handler, MessageId{help}, false};
}

constexpr MenuCommand Waiting(int help)
{
    return {nullptr, MessageId{help}, false};
}

} // namespace

const MenuCommand MenuCommandTable[MenuCommandCount] = {
    /*  0 */ Waiting(0),
    /*  1 */ Row(LoadCommand, 7),
    /*  2 */ Row(InsertCommand, 8),
    /*  3 */ Row(SaveTextCommand, 9),
    /*  4 */ Row(SaveAsCommand, 10),
    /*  5 */ Row(RenameCommand, 11),
    /*  6 */ Row(FilenoteCommand, 12),
    /*  7 */ Waiting(13),
    /*  8 */ Row(IconifyText, 14),
    /*  9 */ Row(HideText, 15),
    /* 10 */ Waiting(16),
    /* 11 */ Row(ClearText, 17),
    /* 12 */ Waiting(18),
    /* 13 */ Row(InformationRequester, 19),
    /* 14 */ Row(SelectTextCommand, 20),
    /* 15 */ Waiting(21),
    /* 16 */ {nullptr, MessageId{22}, true},
    /* 17 */ Row(CopyBlockCommand, 23),
    /* 18 */ Row(PasteClip, 24),
    /* 19 */ Row(CutBlockCommand, 25),
    /* 20 */ Row(WriteBlockCommand, 26),
    /* 21 */ Row(IndentRight, 27),
    /* 22 */ Row(IndentLeft, 28),
    /* 23 */ Row(UpperCase, 29),
    /* 24 */ Row(LowerCase, 30),
    /* 25 */ Row(KillLine, 31),
    /* 26 */ Row(RecallKilledLine, 32),
    /* 27 */ Row(UndoLine, 33),
    /* 28 */ Row(ToggleInsert, 34),
    /* 29 */ Row(SetSearchCommand, 35),
    /* 30 */ Row(FindPreviousCommand, 36),
    /* 31 */ Row(FindNextCommand, 37),
    /* 32 */ Row(SelectionCommand, 38),
    /* 33 */ Row(ReplacePreviousCommand, 39),
    /* 34 */ Row(ReplaceNextCommand, 40),
    /* 35 */ Row(ReplaceAllCommand, 41),
    /* 36 */ Row(ToggleIgnoreCase, 42),
    /* 37 */ Row(GotoLineCommand, 43),
    /* 38 */ Row(DirectModeCommand, 55),
    /* 39 */ Row(CallScriptCommand, 53),
    /* 40 */ Row(ScriptItemCommand, 54),
    /* 41 */ Row(ToggleSetting<SaveTabsToggle>, 44),
    /* 42 */ Row(ToggleSetting<BackupToggle>, 45),
    /* 43 */ Row(ToggleSetting<SaveIconToggle>, 46),
    /* 44 */ Row(ToggleSetting<FullNameToggle>, 47),
    /* 45 */ Row(TabulationsMenuCommand, 48),
    /* 46 */ Row(MaxLineLengthCommand, 49),
    /* 47 */ Row(FontRequester, 50),
    /* 48 */ Row(PreferencesWindow, 52),
    /* 49 */ Row(AddMenuCommand, 56),
    /* 50 */ Row(EditLabelCommand, 57),
    /* 51 */ Row(EditMacroCommand, 58),
    /* 52 */ Row(RemoveMenuCommand, 59),
    /* 53 */ Row(LoadToolbarCommand, 51),
    /* 54 */ Waiting(56),
};
