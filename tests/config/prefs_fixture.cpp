#include "prefs_fixture.h"

#include "config/build_menus.h"
#include "config/key_map.h"
#include "config/menu_table.h"
#include "config/read_preferences.h"
#include "config/user_menus.h"
#include "config/write_preferences.h"
#include "frame/protocol/app_globals.h"

#include <vector>

PrefsState::PrefsState() : defaults_(Settings)
{
    InitSemaphore(&Globals.MenuTableLock);
    InitKeyMap(&GlobalKeyMap);
    ResolveMenuLabels();
}

PrefsState::~PrefsState()
{
    Reset();
}

void PrefsState::Reset()
{
    FreeKeyMap(&GlobalKeyMap);
    RemoveAllUserMenus();
    Settings = defaults_;
    Settings.FontAttr.ta_Name = Settings.FontName;
    ResolveMenuLabels();
}

int PrefsState::Parse(const std::string& contents)
{
    std::vector<char> buffer(contents.begin(), contents.end());
    buffer.push_back(0);
    return ParsePreferences(&Settings, buffer.data(), contents.size());
}

std::string PrefsState::Format() const
{
    return FormatPreferences(Settings, GlobalKeyMap, UserMenus);
}
