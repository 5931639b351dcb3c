#include "frame/window/refresh.h"
#include "frame/window/text_window.h"
#include "text/render/render.h"
#include "text/record/text_record.h"
#include "text/edit/viewport.h"

void ResizeViewport(TextRecord* record)
{
    UpdateVisibleSize(record);
    if (!FollowCursor(record, true))
        RefreshAll(record);
}
