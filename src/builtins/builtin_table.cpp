#include "builtins/builtin_table.h"
#include "builtins/date_functions.h"
#include "builtins/key_functions.h"
#include "builtins/number_functions.h"
#include "builtins/program_functions.h"
#include "builtins/script_functions.h"
#include "builtins/string_functions.h"
#include "builtins/text_functions.h"
#include "builtins/toolbar_functions.h"
#include "macro/control_forms.h"
#include "macro/function_table.h"

#include <array>
#include <cstddef>

namespace {

// Rows are ordered by the first letter of their names (the lookup starts at
// the first row of a letter); within a letter the order is free. A function
// is added by adding its row and its handler, nothing else.
constexpr MacroFunction Rows[] = {
    {"DEF", 0, 0, nullptr, ""},
    {"ABS", 0x01, ArgIntegerValue, AbsFunction, "int=ABS(n)"},
    {"ASC", 0x02, ArgStringValue, AscFunction, "char=ASC(\"string\",n)"},
    {"BEGLINE", 0x01, ArgIntegerValue, BegLineBuiltin, "col=BEGLINE(line)"},
    {"BLOCK", 0x01, ArgIntegerValue, BlockBuiltin, "int=BLOCK(int)"},
    {"CALL", CallLazy, 0, CallFunction, "CALL(\"script\"[,var...])"},
    {"CATLINES", 0x01, ArgIntegerValue, CatLinesBuiltin, "success=CATLINES(line)"},
    {"CHR", 0x01, ArgIntegerValue, ChrFunction, "string=CHR(char)"},
    {"COL", CallNoParentheses | 0x01, 0, ColBuiltin, "col=COL"},
    {"CURRWORD", CallNoParentheses | 0x01, 0, CurrWordBuiltin, "string=CURRWORD"},
    {"CUTLINE", 0x01, ArgIntegerValue, CutLineBuiltin, "CUTLINE(x)"},
    {"DATE", 0x01, ArgIntegerValue, DateFunction, "date=DATE(d)"},
    {"DAYS", 0x02, ArgStringValue, DaysFunction, "int=DAYS(date1,date2)"},
    {"DELBEGIN", CallNoParentheses | 0x01, 0, DelBeginBuiltin, "DELBEGIN"},
    {"DELCHARS", 0x01, ArgIntegerValue, DelCharsBuiltin, "DELCHARS(chars)"},
    {"DELEND", CallNoParentheses | 0x01, 0, DelEndBuiltin, "DELEND"},
    {"DELLEFT", 0x01, ArgIntegerValue, DelLeftBuiltin, "col=DELLEFT(words)"},
    {"DELPREV", 0x01, ArgIntegerValue, DelPrevBuiltin, "col=DELPREV(chars)"},
    {"DELRIGHT", 0x01, ArgIntegerValue, DelRightBuiltin, "col=DELRIGHT(words)"},
    {"ENDLINE", 0x01, ArgIntegerValue, EndLineBuiltin, "col=ENDLINE(line)"},
    {"EXEC", 0x01, ArgStringValue, ExecForm, "result=EXEC(\"command\")"},
    {"FIND", 0x02, ArgIntegerValue, FindBuiltin, "int=FIND(int,\"string\")"},
    {"FOR", CallLazy, 0, ForForm, "FOR(init,test,act[,...])"},
    {"GETFIND", CallNoParentheses | 0x01, 0, GetFindBuiltin, "string=GETFIND"},
    {"GETREP", CallNoParentheses | 0x01, 0, GetRepBuiltin, "string=GETREP"},
    {"GOTO", 0x02, ArgIntegerValue, GotoBuiltin, "GOTO(col,line)"},
    {"IF", 0x03, ArgIntegerValue, IfForm, "IF(test,actyes,actno)"},
    {"INIT", CallLazy, 0, InitForm, "INIT(var[,...])"},
    {"INSLINES", 0x01, ArgIntegerValue, InsLinesBuiltin, "int=INSLINES(lines)"},
    {"LANGUAGE", CallNoParentheses | 0x01, 0, LanguageFunction, "locale=LANGUAGE"},
    {"LEN", 0x01, ArgStringValue, LenFunction, "int=LEN(\"string\")"},
    {"LINE", CallNoParentheses | 0x01, 0, LineBuiltin, "line=LINE"},
    {"LOCK", 0x41, 0, LockFunction, "LOCK"},
    {"LOWER", 0x01, ArgStringValue, LowerFunction, "string=LOWER(\"String\")"},
    {"MAP", 0x02, ArgStringValue, MapFunction, "MAP(\"keys\",\"command\")"},
    {"MARK", 0x01, ArgIntegerValue, MarkBuiltin, "MARK(begin/end)"},
    {"MODEDIT", 0x01, ArgIntegerValue, ModEditBuiltin, "old=MODEDIT(sur/ins)"},
    {"MODIF", CallNoParentheses | 0x01, 0, ModifBuiltin, "int=MODIF"},
    {"NBLINES", CallNoParentheses | 0x01, 0, NbLinesBuiltin, "lines=NBLINES"},
    {"PICKCOL", 0x01, ArgStringValue | ArgWindow, PickColBuiltin, "col=PICKCOL(\"message\")"},
    {"PICKLINE", 0x01, ArgStringValue | ArgWindow, PickLineBuiltin, "line=PICKLINE(\"message\")"},
    {"POS", 0x02, ArgStringValue, PosFunction, "int=POS(\"sub\",\"string\")"},
    {"READCHAR", 0x01, ArgIntegerValue, ReadCharBuiltin, "string=READCHAR(chars)"},
    {"READDEF", 0x01, ArgStringValue, ReadDefForm, "command=READDEF(\"function\")"},
    {"READLINE", 0x01, ArgIntegerValue, ReadLineBuiltin, "string=READLINE(line)"},
    {"READMAP", 0x01, ArgStringValue, ReadMapFunction, "command=READMAP(\"keys\")"},
    {"REPLACE", 0x03, ArgIntegerValue, ReplaceBuiltin, "int=REPLACE(int,\"find\",\"rep\")"},
    {"RESET", CallLazy, 0, ResetForm, "RESET(var1[,...])"},
    {"REXXPATH", 0x01, ArgStringValue, RexxPathFunction, "path=REXXPATH(\"path\")"},
    {"REXXPORT", 0x01, ArgStringValue, RexxPortFunction, "port=REXXPORT(\"filename\")"},
    {"SEARCH", 0x01, ArgStringValue, SearchBuiltin, "success=SEARCH(\"string\")"},
    {"SECURITY", 0x01, ArgIntegerValue, SecurityForm, "old=SECURITY(loops)"},
    {"SENDCMD", 0x02, ArgStringValue, SendCommandFunction, "SENDCMD(\"port\",\"command\")"},
    {"SETFIND", 0x01, ArgStringValue, SetFindBuiltin, "old=SETFIND(\"string\")"},
    {"SETREP", 0x01, ArgStringValue, SetRepBuiltin, "old=SETREP(\"string\")"},
    {"SGN", 0x01, ArgIntegerValue, SgnFunction, "sign=SGN(int)"},
    {"SORT", 0x03, ArgIntegerValue, SortBuiltin, "int=SORT(dir,line1,line2)"},
    {"STR", 0x01, ArgIntegerValue, StrFunction, "string=STR(int)"},
    {"STRBIN", 0x01, ArgIntegerValue, StrBinFunction, "string=STRBIN(int)"},
    {"STRHEX", 0x01, ArgIntegerValue, StrHexFunction, "string=STRHEX(int)"},
    {"SUBS", 0x03, ArgStringValue, SubsFunction, "sub=SUBS(\"string\",pos,len)"},
    {"SUPBLOCK", CallNoParentheses | 0x01, 0, SupBlockBuiltin, "success=SUPBLOCK"},
    {"SUPLINES", 0x01, ArgIntegerValue, SupLinesBuiltin, "int=SUPLINES(lines)"},
    {"TESTCASE", 0x01, ArgIntegerValue, TestCaseBuiltin, "old=TESTCASE(int)"},
    {"TEXTS", 0x01, ArgStringValue, TextsFunction, "Int=TEXTS(\"Var\")"},
    {"TEXTSEL", CallNoParentheses | 0x01, 0, TextSelBuiltin, "text=TEXTSEL"},
    {"TIME", 0x01, ArgIntegerValue, TimeFunction, "hh:mm[:ss]=TIME(ss)"},
    {"TOOLBAR", 0x01, ArgStringValue, ToolbarFunction, "err=TOOLBAR(\"bar\")"},
    {"TRACE", 0x01, ArgIntegerValue, TraceBuiltin, "TRACE([-]int)"},
    {"TYPE", 0x01, ArgIntegerValue, TypeFunction, "int=TYPE(char)"},
    {"UNLOCK", 0x41, 0, UnlockFunction, "UNLOCK"},
    {"UNMAP", 0x01, ArgStringValue, UnmapFunction, "UNMAP(\"keys\")"},
    {"UNMARK", CallNoParentheses | 0x01, 0, UnmarkBuiltin, "UNMARK"},
    {"UPPER", 0x01, ArgStringValue, UpperFunction, "STRING=UPPER(\"string\")"},
    {"VAL", 0x01, ArgStringValue, ValFunction, "int=VAL(\"string\")"},
    {"VERSION", CallNoParentheses | 0x01, 0, VersionFunction, "numver=VERSION"},
    {"WHILE", CallLazy, 0, WhileForm, "result=WHILE(cond,act[,...])"},
    {"WLEFT", 0x01, ArgIntegerValue, WordLeftBuiltin, "WLEFT(int)"},
    {"WRIGHT", 0x01, ArgIntegerValue, WordRightBuiltin, "WRIGHT(int)"},
    {"WRITE", 0x01, ArgStringValue, WriteBuiltin, "int=WRITE(\"string\")"},
    {"WRITETAB", 0x01, ArgIntegerValue, WriteTabBuiltin, "col=WRITETAB(int)"},
};

constexpr bool OrderedByFirstLetter()
{
    for (std::size_t row = 2; row < std::size(Rows); ++row) {
        if (static_cast<unsigned char>(Rows[row].Name[0]) < static_cast<unsigned char>(Rows[row - 1].Name[0]))
            return false;
    }
    return true;
}
static_assert(OrderedByFirstLetter(), "the lookup needs the rows ordered by first letter");
static_assert(std::size(Rows) <= OpFirstUser - OpFirstBuiltin + 1, "token codes of built-ins end at 152");

constexpr std::array<int32_t, 256> FirstRows = [] {
    std::array<int32_t, 256> first{};
    for (int c = 0; c < 256; ++c) {
        int32_t row = 1;
        while (row < int32_t(std::size(Rows)) && static_cast<unsigned char>(Rows[row].Name[0]) < c)
            ++row;
        first[std::size_t(c)] = row;
    }
    return first;
}();

} // namespace

void InstallBuiltinFunctions()
{
    SetMacroFunctions({Rows, int32_t(std::size(Rows)), FirstRows.data()});
}
