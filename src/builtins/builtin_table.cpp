#include "builtins/builtin_table.h"

#include "builtins/key_functions.h"
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
    {"EXEC", 0x01, ArgStringValue, ExecForm, "result=EXEC(\"command\")"},
    {"FOR", CallLazy, 0, ForForm, "FOR(init,test,act[,...])"},
    {"IF", 0x03, ArgIntegerValue, IfForm, "IF(test,actyes,actno)"},
    {"INIT", CallLazy, 0, InitForm, "INIT(var[,...])"},
    {"MAP", 0x02, ArgStringValue, MapFunction, "MAP(\"keys\",\"command\")"},
    {"READDEF", 0x01, ArgStringValue, ReadDefForm, "command=READDEF(\"function\")"},
    {"READMAP", 0x01, ArgStringValue, ReadMapFunction, "command=READMAP(\"keys\")"},
    {"RESET", CallLazy, 0, ResetForm, "RESET(var1[,...])"},
    {"SECURITY", 0x01, ArgIntegerValue, SecurityForm, "old=SECURITY(loops)"},
    {"TOOLBAR", 0x01, ArgStringValue, ToolbarFunction, "err=TOOLBAR(\"bar\")"},
    {"UNMAP", 0x01, ArgStringValue, UnmapFunction, "UNMAP(\"keys\")"},
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
