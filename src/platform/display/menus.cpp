#include "platform/display/menus.h"

#include "platform/display/backend.h"

#include <cstring>
#include <new>

namespace {

constexpr int MenuLimit = 31;      // NOMENU is no menu
constexpr int ItemLimit = 63;      // NOITEM is no item
constexpr int SubItemLimit = 31;   // NOSUB is no sub-item

char* CopyLabel(const char* text)
{
    size_t length = std::strlen(text);
    char* copy = new (std::nothrow) char[length + 1];
    if (copy)
        std::memcpy(copy, text, length + 1);
    return copy;
}

void FreeItems(MenuItem* item)
{
    while (item) {
        MenuItem* next = item->NextItem;
        FreeItems(item->SubItem);
        delete[] item->Label;
        delete item;
        item = next;
    }
}

MenuItem* NewItem(const NewMenu& row)
{
    auto* item = new (std::nothrow) MenuItem;
    if (!item)
        return nullptr;
    item->Flags = static_cast<uint16_t>(row.nm_Flags & (CHECKIT | MENUTOGGLE | CHECKED));
    item->UserData = row.nm_UserData;
    if (row.nm_CommKey)
        item->Command = row.nm_CommKey[0];
    if (row.nm_Label != NM_BARLABEL) {
        item->Label = CopyLabel(row.nm_Label ? row.nm_Label : "");
        if (!item->Label) {
            delete item;
            return nullptr;
        }
    }
    return item;
}

// Where the next menu, item or sub-item of the table is linked in, and how
// many of each the current parent holds.
struct Builder {
    Menu* strip = nullptr;
    Menu** nextMenu = &strip;
    Menu* menu = nullptr;
    MenuItem** nextItem = nullptr;
    MenuItem* item = nullptr;
    MenuItem** nextSub = nullptr;
    int menus = 0, items = 0, subItems = 0;

    bool AddTitle(const NewMenu& row)
    {
        if (++menus > MenuLimit)
            return false;
        menu = new (std::nothrow) Menu;
        if (!menu)
            return false;
        *nextMenu = menu;
        nextMenu = &menu->NextMenu;
        menu->MenuName = CopyLabel(row.nm_Label && row.nm_Label != NM_BARLABEL ? row.nm_Label : "");
        nextItem = &menu->FirstItem;
        item = nullptr;
        items = 0;
        return menu->MenuName != nullptr;
    }

    bool AddItem(const NewMenu& row)
    {
        if (!menu || ++items > ItemLimit)
            return false;
        item = NewItem(row);
        if (!item)
            return false;
        *nextItem = item;
        nextItem = &item->NextItem;
        nextSub = &item->SubItem;
        subItems = 0;
        return true;
    }

    bool AddSubItem(const NewMenu& row)
    {
        if (!item || ++subItems > SubItemLimit)
            return false;
        MenuItem* sub = NewItem(row);
        if (!sub)
            return false;
        *nextSub = sub;
        nextSub = &sub->NextItem;
        return true;
    }
};

MenuItem* NthItem(MenuItem* item, int index)
{
    for (; item && index > 0; --index)
        item = item->NextItem;
    return item;
}

} // namespace

Menu* CreateMenus(const NewMenu* table)
{
    if (!table)
        return nullptr;
    Builder builder;
    for (const NewMenu* row = table; row->nm_Type != NM_END; ++row) {
        bool added = row->nm_Type == NM_TITLE  ? builder.AddTitle(*row)
                     : row->nm_Type == NM_ITEM ? builder.AddItem(*row)
                     : row->nm_Type == NM_SUB  ? builder.AddSubItem(*row)
                                               : false;
        if (!added) {
            FreeMenus(builder.strip);
            return nullptr;
        }
    }
    return builder.strip;
}

void FreeMenus(Menu* strip)
{
    while (strip) {
        Menu* next = strip->NextMenu;
        FreeItems(strip->FirstItem);
        delete[] strip->MenuName;
        delete strip;
        strip = next;
    }
}

MenuItem* ItemAddress(const Menu* strip, MenuNumber number)
{
    if (number == MENUNULL || MENUNUM(number) == NOMENU || ITEMNUM(number) == NOITEM)
        return nullptr;
    for (int menu = MENUNUM(number); strip && menu > 0; --menu)
        strip = strip->NextMenu;
    if (!strip)
        return nullptr;
    MenuItem* item = NthItem(strip->FirstItem, ITEMNUM(number));
    if (!item || SUBNUM(number) == NOSUB)
        return item;
    return NthItem(item->SubItem, SUBNUM(number));
}

void ResetMenuStrip(Window* window, Menu* strip)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !window || window->MenuStrip != strip)
        return;
    backend->MenuStripChanged(window);
}

bool PostMenuPick(Window* window, const Menu* strip, MenuNumber number, uint16_t qualifier)
{
    MenuItem* item = ItemAddress(strip, number);
    if (!item)
        return false;
    uint16_t flags = item->Flags;
    if (flags & CHECKIT)
        item->Flags = static_cast<uint16_t>((flags & MENUTOGGLE) ? flags ^ CHECKED : flags | CHECKED);
    item->NextSelect = MENUNULL;
    IntuiMessage event;
    event.Class = IDCMP_MENUPICK;
    event.Code = number;
    event.Qualifier = qualifier;
    return PostWindowMessage(window, event);
}

bool PostMenuHelp(Window* window, const Menu* strip, MenuNumber number, uint16_t qualifier)
{
    if (!ItemAddress(strip, number))
        return false;
    IntuiMessage event;
    event.Class = IDCMP_MENUHELP;
    event.Code = number;
    event.Qualifier = qualifier;
    return PostWindowMessage(window, event);
}
