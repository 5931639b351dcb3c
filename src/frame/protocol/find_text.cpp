#include "frame/protocol/find_text.h"

#include "frame/protocol/app_globals.h"
#include "platform/dos/paths.h"
#include "platform/utility/strings.h"
#include "text/record/text_record.h"

namespace {

long FindUnderLock(const TextRecord* skip, const char* path)
{
    char fullName[JoinedPathSize];
    long position = 0;
    for (TextRecord* text = Globals.Texts.First; text; text = text->NextText, ++position) {
        if (text == skip)
            continue;
        JoinPath(text->FileDirectory, text->FileName, fullName);
        if (Stricmp(fullName, path) == 0)
            return position + 1;
    }
    const char* filePart = FilePart(path);
    position = 0;
    for (TextRecord* text = Globals.Texts.First; text; text = text->NextText, ++position) {
        if (text != skip && Stricmp(text->FileName, filePart) == 0)
            return ~position;
    }
    return 0;
}

} // namespace

long FindTextByName(const TextRecord* skip, const char* path)
{
    ObtainSemaphoreShared(&Globals.TextListLock);
    long found = FindUnderLock(skip, path);
    ReleaseSemaphore(&Globals.TextListLock);
    return found;
}
