#pragma once
// The menu commands that are one requester and what it sets.
struct TextRecord;

// "Tabulations": a tab size from 1 to 40; other values are refused with
// "Incorrect value".
void TabulationsCommand(TextRecord* record);
// "Max line length": a larger value grows the text's line buffers; the
// same value does nothing; a smaller one is refused.
void MaxLineLengthCommand(TextRecord* record);
// "Filenote": the note of a chosen file, shown for editing and written back.
void FilenoteCommand(TextRecord* record);
// "Informations": the program, the text's size and font, its script port,
// the free memory.
void InformationRequester(TextRecord* record);
// "Select text": a button for a new window and one for each text; the
// chosen text comes to the front.
void SelectTextCommand(TextRecord* record);
// Brings the text at `position` (from 1) of the text list to the front, or
// says in a requester why it can't.
void SelectText(TextRecord* record, long position);
