#include "text/render/render_pens.h"

#include "platform/display/graphics.h"
#include "text/record/text_record.h"

const PenColour TextPenColours[6] = {
    {&TextRecord::BackgroundPen, 0xCFFFFFFF, 0xCFFFFFFF, 0xCFFFFFFF},
    {&TextRecord::TextPen, 0, 0, 0},
    {&TextRecord::WhitePen, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF},
    {&TextRecord::BluePen, 0, 0, 0xFFFFFFFF},
    {&TextRecord::RedPen, 0xFFFFFFFF, 0, 0},
    {&TextRecord::YellowPen, 0xFFFFFFFF, 0xFFFFFFFF, 0},
};

void ObtainTextPens(TextRecord* record, ColorMap* map)
{
    for (const PenColour& colour : TextPenColours)
        record->*colour.Pen = static_cast<int16_t>(ObtainBestPen(map, colour.Red, colour.Green, colour.Blue));
}

void ReleaseTextPens(TextRecord* record, ColorMap* map)
{
    for (const PenColour& colour : TextPenColours) {
        ReleasePen(map, record->*colour.Pen);
        record->*colour.Pen = -1;
    }
}
