#include "frame/find_text.h"

#include "frame/app_globals.h"
#include "frame/report.h"
#include "platform/dos/paths.h"
#include "platform/utility/strings.h"
#include "text/text_record.h"

long FindTextByName(const TextRecord* skip, const char* path)
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
