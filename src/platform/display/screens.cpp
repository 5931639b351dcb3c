#include "platform/display/backend.h"

#include <new>

Screen* LockPubScreen(const char* name)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    return backend ? backend->LockPubScreen(name) : nullptr;
}

void UnlockPubScreen(const char*, Screen* screen)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (backend && screen)
        backend->UnlockPubScreen(screen);
}

DrawInfo* GetScreenDrawInfo(Screen* screen)
{
    if (!screen)
        return nullptr;
    auto* drawInfo = new (std::nothrow) DrawInfo;
    if (drawInfo) {
        drawInfo->dri_Font = screen->RastPort.Font;
        drawInfo->dri_Screen = screen;
    }
    return drawInfo;
}

void FreeScreenDrawInfo(Screen*, DrawInfo* drawInfo)
{
    delete drawInfo;
}

Image* NewSysImage(DrawInfo* drawInfo, uint32_t which, int16_t height)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !drawInfo)
        return nullptr;
    auto* image = new (std::nothrow) Image;
    if (image)
        backend->SystemImageSize(which, height, &image->Width, &image->Height);
    return image;
}

void DisposeObject(Image* image)
{
    delete image;
}
