#pragma once
// The main process's side of the key map: the handlers of the codes that
// change, read and list GlobalKeyMap, run by DispatchCommand
// (frame/process/main_handlers.h has the handler contract). The editing
// lock itself (CMD_KEYS_LOCK, CMD_KEYS_UNLOCK) is kept beside the menus
// lock; here it only turns away the changes of texts that don't hold it.
#include <cstdint>

struct CommandMessage;
struct KeyMap;

// The argument of CMD_KEY_LIST.
struct KeyListRequest {
    uint32_t Qualifier = 0;
    const KeyMap* LocalMap = nullptr; // the caller's working map, or null
    int32_t Count = 0;                // written back: the number of keys
};

// CMD_KEY_SET: SetKeyMacro on the global map unless another text holds the
// lock; 1 done, 0 refused or no memory.
void HandleKeySet(CommandMessage* message, int16_t* code);
// CMD_KEY_CLEAR: ClearKeyMacro unless another text holds the lock; the
// argument comes back unchanged.
void HandleKeyClear(CommandMessage* message, int16_t* code);
// CMD_KEY_GET: never refused. A copy of the bound text (AllocVec, the
// sender frees it), 0 when there is none or without memory; the copy keeps
// the text readable while its macro runs, whatever other texts bind
// meanwhile. Writes KeyRequest::Locked.
void HandleKeyGet(CommandMessage* message, int16_t* code);
// CMD_KEY_LIST: ListKeysForQualifier for a KeyListRequest.
void HandleKeyList(CommandMessage* message, int16_t* code);
