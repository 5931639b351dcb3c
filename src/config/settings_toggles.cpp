#include "config/settings_toggles.h"

#include "config/menu_table.h"
#include "text/record/text_record.h"

const SettingsToggle SettingsToggles[SettingsToggleCount] = {
    {"SaveTabs", SaveTabsItem, SaveTabs, 41},
    {"Backup", BackupItem, MakeBackup, 42},
    {"Save_icon", SaveIconItem, SaveIcon, 43},
    {"FullName", FullNameItem, FullName, 44},
    {"Tabs", 0, 0, 0},
};

void SetBuiltInCheck(const SettingsToggle& toggle, bool on)
{
    for (NewMenu& row : BuiltInMenus) {
        if (row.nm_Type == NM_ITEM && row.nm_UserData == toggle.CommandId) {
            row.nm_Flags = static_cast<uint16_t>(on ? row.nm_Flags | CHECKED : row.nm_Flags & ~CHECKED);
            return;
        }
    }
}
