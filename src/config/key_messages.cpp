#include "config/key_messages.h"

#include "config/key_map.h"
#include "config/shared_copy.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "macro/compiler.h"

namespace {

bool LockedByOther(const CommandMessage* message)
{
    return Globals.KeysOwner && Globals.KeysOwner != message->Sender;
}

KeyRequest* RequestOf(const CommandMessage* message)
{
    return reinterpret_cast<KeyRequest*>(message->Argument);
}

} // namespace

void HandleKeySet(CommandMessage* message, int16_t*)
{
    const KeyRequest* request = RequestOf(message);
    message->Argument = LockedByOther(message) ? 0 : SetKeyMacro(&GlobalKeyMap, request);
}

void HandleKeyClear(CommandMessage* message, int16_t*)
{
    const KeyRequest* request = RequestOf(message);
    if (!LockedByOther(message))
        ClearKeyMacro(&GlobalKeyMap, request->Key, request->Qualifier);
}

void HandleKeyGet(CommandMessage* message, int16_t*)
{
    KeyRequest* request = RequestOf(message);
    request->Locked = Globals.KeysOwner != nullptr;
    const KeyMapEntry* entry = FindKeyEntry(&GlobalKeyMap, request->Key);
    char* text = entry && request->Qualifier < QualifierCount ? entry->Macro[request->Qualifier] : nullptr;
    if (text && request->Pressed)
        UpperCaseCommand(text);
    message->Argument = text ? reinterpret_cast<intptr_t>(SharedCopy(text)) : 0;
}

void HandleKeyList(CommandMessage* message, int16_t*)
{
    auto* request = reinterpret_cast<KeyListRequest*>(message->Argument);
    message->Argument = reinterpret_cast<intptr_t>(ListKeysForQualifier(request->Qualifier, request->LocalMap, &request->Count));
}
