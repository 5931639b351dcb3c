#include "render_test_support.h"

#include "platform/display/intuition.h"
#include "text/render/render_pens.h"

void RenderTest::SetUp()
{
    SetDisplayBackend(&display_);
    screen_ = LockPubScreen(nullptr);
    record_ = NewRecord();
    text_ = record_.get();
}

void RenderTest::TearDown()
{
    CloseTextWindow();
    record_.reset();
    UnlockPubScreen(nullptr, screen_);
    SetDisplayBackend(nullptr);
}

void RenderTest::CloseTextWindow()
{
    if (text_->Window) {
        ReleaseTextPens(text_, screen_->ColorMap);
        CloseWindow(text_->Window);
        text_->Window = nullptr;
    }
}

void RenderTest::Open(int columns, int rows, const Lines& lines)
{
    CloseTextWindow();
    FillLines(text_, lines);
    text_->TopLine = text_->LeftColumn = 0;
    NewWindow description;
    description.Width = static_cast<int16_t>(HeadlessDisplay::kBorderLeft + HeadlessDisplay::kBorderRight +
                                             columns * HeadlessDisplay::kFontWidth);
    description.Height = static_cast<int16_t>(HeadlessDisplay::kBorderTop + HeadlessDisplay::kBorderBottom +
                                              rows * (HeadlessDisplay::kFontHeight + 1));
    description.Flags = WFLG_SIZEGADGET | WFLG_CLOSEGADGET;
    description.Screen = screen_;
    text_->Window = OpenWindow(&description);
    ASSERT_NE(text_->Window, nullptr);
    text_->TextState = WindowOpen;
    text_->VisibleColumns = columns;
    text_->VisibleRows = rows;
    ObtainTextPens(text_, screen_->ColorMap);
}

void RenderTest::Mark(int startLine, int startColumn, int endLine, int endColumn)
{
    text_->BlockStartLine = startLine;
    text_->BlockStartColumn = startColumn;
    text_->BlockEndLine = endLine;
    text_->BlockEndColumn = endColumn;
    text_->TextState |= BlockMarked;
}

std::string RenderTest::Row(int row) const
{
    std::string cells = display_.RowText(text_->Window, row);
    return cells.substr(0, cells.find_last_not_of(' ') + 1);
}

char RenderTest::Letter(uint8_t pen) const
{
    const int16_t pens[] = {text_->BackgroundPen, text_->TextPen, text_->WhitePen,
                            text_->BluePen,       text_->RedPen,  text_->YellowPen};
    for (int i = 0; i < 6; ++i)
        if (pens[i] == pen)
            return "btwury"[i];
    return '?';
}

std::string RenderTest::Pens(int row, uint8_t Cell::*pen) const
{
    std::string letters;
    for (int column = 0; column < display_.Columns(text_->Window); ++column)
        letters += Letter(display_.CellAt(text_->Window, column, row).*pen);
    return letters;
}

std::string RenderTest::Backgrounds(int row) const { return Pens(row, &Cell::BgPen); }
std::string RenderTest::Foregrounds(int row) const { return Pens(row, &Cell::FgPen); }
