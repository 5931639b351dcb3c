#include "frame/protocol/text_names.h"

#include "frame/protocol/app_globals.h"
#include "platform/dos/errors.h"
#include "platform/dos/paths.h"
#include "text/record/text_record.h"

#include <cstring>

bool SetTextFileParts(TextRecord* record, const char* directory, size_t length, const char* file)
{
    const size_t fileLength = std::strlen(file);
    if (length >= sizeof record->FileDirectory || fileLength >= sizeof record->FileName) {
        SetIoErr(ERROR_INVALID_COMPONENT_NAME);
        return false;
    }
    if (record->MainPort)
        ObtainSemaphore(&Globals.TextListLock);
    std::memcpy(record->FileDirectory, directory, length);
    record->FileDirectory[length] = '\0';
    std::memcpy(record->FileName, file, fileLength + 1);
    if (record->MainPort)
        ReleaseSemaphore(&Globals.TextListLock);
    return true;
}

bool SetTextFileName(TextRecord* record, const char* name)
{
    return SetTextFileParts(record, name, static_cast<size_t>(PathPart(name) - name), FilePart(name));
}
