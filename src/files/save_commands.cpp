#include "files/save_commands.h"

#include "files/file_names.h"
#include "files/save_text.h"
#include "frame/window/report.h"
#include "platform/dos/paths.h"
#include "requesters/file_reports.h"
#include "text/record/text_record.h"

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
    char path[JoinedPathSize];
    JoinPath(record->FileDirectory, record->FileName, path);
    SaveText(record, path);
}

void SaveAsCommand(TextRecord* record)
{
    char path[FilePathSize];
    if (!AskTextFile(record, MessageId::SavingText, nullptr, path))
        return;
    SaveTextChecked(record, path);
    if (!IsTextName(record, path) && ConfirmRequester(record, MessageId::RenameDocument) == 1)
        SetFileNames(record, path);
}

void RenameCommand(TextRecord* record)
{
    char path[FilePathSize];
    if (AskTextFile(record, MessageId::RenamingFile, nullptr, path))
        SetFileNames(record, path);
}
