#pragma once
// The six pens a text window draws with, got by best match on the screen's
// colour map when the window opens and given back when it closes.
#include <cstdint>

struct TextRecord;
struct ColorMap;

// A pen field of the record and its colour, 32 bits per gun.
struct PenColour {
    int16_t TextRecord::*Pen;
    uint32_t Red, Green, Blue;
};

// In the order the pens are obtained: BackgroundPen (light grey), TextPen
// (black), WhitePen, BluePen, RedPen, YellowPen.
extern const PenColour TextPenColours[6];

// Fills the six pen fields from `map`. A null map leaves every pen at -1,
// which draws in pen 0 and is ignored on release.
void ObtainTextPens(TextRecord* record, ColorMap* map);
// Gives the six pens back and sets the fields to -1.
void ReleaseTextPens(TextRecord* record, ColorMap* map);
