#include "frame/process/dispatch.h"

#include "config/key_messages.h"
#include "config/menu_messages.h"
#include "config/toolbars.h"
#include "frame/process/main_handlers.h"
#include "frame/protocol/command_message.h"
#include "frame/window/title_window.h"
#include "platform/exec/memory.h"

#include <array>

namespace {

// A toolbar is taken by name only when a toolbar file is loaded; the
// request itself changes nothing and its argument comes back.
void KeepArgument(CommandMessage*, int16_t*)
{
}

constexpr std::array<MainHandler, CMD_LAST_MAIN + 1> MainHandlers = [] {
    std::array<MainHandler, CMD_LAST_MAIN + 1> table{};
    table[CMD_TEXT_ENDED] = HandleTextEnded;
    table[CMD_NEW_TEXT] = HandleNewText;
    table[CMD_CLOSE_TEXT] = HandleCloseText;
    table[CMD_TEXT_ACTIVE] = HandleTextActive;
    table[CMD_GET_SCREEN] = HandleGetScreen;
    table[CMD_SCREEN_USE] = HandleScreenUse;
    table[CMD_SCREEN_USE_ICON] = HandleScreenUse;
    table[CMD_SCREEN_RELEASE] = HandleScreenRelease;
    table[CMD_GET_ICON_WINDOW] = HandleGetIconWindow;
    table[CMD_BUILD_MENU] = HandleBuildMenu;
    table[CMD_ADD_TEXT] = HandleAddText;
    table[CMD_REMOVE_TEXT] = HandleRemoveText;
    table[CMD_LIST_TEXTS] = HandleListTexts;
    table[CMD_SELECT_TEXT] = HandleSelectText;
    table[CMD_FIND_OTHER] = HandleFindOther;
    table[CMD_FIND_ANY] = HandleFindAny;
    table[CMD_QUIT_ALL] = HandleQuitAll;
    table[CMD_KEY_SET] = HandleKeySet;
    table[CMD_KEY_CLEAR] = HandleKeyClear;
    table[CMD_KEY_GET] = HandleKeyGet;
    table[CMD_KEY_LIST] = HandleKeyList;
    table[CMD_KEYS_LOCK] = HandleKeysLock;
    table[CMD_KEYS_UNLOCK] = HandleKeysUnlock;
    table[CMD_MENUS_LOCK] = HandleMenusLock;
    table[CMD_MENUS_UNLOCK] = HandleMenusUnlock;
    table[CMD_MENUS_CHANGED] = HandleMenusChanged;
    table[CMD_GET_USER_MACRO] = HandleGetUserMacro;
    table[CMD_SET_SCRIPT_ENTRY] = HandleSetScriptEntry;
    table[CMD_GET_SCRIPT_ENTRY] = HandleGetScriptEntry;
    table[CMD_GET_FIND] = HandleGetFind;
    table[CMD_GET_REPLACE] = HandleGetReplace;
    table[CMD_SET_FIND] = HandleSetFind;
    table[CMD_SET_REPLACE] = HandleSetReplace;
    table[CMD_OPEN_SEARCH] = HandleOpenSearch;
    table[CMD_CLOSE_SEARCH] = HandleCloseSearch;
    table[CMD_CASE_CHANGED] = HandleCaseChanged;
    table[CMD_GOTO_BOOKMARK] = HandleGotoBookmark;
    table[CMD_SET_BOOKMARK] = HandleSetBookmark;
    table[CMD_SHIFT_BOOKMARKS] = HandleShiftBookmarks;
    table[CMD_DROP_LINE_BOOKMARKS] = HandleDropLineBookmarks;
    table[CMD_DROP_BOOKMARKS] = HandleDropBookmarks;
    table[CMD_LOAD_TOOLBAR] = KeepArgument;
    table[CMD_RAISE_TOOLBARS] = HandleRaiseToolbars;
    return table;
}();

} // namespace

bool HasMainHandler(int16_t code)
{
    return code >= 0 && code <= CMD_LAST_MAIN && MainHandlers[code] != nullptr;
}

void DispatchCommand(CommandMessage* message)
{
    int16_t code = message->Code;
    int16_t index = static_cast<int16_t>(code & CMD_CODE_MASK);
    if (HasMainHandler(index))
        MainHandlers[index](message, &code);
    else if (index <= CMD_LAST_MAIN)
        message->Argument = 0;
    if (code & CMD_REPLY)
        ReplyMsg(&message->cm_Message);
    if (code & CMD_FREE)
        FreeVec(message);
}
