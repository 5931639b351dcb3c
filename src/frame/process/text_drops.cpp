#include "frame/process/text_drops.h"

#include "files/load_text.h"
#include "frame/window/report.h"
#include "frame/window/text_window.h"
#include "platform/display/app_window.h"
#include "platform/dos/paths.h"
#include "text/edit/cursor_placing.h"
#include "text/input/mouse.h"
#include "text/record/line_access.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

namespace {

void LoadDroppedFile(TextRecord* record, const AppMessage& drop, const WBArg& file)
{
    if (!file.wa_Directory || !file.wa_Name)
        return;
    // The column the cursor will take decides; a refused question must
    // leave the cursor where it was.
    const MouseCell cell = CellOfPosition(record, drop.am_MouseX, drop.am_MouseY);
    const bool insert = ClampColumn(record, record->LeftColumn + cell.Column) != 0 && !IsOneBlankLine(record);
    if (!insert && !MayLoadOver(record))
        return;
    DrawCursor(record, false);
    SetCursorOnRow(record, cell.Column, cell.Row);
    char path[JoinedPathSize];
    JoinPath(file.wa_Directory, file.wa_Name, path);
    LoadText(record, path, insert);
}

} // namespace

void DrainDrops(TextRecord* record)
{
    while (Message* received = GetMsg(record->AppWindowPort)) {
        const auto* drop = reinterpret_cast<AppMessage*>(received);
        if (record->BusyDepth == 0 && (record->TextState & WindowOpen)) {
            for (int32_t i = 0; i < drop->am_NumArgs; ++i)
                LoadDroppedFile(record, *drop, drop->am_ArgList[i]);
            UpdateStatusTitle(record);
        }
        ReplyMsg(received);
    }
}
