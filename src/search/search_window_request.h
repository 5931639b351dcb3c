#pragma once
// Asking the main process for the search window, which it owns.

struct TextRecord;

// "Set": opens the search window, or brings it to the front, with this
// text's case option; "Error opening window" when it can't be had. True
// when the window is there.
bool OpenSearchWindow(TextRecord* record);
