#pragma once
// The MenuCommandTable: what each menu item does, by the command id its
// row carries (nm_UserData). Each row has the handler that runs in the
// text's process and the message that names the command for help.
//
// Rows without a handler belong to commands whose work lives elsewhere and
// is wired there (search, macros, scripts, running a user menu, printing,
// help, preferences, toolbars); picking them does nothing yet. The Quit row has no handler:
// it ends the text (see menu_picks.h).
#include "config/menu_table.h"
#include "services/message_id.h"

struct TextRecord;

struct MenuCommand {
    void (*Handler)(TextRecord* record);
    MessageId Help;
    bool Quits = false;
};

extern const MenuCommand MenuCommandTable[MenuCommandCount];
