#include "frame/window/report.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "platform/display/intuition.h"
#include "platform/locale/latin1.h"
#include "services/messages.h"
#include "text/record/text_record.h"

#include <cstdio>
#include <string>

void UpdateVisibleSize(TextRecord* record)
{
    Window* window = record->Window;
    if ((record->TextState & Hidden) || !window)
        return;
    const TextFont* font = window->RPort->Font;
    if (font && font->tf_XSize > 0) {
        record->VisibleColumns = (window->Width - window->BorderLeft - window->BorderRight) / font->tf_XSize;
        record->VisibleRows = (window->Height - window->BorderTop - window->BorderBottom) / (font->tf_YSize + 1);
    }
    if (record->TextState & WindowOpen)
        UpdateStatusTitle(record);
}

void UpdateStatusTitle(TextRecord* record)
{
    if (record->TextState & Busy)
        return;
    if (record->TextState & Iconified) {
        SetWindowTitle(record, FileNameToUtf8(record->FileName).c_str());
        return;
    }
    if (!(record->TextState & WindowOpen))
        return;
    char name[JoinedPathSize];
    if (record->Options & FullName)
        JoinPath(record->FileDirectory, record->FileName, name);
    else
        std::snprintf(name, sizeof name, "%s", record->FileName);
    const std::string shown = FileNameToUtf8(name);
    int32_t column = record->CursorColumn;
    auto under = static_cast<unsigned char>(column < record->EditLength ? record->EditLine[column] : ' ');
    char title[sizeof record->TitleBuffer];
    std::snprintf(title, sizeof title, "%s%s ($%lx %ld-%ld/%ld)", shown.c_str(),
        record->Modified ? Latin1ToUtf8(GetString(MessageId::Modified)).c_str() : "", static_cast<unsigned long>(under),
        static_cast<long>(column) + 1, static_cast<long>(record->CursorLine) + 1,
        static_cast<long>(record->LineCount));
    SetWindowTitle(record, title);
}
