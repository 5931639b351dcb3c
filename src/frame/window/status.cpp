#include "frame/window/status.h"

#include "platform/display/intuition.h"
#include "platform/utility/strings.h"
#include "services/messages.h"
#include "text/record/text_record.h"

void SetStatusText(TextRecord* record, const char* text)
{
    if (!record->Window)
        return;
    if (text != record->TitleBuffer)
        Strlcpy(record->TitleBuffer, text, sizeof record->TitleBuffer);
    SetWindowTitles(record->Window, record->TitleBuffer, reinterpret_cast<const char*>(-1));
}

void SetStatusMessage(TextRecord* record, MessageId id)
{
    SetStatusText(record, GetString(id));
}

void ShowBusyPointer(TextRecord* record)
{
    if (record && record->Window)
        SetWindowPointer(record->Window, true, true);
}

void ClearBusyPointer(TextRecord* record)
{
    if (record && record->Window && record->BusyDepth == 0)
        ClearPointer(record->Window);
}
