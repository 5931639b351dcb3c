#pragma once
// The main process's side of the menus: the handlers of the codes that
// build strips and hand out user macros and script labels, run by
// DispatchCommand (main_handlers.h has the handler contract).
#include <cstdint>

struct CommandMessage;

// The argument of CMD_SET_SCRIPT_ENTRY: a script label and the index of
// its item, 0 to 19 (others are ignored).
struct ScriptEntry {
    char Label[288];
    int32_t Index;
};

// CMD_BUILD_MENU: BuildMenus for the sender; its strip, 0 on failure.
void HandleBuildMenu(CommandMessage* message, int16_t* code);
// CMD_GET_USER_MACRO: a copy of the macro of user menu `Argument` (the
// sender frees it); 0 while the menus lock is held, for an index out of
// range or without memory.
void HandleGetUserMacro(CommandMessage* message, int16_t* code);
// CMD_SET_SCRIPT_ENTRY: SetScriptLabel, the reply, then CMD_MENUS_REBUILD
// to every text.
void HandleSetScriptEntry(CommandMessage* message, int16_t* code);
// CMD_GET_SCRIPT_ENTRY: a copy of script label `Argument` (the sender frees
// it), 0 when it is empty.
void HandleGetScriptEntry(CommandMessage* message, int16_t* code);
