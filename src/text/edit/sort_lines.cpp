#include "frame/window/refresh.h"
#include "frame/window/text_window.h"
#include "platform/exec/memory.h"
#include "platform/utility/strings.h"
#include "requesters/no_memory.h"
#include "text/edit/block_marking.h"
#include "text/edit/line_operations.h"
#include "text/lines/edit_line.h"
#include "text/record/line_access.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <algorithm>
#include <utility>

namespace {

// strcmp over unsigned bytes, optionally through the upper case of each.
int CompareLines(const char* a, const char* b, bool ignoreCase)
{
    for (;; ++a, ++b) {
        unsigned char x = static_cast<unsigned char>(*a);
        unsigned char y = static_cast<unsigned char>(*b);
        if (ignoreCase) {
            x = ToUpper(x);
            y = ToUpper(y);
        }
        if (x != y || x == 0)
            return x - y;
    }
}

} // namespace

int32_t SortLines(TextRecord* record, int32_t first, int32_t last, int32_t direction)
{
    if (!FlushEditLine(record) || direction == 0)
        return 0;
    first = ClampLine(record, first);
    last = ClampLine(record, last);
    const bool ignoreCase = (record->Options & IgnoreCase) != 0;
    const int32_t count = last - first + 1;
    auto** lines = static_cast<char**>(AllocVec(sizeof(char*) * static_cast<size_t>(count), MEMF_ANY));
    if (!lines) {
        NoMemoryRequester(record);
        return 0;
    }
    GetLineStrings(record, first, count, lines);
    // A pair is out of order when its first line sorts behind the second.
    auto outOfOrder = [&](int32_t i, int32_t j) {
        const int order = CompareLines(lines[i], lines[j], ignoreCase);
        return direction > 0 ? order > 0 : order < 0;
    };
    int32_t swaps = 0, lowest = count, highest = -1;
    for (int32_t gap = count / 2; gap > 0; gap /= 2) {
        for (int32_t i = 0; i < count - gap; ++i) {
            for (int32_t j = i; j >= 0 && outOfOrder(j, j + gap); j -= gap) {
                ++swaps;
                std::swap(lines[j], lines[j + gap]);
                lowest = std::min(lowest, j);
                highest = std::max(highest, j + gap);
            }
        }
    }
    if (swaps > 0 && !PutLineStrings(record, first + lowest, highest - lowest + 1, lines + lowest))
        swaps = 0;
    FreeVec(lines);
    if (swaps > 0) {
        UnmarkBlock(record);
        LoadEditLine(record, LineIndex(record->CursorLine), ColumnIndex(record->CursorColumn));
        ClearRows(record, first + lowest, highest - lowest + 1);
        RefreshRows(record, first + lowest, highest - lowest + 1);
        record->Modified = 1;
        UpdateStatusTitle(record);
    }
    return swaps;
}
