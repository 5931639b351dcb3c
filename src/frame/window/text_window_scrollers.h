#pragma once
// The six border gadgets of a text window: the vertical scroller with its
// up and down arrows on the right, the horizontal scroller with its left
// and right arrows at the bottom, ids 0x10, 0x40, 0x20, 0x80, 0x04, 0x08.
// Their pots follow the text: the vertical one TopLine against LineCount,
// the horizontal one LeftColumn against MaxLineLength (the longest possible
// line, not the longest line of the text).
#include "platform/display/intuition.h"

struct TextRecord;

// The gadgets, their two PropInfos and knob images, in one block made at
// every opening and freed with the window. The gadgets are linked in the
// order above.
struct ScrollerBlock {
    Gadget Gadgets[6];
    PropInfo VertInfo, HorizInfo;
    Image VertKnob, HorizKnob;
};

// Measures the border images of the window's screen, keeps the four arrow
// images in ArrowImages, and adds and shows the six gadgets. Also sets
// CharWidth and CharHeight from the screen's font. False (and nothing
// added) when no memory; the window then works without scrollers.
bool AddScrollers(TextRecord* record);
// Frees a block taken from the window by FindScrollers once the window is
// closed (the display side may read the gadgets until then), and the arrow
// images. A null block is allowed.
void FreeScrollers(TextRecord* record, ScrollerBlock* block);
// The window's scroller block, or null (a title window has none).
ScrollerBlock* FindScrollers(const Window* window);

// Pot and body of a scroller from the text; the other direction stays at
// MAXPOT and MAXBODY. Both are skipped while the user holds the gadget
// (GFLG_SELECTED), so a macro changing the text doesn't fight the drag.
// LastVertPot and LastHorizPot note what was set.
void UpdateVertScroller(TextRecord* record);
void UpdateHorizScroller(TextRecord* record);
