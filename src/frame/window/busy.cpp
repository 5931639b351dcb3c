#include "frame/window/busy.h"

#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "platform/display/intuition.h"
#include "text/record/text_record.h"

void DrainWindowPort(Window* window)
{
    while (Message* message = GetMsg(window->UserPort))
        ReplyMsg(message);
}

int LockTextWindow(TextRecord* record)
{
    if (!record || !record->Window)
        return -1;
    if (record->BusyDepth == 0) {
        if (record->TextState & WindowOpen) {
            ClearMenuStrip(record->Window);
            ModifyIDCMP(record->Window, LockedIDCMP);
            DrainWindowPort(record->Window);
        }
        record->TextState |= Busy;
    }
    ++record->BusyDepth;
    ShowBusyPointer(record);
    return 1;
}

void UnlockTextWindow(TextRecord* record)
{
    if (!record || !record->Window || record->BusyDepth <= 0)
        return;
    if (--record->BusyDepth > 0)
        return;
    if ((record->TextState & WindowOpen) && record->MenuStrip)
        SetMenuStrip(record->Window, record->MenuStrip);
    ModifyIDCMP(record->Window, TextWindowIDCMP);
    ClearPointer(record->Window);
    record->TextState &= static_cast<uint16_t>(~Busy);
}
