#include "text/edit/viewport.h"

#include "frame/window/refresh.h"
#include "frame/window/text_window.h"
#include "text/record/text_record.h"

void ResizeViewport(TextRecord* record)
{
    UpdateVisibleSize(record);
    if (!FollowCursor(record, true))
        RefreshAll(record);
}
