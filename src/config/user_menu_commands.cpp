#include "config/user_menu_commands.h"

#include "config/user_menus.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "platform/exec/semaphores.h"
#include "platform/utility/strings.h"
#include "requesters/input_requesters.h"
#include "requesters/message_requesters.h"
#include "requesters/no_memory.h"
#include "services/messages.h"
#include "text/record/text_record.h"

#include <cstring>
#include <string>
#include <vector>

namespace {

// A menu's name holds at most 29 characters; a macro text 255.
constexpr int MenuNameSize = 30;
constexpr int MenuMacroSize = 256;

void Tell(TextRecord* record, int message)
{
    MessageRequester(record, 1, GetString(MessageId{message}));
}

// The menus lock of the main process, or "Menus access denied".
bool LockMenus(TextRecord* record)
{
    if (SendToMainWait(record, CMD_MENUS_LOCK, 0) == 1)
        return true;
    Tell(record, 202);
    return false;
}

void UnlockMenus(TextRecord* record)
{
    SendToMain(record, CMD_MENUS_UNLOCK, 0);
}

// The labels of the user menus as they are now. Only the holder of the
// menus lock changes them, so they stay as read while it holds it.
std::vector<std::string> UserLabels()
{
    std::vector<std::string> labels;
    ObtainSemaphoreShared(&Globals.MenuTableLock);
    for (int32_t index = 0; index < UserMenus.Count; ++index)
        labels.emplace_back(UserMenus.Labels[index]);
    ReleaseSemaphore(&Globals.MenuTableLock);
    return labels;
}

// A list of the labels, with one more row `extra` (0 for none) at its end:
// the row from 1, or 0 when cancelled.
int ChooseMenu(TextRecord* record, int title, const std::vector<std::string>& labels, int extra)
{
    std::vector<const char*> rows;
    for (const std::string& label : labels)
        rows.push_back(label.c_str());
    if (extra)
        rows.push_back(GetString(MessageId{extra}));
    int row = ListRequester(record, GetString(MessageId{title}), static_cast<int>(rows.size()), rows.data());
    return row > 0 ? row : 0;
}

// The name of a menu, starting from what `name` holds. False when
// cancelled or empty, or after "Incorrect menu name" for a name holding
// '=', which the preferences file could not keep.
bool AskMenuName(TextRecord* record, char* name)
{
    int size = MenuNameSize;
    if (InputRequesterId(record, MessageId{141}, name, &size) != 1 || name[0] == 0)
        return false;
    if (std::strchr(name, '=')) {
        Tell(record, 147);
        return false;
    }
    return true;
}

// The user menu to edit, chosen from the list titled "Menu to edit?", or
// -1 after "No user menu defined" or a cancel.
int32_t ChooseMenuToEdit(TextRecord* record, std::vector<std::string>* labels)
{
    *labels = UserLabels();
    if (labels->empty()) {
        Tell(record, 149);
        return -1;
    }
    return ChooseMenu(record, 142, *labels, 0) - 1;
}

} // namespace

void AddMenuCommand(TextRecord* record)
{
    int macroSize = -MenuMacroSize;
    if (InputRequesterId(record, MessageId{129}, record->ArexxCommandText, &macroSize) != 1)
        return;
    char name[MenuNameSize] = "";
    if (!AskMenuName(record, name) || !LockMenus(record))
        return;
    std::vector<std::string> labels = UserLabels();
    int32_t position = 0;
    if (!labels.empty())
        position = ChooseMenu(record, 144, labels, 145) - 1;
    if (position >= 0) {
        if (AddUserMenu(name, record->ArexxCommandText, position) != 0)
            Tell(record, 203);
        else
            SendToMain(record, CMD_MENUS_CHANGED, 0);
    }
    UnlockMenus(record);
}

void EditLabelCommand(TextRecord* record)
{
    if (!LockMenus(record))
        return;
    std::vector<std::string> labels;
    int32_t index = ChooseMenuToEdit(record, &labels);
    char name[MenuNameSize];
    if (index >= 0) {
        Strlcpy(name, labels[index].c_str(), sizeof name);
        if (AskMenuName(record, name)) {
            if (SetUserMenuLabel(index, name) != 0)
                NoMemoryRequester(record);
            else
                SendToMain(record, CMD_MENUS_CHANGED, 0);
        }
    }
    UnlockMenus(record);
}

void EditMacroCommand(TextRecord* record)
{
    if (!LockMenus(record))
        return;
    std::vector<std::string> labels;
    int32_t index = ChooseMenuToEdit(record, &labels);
    if (index >= 0) {
        char macro[MenuMacroSize] = "";
        ObtainSemaphoreShared(&Globals.MenuTableLock);
        Strlcpy(macro, UserMenus.Macros[index], sizeof macro);
        ReleaseSemaphore(&Globals.MenuTableLock);
        int size = -MenuMacroSize;
        if (InputRequesterId(record, MessageId{129}, macro, &size) == 1 && SetUserMenuMacro(index, macro) != 0)
            NoMemoryRequester(record);
    }
    UnlockMenus(record);
}

void RemoveMenuCommand(TextRecord* record)
{
    if (!LockMenus(record))
        return;
    std::vector<std::string> labels = UserLabels();
    if (labels.empty()) {
        Tell(record, 149);
        UnlockMenus(record);
        return;
    }
    const int row = ChooseMenu(record, 143, labels, 146);
    const int count = static_cast<int>(labels.size());
    if (row >= 1 && row <= count)
        RemoveUserMenu(row - 1);
    else if (row == count + 1)
        RemoveAllUserMenus();
    SendToMain(record, CMD_MENUS_CHANGED, 0);
    UnlockMenus(record);
}
