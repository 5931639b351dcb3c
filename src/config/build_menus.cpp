#include "config/build_menus.h"

#include "config/menu_table.h"
#include "config/user_menus.h"
#include "frame/protocol/app_globals.h"
#include "platform/display/intuition.h"
#include "platform/exec/semaphores.h"
#include "platform/utility/strings.h"
#include "services/messages.h"
#include "text/record/settings.h"
#include "text/record/text_record.h"

#include <cstdio>

namespace {

// The option bits that a check mark of the strip shows.
struct OptionMark {
    MenuNumber item;
    uint32_t bit;
};

constexpr OptionMark OptionMarks[] = {
    {InsertModeItem, InsertMode},
    {IgnoreCaseItem, IgnoreCase},
    {SaveTabsItem, SaveTabs},
    {BackupItem, MakeBackup},
    {SaveIconItem, SaveIcon},
    {FullNameItem, FullName},
};

// The row of a fixed item in a table: the rows of the menus before it, its
// title's row and its item number.
NewMenu* RowOf(NewMenu* table, MenuNumber number)
{
    uint16_t menu = 0;
    int row = 0;
    for (; table[row].nm_Type != NM_END; ++row) {
        if (table[row].nm_Type != NM_TITLE)
            continue;
        if (menu++ == MENUNUM(number))
            break;
    }
    return &table[row + 1 + ITEMNUM(number)];
}

bool CanShowStrip(const TextRecord* record)
{
    return record->Window && (record->TextState & WindowOpen) && record->BusyDepth == 0;
}

} // namespace

Menu* BuildMenus(TextRecord* record)
{
    ObtainSemaphore(&Globals.MenuTableLock);
    NewMenu* table = SharedMenuTable();
    std::snprintf(record->TabLabel, sizeof record->TabLabel, GetString(MessageId{48}),
        static_cast<long>(record->TabSize));
    table[TabLabelRow].nm_Label = record->TabLabel;
    for (const OptionMark& mark : OptionMarks) {
        NewMenu* row = RowOf(table, mark.item);
        if (record->Options & mark.bit)
            row->nm_Flags |= CHECKED;
        else
            row->nm_Flags = static_cast<uint16_t>(row->nm_Flags & ~CHECKED);
    }
    bool shown = CanShowStrip(record);
    if (shown)
        ClearMenuStrip(record->Window);
    if (Menu* strip = CreateMenus(table)) {
        FreeMenus(record->MenuStrip);
        record->MenuStrip = strip;
    }
    if (shown && record->MenuStrip)
        SetMenuStrip(record->Window, record->MenuStrip);
    ReleaseSemaphore(&Globals.MenuTableLock);
    return record->MenuStrip;
}

bool GetMenuCheck(const TextRecord* record, MenuNumber number)
{
    const MenuItem* item = ItemAddress(record->MenuStrip, number);
    return item && (item->Flags & CHECKED);
}

void SetMenuCheck(TextRecord* record, MenuNumber number, bool on)
{
    MenuItem* item = ItemAddress(record->MenuStrip, number);
    if (!item)
        return;
    uint16_t flags = item->Flags;
    item->Flags = static_cast<uint16_t>(on ? flags | CHECKED : flags & ~CHECKED);
    if (CanShowStrip(record))
        ResetMenuStrip(record->Window, record->MenuStrip);
}

void SetScriptLabel(int32_t index, const char* label)
{
    if (index < 0 || index >= ScriptItemCount)
        return;
    ObtainSemaphore(&Globals.MenuTableLock);
    char* slot = Settings.ScriptLabels[index];
    Strlcpy(slot, label, ScriptLabelSize);
    const char* shown = slot[0] ? slot : GetString(MessageId{54});
    BuiltInMenus[FirstScriptRow + index].nm_Label = shown;
    if (UserMenus.Count > 0)
        UserMenus.Table[FirstScriptRow + index].nm_Label = shown;
    ReleaseSemaphore(&Globals.MenuTableLock);
}
