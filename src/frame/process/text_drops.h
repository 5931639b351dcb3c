#pragma once
// Files dropped on a text window, as they arrive at its AppWindowPort.
struct TextRecord;

// Serves every drop waiting at the text's AppWindowPort and replies to it.
// A busy text (a requester or a macro running) only replies. Otherwise each
// dropped file in turn puts the cursor on the cell of the drop and loads:
// over the text for a drop on column 0 or on a text of one blank line,
// else inserted before the cursor's line. A file that would replace a
// modified text first asks "Do you want to loose the modified text?", as
// any load over a modified text does; a refusal skips that file. An
// argument without a directory is skipped.
void DrainDrops(TextRecord* record);
