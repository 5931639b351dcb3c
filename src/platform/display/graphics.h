#pragma once
// Drawing: fonts, pens and the rastport of a window.
//
// A window's text area is a grid of cells, tf_XSize pixels wide and
// tf_YSize + 1 high, starting at (BorderLeft, BorderTop) of the window.
// Coordinates are pixels from the window's outer top-left corner. Text is
// drawn cell by cell, so columns stay put even in a font that is not
// perfectly fixed: the character drawn with its baseline at y belongs to
// the row whose band holds its top, y - tf_Baseline.
//
// Threading: a rastport is painted only by the task that owns its window.
// Each drawing call takes the window's lock for its own duration, so the
// display side never sees half a call; the display side shows the result
// later without waiting for the task. Drawing outside the text area is
// clipped away.
#include <cstdint>

// A font as asked for: name ("topaz.font" is the backend's default fixed
// font) and height in pixels.
struct TextAttr {
    const char* ta_Name = nullptr;
    uint16_t ta_YSize = 0;
    uint8_t ta_Style = 0;
    uint8_t ta_Flags = 0;
};

// An open font. Records are made and freed by the backend (OpenFont,
// CloseFont); the measures never change while the font is open.
struct TextFont {
    uint16_t tf_XSize = 0;      // cell width
    uint16_t tf_YSize = 0;      // glyph height; a text row is one pixel more
    uint16_t tf_Baseline = 0;   // from the glyph's top to its baseline
    uint8_t tf_Style = 0;
    uint8_t tf_Flags = 0;
    const char* tf_Name = nullptr;   // the name it was opened by
};

// The colours of a screen. Thread-safe: pens may be obtained by any task.
struct ColorMap;

// Pen values are ColorMap indexes, 0 to 255.
class RastSurface;
struct RastPort {
    TextFont* Font = nullptr;
    uint8_t FgPen = 1;   // the A pen: text and fills
    uint8_t BgPen = 0;   // the B pen: behind text, and what scrolls expose
    int16_t cp_x = 0;    // current position: Text draws here, baseline y
    int16_t cp_y = 0;
    // Where the drawing goes; set by the backend. Null: drawing does nothing
    // (a screen's rastport only measures).
    RastSurface* Surface = nullptr;
};

// The backend's drawing target behind a rastport. Implementations clip to
// their window's text area and lock the window around each call.
class RastSurface {
public:
    virtual ~RastSurface() = default;
    // `count` bytes of `text` from pixel x, baseline y, one cell each, in
    // the rastport's font, FgPen on BgPen.
    virtual void DrawText(const RastPort& rp, int x, int y, const char* text, int count) = 0;
    // The inclusive rectangle in `pen`.
    virtual void FillRect(const RastPort& rp, uint8_t pen, int xMin, int yMin, int xMax, int yMax) = 0;
    // Moves the contents of the inclusive rectangle by (-dx, -dy) and fills
    // what is exposed with rp.BgPen.
    virtual void ScrollRect(const RastPort& rp, int dx, int dy, int xMin, int yMin, int xMax, int yMax) = 0;
};

void Move(RastPort* rp, int x, int y);
// Draws `count` bytes at the current position and advances it by
// count x tf_XSize. A count below 1 draws nothing. Bytes are ISO 8859-1;
// control bytes take a cell like any other.
void Text(RastPort* rp, const char* text, int count);
void SetAPen(RastPort* rp, uint8_t pen);
void SetBPen(RastPort* rp, uint8_t pen);
void SetFont(RastPort* rp, TextFont* font);   // null is ignored
// Width in pixels of `count` bytes in the rastport's font: count cells.
int TextLength(const RastPort* rp, const char* text, int count);
// Fills the inclusive rectangle with the A pen; an empty rectangle
// (xMax < xMin or yMax < yMin) draws nothing.
void RectFill(RastPort* rp, int xMin, int yMin, int xMax, int yMax);
// Scrolls the inclusive rectangle: positive dx moves the contents left,
// positive dy up. The exposed strip is filled with the B pen.
void ScrollRaster(RastPort* rp, int dx, int dy, int xMin, int yMin, int xMax, int yMax);

// A font by name and size, or null when the backend has no such font. The
// result is closed with CloseFont (null is allowed).
TextFont* OpenFont(const TextAttr* attr);
void CloseFont(TextFont* font);

// Colour maps. Colours are 32 bits per gun, as in 0xFFFFFFFF for full.
// `entries` pens, all free and black.
ColorMap* GetColorMap(int entries);
void FreeColorMap(ColorMap* map);
// Fixes a pen's colour (for the backend's own pens, which are never
// handed out as free).
void SetRGB32CM(ColorMap* map, int pen, uint32_t red, uint32_t green, uint32_t blue);
// A pen of the colour: a pen that already has exactly that colour is shared,
// else a free pen gets it, else the nearest colour is shared. -1 only for a
// null map. Each success is given back with ReleasePen.
long ObtainBestPen(ColorMap* map, uint32_t red, uint32_t green, uint32_t blue);
void ReleasePen(ColorMap* map, long pen);   // -1 is ignored
// Three words (red, green, blue) for each of `count` pens from `first`.
void GetRGB32(const ColorMap* map, int first, int count, uint32_t* table);
