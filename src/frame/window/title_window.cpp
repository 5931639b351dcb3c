#include "frame/window/title_window.h"

#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "platform/display/intuition.h"
#include "platform/dos/paths.h"
#include "platform/exec/memory.h"
#include "platform/locale/latin1.h"
#include "text/record/text_record.h"

#include <cstring>
#include <new>
#include <string>

namespace {

NewWindow TitleWindowTemplate()
{
    NewWindow description;
    description.LeftEdge = 588;
    description.TopEdge = 1;
    description.Width = 150;
    description.Height = 11;
    description.Flags = WFLG_DRAGBAR | WFLG_RMBTRAP | WFLG_NOCAREREFRESH;
    description.Type = PUBLICSCREEN;
    return description;
}

} // namespace

NewWindow* PlaceTitleWindow(TextRecord* text)
{
    Screen* screen = Globals.Screen;
    if (!screen)
        return nullptr;
    const char* name = FilePart(text->FileName);
    int32_t width = TextLength(&screen->RastPort, name, static_cast<int>(std::strlen(name))) + text->CharWidth;
    int32_t height = text->Window ? text->Window->BorderTop : 11;
    int32_t left = text->IconLeft;
    int32_t top = text->IconTop;
    if (left == 0 && top == 0) {
        Globals.IconNextLeft -= width + 1;
        left = Globals.IconNextLeft;
        top = Globals.IconNextTop;
    }
    if (left + width > screen->Width)
        left = screen->Width - width;
    if (left < 0) {
        left = Globals.IconNextLeft = screen->Width - width;
        Globals.IconNextTop += height;
        top = Globals.IconNextTop;
    }
    // The title, in the desktop's encoding, lives behind the description
    // and goes with it.
    const std::string title = FileNameToUtf8(name);
    void* memory = AllocVec(sizeof(NewWindow) + title.size() + 1, MEMF_SHARED);
    if (!memory)
        return nullptr;
    auto* description = new (memory) NewWindow(TitleWindowTemplate());
    char* titleCopy = static_cast<char*>(memory) + sizeof(NewWindow);
    std::memcpy(titleCopy, title.c_str(), title.size() + 1);
    description->LeftEdge = static_cast<int16_t>(left);
    description->TopEdge = static_cast<int16_t>(top);
    description->Width = static_cast<int16_t>(width);
    description->Height = static_cast<int16_t>(height);
    description->Title = titleCopy;
    description->Screen = screen;
    return description;
}

void HandleGetIconWindow(CommandMessage* message, int16_t*)
{
    auto* text = reinterpret_cast<TextRecord*>(message->Argument);
    message->Argument = reinterpret_cast<intptr_t>(PlaceTitleWindow(text));
}
