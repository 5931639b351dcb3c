#include "frame/window/refresh.h"
#include "platform/utility/strings.h"
#include "text/edit/block_operations.h"
#include "text/record/block_span.h"
#include "text/record/char_class.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <algorithm>
#include <cstring>

void ChangeCase(TextRecord* record, bool upper)
{
    auto convert = [upper](unsigned char c) { return upper ? ToUpper(c) : ToLower(c); };
    BlockSpan span;
    if (TestInBlock(record, record->CursorLine, record->CursorColumn) <= 0 || GetBlock(record, &span) == 0) {
        // The change reaches the table at the next flush.
        if (record->CursorColumn < record->EditLength) {
            char& c = record->EditLine[record->CursorColumn];
            c = static_cast<char>(convert(static_cast<unsigned char>(c)));
            RefreshCursorLine(record);
        }
        return;
    }
    // A case change keeps every length, so stored strings change in place.
    for (int32_t line = span.FirstLine; line <= span.LastLine && line < record->LineCount; ++line) {
        const bool cursorLine = line == record->CursorLine;
        char* text = cursorLine ? record->EditLine : LineString(record, line);
        const auto length = static_cast<int32_t>(std::strlen(text));
        const int32_t from = line == span.FirstLine ? span.FirstColumn : 0;
        const int32_t to = std::min(line == span.LastLine ? span.LastColumn : record->MaxLineLength, length - 1);
        for (int32_t i = from; i <= to; ++i) {
            const auto c = static_cast<unsigned char>(text[i]);
            const unsigned char changed = convert(c);
            if (changed == c)
                continue;
            text[i] = static_cast<char>(changed);
            if (!cursorLine && (CharClass[c] & CharWordLetter))
                record->Modified = 1;
        }
        RefreshRows(record, line, 1);
    }
}
