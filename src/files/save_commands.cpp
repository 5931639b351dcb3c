#include "files/save_commands.h"

#include "files/file_names.h"
#include "files/file_reports.h"
#include "files/save_text.h"
#include "platform/dos/paths.h"
#include "text/text_record.h"

#include <cstring>

namespace {

// Both compared as plain strings, case and all: the file part with
// FileName, the rest with FileDirectory.
bool IsTextName(const TextRecord* record, const char* path)
{
    const size_t directoryLength = static_cast<size_t>(PathPart(path) - path);
    return std::strcmp(FilePart(path), record->FileName) == 0
        && std::strlen(record->FileDirectory) == directoryLength
        && std::strncmp(record->FileDirectory, path, directoryLength) == 0;
}

} // namespace

void SaveTextCommand(TextRecord* record)
{
    if (HasDefaultName(record)) {
        SaveAsCommand(record);
        return;
    }
    // Both fields together are far shorter than a path buffer.
    char path[FilePathSize];
    std::strcpy(path, record->FileDirectory);
    AddPart(path, record->FileName, sizeof path);
    SaveText(record, path);
}

void SaveAsCommand(TextRecord* record)
{
    char path[FilePathSize];
    if (!AskTextFile(record, MessageId{81}, nullptr, path))
        return;
    SaveTextChecked(record, path);
    if (!IsTextName(record, path) && ConfirmRequester(record, MessageId{84}) == 1)
        SetFileNames(record, path);
}

void RenameCommand(TextRecord* record)
{
    char path[FilePathSize];
    if (AskTextFile(record, MessageId{85}, nullptr, path))
        SetFileNames(record, path);
}
