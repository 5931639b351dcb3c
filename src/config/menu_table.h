#pragma once
// The built-in menus: one table of NewMenu rows shared by every text's
// strip, and the numbers of the items the editor reads and sets.
//
// The table's labels are resolved from the messages once at start-up
// (ResolveMenuLabels) and later changed only under MenuTableLock: the
// script labels, the per-text "Tabulations" label and check marks while a
// strip is built (build_menus.h).
#include "platform/display/menus.h"

#include <cstdint>

constexpr int FixedMenuRows = 90; // the menus without the NM_END row
constexpr int BuiltInMenuRows = FixedMenuRows + 1;

constexpr int ScriptItemCount = 20;
constexpr int FirstScriptItem = 2; // item of script 0 in the "ARexx" menu
constexpr int FirstScriptRow = 62; // its row in the table
constexpr int TabLabelRow = 54;    // "Tabulations = %ld"
constexpr uint16_t ScriptsMenu = 4;
constexpr uint16_t MacrosMenu = 5;
constexpr int FirstUserMenuItem = 7; // item of user menu 0 in the "Macros" menu

// Items whose check mark stands for an option bit of the text.
constexpr MenuNumber InsertModeItem = 0xF9C1;
constexpr MenuNumber IgnoreCaseItem = 0xF942;
constexpr MenuNumber SaveTabsItem = 0xF803;
constexpr MenuNumber BackupItem = 0xF823;
constexpr MenuNumber SaveIconItem = 0xF843;
constexpr MenuNumber FullNameItem = 0xF863;

// The command ids (nm_UserData) of the rows that the menu code itself
// looks for.
constexpr uint32_t QuitCommand = 16;
constexpr uint32_t ScriptCommand = 40;
constexpr uint32_t UserMenuCommand = 54;
constexpr int MenuCommandCount = 55; // ids 0 to 54

// The table. Until ResolveMenuLabels has run its labels are null.
extern NewMenu BuiltInMenus[BuiltInMenuRows];

// Points every label at its message in the user's language, and each
// script row at its label in Settings when one is set, else at "ARexx...".
// Run by the main process before any strip is built.
void ResolveMenuLabels();
