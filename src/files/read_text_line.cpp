#include "files/read_text_line.h"

#include "platform/dos/file_io.h"
#include "platform/utility/byte_scan.h"
#include "requesters/file_reports.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int32_t TabStop = 8;

// The first tab in [from, end), or end.
char* NextTab(char* from, char* end)
{
    auto* tab = static_cast<char*>(std::memchr(from, '\t', static_cast<size_t>(end - from)));
    return tab ? tab : end;
}

// Refills the buffer when it is used up: the bytes now waiting, 0 at the
// end of the file, -1 on a read error (not reported here). A refill looks
// for the block's first tab once, so that lines without one cost no search.
long WaitingBytes(TextRecord* record, int fd)
{
    if (record->FilePosition < record->FileLimit)
        return record->FileLimit - record->FilePosition;
    long got = ReadBytes(fd, record->FileBuffer, static_cast<size_t>(record->FileBufferSize));
    record->FilePosition = 0;
    record->FileLimit = got > 0 ? static_cast<int32_t>(got) : 0;
    record->FileCursor = NextTab(record->FileBuffer, record->FileBuffer + record->FileLimit);
    return got;
}

// After a full line: a newline right behind it belongs to that line. A read
// error here is left for the next call to meet and report.
void SkipNewlineAfterFullLine(TextRecord* record, int fd)
{
    if (WaitingBytes(record, fd) > 0 && record->FileBuffer[record->FilePosition] == '\n')
        ++record->FilePosition;
}

} // namespace

int32_t ReadTextLine(TextRecord* record, int fd)
{
    char* line = record->EditLine;
    const int32_t full = record->MaxLineLength;
    int32_t length = 0;
    while (length < full) {
        long waiting = WaitingBytes(record, fd);
        if (waiting < 0) {
            DosErrorRequester(record, MessageId::LoadingFile);
            return ReadFailed;
        }
        if (waiting == 0) {
            if (length == 0)
                return EndOfText;
            break;
        }
        // Each byte gives at least one character, so the line ends within
        // the next `full - length` bytes, at a newline or full.
        char* next = record->FileBuffer + record->FilePosition;
        char* const dataEnd = record->FileBuffer + record->FileLimit;
        const size_t window = std::min<size_t>(static_cast<size_t>(waiting), static_cast<size_t>(full - length));
        const char* newline = FindNewline(next, window);
        const char* const lineEnd = newline ? newline : next + window;
        while (next < lineEnd && length < full) {
            char* const tab = record->FileCursor < lineEnd ? record->FileCursor : nullptr;
            const char* const runEnd = tab ? tab : lineEnd;
            const auto run = std::min<ptrdiff_t>(runEnd - next, full - length);
            std::memcpy(line + length, next, static_cast<size_t>(run));
            length += static_cast<int32_t>(run);
            next += run;
            if (next == tab && length < full) {
                const int32_t stop = std::min((length / TabStop + 1) * TabStop, full);
                std::memset(line + length, ' ', static_cast<size_t>(stop - length));
                length = stop;
                ++next;
                record->FileCursor = NextTab(next, dataEnd);
            }
        }
        record->FilePosition = static_cast<int32_t>(next - record->FileBuffer);
        if (length == full) {
            SkipNewlineAfterFullLine(record, fd);
            break;
        }
        if (newline) {
            ++record->FilePosition;
            break;
        }
    }
    line[length] = 0;
    return length;
}
