#include "text/record/line_buffers.h"

#include "platform/exec/memory.h"
#include "text/record/no_memory_report.h"
#include "text/record/text_record.h"

#include <cstring>

namespace {

// Buffers of four times length + 1 bytes must stay addressable by int32_t
// offsets, which every column computation uses.
constexpr int32_t MaxBufferLength = INT32_MAX / 4 - 1;

} // namespace

bool AllocLineBuffers(TextRecord* record, int32_t length)
{
    if (length < 1 || length > MaxBufferLength) {
        return false;
    }
    const size_t part = static_cast<size_t>(length) + 1;
    auto* block = static_cast<char*>(AllocVec(4 * part, MEMF_CLEAR));
    if (block == nullptr) {
        return false;
    }
    record->EditLine = block;
    record->RecallLine = block + part;
    record->WorkLine = block + 2 * part;
    record->RenderLine = block + 3 * part;
    record->MaxLineLength = length;
    return true;
}

LineLengthChange SetMaxLineLength(TextRecord* record, int32_t length)
{
    if (length == record->MaxLineLength) {
        return LineLengthChange::Unchanged;
    }
    if (length < record->MaxLineLength) {
        return LineLengthChange::CannotReduce;
    }
    char* oldBlock = record->EditLine;
    const char* oldRecall = record->RecallLine;
    const int32_t oldLength = record->MaxLineLength;
    if (!AllocLineBuffers(record, length)) {
        ReportNoMemory(record);
        return LineLengthChange::NoMemory;
    }
    std::memcpy(record->EditLine, oldBlock, static_cast<size_t>(oldLength) + 1);
    std::memcpy(record->RecallLine, oldRecall, static_cast<size_t>(oldLength) + 1);
    FreeVec(oldBlock);
    return LineLengthChange::Raised;
}
