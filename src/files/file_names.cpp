#include "files/file_names.h"

#include "frame/protocol/text_names.h"
#include "frame/window/text_window.h"
#include "platform/dos/file_io.h"
#include "platform/dos/paths.h"
#include "requesters/file_reports.h"
#include "services/messages.h"
#include "text/record/text_record.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

void SetFileIdentity(TextRecord* record, const char* name)
{
    const std::string path = SystemPath(name);
    const std::string directory(path.c_str(), static_cast<size_t>(PathPart(path.c_str()) - path.c_str()));
    char resolved[PATH_MAX];
    const char* full = nullptr;
    if (directory.empty())
        full = ::getcwd(resolved, sizeof resolved);
    else
        full = ::realpath(directory.c_str(), resolved);
    if (!full)
        full = directory.c_str();
    if (!SetTextFileParts(record, full, std::strlen(full), FilePart(name))) {
        DosErrorRequester(record, MessageId::LoadingFile);
        return;
    }
    std::memcpy(record->LastDirectory, record->FileDirectory, sizeof record->LastDirectory);
}

void SetFileNames(TextRecord* record, const char* name)
{
    if (!SetTextFileName(record, name))
        DosErrorRequester(record, MessageId::RenamingFile);
    UpdateStatusTitle(record);
}

bool HasDefaultName(const TextRecord* record)
{
    return std::strcmp(record->FileName, GetString(MessageId::NoName)) == 0;
}
