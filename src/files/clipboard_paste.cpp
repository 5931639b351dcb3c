#include "files/clipboard_paste.h"

#include "files/clipboard_unit.h"
#include "frame/window/refresh.h"
#include "frame/window/status.h"
#include "platform/clip/clip_units.h"
#include "platform/dos/errors.h"
#include "platform/exec/memory.h"
#include "platform/utility/big_endian.h"
#include "requesters/file_reports.h"
#include "requesters/no_memory.h"
#include "text/edit/block_marking.h"
#include "text/edit/edit_current_line.h"
#include "text/edit/viewport.h"
#include "text/record/block_span.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr MessageId ClipboardIsEmpty{78};
constexpr MessageId BadClipboardContent{79};

// A clip read from the start, in order, as the clipboard hands it out.
struct ClipRequest {
    std::vector<uint8_t> Data;
    size_t Offset = 0;
};

// The next `length` bytes into `buffer`, or past them with a null buffer.
// True when exactly that many were there; a short read takes what there
// was, so every later read fails too.
bool ClipRead(ClipRequest* request, void* buffer, size_t length)
{
    const size_t available = std::min(length, request->Data.size() - request->Offset);
    if (buffer && available > 0)
        std::memcpy(buffer, request->Data.data() + request->Offset, available);
    request->Offset += available;
    return available == length;
}

// Drops the zero bytes of `length` bytes of `text` and terminates the rest.
void DropZeroBytes(char* text, size_t length)
{
    char* end = std::remove(text, text + length, '\0');
    *end = '\0';
}

// Inserts the text of one CHRS chunk of `size` bytes, which comes next.
// Gives the lines it broke, or -1 when the clip ends here.
int32_t InsertChunk(TextRecord* record, ClipRequest* request, uint32_t size)
{
    // A chunk longer than what is left of the clip (cut short, or an absurd
    // size) could never be read whole, whatever was allocated for it.
    if (size > request->Data.size() - request->Offset) {
        ErrorRequester(record, BadClipboardContent);
        return -1;
    }
    auto* text = static_cast<char*>(AllocVec(size_t{size} + 1, MEMF_ANY));
    if (!text) {
        NoMemoryRequester(record);
        return -1;
    }
    ClipRead(request, text, size);
    // The pad byte behind an odd chunk; a form that ends without it is
    // taken as it is.
    if (size & 1)
        ClipRead(request, nullptr, 1);
    DropZeroBytes(text, size);
    const int32_t lines = InsertTextLines(record, text, true);
    FreeVec(text);
    return lines;
}

// Checks the form and inserts its CHRS chunks; gives the lines broken.
int32_t InsertClip(TextRecord* record, ClipRequest* request)
{
    uint8_t header[12];
    if (!ClipRead(request, header, sizeof header)) {
        ErrorRequester(record, ClipboardIsEmpty);
        return 0;
    }
    if (std::memcmp(header, "FORM", 4) != 0 || std::memcmp(header + 8, "FTXT", 4) != 0) {
        ErrorRequester(record, BadClipboardContent);
        return 0;
    }
    // Whatever follows the form is not part of the clip.
    const size_t formEnd = size_t{ReadBigEndian32(header + 4)} + 8;
    if (formEnd < request->Data.size())
        request->Data.resize(std::max(formEnd, request->Offset));

    int32_t lines = 0;
    uint8_t chunk[8];
    while (request->Offset < request->Data.size()) {
        // A chunk cut short is content that can't be read: said, not skipped.
        if (!ClipRead(request, chunk, sizeof chunk)) {
            ErrorRequester(record, BadClipboardContent);
            break;
        }
        const uint32_t size = ReadBigEndian32(chunk + 4);
        if (std::memcmp(chunk, "CHRS", 4) != 0) {
            if (!ClipRead(request, nullptr, size)) {
                ErrorRequester(record, BadClipboardContent);
                break;
            }
            if (size & 1)
                ClipRead(request, nullptr, 1);
            continue;
        }
        if (size == 0)
            break;
        const int32_t broken = InsertChunk(record, request, size);
        if (broken < 0)
            break;
        lines += broken;
    }
    return lines;
}

} // namespace

void PasteClip(TextRecord* record)
{
    // Lines whose rows change besides the cursor's: a replaced block's.
    int32_t lines = 0;
    if (TestInBlock(record, record->CursorLine, record->CursorColumn) > 0) {
        BlockSpan span;
        lines = GetBlock(record, &span);
        if (span.LastColumn < VisibleLength(GetLineText(record, span.LastLine)))
            lines -= 1;
    } else {
        UnmarkBlock(record);
    }

    ShowBusyPointer(record);
    const bool inBatch = record->TextState & Batch;
    record->TextState |= Batch;
    ClipRequest request;
    SetIoErr(0);
    if (ReadClipUnit(ClipUnit.load(), request.Data))
        lines += InsertClip(record, &request);
    else
        FaultRequester(record, BadClipboardContent);
    if (!inBatch)
        record->TextState &= static_cast<uint16_t>(~Batch);

    if (FollowCursor(record, true))
        return;
    if (lines < 1) {
        RefreshCursorLine(record);
        return;
    }
    RefreshAll(record);
    // Nothing was drawn while the chunks went in: when a replaced block
    // left the text shorter than the window, its last rows still show the
    // lines that went away.
    ClearRows(record, record->LineCount, record->VisibleRows);
}
