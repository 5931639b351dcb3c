#include "frame/protocol/text_names.h"

#include "frame/protocol/app_globals.h"
#include "text/record/text_record.h"

void BeginNameChange(TextRecord* record)
{
    if (record->MainPort)
        ObtainSemaphore(&Globals.TextListLock);
}

void EndNameChange(TextRecord* record)
{
    if (record->MainPort)
        ReleaseSemaphore(&Globals.TextListLock);
}
