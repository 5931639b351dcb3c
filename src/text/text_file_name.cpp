#include "text/text_file_name.h"

#include "text/text_record.h"

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
    const char* slash = std::strrchr(name, '/');
    const char* file = name;
    size_t directoryLength = 0;
    if (slash != nullptr) {
        file = slash + 1;
        directoryLength = slash == name ? 1 : static_cast<size_t>(slash - name);
    } else if (const char* colon = std::strchr(name, ':'); colon != nullptr) {
        file = colon + 1;
        directoryLength = static_cast<size_t>(file - name);
    }
    CopyCut(record->FileDirectory, sizeof record->FileDirectory, name, directoryLength);
    CopyCut(record->FileName, sizeof record->FileName, file, std::strlen(file));
}
