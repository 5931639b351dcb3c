// One typed character in the middle of a 200-character line of a text of
// 1.5 million lines: the key's message is posted at the window's port as
// the display posts it, taken and replied as the text's loop does, handed
// to the key tables with the cursor hidden, and the cursor shown again.
// The line is put back after each press so that every press inserts.
#include "frame/window/refresh.h"
#include "platform/display/headless/headless_display.h"
#include "platform/display/intuition.h"
#include "text/lines/edit_line.h"
#include "text/input/key_press.h"
#include "text/record/line_table.h"
#include "text/render/render.h"
#include "text/record/text_record.h"
#include "text/edit/viewport.h"

#include "../windowed_text.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr int32_t TextLines = 1500000;
constexpr int32_t CursorLineIndex = TextLines / 2;
constexpr int32_t LineLength = 200;

void KeyPressInsertingOneCharacter(benchmark::State& state)
{
    WindowedText window("/texts", 640, 199, IDCMP_RAWKEY);
    HeadlessDisplay& display = window.Display();
    TextRecord* text = window.Record();
    std::string longLine(LineLength, 'x');
    for (text->LineCount = 0; text->LineCount < TextLines; ++text->LineCount) {
        if (text->LineCount == CursorLineIndex)
            std::memcpy(text->WorkLine, longLine.c_str(), longLine.size() + 1);
        else
            std::snprintf(text->WorkLine, 32, "line %d", text->LineCount + 1);
        StoreLine(text, text->WorkLine, text->LineCount);
    }
    LoadEditLine(text, LineIndex{CursorLineIndex}, ColumnIndex{LineLength / 2});
    FollowCursor(text, false);
    RefreshAll(text);
    DrawCursor(text, true);

    KeyStroke stroke = StrokeForChar('a');
    MsgPort* port = text->Window->UserPort;
    for (auto _ : state) {
        display.PressKey(stroke);
        while (Message* received = GetMsg(port)) {
            IntuiMessage event = *reinterpret_cast<IntuiMessage*>(received);
            ReplyMsg(received);
            if (event.Code & IECODE_UP_PREFIX)
                continue;
            DrawCursor(text, false);
            HandleRawKey(text, event);
        }
        DrawCursor(text, true);
        // Putting the line back costs a copy of 200 bytes.
        std::memcpy(text->EditLine, longLine.c_str(), longLine.size() + 1);
        text->EditLength = LineLength;
        text->CursorColumn = LineLength / 2;
    }
    display.PressKey(stroke);
    while (Message* received = GetMsg(port)) {
        IntuiMessage event = *reinterpret_cast<IntuiMessage*>(received);
        ReplyMsg(received);
        if (!(event.Code & IECODE_UP_PREFIX))
            HandleRawKey(text, event);
    }
    if (text->EditLine[LineLength / 2] != 'a' || text->EditLength != LineLength + 1)
        state.SkipWithError("the key did not type into the line");
}

BENCHMARK(KeyPressInsertingOneCharacter)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
