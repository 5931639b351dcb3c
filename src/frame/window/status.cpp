#include "frame/window/status.h"

#include "platform/display/intuition.h"
#include "platform/locale/latin1.h"
#include "platform/utility/strings.h"
#include "services/messages.h"
#include "text/record/text_record.h"

void SetStatusText(TextRecord* record, const char* text)
{
    if (record->Window)
        SetWindowTitle(record, Latin1ToUtf8(text).c_str());
}

void SetWindowTitle(TextRecord* record, const char* utf8)
{
    if (!record->Window)
        return;
    Strlcpy(record->TitleBuffer, utf8, sizeof record->TitleBuffer);
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
