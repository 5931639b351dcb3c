#pragma once
// A fresh headless display for each test, installed for the test's thread,
// with helpers in the cell measures of the text area.
#include "platform/display/backend.h"
#include "platform/display/display.h"
#include "platform/display/headless/headless_display.h"

#include <gtest/gtest.h>

#include <vector>

// The text window's event set, as the editor asks for it.
constexpr uint32_t kTextWindowIDCMP = 0x014C077A;

class HeadlessTest : public ::testing::Test {
protected:
    void SetUp() override { SetDisplayBackend(&display); }

    void TearDown() override
    {
        for (Window* window : display.Windows())
            CloseWindow(window);
        CollectReplies();
        SetDisplayBackend(nullptr);
    }

    Window* OpenTextWindow(int width = 640, int height = 200, uint32_t idcmp = kTextWindowIDCMP)
    {
        NewWindow description;
        description.Width = static_cast<int16_t>(width);
        description.Height = static_cast<int16_t>(height);
        description.MinWidth = 150;
        description.MinHeight = 54;
        description.IDCMPFlags = idcmp;
        description.Flags = WFLG_ACTIVATE | WFLG_CLOSEGADGET | WFLG_SIZEGADGET | WFLG_DRAGBAR;
        return OpenWindow(&description);
    }

    // Every message queued at the window, copied and replied.
    static std::vector<IntuiMessage> Drain(Window* window)
    {
        std::vector<IntuiMessage> messages;
        while (Message* message = GetMsg(window->UserPort)) {
            messages.push_back(*reinterpret_cast<IntuiMessage*>(message));
            ReplyMsg(message);
        }
        return messages;
    }

    // Pixel positions of cells, as the editor computes them.
    static int ColumnX(int column) { return HeadlessDisplay::kBorderLeft + 8 * column; }
    static int RowTop(int row) { return HeadlessDisplay::kBorderTop + 9 * row; }
    static int RowBaseline(int row) { return RowTop(row) + 6 + 1; }

    HeadlessDisplay display;
};
