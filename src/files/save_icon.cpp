#include "files/save_icon.h"

#include "files/window_box.h"
#include "frame/window/status.h"
#include "platform/dos/paths.h"
#include "platform/icon/icon.h"
#include "requesters/file_reports.h"
#include "text/record/text_record.h"

#include <cstdio>
#include <unistd.h>

void SaveProjectIcon(TextRecord* record, const char* name)
{
    DiskObject* icon = GetDefDiskObject(WBPROJECT);
    if (!icon) {
        ErrorRequester(record, MessageId::ErrorSavingIcon);
        return;
    }
    SetStatusMessage(record, MessageId::SavingIcon);
    char tool[FilePathSize];
    if (!::getcwd(tool, sizeof tool) || !AddPart(tool, "Tavrel", sizeof tool))
        std::snprintf(tool, sizeof tool, "Tavrel");
    char window[64];
    char* toolTypes[] = {window, nullptr};
    WindowBox box;
    if (CurrentWindowBox(record, &box)) {
        std::snprintf(window, sizeof window, "WINDOW=%d,%d,%d,%d", box.Left, box.Top, box.Width, box.Height);
        icon->do_ToolTypes = toolTypes;
    } else {
        icon->do_ToolTypes = nullptr;
    }
    icon->do_Magic = WB_DISKMAGIC;
    icon->do_Version = WB_DISKVERSION;
    icon->do_Type = WBPROJECT;
    icon->do_DefaultTool = tool;
    icon->do_CurrentX = NO_ICON_POSITION;
    icon->do_CurrentY = NO_ICON_POSITION;
    icon->do_DrawerData = nullptr;
    icon->do_ToolWindow = nullptr;
    icon->do_StackSize = 4000;
    PutDiskObject(name, icon);
    FreeDiskObject(icon);
}
