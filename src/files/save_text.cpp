#include "files/save_text.h"

#include "files/backup_file.h"
#include "platform/dos/file_io.h"
#include "files/file_names.h"
#include "requesters/file_reports.h"
#include "files/save_icon.h"
#include "files/write_lines.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "text/lines/edit_line.h"
#include "text/record/text_record.h"

#include <sys/stat.h>

bool SaveText(TextRecord* record, const char* name)
{
    if (record->Options & MakeBackup)
        MakeBackupFile(record, name);
    if (record->Options & SaveIcon)
        SaveProjectIcon(record, name);
    SetStatusMessage(record, MessageId::SavingInProgress);
    // The table is read only after the flush, which may move it.
    const bool written = FlushEditLine(record)
        && WriteLines(record, name, (record->Options & SaveTabs) != 0);
    if (written)
        record->Modified = 0;
    if (HasDefaultName(record))
        SetFileNames(record, name);
    UpdateStatusTitle(record);
    return written;
}

bool SaveTextChecked(TextRecord* record, const char* name)
{
    struct stat existing;
    if (::stat(SystemPath(name).c_str(), &existing) == 0 && ConfirmRequester(record, MessageId::OverwriteFile) != 1)
        return false;
    return SaveText(record, name);
}
