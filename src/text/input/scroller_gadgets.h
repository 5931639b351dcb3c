#pragma once
// The six scroller gadgets of a text window as the user works them.
struct TextRecord;
struct Gadget;

// Runs when a scroller gadget goes down and takes the window's messages
// itself until the gadget comes up: an arrow scrolls by a line or column,
// and again on every tick while held; the knob of a scroller moves the
// text with each pointer move; a click beside the knob pages toward it.
// On release the scroller and the text agree again: a value the text did
// not set is followed, else the scroller is set from the text. Other
// window messages that come while the gadget is held are dropped.
void HandleScrollerGadget(TextRecord* record, Gadget* gadget);
