#include "services/rexx/script_names.h"

#include "frame/protocol/app_globals.h"
#include "platform/dos/paths.h"
#include "platform/exec/semaphores.h"
#include "platform/utility/strings.h"
#include "services/message_id.h"

#include <cstring>

int ResolveScriptName(const char* name, char* buffer)
{
    if (std::strchr(name, ':') || name[0] == '/') {
        Strlcpy(buffer, name, ScriptNameSize);
        return 0;
    }
    ObtainSemaphoreShared(&Globals.ScriptPathLock);
    Strlcpy(buffer, Globals.ScriptPath, ScriptNameSize);
    ReleaseSemaphore(&Globals.ScriptPathLock);
    if (!AddPart(buffer, name, ScriptNameSize - 1))
        return int(MessageId::IncorrectArgumentValue);
    return 0;
}

void ExchangeScriptPath(const char* path, char* old)
{
    ObtainSemaphore(&Globals.ScriptPathLock);
    Strlcpy(old, Globals.ScriptPath, ScriptPathSize);
    if (path && *path)
        Strlcpy(Globals.ScriptPath, path, ScriptPathSize);
    ReleaseSemaphore(&Globals.ScriptPathLock);
}

bool ResolveForScriptServer(const char* name, char* buffer, size_t size)
{
    char resolved[ScriptNameSize];
    if (ResolveScriptName(name, resolved) != 0 || std::strlen(resolved) >= size)
        return false;
    std::memcpy(buffer, resolved, std::strlen(resolved) + 1);
    return true;
}
