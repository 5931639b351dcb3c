#include "config/key_requests.h"

#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "macro/run_macro_command.h"
#include "platform/exec/memory.h"

char* GetKeyMacro(TextRecord* record, uint8_t key, uint32_t qualifier, bool pressed, bool* locked)
{
    KeyRequest request;
    request.Key = key;
    request.Qualifier = qualifier;
    request.Pressed = pressed;
    auto* text = reinterpret_cast<char*>(SendToMainWait(record, CMD_KEY_GET, reinterpret_cast<intptr_t>(&request)));
    if (locked)
        *locked = request.Locked;
    return text;
}

int SetKey(TextRecord* record, uint8_t key, uint32_t qualifier, const char* macro)
{
    KeyRequest request;
    request.Key = key;
    request.Qualifier = qualifier;
    request.Macro = const_cast<char*>(macro);
    return static_cast<int>(SendToMainWait(record, CMD_KEY_SET, reinterpret_cast<intptr_t>(&request)));
}

void ClearKey(TextRecord* record, uint8_t key, uint32_t qualifier)
{
    KeyRequest request;
    request.Key = key;
    request.Qualifier = qualifier;
    SendToMainWait(record, CMD_KEY_CLEAR, reinterpret_cast<intptr_t>(&request));
}

bool RunBoundKey(TextRecord* record, uint8_t key, uint32_t qualifier, bool* locked)
{
    char* text = GetKeyMacro(record, key, qualifier, true, locked);
    if (!text)
        return false;
    RunMacroCommand(record, text);
    FreeVec(text);
    return true;
}
