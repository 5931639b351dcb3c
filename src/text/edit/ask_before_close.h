#pragma once
// The question before a text's contents go: closing it, or clearing it.
struct TextRecord;

// Whether the text may close: true for an unmodified or blank text, else
// the answer to the question about its changes (requesters/close_question.h).
// When it may, the text is emptied and named as a new one.
bool AskBeforeClose(TextRecord* record);
