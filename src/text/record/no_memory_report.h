#pragma once
// How the record's own operations (the line table, the line buffers)
// report an exhausted allocation. They stand below the requesters, so the
// program installs its report at start; until then the report is one line
// on standard error, "Not enough memory". Either way the caller treats it
// as the shown message and gives 0 or false without reporting again.
struct TextRecord;

using NoMemoryReport = void (*)(TextRecord* record);

// Installs `report`, or with null the console line. Set before the first
// text starts; texts only read it.
void SetNoMemoryReport(NoMemoryReport report);

// Shows "Not enough memory" for the text through the installed report.
void ReportNoMemory(TextRecord* record);
