#include "config/menu_commands.h"

#include "config/build_menus.h"
#include "files/clipboard_commands.h"
#include "files/clipboard_paste.h"
#include "files/save_commands.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "frame/window/text_window.h"
#include "text/edit/block_operations.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/line_operations.h"
#include "text/record/text_record.h"

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

void ToggleSaveTabs(TextRecord* record)
{
    ToggleOption(record, SaveTabs, SaveTabsItem);
}

void ToggleBackup(TextRecord* record)
{
    ToggleOption(record, MakeBackup, BackupItem);
}

void ToggleSaveIcon(TextRecord* record)
{
    ToggleOption(record, SaveIcon, SaveIconItem);
}

void ToggleFullName(TextRecord* record)
{
    ToggleOption(record, FullName, FullNameItem);
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
    /*  1 */ Waiting(7),
    /*  2 */ Waiting(8),
    /*  3 */ Row(SaveTextCommand, 9),
    /*  4 */ Row(SaveAsCommand, 10),
    /*  5 */ Row(RenameCommand, 11),
    /*  6 */ Waiting(12),
    /*  7 */ Waiting(13),
    /*  8 */ Row(IconifyText, 14),
    /*  9 */ Row(HideText, 15),
    /* 10 */ Waiting(16),
    /* 11 */ Row(ClearText, 17),
    /* 12 */ Waiting(18),
    /* 13 */ Waiting(19),
    /* 14 */ Waiting(20),
    /* 15 */ Waiting(21),
    /* 16 */ {nullptr, MessageId{22}, true},
    /* 17 */ Row(CopyBlockCommand, 23),
    /* 18 */ Row(PasteClip, 24),
    /* 19 */ Row(CutBlockCommand, 25),
    /* 20 */ Waiting(26),
    /* 21 */ Row(IndentRight, 27),
    /* 22 */ Row(IndentLeft, 28),
    /* 23 */ Row(UpperCase, 29),
    /* 24 */ Row(LowerCase, 30),
    /* 25 */ Row(KillLine, 31),
    /* 26 */ Row(RecallKilledLine, 32),
    /* 27 */ Row(UndoLine, 33),
    /* 28 */ Row(ToggleInsert, 34),
    /* 29 */ Waiting(35),
    /* 30 */ Waiting(36),
    /* 31 */ Waiting(37),
    /* 32 */ Waiting(38),
    /* 33 */ Waiting(39),
    /* 34 */ Waiting(40),
    /* 35 */ Waiting(41),
    /* 36 */ Row(ToggleIgnoreCase, 42),
    /* 37 */ Waiting(43),
    /* 38 */ Waiting(55),
    /* 39 */ Waiting(53),
    /* 40 */ Waiting(54),
    /* 41 */ Row(ToggleSaveTabs, 44),
    /* 42 */ Row(ToggleBackup, 45),
    /* 43 */ Row(ToggleSaveIcon, 46),
    /* 44 */ Row(ToggleFullName, 47),
    /* 45 */ Waiting(48),
    /* 46 */ Waiting(49),
    /* 47 */ Waiting(50),
    /* 48 */ Waiting(52),
    /* 49 */ Waiting(56),
    /* 50 */ Waiting(57),
    /* 51 */ Waiting(58),
    /* 52 */ Waiting(59),
    /* 53 */ Waiting(51),
    /* 54 */ Waiting(56),
};
