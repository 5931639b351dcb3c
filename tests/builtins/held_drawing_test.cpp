// A user's macro command draws nothing while it runs and the whole window
// once when it ends, also after an error. Each command runs twice on the
// same text: drawn step by step, as the same edits by keys are drawn, and
// held, as a command from a key or "Direct mode" runs. Both must leave the
// same cells, the same viewport and cursor, and what a full redraw shows.
// Requesters and picks in the middle of a macro: the event script
// macro_held_drawing.
#include "../macro/shown_value.h"
#include "macro_edit_test.h"
#include "macro/macro_command.h"
#include "text/record/text_record.h"

#include <string>

namespace {

const Lines Numbered = {"one", "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten", "eleven",
    "twelve"};

class HeldDrawingTest : public MacroEditTest {
protected:
    // The characters and background pens of every row, where the viewport
    // and the cursor stand, and the scrollers' pots.
    std::string Screen() const
    {
        std::string screen = "top " + std::to_string(text_->TopLine) + " left " + std::to_string(text_->LeftColumn)
            + " cursor " + Cursor() + " pots " + std::to_string(text_->LastVertPot) + " "
            + std::to_string(text_->LastHorizPot) + "\n";
        for (int row = 0; row < text_->VisibleRows; ++row)
            screen += Row(row) + "~" + Backgrounds(row) + "\n";
        return screen;
    }

    // Runs `command` as a user's command runs it; the error's text, or "".
    std::string RunHeld(std::string command)
    {
        MacroReport report;
        MacroCommandLines(text_, command.data(), &report);
        std::string error = report.LineCount == 3 ? report.Lines[2] : "";
        FreeMacroReport(text_, &report);
        return error;
    }
};

TEST_F(HeldDrawingTest, EndsAsTheSameEditsDrawnStepByStep)
{
    const char* const commands[] = {
        // More lines than the window has rows: it scrolls line by line.
        "FOR(I=0,I<30,I=I+1,WRITE(\"written\"+CHR(10)))",
        // The text ends above the window's last row.
        "GOTO(1,6):SUPLINES(5)",
        "GOTO(3,2):MARK(0):GOTO(5,6):MARK(1)",
        // The viewport moves sideways, then back.
        "GOTO(70,3):WRITE(\"far\"):GOTO(1,12):INSLINES(3):WRITE(\"x\")",
        // A jump far below the window and back up.
        "GOTO(1,12):WRITE(CHR(10)+CHR(10)):GOTO(2,1):DELCHARS(2)",
        // What was done before an error is drawn all the same.
        "WRITE(\"before\"+CHR(10)):1/0:WRITE(\"after\")",
    };
    for (const char* command : commands) {
        Start(Numbered);
        const std::string value = RunCommand(text_, command);
        const std::string stepByStep = Screen();
        Start(Numbered);
        EXPECT_EQ(RunHeld(command), value[0] == '#' ? "Division by zero" : "") << command;
        EXPECT_EQ(Screen(), stepByStep) << command;
        EXPECT_TRUE(PaintedAsFullRedraw()) << command;
    }
}

} // namespace
