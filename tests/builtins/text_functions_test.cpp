// The built-in functions on the text, row by row: each command runs on the
// same small text in a headless window, and the row gives its value (`7`,
// `"abc"`, `#215` for an error), the text afterwards (lines joined by `|`;
// null when unchanged) and the cursor ("line/column" from 0; null when not
// checked). After every row the record keeps its invariants and the
// window shows what a full redraw shows: a macro's change is painted as
// the same change by key paints it.
#include "../macro/macro_test_support.h"
#include "macro_edit_test.h"
#include "text/record/text_record.h"

#include <string>

namespace {

const Lines KnownText = {"alpha beta", "  gamma-ray l'eau", "", "delta"};

struct TextRow {
    const char* Command;
    const char* Value;
    const char* After;
    const char* Cursor;
};

std::string Joined(const std::string& dump)
{
    std::string joined = dump;
    for (char& c : joined) {
        if (c == '\n')
            c = '|';
    }
    return joined;
}

class TextFunctionsTest : public MacroEditTest {
protected:
    template <size_t N>
    void CheckRows(const TextRow (&rows)[N])
    {
        const std::string unchanged = "alpha beta|  gamma-ray l'eau||delta";
        for (const TextRow& row : rows) {
            Start(KnownText);
            EXPECT_EQ(RunCommand(text_, row.Command), row.Value) << row.Command;
            EXPECT_EQ(Joined(Dump()), row.After ? row.After : unchanged) << row.Command;
            if (row.Cursor) {
                EXPECT_EQ(Cursor(), row.Cursor) << row.Command;
            }
            EXPECT_TRUE(CheckInvariants(text_)) << row.Command;
            EXPECT_TRUE(PaintedAsFullRedraw()) << row.Command;
        }
    }
};

TEST_F(TextFunctionsTest, PositionAndMoves)
{
    const TextRow rows[] = {
        {"LINE", "1", nullptr, "0/0"},
        {"COL", "1", nullptr, "0/0"},
        {"NBLINES", "4", nullptr, nullptr},
        {"GOTO(3,2):LINE*100+COL", "203", nullptr, "1/2"},
        {"GOTO(1,1)", "\"alpha beta\"", nullptr, "0/0"},
        {"GOTO(1,4)", "\"delta\"", nullptr, "3/0"},
        {"GOTO(255,4)", "\"delta\"", nullptr, "3/254"},
        {"GOTO(256,1)", "#215", nullptr, "0/0"},
        {"GOTO(0,1)", "#215", nullptr, "0/0"},
        {"GOTO(1,0)", "#215", nullptr, "0/0"},
        {"GOTO(1,5)", "#215", nullptr, "0/0"},
        {"GOTO(\"a\",1)", "#233", nullptr, "0/0"},
        {"BEGLINE(2)", "3", nullptr, "1/2"},
        {"BEGLINE(3)", "1", nullptr, "2/0"},
        {"BEGLINE(4)", "1", nullptr, "3/0"},
        {"BEGLINE(0)", "#215", nullptr, "0/0"},
        {"BEGLINE(5)", "#215", nullptr, "0/0"},
        {"ENDLINE(1)", "11", nullptr, "0/10"},
        {"ENDLINE(4)", "6", nullptr, "3/5"},
        {"ENDLINE(5)", "#215", nullptr, "0/0"},
        {"WRIGHT(1)", "1", nullptr, "0/6"},
        {"WRIGHT(2)", "2", nullptr, "1/2"},
        {"WRIGHT(0)", "1", nullptr, "0/0"},
        {"WRIGHT(-5)", "1", nullptr, "0/0"},
        {"WRIGHT(1000000000)", "4", nullptr, "3/0"},
        {"GOTO(1,2):WRIGHT(1)", "2", nullptr, "1/2"},
        {"GOTO(3,2):WRIGHT(2)*100+COL", "213", nullptr, "1/12"},
        {"GOTO(3,2):WRIGHT(3)*100+COL", "215", nullptr, "1/14"},
        {"GOTO(9,2):CUTLINE(0):WRIGHT(1)*100+COL", "305", "alpha beta|  gamma-|ray l'eau||delta", "2/4"},
        {"GOTO(1,2):SUPLINES(3):GOTO(1,1):WRIGHT(999999999)*100+COL", "107", "alpha beta", "0/6"},
        {"GOTO(1,2):SUPLINES(3):GOTO(1,1):WRIGHT(1000000000)*100+COL", "101", "alpha beta", "0/0"},
        {"GOTO(3,2):WLEFT(1)", "1", nullptr, "0/10"},
        {"GOTO(1,4):WLEFT(1000000000)", "1", nullptr, "0/0"},
    };
    CheckRows(rows);
}

TEST_F(TextFunctionsTest, Reading)
{
    const TextRow rows[] = {
        {"READLINE(1)", "\"alpha beta\"", nullptr, nullptr},
        {"READLINE(2)", "\"  gamma-ray l'eau\"", nullptr, nullptr},
        {"READLINE(3)", "\"\"", nullptr, nullptr},
        {"READLINE(4)", "\"delta\"", nullptr, nullptr},
        {"READLINE(0)", "#215", nullptr, nullptr},
        {"READLINE(5)", "#215", nullptr, nullptr},
        {"WRITE(\"new \"):READLINE(1)", "\"new alpha beta\"", "new alpha beta|  gamma-ray l'eau||delta", nullptr},
        // A loop lets go of the strings each turn made; what it keeps in
        // variables, and what the command made before it, stay whole.
        {"S=\"\":FOR(L=1,L<=NBLINES,S=S+READLINE(L)+\"/\",L=L+1):S", "\"alpha beta/  gamma-ray l'eau//delta/\"", nullptr, nullptr},
        {"(READLINE(4)+\"-\")+IF(FOR(I=0,I<3,I=I+1,X=READLINE(1)+\"x\")==0,READLINE(2)<<8,\"?\")+X", "\"delta-ray l'eaualpha betax\"", nullptr, nullptr},
        {"READCHAR(1)", "\"a\"", nullptr, "0/0"},
        {"READCHAR(3)", "\"alp\"", nullptr, "0/0"},
        {"READCHAR(255)", "\"alpha beta\"", nullptr, "0/0"},
        {"READCHAR(0)", "#215", nullptr, nullptr},
        {"READCHAR(256)", "#215", nullptr, nullptr},
        {"GOTO(11,1):READCHAR(5)", "\"\"", nullptr, "0/10"},
        {"CURRWORD", "\"alpha\"", nullptr, "0/0"},
        {"GOTO(6,1):CURRWORD", "\"\"", nullptr, nullptr},
        {"GOTO(3,1):CURRWORD", "\"pha\"", nullptr, nullptr},
        {"GOTO(3,2):CURRWORD", "\"gamma-ray\"", nullptr, nullptr},
        {"GOTO(8,2):CURRWORD", "\"-\"", nullptr, nullptr},
        {"GOTO(13,2):CURRWORD", "\"l'\"", nullptr, nullptr},
        {"GOTO(1,3):CURRWORD", "\"\"", nullptr, nullptr},
    };
    CheckRows(rows);
}

TEST_F(TextFunctionsTest, WritingAndDeleting)
{
    const TextRow rows[] = {
        {"WRITE(\"xy\")", "2", "xyalpha beta|  gamma-ray l'eau||delta", "0/2"},
        {"WRITE(\"x\ny\")", "3", "x|yalpha beta|  gamma-ray l'eau||delta", "1/1"},
        {"WRITE(\"\")", "0", nullptr, "0/0"},
        {"MODEDIT(0):WRITE(\"XY\")", "2", "XYpha beta|  gamma-ray l'eau||delta", "0/2"},
        {"GOTO(3,1):WRITETAB(1)", "5", "al  pha beta|  gamma-ray l'eau||delta", "0/4"},
        {"WRITETAB(2)", "9", "        alpha beta|  gamma-ray l'eau||delta", "0/8"},
        {"WRITETAB(0)", "1", nullptr, "0/0"},
        {"WRITETAB(-1)", "5", nullptr, "0/4"},
        {"GOTO(11,1):WRITETAB(-1)", "13", nullptr, "0/12"},
        {"WRITETAB(-1000000000)", "255", nullptr, "0/254"},
        {"DELCHARS(2)", "1", "pha beta|  gamma-ray l'eau||delta", "0/0"},
        {"DELCHARS(0)", "1", nullptr, "0/0"},
        {"DELCHARS(-1)", "1", nullptr, "0/0"},
        {"GOTO(11,1):DELCHARS(1)", "11", "alpha beta  gamma-ray l'eau||delta", "0/10"},
        {"DELCHARS(1000000000)", "1", "", "0/0"},
        {"GOTO(4,1):DELPREV(2)", "2", "aha beta|  gamma-ray l'eau||delta", "0/1"},
        {"DELPREV(1)", "1", nullptr, "0/0"},
        {"GOTO(1,2):DELPREV(1)", "11", "alpha beta  gamma-ray l'eau||delta", "0/10"},
        {"GOTO(11,1):DELLEFT(1)", "7", "alpha|  gamma-ray l'eau||delta", "0/6"},
        {"DELRIGHT(1)", "1", " beta|  gamma-ray l'eau||delta", "0/0"},
        {"DELRIGHT(0)", "1", nullptr, "0/0"},
        {"GOTO(6,4):DELRIGHT(1)", "6", nullptr, "3/5"},
        {"GOTO(7,1):DELBEGIN", "1", "beta|  gamma-ray l'eau||delta", "0/0"},
        {"GOTO(6,1):DELEND", "6", "alpha|  gamma-ray l'eau||delta", "0/5"},
        {"MODEDIT(0)", "4", nullptr, nullptr},
        {"MODEDIT(0):MODEDIT(1)", "0", nullptr, nullptr},
        {"MODEDIT(-7):MODEDIT(0)", "4", nullptr, nullptr},
        {"MODIF", "0", nullptr, nullptr},
        {"WRITE(\"x\"):MODIF", "1", "xalpha beta|  gamma-ray l'eau||delta", nullptr},
    };
    CheckRows(rows);
}

TEST_F(TextFunctionsTest, Lines)
{
    const TextRow rows[] = {
        {"INSLINES(2)", "2", "||alpha beta|  gamma-ray l'eau||delta", "0/0"},
        {"INSLINES(0)", "0", nullptr, nullptr},
        {"INSLINES(-1)", "0", nullptr, nullptr},
        {"SUPLINES(1)", "3", "  gamma-ray l'eau||delta", "0/0"},
        {"SUPLINES(0)", "4", nullptr, nullptr},
        {"SUPLINES(1000000000)", "1", "", "0/0"},
        {"GOTO(6,1):CUTLINE(0)", "1", "alpha| beta|  gamma-ray l'eau||delta", "1/0"},
        {"GOTO(12,2):CUTLINE(1)", "1", "alpha beta|  gamma-ray|   l'eau||delta", "2/2"},
        {"GOTO(12,2):CUTLINE(65536)", "1", "alpha beta|  gamma-ray| l'eau||delta", "2/0"},
        {"GOTO(6,1):CATLINES(1)", "1", "alpha beta  gamma-ray l'eau||delta", "0/5"},
        {"CATLINES(4)", "1", nullptr, "3/0"},
        {"CATLINES(0)", "#215", nullptr, "0/0"},
        {"CATLINES(5)", "#215", nullptr, "0/0"},
        {"SORT(1,1,4)", "1", "|  gamma-ray l'eau|alpha beta|delta", nullptr},
        {"SORT(-1,1,4)", "3", "delta|alpha beta|  gamma-ray l'eau|", nullptr},
        {"SORT(1,1,2)", "1", "  gamma-ray l'eau|alpha beta||delta", nullptr},
        {"SORT(1,2,3)", "1", "alpha beta||  gamma-ray l'eau|delta", nullptr},
        {"SORT(0,1,4):MODIF", "0", nullptr, nullptr},
        {"SORT(1,3,3)", "0", nullptr, nullptr},
        {"SORT(1,4,2)", "0", nullptr, nullptr},
        {"SORT(0,0,1)", "#215", nullptr, nullptr},
        {"SORT(1,1,5)", "#215", nullptr, nullptr},
        {"SORT(1,5,1)", "#215", nullptr, nullptr},
    };
    CheckRows(rows);
}

TEST_F(TextFunctionsTest, Blocks)
{
    const TextRow rows[] = {
        {"BLOCK(0)", "0", nullptr, nullptr},
        {"BLOCK(9)", "0", nullptr, nullptr},
        {"MARK(0):GOTO(3,2):MARK(1):BLOCK(9)", "#215", nullptr, "1/2"},
        {"MARK(0):GOTO(3,2):MARK(1):BLOCK(-1)", "#215", nullptr, nullptr},
        {"MARK(0):GOTO(3,2):MARK(1):BLOCK(0)*1000+BLOCK(1)*100+BLOCK(2)*10+BLOCK(3)", "1132", nullptr, nullptr},
        {"GOTO(3,2):MARK(0):GOTO(2,1):MARK(1):BLOCK(0)*1000+BLOCK(1)*100+BLOCK(2)*10+BLOCK(3)", "2132", nullptr, nullptr},
        {"MARK(0):BLOCK(2)", "1", nullptr, nullptr},
        {"MARK(5)", "5", nullptr, nullptr},
        {"MARK(0):GOTO(5,1):MARK(1):TEXTSEL", "\"alpha\"", nullptr, nullptr},
        {"GOTO(7,1):MARK(0):GOTO(2,2):MARK(1):TEXTSEL", "\"beta\n  \"", nullptr, nullptr},
        {"TEXTSEL", "\"\"", nullptr, nullptr},
        {"MARK(0):UNMARK:TEXTSEL", "\"\"", nullptr, nullptr},
        {"SUPBLOCK", "0", nullptr, nullptr},
        {"MARK(0):GOTO(6,1):MARK(1):SUPBLOCK", "1", "beta|  gamma-ray l'eau||delta", "0/0"},
    };
    CheckRows(rows);
}

TEST_F(TextFunctionsTest, Searching)
{
    const TextRow rows[] = {
        {"FIND(1,\"a\")", "1", nullptr, "0/4"},
        {"FIND(3,\"a\"):TEXTSEL", "\"a\"", nullptr, "1/3"},
        {"FIND(3,\"eau\")", "1", nullptr, "1/14"},
        {"FIND(0,\"a\")", "0", nullptr, "0/0"},
        {"FIND(1,\"\")", "0", nullptr, "0/0"},
        {"FIND(1,\"zzz\")", "0", nullptr, "0/0"},
        {"GOTO(1,4):FIND(-1,\"a\")", "1", nullptr, "1/15"},
        {"FIND(1,\"BETA\")", "0", nullptr, "0/0"},
        {"TESTCASE(0):FIND(1,\"BETA\")", "1", nullptr, "0/6"},
        {"TESTCASE(-1)", "0", nullptr, nullptr},
        {"REPLACE(1,\"beta\",\"B\"):TEXTSEL", "\"B\"", "alpha B|  gamma-ray l'eau||delta", "0/6"},
        {"REPLACE(5,\"a\",\"o\")", "5", "alpho beto|  gommo-roy l'eau||delta", nullptr},
        {"GOTO(1,4):REPLACE(-1,\"gamma\",\"g\")", "1", "alpha beta|  g-ray l'eau||delta", "1/2"},
        {"REPLACE(0,\"a\",\"o\")", "0", nullptr, "0/0"},
        {"REPLACE(1,\"a\",1)", "#233", nullptr, "0/0"},
        {"REPLACE(1,\"a\",\"x\ny\")", "#215", nullptr, "0/0"},
        {"SEARCH(\"b#?\")", "1", nullptr, "0/6"},
        {"SEARCH(\"g?mma#?\")", "1", nullptr, "1/2"},
        {"SEARCH(\"a\")", "1", nullptr, "0/9"},
        {"SEARCH(\"#?\")", "1", nullptr, "0/1"},
        {"SEARCH(\"(a\")", "#228", nullptr, "0/0"},
        {"SEARCH(\"zz\")", "0", nullptr, "0/0"},
        {"TESTCASE(0):SEARCH(\"DEL#?\")", "1", nullptr, "3/0"},
        {"TRACE(13)", "#215", nullptr, nullptr},
        {"TRACE(-13)", "#215", nullptr, nullptr},
        {"TRACE(12)", "12", nullptr, nullptr},
    };
    CheckRows(rows);
}

} // namespace
