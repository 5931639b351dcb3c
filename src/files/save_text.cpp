#include "files/save_text.h"

#include "files/backup_file.h"
#include "files/file_names.h"
#include "files/save_icon.h"
#include "files/write_lines.h"
#include "frame/window/report.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "platform/dos/file_io.h"
#include "requesters/file_reports.h"
#include "text/lines/edit_line.h"
#include "text/record/text_record.h"

#include <sys/stat.h>

namespace {

// True when `name` reaches the file the text was loaded from.
bool IsOwnFile(const TextRecord* record, const char* name)
{
    char own[JoinedPathSize];
    JoinPath(record->FileDirectory, record->FileName, own);
    return IsSameFile(name, own);
}

// The save itself; `overwriteAsked` when the user has just agreed to
// overwrite the file, which answers the question of a partial text too.
bool SaveAsked(TextRecord* record, const char* name, bool overwriteAsked)
{
    if (record->PartOfFile && !overwriteAsked && IsOwnFile(record, name)
        && ConfirmPartialOverwrite(record) != 1)
        return false;
    if (record->Options & MakeBackup)
        MakeBackupFile(record, name);
    if (record->Options & SaveIcon)
        SaveProjectIcon(record, name);
    SetStatusMessage(record, MessageId::SavingInProgress);
    // The table is read only after the flush, which may move it.
    const bool written = FlushEditLine(record)
        && WriteLines(record, name, (record->Options & SaveTabs) != 0);
    if (written) {
        record->Modified = 0;
        if (record->PartOfFile && IsOwnFile(record, name))
            record->PartOfFile = 0;
    }
    if (HasDefaultName(record))
        SetFileNames(record, name);
    UpdateStatusTitle(record);
    return written;
}

} // namespace

bool SaveText(TextRecord* record, const char* name)
{
    return SaveAsked(record, name, false);
}

bool SaveTextChecked(TextRecord* record, const char* name)
{
    struct stat existing;
    const bool exists = ::stat(SystemPath(name).c_str(), &existing) == 0;
    if (exists && ConfirmRequester(record, MessageId::OverwriteFile) != 1)
        return false;
    return SaveAsked(record, name, exists);
}
