#include "frame/find_text.h"

#include "frame/app_globals.h"
#include "platform/dos/paths.h"
#include "text/text_record.h"

#include <cstring>

static unsigned char FoldCase(unsigned char c)
{
    if (c >= 'A' && c <= 'Z')
        return static_cast<unsigned char>(c + 0x20);
    // The accented capitals of ISO 8859-1, the multiplication sign excepted.
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return static_cast<unsigned char>(c + 0x20);
    return c;
}

bool SameNameIgnoringCase(const char* a, const char* b)
{
    for (;; ++a, ++b) {
        unsigned char x = FoldCase(static_cast<unsigned char>(*a));
        unsigned char y = FoldCase(static_cast<unsigned char>(*b));
        if (x != y)
            return false;
        if (x == 0)
            return true;
    }
}

long FindTextByName(const TextRecord* skip, const char* path)
{
    char fullName[256];
    long position = 0;
    for (TextRecord* text = Globals.Texts.First; text; text = text->NextText, ++position) {
        if (text == skip)
            continue;
        std::strncpy(fullName, text->FileDirectory, sizeof fullName - 1);
        fullName[sizeof fullName - 1] = 0;
        if (AddPart(fullName, text->FileName, sizeof fullName) && SameNameIgnoringCase(fullName, path))
            return position + 1;
    }
    const char* filePart = FilePart(path);
    position = 0;
    for (TextRecord* text = Globals.Texts.First; text; text = text->NextText, ++position) {
        if (text != skip && SameNameIgnoringCase(text->FileName, filePart))
            return ~position;
    }
    return 0;
}
