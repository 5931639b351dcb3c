#pragma once
// The user menus: items at the end of the "Macros" menu, each with a label
// and a macro text, added at run time and kept in the preferences file.
//
// The state lives with the main process but is changed by the text that
// holds the menus lock (CMD_MENUS_LOCK); every change, and every read from
// another process, is made under MenuTableLock, so a strip being built
// always sees a whole table. Strings and arrays come from AllocVec.
#include "platform/display/menus.h"
#include "services/message_id.h"

#include <cstdint>

struct UserMenuState {
    int32_t Count = 0;
    // Count + 2 slots each: room for one more row and a terminator, so a
    // list requester can show the labels with one row of its own.
    char** Labels = nullptr;
    char** Macros = nullptr;
    // The built-in rows with a row per user menu before NM_END; null until
    // the first user menu. While Count is above 0 it is the shared table.
    NewMenu* Table = nullptr;
};

extern UserMenuState UserMenus;

// Adds a user menu before the one at `position` (0 to Count). A label
// "BAR" (case ignored) makes a separator: `macro` is emptied in the
// caller's buffer and no duplicate is looked for. 0, or the message of the
// failure: 147 for an empty label, 148 when another user menu has the same
// label or macro (case ignored), 218 when memory runs out (nothing then
// changes).
int AddUserMenu(const char* label, char* macro, int32_t position);

// Gives an existing user menu a new label (a separator row stays one
// that runs nothing) or a new macro. 0, or 218 with nothing changed.
int SetUserMenuLabel(int32_t index, const char* label);
int SetUserMenuMacro(int32_t index, const char* macro);

// Removes one user menu (an index out of range does nothing), or all of
// them, after which the built-in table is the shared table again.
void RemoveUserMenu(int32_t index);
void RemoveAllUserMenus();

// A copy of a user menu's macro text (AllocVec, the caller frees it), or
// null for an index out of range or no memory.
char* CopyUserMacro(int32_t index);

// The table strips are built from: the user table while there are user
// menus, else the built-in one. MenuTableLock held.
NewMenu* SharedMenuTable();
