#pragma once
// A text in a headless window for the editing tests: placed cursor, the
// whole text as one dump string, the reports the operations showed, and a
// check that what an operation painted equals a full redraw.
#include "render_test_support.h"
#include "services/message_id.h"

#include <string>
#include <vector>

class EditTest : public RenderTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // A window of `columns` x `rows` cells on `lines`, the cursor at
    // `line`, `column`, everything drawn. Starting again in the same test
    // keeps the window and gives back the options of the first start.
    void Start(const Lines& lines, int line = 0, int column = 0, int columns = 40,
               int rows = 10);
    // New line buffers for lines of at most `max` characters; before Start.
    void LimitLines(int32_t max);
    // A line as GetLineText gives it, trailing blanks dropped.
    std::string LineText(int32_t line) const;
    // Every line as the user sees it (trailing blanks dropped), one per
    // dump line, the cursor's line from the EditLine.
    std::string Dump() const;
    // "line/column" of the cursor.
    std::string Cursor() const;
    // The messages reported since the start of the test or ClearReports.
    std::vector<MessageId> Reports() const;
    void ClearReports();
    // True when the window shows what a full redraw of the text shows,
    // characters and pens, cell by cell.
    testing::AssertionResult PaintedAsFullRedraw();

private:
    uint32_t options_ = 0;
};
