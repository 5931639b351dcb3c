#pragma once
// The question a text asks before it closes with unsaved changes: continue
// (losing them), save, or cancel. It is asked in a requester window, which
// the requester subsystem installs here at start-up.
struct TextRecord;

// Asks about the record's changes, and saves the text when the user picks
// "Save". True when the text may close: "Continue", or a save that left the
// text unmodified. Runs in the text's process, its window raised.
using CloseQuestion = bool (*)(TextRecord* record);

// Installs the question; with none installed a modified text is kept open,
// as if "Cancel" had been picked, so that no change is ever lost unasked.
void SetCloseQuestion(CloseQuestion question);
CloseQuestion InstalledCloseQuestion();
