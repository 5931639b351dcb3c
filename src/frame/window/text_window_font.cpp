#include "frame/window/text_window.h"
#include "platform/display/intuition.h"
#include "text/record/text_record.h"

int OpenTextFont(TextRecord* record, const char* name, uint16_t size)
{
    TextAttr attr;
    attr.ta_Name = name;
    attr.ta_YSize = size;
    TextFont* font = OpenFont(&attr);
    if (!font)
        return 0;
    CloseFont(record->TextFont);
    record->TextFont = font;
    if (record->Window)
        SetFont(record->Window->RPort, font);
    record->FontName = name;
    record->FontSize = size;
    return 1;
}
