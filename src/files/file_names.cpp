#include "files/file_names.h"

#include "files/file_io.h"
#include "frame/text_window.h"
#include "platform/dos/paths.h"
#include "platform/utility/strings.h"
#include "services/messages.h"
#include "text/text_file_name.h"
#include "text/text_record.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace {

void CopyCut(char* target, size_t size, const char* text)
{
    Strlcpy(target, text, size);
}

} // namespace

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
    CopyCut(record->FileDirectory, sizeof record->FileDirectory, full ? full : directory.c_str());
    std::memcpy(record->LastDirectory, record->FileDirectory, sizeof record->LastDirectory);
    CopyCut(record->FileName, sizeof record->FileName, FilePart(name));
}

void SetFileNames(TextRecord* record, const char* name)
{
    SetTextFileName(record, name);
    UpdateStatusTitle(record);
}

bool HasDefaultName(const TextRecord* record)
{
    return std::strcmp(record->FileName, GetString(MessageId::NoName)) == 0;
}
