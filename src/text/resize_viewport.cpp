#include "frame/text_window.h"
#include "platform/display/intuition.h"
#include "text/render.h"
#include "text/text_record.h"
#include "text/viewport.h"

void ResizeViewport(TextRecord* record)
{
    UpdateVisibleSize(record);
    if (!FollowCursor(record, true))
        RefreshAll(record);
}

void CheckResize(TextRecord* record)
{
    const Window* window = record->Window;
    if (!window || !(record->TextState & WindowOpen) || !window->RPort->Font)
        return;
    const TextFont* font = window->RPort->Font;
    int32_t columns = (window->Width - window->BorderLeft - window->BorderRight) / font->tf_XSize;
    int32_t rows = (window->Height - window->BorderTop - window->BorderBottom) / (font->tf_YSize + 1);
    if (columns != record->VisibleColumns || rows != record->VisibleRows)
        ResizeViewport(record);
}
