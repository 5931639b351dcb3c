#pragma once
// The headless backend's part of a window. Internal to the backend.
#include "platform/display/headless/cell_grid.h"
#include "platform/display/headless/headless_display.h"

#include <string>

class HeadlessDisplay::Peer final : public WindowPeer {
public:
    Peer()
        : grid(kBorderLeft, kBorderTop, kFontWidth, kFontHeight + 1)
    {
    }

    CellGrid grid;
    std::string title;
    std::string screenTitle;
    bool busy = false;
    bool titleWindow = false;
    Menu* menus = nullptr;   // the strip shown, as the window's owner set it
};
