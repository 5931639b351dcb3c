#include "config/user_menus.h"

#include "config/menu_table.h"
#include "config/shared_copy.h"
#include "frame/protocol/app_globals.h"
#include "platform/exec/memory.h"
#include "platform/exec/semaphores.h"
#include "platform/utility/strings.h"

#include <cstring>
#include <utility>

UserMenuState UserMenus;

namespace {

constexpr int EmptyLabel = 147;
constexpr int Duplicate = 148;
constexpr int NoMemory = 218;

bool IsBar(const char* label)
{
    return Stricmp(label, "BAR") == 0;
}

bool IsDuplicate(const char* label, const char* macro)
{
    for (int32_t i = 0; i < UserMenus.Count; ++i)
        if (Stricmp(UserMenus.Labels[i], label) == 0 || Stricmp(UserMenus.Macros[i], macro) == 0)
            return true;
    return false;
}

void FillUserRow(NewMenu* row, const char* label)
{
    *row = NewMenu{};
    row->nm_Type = NM_ITEM;
    if (IsBar(label)) {
        row->nm_Label = NM_BARLABEL;
    } else {
        row->nm_Label = label;
        row->nm_UserData = UserMenuCommand;
    }
}

// `count` + 2 slots with `entry` inserted at `position`, or null.
char** InsertedArray(char** old, int32_t count, int32_t position, char* entry)
{
    auto* array = static_cast<char**>(AllocVec(sizeof(char*) * (count + 2), MEMF_SHARED | MEMF_CLEAR));
    if (!array)
        return nullptr;
    for (int32_t i = 0; i < position; ++i)
        array[i] = old[i];
    array[position] = entry;
    for (int32_t i = position; i < count; ++i)
        array[i + 1] = old[i];
    return array;
}

bool ValidIndex(int32_t index)
{
    return index >= 0 && index < UserMenus.Count;
}

// A copy of `text` in place of the label or the macro of a user menu; a
// new label shows in the menu's row.
int ReplaceEntry(bool label, int32_t index, const char* text)
{
    char* copy = SharedCopy(text);
    if (!copy)
        return NoMemory;
    ObtainSemaphore(&Globals.MenuTableLock);
    if (ValidIndex(index)) {
        char** entries = label ? UserMenus.Labels : UserMenus.Macros;
        std::swap(entries[index], copy);
        if (label)
            UserMenus.Table[FixedMenuRows + index].nm_Label = IsBar(text) ? NM_BARLABEL : entries[index];
    }
    ReleaseSemaphore(&Globals.MenuTableLock);
    FreeVec(copy);
    return 0;
}

} // namespace

NewMenu* SharedMenuTable()
{
    return UserMenus.Count > 0 ? UserMenus.Table : BuiltInMenus;
}

int AddUserMenu(const char* label, char* macro, int32_t position)
{
    if (!label[0])
        return EmptyLabel;
    ObtainSemaphore(&Globals.MenuTableLock);
    int result = 0;
    if (IsBar(label))
        macro[0] = 0;
    else if (IsDuplicate(label, macro))
        result = Duplicate;
    int32_t count = UserMenus.Count;
    if (position < 0 || position > count)
        position = count;
    char* labelCopy = result ? nullptr : SharedCopy(label);
    char* macroCopy = labelCopy ? SharedCopy(macro) : nullptr;
    char** labels = macroCopy ? InsertedArray(UserMenus.Labels, count, position, labelCopy) : nullptr;
    char** macros = labels ? InsertedArray(UserMenus.Macros, count, position, macroCopy) : nullptr;
    auto* table = macros ? static_cast<NewMenu*>(AllocVec(sizeof(NewMenu) * (FixedMenuRows + count + 2),
                      MEMF_SHARED | MEMF_CLEAR))
                         : nullptr;
    if (!result && !table) {
        FreeVec(labelCopy);
        FreeVec(macroCopy);
        FreeVec(labels);
        FreeVec(macros);
        result = NoMemory;
    }
    if (result) {
        ReleaseSemaphore(&Globals.MenuTableLock);
        return result;
    }
    const NewMenu* old = UserMenus.Table ? UserMenus.Table : BuiltInMenus;
    int32_t front = FixedMenuRows + position;
    std::memcpy(table, old, sizeof(NewMenu) * front);
    FillUserRow(&table[front], labelCopy);
    std::memcpy(&table[front + 1], &old[front], sizeof(NewMenu) * (count - position));
    table[FixedMenuRows + count + 1] = NewMenu{};
    FreeVec(UserMenus.Labels);
    FreeVec(UserMenus.Macros);
    FreeVec(UserMenus.Table);
    UserMenus.Labels = labels;
    UserMenus.Macros = macros;
    UserMenus.Table = table;
    UserMenus.Count = count + 1;
    ReleaseSemaphore(&Globals.MenuTableLock);
    return 0;
}

int SetUserMenuLabel(int32_t index, const char* label)
{
    return ReplaceEntry(true, index, label);
}

int SetUserMenuMacro(int32_t index, const char* macro)
{
    return ReplaceEntry(false, index, macro);
}

void RemoveUserMenu(int32_t index)
{
    ObtainSemaphore(&Globals.MenuTableLock);
    if (ValidIndex(index)) {
        FreeVec(UserMenus.Labels[index]);
        FreeVec(UserMenus.Macros[index]);
        int32_t behind = UserMenus.Count - index - 1;
        std::memmove(&UserMenus.Labels[index], &UserMenus.Labels[index + 1], sizeof(char*) * (behind + 1));
        std::memmove(&UserMenus.Macros[index], &UserMenus.Macros[index + 1], sizeof(char*) * (behind + 1));
        NewMenu* row = &UserMenus.Table[FixedMenuRows + index];
        std::memmove(row, row + 1, sizeof(NewMenu) * (behind + 1));
        --UserMenus.Count;
    }
    ReleaseSemaphore(&Globals.MenuTableLock);
}

void RemoveAllUserMenus()
{
    ObtainSemaphore(&Globals.MenuTableLock);
    for (int32_t i = 0; i < UserMenus.Count; ++i) {
        FreeVec(UserMenus.Labels[i]);
        FreeVec(UserMenus.Macros[i]);
    }
    FreeVec(UserMenus.Labels);
    FreeVec(UserMenus.Macros);
    FreeVec(UserMenus.Table);
    UserMenus = UserMenuState{};
    ReleaseSemaphore(&Globals.MenuTableLock);
}

char* CopyUserMacro(int32_t index)
{
    ObtainSemaphoreShared(&Globals.MenuTableLock);
    char* copy = ValidIndex(index) ? SharedCopy(UserMenus.Macros[index]) : nullptr;
    ReleaseSemaphore(&Globals.MenuTableLock);
    return copy;
}
