#pragma once
// The settings that are a yes or no (and the tab width), tying each name of
// the preferences file to its option bit and its item in the
// "Preferences" menu. The menus toggle a text's own options by these rows,
// the preferences file reads and writes Settings by them, and the
// preferences window's check boxes show them.
#include "platform/display/menus.h"

#include <cstdint>

struct SettingsToggle {
    const char* Name;   // the key in the preferences file
    MenuNumber Item;    // the menu item with the check mark; 0 for Tabs
    uint32_t Bit;       // the bit of Flags and of a text's Options; 0 for Tabs
    uint32_t CommandId; // the menu row's command id; 0 for Tabs
};

constexpr int SettingsToggleCount = 5;
// In the file's order: SaveTabs, Backup, Save_icon, FullName, Tabs.
extern const SettingsToggle SettingsToggles[SettingsToggleCount];

enum SettingsToggleRow { SaveTabsToggle, BackupToggle, SaveIconToggle, FullNameToggle, TabsToggle };

// Sets or clears the check mark of a toggle's row in the built-in menu
// table, as new strips start from it.
void SetBuiltInCheck(const SettingsToggle& toggle, bool on);
