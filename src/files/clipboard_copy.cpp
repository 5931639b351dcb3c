#include "files/clipboard_copy.h"

#include "files/clipboard_unit.h"
#include "frame/window/status.h"
#include "platform/clip/clip_text.h"
#include "platform/dos/errors.h"
#include "platform/exec/memory.h"
#include "requesters/file_reports.h"
#include "requesters/no_memory.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/lines/edit_line.h"

namespace {

constexpr MessageId ErrorWritingClipboard{80};

} // namespace

bool WriteClip(const char* text, size_t length)
{
    return WriteClipText(ClipUnit.load(), text, length);
}

bool CopyBlockToClip(TextRecord* record)
{
    if (BlockLineCount(record, true) == 0 || !FlushEditLine(record))
        return false;
    ShowBusyPointer(record);
    const int32_t length = BlockTextLength(record);
    auto* text = static_cast<char*>(AllocVec(static_cast<size_t>(length) + 1, MEMF_CLEAR));
    if (!text) {
        ClearBusyPointer(record);
        NoMemoryRequester(record);
        return false;
    }
    CopyBlockText(record, text, length);
    SetIoErr(0);
    const bool written = WriteClip(text, static_cast<size_t>(length));
    FreeVec(text);
    ClearBusyPointer(record);
    if (!written) {
        FaultRequester(record, ErrorWritingClipboard);
        return false;
    }
    return true;
}
