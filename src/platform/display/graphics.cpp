#include "platform/display/graphics.h"

#include "platform/display/backend.h"

namespace {

int CellWidth(const RastPort* rp)
{
    return rp->Font ? rp->Font->tf_XSize : 0;
}

} // namespace

void Move(RastPort* rp, int x, int y)
{
    if (!rp)
        return;
    rp->cp_x = static_cast<int16_t>(x);
    rp->cp_y = static_cast<int16_t>(y);
}

void Text(RastPort* rp, const char* text, int count)
{
    if (!rp || !text || count < 1)
        return;
    if (rp->Surface)
        rp->Surface->DrawText(*rp, rp->cp_x, rp->cp_y, text, count);
    rp->cp_x = static_cast<int16_t>(rp->cp_x + count * CellWidth(rp));
}

void SetAPen(RastPort* rp, uint8_t pen)
{
    if (rp)
        rp->FgPen = pen;
}

void SetBPen(RastPort* rp, uint8_t pen)
{
    if (rp)
        rp->BgPen = pen;
}

void SetFont(RastPort* rp, TextFont* font)
{
    if (rp && font)
        rp->Font = font;
}

int TextLength(const RastPort* rp, const char*, int count)
{
    if (!rp || count < 1)
        return 0;
    return count * CellWidth(rp);
}

void RectFill(RastPort* rp, int xMin, int yMin, int xMax, int yMax)
{
    if (!rp || !rp->Surface || xMax < xMin || yMax < yMin)
        return;
    rp->Surface->FillRect(*rp, rp->FgPen, xMin, yMin, xMax, yMax);
}

void ScrollRaster(RastPort* rp, int dx, int dy, int xMin, int yMin, int xMax, int yMax)
{
    if (!rp || !rp->Surface || xMax < xMin || yMax < yMin || (dx == 0 && dy == 0))
        return;
    rp->Surface->ScrollRect(*rp, dx, dy, xMin, yMin, xMax, yMax);
}

TextFont* OpenFont(const TextAttr* attr)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !attr || !attr->ta_Name)
        return nullptr;
    return backend->OpenFont(*attr);
}

void CloseFont(TextFont* font)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (backend && font)
        backend->CloseFont(font);
}
