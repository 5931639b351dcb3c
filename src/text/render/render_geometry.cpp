#include "platform/display/intuition.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/render_support.h"

static const TextFont* WindowFont(const TextRecord* record)
{
    return record->Window->RPort->Font;
}

int32_t ColumnToX(const TextRecord* record, int32_t column)
{
    return record->Window->BorderLeft + WindowFont(record)->tf_XSize * column;
}

int32_t RowToY(const TextRecord* record, int32_t row)
{
    return record->Window->BorderTop + (WindowFont(record)->tf_YSize + 1) * row;
}

int32_t RowBaseline(const TextRecord* record, int32_t row)
{
    return RowToY(record, row) + WindowFont(record)->tf_Baseline + 1;
}

RastPort* DrawingPort(TextRecord* record)
{
    if ((record->TextState & (WindowOpen | Batch)) != WindowOpen || !record->Window)
        return nullptr;
    if (record->DrawingHeld > 0) {
        record->DrawingMissed = 1;
        return nullptr;
    }
    RastPort* port = record->Window->RPort;
    return port && port->Font && port->Font->tf_XSize > 0 ? port : nullptr;
}

void SetPlainPens(const TextRecord* record, RastPort* port)
{
    SetAPen(port, static_cast<uint8_t>(record->TextPen));
    SetBPen(port, static_cast<uint8_t>(record->BackgroundPen));
}

void SetBlockPens(const TextRecord* record, RastPort* port)
{
    SetAPen(port, static_cast<uint8_t>(record->WhitePen));
    SetBPen(port, static_cast<uint8_t>(record->TextPen));
}
