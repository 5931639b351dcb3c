#include "text/record/text_file_name.h"

#include "platform/dos/paths.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <cstring>

namespace {

// Copies at most size - 1 bytes of `text`, up to `length`, and terminates.
void CopyCut(char* target, size_t size, const char* text, size_t length)
{
    length = std::min(length, size - 1);
    std::memcpy(target, text, length);
    target[length] = '\0';
}

} // namespace

void SetTextFileName(TextRecord* record, const char* name)
{
    const char* file = FilePart(name);
    CopyCut(record->FileDirectory, sizeof record->FileDirectory, name, static_cast<size_t>(PathPart(name) - name));
    CopyCut(record->FileName, sizeof record->FileName, file, std::strlen(file));
}
