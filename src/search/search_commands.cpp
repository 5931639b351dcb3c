#include "search/search_commands.h"

#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "platform/display/input_codes.h"
#include "platform/exec/memory.h"
#include "requesters/file_reports.h"
#include "search/replace_all.h"
#include "search/search_engine.h"
#include "search/search_reports.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/record/text_record.h"

#include <algorithm>

namespace {

// A copy of the main process's find or replace text, freed with FreeVec;
// null after "Not enough memory".
char* TakeMainString(TextRecord* record, int16_t code)
{
    auto* text = reinterpret_cast<char*>(SendToMainWait(record, code, 0));
    if (!text)
        ErrorRequester(record, MessageId::NotEnoughMemory);
    return text;
}

bool ShiftHeld(const TextRecord* record)
{
    return (record->LastQualifier & IEQUALIFIER_SHIFT) != 0;
}

bool Find(TextRecord* record, int direction, const char* text)
{
    if (!Search(record, direction, false, text, nullptr))
        return false;
    MarkText(record, text);
    return true;
}

bool Replace(TextRecord* record, int direction, const char* find, const char* replacement)
{
    if (!Search(record, direction, true, find, replacement))
        return false;
    MarkText(record, replacement);
    return true;
}

void FindCommand(TextRecord* record, int direction)
{
    char* find = TakeMainString(record, CMD_GET_FIND);
    if (!find)
        return;
    if (!Find(record, direction, find))
        ReportNotFound(record, find);
    FreeVec(find);
}

// Runs `command` with copies of both main strings.
template <typename Command>
void WithMainStrings(TextRecord* record, Command command)
{
    char* find = TakeMainString(record, CMD_GET_FIND);
    if (!find)
        return;
    if (char* replacement = TakeMainString(record, CMD_GET_REPLACE)) {
        command(find, replacement);
        FreeVec(replacement);
    }
    FreeVec(find);
}

void ReplaceCommand(TextRecord* record, int direction)
{
    WithMainStrings(record, [&](const char* find, const char* replacement) {
        if (!Replace(record, direction, find, replacement))
            ReportNotFound(record, find);
    });
}

} // namespace

bool FindPrevious(TextRecord* record, const char* text)
{
    return Find(record, -1, text);
}

bool FindNext(TextRecord* record, const char* text)
{
    return Find(record, 1, text);
}

bool ReplacePrevious(TextRecord* record, const char* find, const char* replacement)
{
    return Replace(record, -1, find, replacement);
}

bool ReplaceNext(TextRecord* record, const char* find, const char* replacement)
{
    return Replace(record, 1, find, replacement);
}

void FindPreviousCommand(TextRecord* record)
{
    FindCommand(record, -1);
}

void FindNextCommand(TextRecord* record)
{
    FindCommand(record, 1);
}

void SelectionCommand(TextRecord* record)
{
    int32_t lines = BlockLineCount(record, true);
    if (lines == 0)
        return;
    if (lines > 1) {
        ErrorRequester(record, MessageId::BlockNotOnOneLine);
        return;
    }
    const int32_t length = std::min(BlockTextLength(record), record->MaxLineLength);
    CopyBlockText(record, record->WorkLine, length);
    record->WorkLine[length] = 0;
    if (record->MainPort)
        SendToMainWait(record, CMD_SET_FIND, reinterpret_cast<intptr_t>(record->WorkLine));
    const bool found = ShiftHeld(record) ? FindPrevious(record, record->WorkLine) : FindNext(record, record->WorkLine);
    if (!found)
        ReportNotFound(record, record->WorkLine);
}

void ReplacePreviousCommand(TextRecord* record)
{
    ReplaceCommand(record, -1);
}

void ReplaceNextCommand(TextRecord* record)
{
    ReplaceCommand(record, 1);
}

void ReplaceAllCommand(TextRecord* record)
{
    const int direction = ShiftHeld(record) ? -1 : 1;
    WithMainStrings(record, [&](const char* find, const char* replacement) {
        int32_t count = ReplaceAll(record, direction, find, replacement);
        if (count > 0)
            ReportReplaced(record, count);
        else
            ReportNotFound(record, find);
    });
}
