#pragma once
// The requesters that bring back a value typed or chosen by the user.
#include "services/message_id.h"

#include <cstdint>

struct RequesterWindow;
struct TextRecord;

// A string or a number. With `buffer`: edits its text, at most
// abs(*param) - 1 characters; *param below 0 adds the button of the
// function list. With a null buffer: edits the number abs(*param), stored
// in *param when accepted. 1 accepted, 0 cancelled, -1 no window. The
// buffer may have changed on a cancel too, when Return or Tab left the
// field before.
int InputRequester(TextRecord* record, const char* title, char* buffer, int* param);
int InputRequesterId(TextRecord* record, MessageId title, char* buffer, int* param);

// "Goto line": the wanted line from 1, or CursorLine + 1 when cancelled.
// "Relative" counts from the line after the cursor's; "Oth_er" empties the
// field.
int32_t GotoLineRequester(TextRecord* record);

// One row of `count` strings, chosen by a second click on the selected row,
// "_YES" or Return; the cursor keys move the selection. The row from 1, 0
// when cancelled, -1 when it could not be built.
int ListRequester(TextRecord* record, const char* title, int count, const char* const strings[]);

// The usage strings of the macro language's functions, one a row, given by
// the macro language at start (kept by pointer); none until then.
void SetFunctionUsages(int count, const char* const* usages);
// The usage of row `row` (from 1) of that table, or "".
const char* FunctionListRow(int row);
// Appends the usage of a function chosen from the list (the busy pointer
// on the text meanwhile) to the string gadget `field` of an open
// requester, within 254 characters.
void AppendFunctionUsage(TextRecord* record, RequesterWindow& requester, uint16_t field);

// ListRequester "Available functions" over those usages, with the Help key
// showing the selected function's help. The row from 1, 0 or -1.
int FunctionListRequester(TextRecord* record);
