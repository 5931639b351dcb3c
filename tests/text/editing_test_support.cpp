#include "editing_test_support.h"

#include "frame/window/refresh.h"
#include "requesters/file_reports.h"
#include "platform/exec/memory.h"
#include "text/record/line_buffers.h"
#include "text/edit/cursor_placing.h"
#include "text/record/line_access.h"
#include "text/record/line_strings.h"
#include "text/render/render.h"

namespace {

std::vector<MessageId> Reported;

void RecordReport(TextRecord*, MessageId message, const char*) { Reported.push_back(message); }
int AnswerYes(TextRecord*, MessageId) { return 1; }
int CancelFile(TextRecord*, MessageId, const char*, const char*, char*) { return 0; }

constexpr FileDialogs Recording{RecordReport, AnswerYes, CancelFile};

} // namespace

void EditTest::SetUp()
{
    RenderTest::SetUp();
    Reported.clear();
    SetFileDialogs(&Recording);
}

void EditTest::TearDown()
{
    SetFileDialogs(nullptr);
    RenderTest::TearDown();
}

void EditTest::Start(const Lines& lines, int line, int column, int columns, int rows)
{
    // A second start in one test keeps the window and the line buffers.
    if (!text_->Window) {
        options_ = text_->Options;
        Open(columns, rows, lines);
        ClearTextArea(text_);
    } else {
        FillLines(text_, lines);
        text_->TextState = WindowOpen;
        text_->TopLine = text_->LeftColumn = 0;
        text_->Options = options_;
        text_->Modified = 0;
        ClearTextArea(text_);
    }
    SetCursor(text_, ColumnIndex(column), LineIndex(line));
    RefreshAll(text_);
}

void EditTest::LimitLines(int32_t max)
{
    char* old = text_->EditLine;
    ASSERT_TRUE(AllocLineBuffers(text_, max));
    FreeVec(old);
}

std::string EditTest::LineText(int32_t line) const
{
    const char* text = GetLineText(text_, line);
    return std::string(text, static_cast<size_t>(VisibleLength(text)));
}

std::string EditTest::Dump() const
{
    std::string dump;
    for (int32_t line = 0; line < text_->LineCount; ++line)
        dump += (line > 0 ? "\n" : "") + LineText(line);
    return dump;
}

std::string EditTest::Cursor() const
{
    return std::to_string(text_->CursorLine) + "/" + std::to_string(text_->CursorColumn);
}

std::vector<MessageId> EditTest::Reports() const { return Reported; }
void EditTest::ClearReports() { Reported.clear(); }

testing::AssertionResult EditTest::PaintedAsFullRedraw()
{
    // The foreground of a blank cell shows nowhere, so it doesn't count.
    auto cells = [this](int row) {
        const std::string characters = display_.RowText(text_->Window, row);
        std::string foregrounds = Foregrounds(row);
        for (size_t i = 0; i < foregrounds.size(); ++i)
            if (i >= characters.size() || characters[i] == ' ')
                foregrounds[i] = '.';
        return Row(row) + "~" + Backgrounds(row) + "~" + foregrounds;
    };
    std::vector<std::string> painted;
    for (int row = 0; row < text_->VisibleRows; ++row)
        painted.push_back(cells(row));
    ClearTextArea(text_);
    RefreshAll(text_);
    for (int row = 0; row < text_->VisibleRows; ++row) {
        const std::string full = cells(row);
        if (painted[static_cast<size_t>(row)] != full)
            return testing::AssertionFailure() << "row " << row << " painted\n  " << painted[static_cast<size_t>(row)]
                                               << "\nbut a full redraw gives\n  " << full;
    }
    return testing::AssertionSuccess();
}
