#pragma once
// Shared by the rendering files: whether drawing may happen now, and the
// two ways of setting the pens for text.
#include <cstdint>

struct TextRecord;
struct RastPort;

// The window's rastport when the text may be drawn in (WindowOpen, no
// Batch, a window with a font), else null. Null too while the drawing is
// held (held_drawing.h), which notes that something waits.
RastPort* DrawingPort(TextRecord* record);

// TextPen on BackgroundPen.
void SetPlainPens(const TextRecord* record, RastPort* port);
// WhitePen on TextPen.
void SetBlockPens(const TextRecord* record, RastPort* port);
