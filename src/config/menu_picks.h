#pragma once
// Menu commands reaching a text: picks and help from its window, and the
// Ctrl shortcuts typed in it. All run in the text's process.
#include <cstdint>

struct TextRecord;
struct IntuiMessage;

// IDCMP_MENUPICK: the command of the picked item and of every item behind
// it in the NextSelect chain. While a handler runs, Busy is set and
// HelpCommandId names the command. The leave reason for the event loop:
// LeaveQuit after "Quit", else 0.
int HandleMenuPick(TextRecord* record, const IntuiMessage& event);

// IDCMP_MENUHELP: main is asked to show the help of the item's command.
void HandleMenuHelp(TextRecord* record, const IntuiMessage& event);

// Ctrl with `letter` ('@' to '_', a control code plus 0x40): the first row
// of the built-in table whose shortcut is that letter runs its command as
// a pick does, HelpCommandId left alone; "Quit" ends this text only. The
// leave reason: LeaveAsk after "Quit", else 0. A letter without a command
// does nothing.
int RunMenuShortcut(TextRecord* record, char letter);
