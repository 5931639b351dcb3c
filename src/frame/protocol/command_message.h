#pragma once
// The one record that carries every request between the main process and
// the text processes, and the table of its codes.
//
// A message to the main process says by its form bits what the receiver
// does with it afterwards: CMD_REPLY, reply (the sender waits and frees it);
// CMD_FREE, free it (nobody waits). A message without either bit is freed by
// its handler (CMD_CLOSE_TEXT, CMD_QUIT_ALL) or, when it goes to a text, by
// the text process. Some code values mean one thing to main and another to
// a text; both names are given.
#include "platform/exec/ports.h"

#include <cstdint>

struct TextRecord;

struct CommandMessage {
    Message cm_Message;
    // The request's argument; on a synchronous message the receiver
    // overwrites it with the result. Wide enough for a pointer, which is
    // what many codes carry both ways.
    intptr_t Argument = 0;
    char* FileName = nullptr;       // start message only: the file, or null
    MsgPort* MainPortArg = nullptr; // start message only: the main process's port
    // The sending text; on a message to a text, the addressed text; on the
    // start message, the first text of TextList or null.
    TextRecord* Sender = nullptr;
    int32_t Spare = 0;
    int16_t Code = 0; // request code in bits 0-12, form bits above
};

constexpr int16_t CMD_CODE_MASK = 0x1FFF;
constexpr int16_t CMD_REPLY = 0x2000;
constexpr int16_t CMD_FREE = 0x4000;

// The first message of a text process; it carries FileName and MainPortArg.
constexpr int16_t CMD_START_TEXT = 1;

// Codes. "main" handles it in DispatchCommand, "text" in ReadCommands.
constexpr int16_t CMD_TEXT_ENDED = 2;           // main: a text has gone
constexpr int16_t CMD_ASK_CLOSE = 2;            // text: end after asking about changes
constexpr int16_t CMD_NEW_TEXT = 3;             // main: start a text for a file name or 0
constexpr int16_t CMD_SHOW_TEXT = 4;            // text: front and active, or back into view
constexpr int16_t CMD_CLOSE_TEXT = 5;           // main: -1 closes all, else the sender
constexpr int16_t CMD_CLOSE_NOW = 5;            // text: end without asking
constexpr int16_t CMD_TEXT_ACTIVE = 6;          // main: ActiveText = sender
constexpr int16_t CMD_GET_SCREEN = 7;           // main: the screen, 0 if none
constexpr int16_t CMD_SCREEN_USE = 8;           // main: a text window opened
constexpr int16_t CMD_SCREEN_USE_ICON = 9;      // main: a title window opened
constexpr int16_t CMD_SCREEN_RELEASE = 10;      // main: a window closed
constexpr int16_t CMD_ADD_TEXT = 12;            // main: append the sender to TextList
constexpr int16_t CMD_REMOVE_TEXT = 13;         // main: take the sender out of TextList
constexpr int16_t CMD_GET_ICON_WINDOW = 14;     // main: place an iconified title window
constexpr int16_t CMD_BUILD_MENU = 15;          // main: the sender's menu strip
constexpr int16_t CMD_LIST_TEXTS = 16;          // main: TextNameList of all texts
constexpr int16_t CMD_SELECT_TEXT = 17;         // main: show text at a 1-based position
constexpr int16_t CMD_FIND_OTHER = 18;          // main: FindTextByName skipping the sender
constexpr int16_t CMD_FIND_ANY = 19;            // main: FindTextByName over all texts
constexpr int16_t CMD_QUIT_ALL = 22;            // main: last message of a text ended by Quit
constexpr int16_t CMD_HELP_ID = 23;             // main: help for a menu entry
constexpr int16_t CMD_HELP_NODE = 24;           // main: help at a node
constexpr int16_t CMD_KEY_SET = 27;             // main: map a key (KeyRequest*)
constexpr int16_t CMD_KEY_CLEAR = 28;           // main: unmap a key (KeyRequest*)
constexpr int16_t CMD_KEY_GET = 29;             // main: the macro of a key (KeyRequest*)
constexpr int16_t CMD_KEYS_LOCK = 30;           // main: take the key map editing lock
constexpr int16_t CMD_KEYS_UNLOCK = 31;         // main: give it back
constexpr int16_t CMD_KEY_LIST = 32;            // main: mapped key names of a qualifier
constexpr int16_t CMD_MENUS_LOCK = 33;          // main: take the user menu editing lock
constexpr int16_t CMD_MENUS_UNLOCK = 34;        // main: give it back
constexpr int16_t CMD_MENUS_CHANGED = 35;       // main: user menus changed, rebuild everywhere
constexpr int16_t CMD_MENUS_REBUILD = 35;       // text: rebuild the menu strip
constexpr int16_t CMD_GET_USER_MACRO = 36;      // main: macro of a user menu entry
constexpr int16_t CMD_SET_SCRIPT_ENTRY = 37;    // main: set a script menu label
constexpr int16_t CMD_GET_SCRIPT_ENTRY = 38;    // main: a script menu label
constexpr int16_t CMD_OPEN_SEARCH = 39;         // main: open or raise the search window
constexpr int16_t CMD_CLOSE_SEARCH = 40;        // main: close the search window
constexpr int16_t CMD_FIND_PREV = 41;           // text: search backwards
constexpr int16_t CMD_FIND_NEXT = 42;           // text: search forwards
constexpr int16_t CMD_REPLACE_PREV = 43;        // text: replace backwards
constexpr int16_t CMD_REPLACE_NEXT = 44;        // text: replace forwards
constexpr int16_t CMD_RESTORE_LINE = 45;        // text: undo the line
constexpr int16_t CMD_SET_CASE = 46;            // text: set or clear IgnoreCase
constexpr int16_t CMD_GET_FIND = 47;            // main: copy of SearchText
constexpr int16_t CMD_GET_REPLACE = 48;         // main: copy of ReplaceText
constexpr int16_t CMD_SET_FIND = 49;            // main: set SearchText
constexpr int16_t CMD_SET_REPLACE = 50;         // main: set ReplaceText
constexpr int16_t CMD_CASE_CHANGED = 51;        // main: case option changed
constexpr int16_t CMD_GOTO_BOOKMARK = 52;       // main: slot; text: line to go to, column in Spare
constexpr int16_t CMD_SET_BOOKMARK = 53;        // main: store a Bookmark*
constexpr int16_t CMD_SHIFT_BOOKMARKS = 54;     // main: move the sender's bookmarks by lines
constexpr int16_t CMD_DROP_LINE_BOOKMARKS = 55; // main: free the sender's bookmarks on a line
constexpr int16_t CMD_DROP_BOOKMARKS = 56;      // main: free all the sender's bookmarks
constexpr int16_t CMD_RUN_MACRO = 57;           // text: run a macro text (freed by the text)
constexpr int16_t CMD_LOAD_TOOLBAR = 60;        // main: no action
constexpr int16_t CMD_RAISE_TOOLBARS = 61;      // main: toolbar windows to front

// The highest code each side knows; above it a message is only replied to
// or freed as its form bits ask.
constexpr int16_t CMD_LAST_MAIN = 61;
constexpr int16_t CMD_LAST_TEXT = 58;
