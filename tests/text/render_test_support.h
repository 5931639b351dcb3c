#pragma once
// A text drawn into a headless window of a chosen size, without the main
// process: the window is opened directly, the record made WindowOpen with
// its six pens, and cells are read back as text and as pen letters
// (b background, t text, w white, u blue, r red, y yellow).
#include "platform/display/headless/headless_display.h"
#include "text_test_support.h"

#include <gtest/gtest.h>

#include <string>

class RenderTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A window whose text area holds `columns` x `rows` cells; lines as
    // FillLines stores them, cursor at 0/0, nothing drawn yet. A window
    // opened before in the test is closed first.
    void Open(int columns, int rows, const Lines& lines);
    // The block from (startLine, startColumn) to the moving end.
    void Mark(int startLine, int startColumn, int endLine, int endColumn);

    // A row's characters, trailing blanks removed.
    std::string Row(int row) const;
    // One letter per cell of a row for its background, or foreground, pen.
    std::string Backgrounds(int row) const;
    std::string Foregrounds(int row) const;

    HeadlessDisplay display_;
    RecordPtr record_;
    TextRecord* text_ = nullptr;

private:
    void CloseTextWindow();
    char Letter(uint8_t pen) const;
    std::string Pens(int row, uint8_t Cell::*pen) const;
    Screen* screen_ = nullptr;
};
