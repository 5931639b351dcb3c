#include "files/clipboard_unit.h"

#include "platform/clip/clip_units.h"

std::atomic<int32_t> ClipUnit{0};

bool ChangeClipUnit(int32_t unit, int32_t* old)
{
    if (unit >= CLIP_UNITS) {
        *old = ClipUnit.load();
        return false;
    }
    *old = unit < 0 ? ClipUnit.load() : ClipUnit.exchange(unit);
    return true;
}
