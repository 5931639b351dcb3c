#include "files/window_box.h"

#include "platform/display/intuition.h"
#include "text/record/text_record.h"

bool CurrentWindowBox(const TextRecord* record, WindowBox* box)
{
    const Window* window = record->Window;
    if (!window)
        return false;
    *box = WindowBox{window->LeftEdge, window->TopEdge, window->Width, window->Height};
    return true;
}
