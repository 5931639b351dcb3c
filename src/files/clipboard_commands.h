#pragma once
// The clipboard commands of the "Edition" menu that act on the block, as
// menu handlers: each runs in the text's process with the record of the
// text picked from. "Paste clip" is PasteClip itself (clipboard_paste.h).

struct TextRecord;

// "Copy block": the block becomes the clip and is unmarked.
void CopyBlockCommand(TextRecord* record);

// "Cut block": the block becomes the clip and is deleted. When the copy
// fails the block stays, marked, and nothing is deleted.
void CutBlockCommand(TextRecord* record);
