#pragma once
// Each text's own menu strip, made from the shared table with the text's
// own check marks and tab label, and the check marks read and set later.
#include "platform/display/menus.h"

#include <cstdint>

struct TextRecord;

// Makes the text's strip anew: under MenuTableLock the shared table gets
// the text's "Tabulations = N" label and the check marks of its options
// (insert mode, UPPER=lower, save tabs, backup, save icon, full name), and
// a strip is made from it. The new strip replaces the old one, also in an
// open window that isn't locked; when it can't be made the old one stays.
// Gives the text's strip, null only when it never had one. Run by the main
// process for a starting text (blocked meanwhile), else by the text.
Menu* BuildMenus(TextRecord* record);

// Whether the item is checked in this text's strip.
bool GetMenuCheck(const TextRecord* record, MenuNumber number);
// Checks or unchecks the item in this text's strip, and shows it.
void SetMenuCheck(TextRecord* record, MenuNumber number, bool on);

// Makes `label` the script item `index` (0 to 19; others are ignored),
// cut to the 11 characters its field holds; an empty label gives the item
// back its default text. Strips show it once rebuilt.
void SetScriptLabel(int32_t index, const char* label);
