#pragma once
// The requesters that show a message and take an answer by button.
//
// All take the calling text's record, or null in the main process. A
// result of -1 means the requester was closed (close gadget, Esc, right or
// middle button) or could not be made, and callers treat it as a cancel.
#include "services/message_id.h"

struct TextRecord;

// `count` lines, centered in a box (a line may hold '\n'), and one button
// "OK !". Any key but Help closes it. Always 0. Without a screen the
// failure goes to ReportAppError.
int MessageRequester(TextRecord* record, int count, const char* line1, ...);

// The three lines `text`, "DOS error" and the system's text of the calling
// thread's last DOS error; nothing at all when there is no error to tell.
void DosErrorRequester(TextRecord* record, const char* text);

// `text` in a box and `count` buttons under each other, with ids 1 to
// `count` (with 0, one button of the first label). Return answers 1.
// Gives the button's number or -1.
int ChoiceRequester(TextRecord* record, int count, const char* text, const char* const labels[]);

// `text` and the row "_YES" (1), "_NO" (0): 1, 0 or -1.
int ConfirmRequester(TextRecord* record, const char* text);
