// Searching from a macro: plain strings forward and backward, replacing,
// and wildcard patterns. What is found shows as the block.
#include "builtins/text_arguments.h"
#include "builtins/text_functions.h"
#include "frame/window/refresh.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "macro/evaluator.h"
#include "platform/dos/match.h"
#include "platform/dos/patterns.h"
#include "search/search_commands.h"
#include "search/search_engine.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/line_access.h"
#include "text/record/text_record.h"

#include <cstdlib>
#include <cstring>

namespace {

// The hits of `search` repeated up to the magnitude of `count` times,
// forward for a positive count; the first miss ends it.
template <typename Search>
int32_t RepeatSearch(int32_t count, Search search)
{
    const int64_t wanted = std::llabs(int64_t{count});
    int32_t hits = 0;
    while (hits < wanted && search(count > 0 ? 1 : -1))
        ++hits;
    return hits;
}

// Tokens of a pattern: twice its length and a little more always do, and
// a pattern that doesn't fit is refused as one that doesn't parse.
constexpr long PatternBufferSize = 255;

// The first place from `column` of `line` on, then from column 0 of each
// following line, where `tokens` match the rest of the line.
bool FindPatternFrom(const TextRecord* record, const char* tokens, int32_t line, int32_t column, SearchMatch* match)
{
    const bool ignoreCase = (record->Options & IgnoreCase) != 0;
    for (; line < record->LineCount; ++line, column = 0) {
        const char* text = GetLineText(record, line);
        for (int32_t at = column; text[at] != '\0'; ++at) {
            if (ignoreCase ? MatchPatternNoCase(tokens, text + at) : MatchPattern(tokens, text + at)) {
                *match = {line, at};
                return true;
            }
        }
    }
    return false;
}

// FIND, or with `replace` REPLACE: the find text (and the replacement)
// from the arguments, then the hits or replacements as RepeatSearch counts
// them. An empty find text finds nothing.
int32_t SearchAgain(int32_t slot, MacroStack* stack, MacroContext* context, bool replace)
{
    TextRecord* record = context->Text;
    const int32_t count = stack->Values[slot].Integer;
    int32_t at = slot;
    const char* find = NextStringArgument(&at, stack, context);
    if (!find)
        return -1;
    const char* replacement = replace ? NextStringArgument(&at, stack, context) : "";
    if (!replacement)
        return -1;
    // A replacement stays inside its line: it can't break it.
    if (std::strchr(replacement, '\n'))
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    if (*find == '\0')
        return IntegerResult(slot, 0, stack);
    const int32_t hits = RepeatSearch(count, [record, find, replacement, replace](int direction) {
        if (replace)
            return direction > 0 ? ReplaceNext(record, find, replacement) : ReplacePrevious(record, find, replacement);
        return direction > 0 ? FindNext(record, find) : FindPrevious(record, find);
    });
    return IntegerResult(slot, hits, stack);
}

} // namespace

int32_t FindBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return SearchAgain(slot, stack, context, false);
}

int32_t ReplaceBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return SearchAgain(slot, stack, context, true);
}

int32_t SearchBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    FlushEditLine(record);
    SetStatusMessage(record, MessageId::Searching);
    char tokens[PatternBufferSize];
    const char* pattern = stack->Values[slot].String;
    const bool ignoreCase = (record->Options & IgnoreCase) != 0;
    const int parsed = ignoreCase ? ParsePatternNoCase(pattern, tokens, PatternBufferSize)
                                  : ParsePattern(pattern, tokens, PatternBufferSize);
    if (parsed < 0)
        return FailHandler(context, MessageId::IncorrectExpression);
    SearchMatch match{};
    const bool found = FindPatternFrom(record, tokens, record->CursorLine, record->CursorColumn + 1, &match);
    if (found) {
        SetCursor(record, ColumnIndex(match.Column), LineIndex(match.Line));
        FollowCursor(record, true);
        RefreshAll(record);
    }
    UpdateStatusTitle(record);
    return IntegerResult(slot, found ? 1 : 0, stack);
}
