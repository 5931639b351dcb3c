#pragma once
// The reports of the search commands, shown in a message requester. A
// report function may be installed in its place; tests record through it.

struct TextRecord;

// Shows `text`, whose lines are separated by '\n'.
using SearchReportFunction = void (*)(TextRecord* record, const char* text);
// Installs `report`, or with null the message requester.
void SetSearchReport(SearchReportFunction report);

// Longest find text shown whole in "String not found"; a longer one shows
// its first NotFoundShown characters and "...".
constexpr int NotFoundShown = 46;

// Two lines: the find text and "String not found".
void ReportNotFound(TextRecord* record, const char* find);
// "<count> strings replaced".
void ReportReplaced(TextRecord* record, long count);
