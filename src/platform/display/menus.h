#pragma once
// Menu strips: built from a table of NewMenu rows, shown by the backend in
// the window they are set in, picked by number.
//
// A strip belongs to the task that built it; a window only shows it
// (SetMenuStrip in intuition.h). The display side reads the strip of a
// window only between SetMenuStrip and ClearMenuStrip, so the owner frees a
// strip after taking it out of its window. While the strip is shown, the
// display side writes just two things: the CHECKED bit of a toggled item
// on a pick, and the item's NextSelect.
#include "platform/display/input_codes.h"
#include "platform/display/shared_field.h"

#include <cstdint>

struct Menu;
struct MenuItem;
struct Window;

// NewMenu::nm_Type.
constexpr uint8_t NM_END = 0;
constexpr uint8_t NM_TITLE = 1;
constexpr uint8_t NM_ITEM = 2;
constexpr uint8_t NM_SUB = 3;

// The label of a separator line.
inline const char* const NM_BARLABEL = reinterpret_cast<const char*>(-1);

// NewMenu::nm_Flags and MenuItem::Flags. CHECKIT gives the item a check
// mark; with MENUTOGGLE a pick turns it over, else a pick sets it.
constexpr uint16_t CHECKIT = 0x0001;
constexpr uint16_t MENUTOGGLE = 0x0008;
constexpr uint16_t CHECKED = 0x0100;

// One row of a menu table; a table ends with an NM_END row. nm_CommKey's
// first byte is the item's shortcut, shown beside it (null: none).
struct NewMenu {
    uint8_t nm_Type = NM_END;
    const char* nm_Label = nullptr;
    const char* nm_CommKey = nullptr;
    uint16_t nm_Flags = 0;
    int32_t nm_MutualExclude = 0;
    uint32_t nm_UserData = 0;
};

// The packed number of a menu pick: menu in bits 0 to 4, item in bits 5
// to 10, sub-item in bits 11 to 15; all ones in a field means none.
using MenuNumber = uint16_t;
constexpr uint16_t NOMENU = 0x1F;
constexpr uint16_t NOITEM = 0x3F;
constexpr uint16_t NOSUB = 0x1F;

constexpr uint16_t MENUNUM(MenuNumber number) { return number & 0x1F; }
constexpr uint16_t ITEMNUM(MenuNumber number) { return (number >> 5) & 0x3F; }
constexpr uint16_t SUBNUM(MenuNumber number) { return (number >> 11) & 0x1F; }
constexpr MenuNumber FULLMENUNUM(uint16_t menu, uint16_t item, uint16_t sub)
{
    return static_cast<MenuNumber>((menu & 0x1F) | ((item & 0x3F) << 5) | ((sub & 0x1F) << 11));
}

struct MenuItem {
    MenuItem* NextItem = nullptr;
    Shared<uint16_t> Flags;            // CHECKIT, MENUTOGGLE, CHECKED
    char* Label = nullptr;             // a copy; null for a separator
    char Command = 0;                  // the shortcut character, 0 for none
    MenuItem* SubItem = nullptr;
    Shared<uint16_t> NextSelect{MENUNULL};   // the next pick of the same event, or MENUNULL
    uint32_t UserData = 0;             // the row's nm_UserData
};

struct Menu {
    Menu* NextMenu = nullptr;
    char* MenuName = nullptr;          // a copy
    MenuItem* FirstItem = nullptr;
};

// The strip of a table, with copies of its labels. Null when memory runs
// out or the table doesn't fit the menu number: more than 31 menus, more
// than 63 items in a menu or 31 sub-items in an item, an item before the
// first title or a sub-item before the first item.
Menu* CreateMenus(const NewMenu* table);
// Null is allowed.
void FreeMenus(Menu* strip);

// The item of a number in a strip; null for MENUNULL, a separator's number
// counts as an item. With no sub-item in the number, the item itself.
MenuItem* ItemAddress(const Menu* strip, MenuNumber number);
// The nm_UserData of the row the item was made from.
inline uint32_t GTMENUITEM_USERDATA(const MenuItem* item) { return item->UserData; }

// After the owner changed flags of a shown strip: the backend shows them.
void ResetMenuStrip(Window* window, Menu* strip);

// Display side: the user picked or asked for help on the item `number` of
// `strip`, the strip the backend shows in `window`. A pick sets the check
// mark of a CHECKIT item (turning it over with MENUTOGGLE), ends the
// item's NextSelect chain and posts IDCMP_MENUPICK; help posts
// IDCMP_MENUHELP. False when there is no such item or the window refused.
bool PostMenuPick(Window* window, const Menu* strip, MenuNumber number, uint16_t qualifier);
bool PostMenuHelp(Window* window, const Menu* strip, MenuNumber number, uint16_t qualifier);
