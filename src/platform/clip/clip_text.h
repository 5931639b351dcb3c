#pragma once
// Text through the clip units: written as one FTXT clip with a single CHRS
// chunk, read back from every CHRS chunk of the clip (see ftxt.h).
#include <cstddef>
#include <string>

#include "platform/clip/ftxt.h"

// False for a unit outside 0 to 255, a text too long for a clip, or a
// failed write.
bool WriteClipText(int unit, const char* text, size_t length);

// Text: `text` holds the clip's text. Empty: no clip, or one under 12
// bytes. BadContent: the clip is not FTXT or is damaged. Failed: a unit
// outside 0 to 255 or a failed read. `text` is empty unless Text.
ClipStatus ReadClipText(int unit, std::string& text);
