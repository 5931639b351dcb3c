#include "frame/window/refresh.h"
#include "text/edit/viewport.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

bool FitTopToText(TextRecord* record)
{
    if (record->TopLine + record->VisibleRows <= record->LineCount)
        return false;
    record->TopLine = record->LineCount > record->VisibleRows ? record->LineCount - record->VisibleRows : 0;
    if (record->VisibleRows > record->LineCount)
        ClearTextArea(record);
    RefreshAll(record);
    return true;
}
