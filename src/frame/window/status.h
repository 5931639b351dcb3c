#pragma once
// What the title bar and the pointer of a text window tell the user.
#include "services/message_id.h"

struct TextRecord;

// With a window: the text, in the editor's ISO 8859-1, becomes the window
// title (kept in TitleBuffer in the desktop's UTF-8); the screen title
// stays. Without a window nothing happens.
void SetStatusText(TextRecord* record, const char* text);
// The same with a title already in UTF-8, as one showing a file name is.
void SetWindowTitle(TextRecord* record, const char* utf8);
// SetStatusText with a built-in message: "Saving...", "Loading...", ...
// It stands until the next title update, which Busy holds off.
void SetStatusMessage(TextRecord* record, MessageId id);

// The busy pointer over the window of a record (null is allowed). It needs
// no ending: the event loop clears it at the top of every pass, unless the
// window is in the busy state.
void ShowBusyPointer(TextRecord* record);
void ClearBusyPointer(TextRecord* record);
