#include "platform/display/graphics.h"

#include <mutex>
#include <new>
#include <vector>

struct ColorMap {
    struct Pen {
        uint32_t red = 0, green = 0, blue = 0;
        int users = 0;        // tasks holding the pen by ObtainBestPen
        bool fixed = false;   // the backend's own colour, shared but never freed
        bool InUse() const { return fixed || users > 0; }
    };
    mutable std::mutex lock;
    std::vector<Pen> pens;
};

namespace {

// Distance of two colours on their top 8 bits per gun.
long Distance(const ColorMap::Pen& pen, uint32_t red, uint32_t green, uint32_t blue)
{
    long dr = static_cast<long>(pen.red >> 24) - static_cast<long>(red >> 24);
    long dg = static_cast<long>(pen.green >> 24) - static_cast<long>(green >> 24);
    long db = static_cast<long>(pen.blue >> 24) - static_cast<long>(blue >> 24);
    return dr * dr + dg * dg + db * db;
}

bool Valid(const ColorMap* map, long pen)
{
    return map && pen >= 0 && pen < static_cast<long>(map->pens.size());
}

} // namespace

ColorMap* GetColorMap(int entries)
{
    if (entries < 1 || entries > 256)
        return nullptr;
    auto* map = new (std::nothrow) ColorMap;
    if (map)
        map->pens.resize(static_cast<size_t>(entries));
    return map;
}

void FreeColorMap(ColorMap* map)
{
    delete map;
}

void SetRGB32CM(ColorMap* map, int pen, uint32_t red, uint32_t green, uint32_t blue)
{
    if (!Valid(map, pen))
        return;
    std::lock_guard<std::mutex> hold(map->lock);
    ColorMap::Pen& entry = map->pens[static_cast<size_t>(pen)];
    entry.red = red;
    entry.green = green;
    entry.blue = blue;
    entry.fixed = true;
}

long ObtainBestPen(ColorMap* map, uint32_t red, uint32_t green, uint32_t blue)
{
    if (!map)
        return -1;
    std::lock_guard<std::mutex> hold(map->lock);
    long nearest = -1;
    long nearestDistance = 0;
    long firstFree = -1;
    for (size_t i = 0; i < map->pens.size(); ++i) {
        const ColorMap::Pen& pen = map->pens[i];
        if (!pen.InUse()) {
            if (firstFree < 0)
                firstFree = static_cast<long>(i);
            continue;
        }
        long distance = Distance(pen, red, green, blue);
        if (pen.red == red && pen.green == green && pen.blue == blue)
            distance = -1;
        if (nearest < 0 || distance < nearestDistance) {
            nearest = static_cast<long>(i);
            nearestDistance = distance;
        }
    }
    long chosen = nearest;
    if (nearestDistance >= 0 && firstFree >= 0) {
        chosen = firstFree;
        ColorMap::Pen& pen = map->pens[static_cast<size_t>(chosen)];
        pen.red = red;
        pen.green = green;
        pen.blue = blue;
    }
    if (chosen >= 0)
        ++map->pens[static_cast<size_t>(chosen)].users;
    return chosen;
}

void ReleasePen(ColorMap* map, long pen)
{
    if (!Valid(map, pen))
        return;
    std::lock_guard<std::mutex> hold(map->lock);
    ColorMap::Pen& entry = map->pens[static_cast<size_t>(pen)];
    if (entry.users > 0)
        --entry.users;
}

void GetRGB32(const ColorMap* map, int first, int count, uint32_t* table)
{
    if (!map || !table)
        return;
    std::lock_guard<std::mutex> hold(map->lock);
    for (int i = 0; i < count; ++i) {
        if (!Valid(map, first + i))
            return;
        const ColorMap::Pen& pen = map->pens[static_cast<size_t>(first + i)];
        table[3 * i] = pen.red;
        table[3 * i + 1] = pen.green;
        table[3 * i + 2] = pen.blue;
    }
}
