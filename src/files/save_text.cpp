#include "files/save_text.h"

#include "files/backup_file.h"
#include "files/file_io.h"
#include "files/file_names.h"
#include "files/file_reports.h"
#include "files/save_icon.h"
#include "files/write_lines.h"
#include "frame/status.h"
#include "frame/text_window.h"
#include "text/edit_line.h"
#include "text/text_record.h"

#include <sys/stat.h>

bool SaveText(TextRecord* record, const char* name)
{
    if (record->Options & MakeBackup)
        MakeBackupFile(record, name);
    if (record->Options & SaveIcon)
        SaveProjectIcon(record, name);
    SetStatusMessage(record, MessageId{60});
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
    if (::stat(SystemPath(name).c_str(), &existing) == 0 && ConfirmRequester(record, MessageId{69}) != 1)
        return false;
    return SaveText(record, name);
}
