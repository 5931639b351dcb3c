#include "builtins/builtin_table.h"

#include "builtins/date_functions.h"
#include "builtins/number_functions.h"
#include "builtins/program_functions.h"
#include "builtins/script_functions.h"
#include "builtins/string_functions.h"
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
    {"CALL", CallLazy, 0, CallFunction, "CALL(\"script\"[,var...])"},
    {"CHR", 0x01, ArgIntegerValue, ChrFunction, "string=CHR(char)"},
    {"DATE", 0x01, ArgIntegerValue, DateFunction, "date=DATE(d)"},
    {"DAYS", 0x02, ArgStringValue, DaysFunction, "int=DAYS(date1,date2)"},
    {"EXEC", 0x01, ArgStringValue, ExecForm, "result=EXEC(\"command\")"},
    {"FOR", CallLazy, 0, ForForm, "FOR(init,test,act[,...])"},
    {"IF", 0x03, ArgIntegerValue, IfForm, "IF(test,actyes,actno)"},
    {"INIT", CallLazy, 0, InitForm, "INIT(var[,...])"},
    {"LANGUAGE", CallNoParentheses | 0x01, 0, LanguageFunction, "locale=LANGUAGE"},
    {"LEN", 0x01, ArgStringValue, LenFunction, "int=LEN(\"string\")"},
    {"LOCK", 0x41, 0, LockFunction, "LOCK"},
    {"LOWER", 0x01, ArgStringValue, LowerFunction, "string=LOWER(\"String\")"},
    {"POS", 0x02, ArgStringValue, PosFunction, "int=POS(\"sub\",\"string\")"},
    {"READDEF", 0x01, ArgStringValue, ReadDefForm, "command=READDEF(\"function\")"},
    {"RESET", CallLazy, 0, ResetForm, "RESET(var1[,...])"},
    {"REXXPATH", 0x01, ArgStringValue, RexxPathFunction, "path=REXXPATH(\"path\")"},
    {"REXXPORT", 0x01, ArgStringValue, RexxPortFunction, "port=REXXPORT(\"filename\")"},
    {"SECURITY", 0x01, ArgIntegerValue, SecurityForm, "old=SECURITY(loops)"},
    {"SENDCMD", 0x02, ArgStringValue, SendCommandFunction, "SENDCMD(\"port\",\"command\")"},
    {"SGN", 0x01, ArgIntegerValue, SgnFunction, "sign=SGN(int)"},
    {"STR", 0x01, ArgIntegerValue, StrFunction, "string=STR(int)"},
    {"STRBIN", 0x01, ArgIntegerValue, StrBinFunction, "string=STRBIN(int)"},
    {"STRHEX", 0x01, ArgIntegerValue, StrHexFunction, "string=STRHEX(int)"},
    {"SUBS", 0x03, ArgStringValue, SubsFunction, "sub=SUBS(\"string\",pos,len)"},
    {"TEXTS", 0x01, ArgStringValue, TextsFunction, "Int=TEXTS(\"Var\")"},
    {"TIME", 0x01, ArgIntegerValue, TimeFunction, "hh:mm[:ss]=TIME(ss)"},
    {"TYPE", 0x01, ArgIntegerValue, TypeFunction, "int=TYPE(char)"},
    {"UNLOCK", 0x41, 0, UnlockFunction, "UNLOCK"},
    {"UPPER", 0x01, ArgStringValue, UpperFunction, "STRING=UPPER(\"string\")"},
    {"VAL", 0x01, ArgStringValue, ValFunction, "int=VAL(\"string\")"},
    {"VERSION", CallNoParentheses | 0x01, 0, VersionFunction, "numver=VERSION"},
    {"WHILE", CallLazy, 0, WhileForm, "result=WHILE(cond,act[,...])"},
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
