#include "config/prefs_path.h"

#include "frame/protocol/app_globals.h"
#include "platform/dos/paths.h"

char PrefsPath[PrefsPathSize] = "s:";

void PrefsFilePath(char* output)
{
    ObtainSemaphoreShared(&Globals.PrefsPathLock);
    JoinPath(PrefsPath, PrefsFileName, output);
    ReleaseSemaphore(&Globals.PrefsPathLock);
}
