#pragma once
// Fonts of the desktop backend. "topaz.font" is the desktop's fixed-width
// font at its usual size (the asked size is ignored); any other name, with
// or without ".font", is a font family of the system at the asked pixel
// height. Every TextFont that the Qt backend hands out is a QtTextFont, so
// a rastport's font can be turned back into its glyphs.
#include "platform/display/graphics.h"
#include "platform/display/qt/glyph_atlas.h"

#include <memory>
#include <string>

struct QtTextFont : TextFont {
    std::string name;
    std::unique_ptr<GlyphAtlas> glyphs;
};

// Null when the system has no such family. Call on the display thread.
QtTextFont* OpenQtFont(const TextAttr& attr);

// The font that the name "topaz.font" stands for.
constexpr const char* kDefaultFontName = "topaz.font";
