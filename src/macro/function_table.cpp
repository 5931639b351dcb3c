#include "macro/function_table.h"

#include "macro/control_forms.h"

#include <array>
#include <cstddef>

constexpr MacroFunction MacroFunctions[] = {
    {"DEF", 0, 0, nullptr, ""},
    {"EXEC", 0x01, ArgStringValue, ExecForm, "result=EXEC(\"command\")"},
    {"FOR", CallLazy, 0, ForForm, "FOR(init,test,act[,...])"},
    {"IF", 0x03, ArgIntegerValue, IfForm, "IF(test,actyes,actno)"},
    {"INIT", CallLazy, 0, InitForm, "INIT(var[,...])"},
    {"READDEF", 0x01, ArgStringValue, ReadDefForm, "command=READDEF(\"function\")"},
    {"RESET", CallLazy, 0, ResetForm, "RESET(var1[,...])"},
    {"SECURITY", 0x01, ArgIntegerValue, SecurityForm, "old=SECURITY(loops)"},
    {"WHILE", CallLazy, 0, WhileForm, "result=WHILE(cond,act[,...])"},
};
const int32_t MacroFunctionCount = std::size(MacroFunctions);

namespace {

constexpr bool OrderedByFirstLetter()
{
    for (std::size_t row = 2; row < std::size(MacroFunctions); ++row) {
        if (static_cast<unsigned char>(MacroFunctions[row].Name[0]) < static_cast<unsigned char>(MacroFunctions[row - 1].Name[0]))
            return false;
    }
    return true;
}
static_assert(OrderedByFirstLetter(), "the lookup needs the rows ordered by first letter");
static_assert(std::size(MacroFunctions) <= OpFirstUser - OpFirstBuiltin + 1, "token codes of built-ins end at 152");

// For each character, the first row whose name starts at or above it.
constexpr std::array<int32_t, 256> FirstRows = [] {
    std::array<int32_t, 256> first{};
    for (int c = 0; c < 256; ++c) {
        int32_t row = 1;
        while (row < int32_t(std::size(MacroFunctions)) && static_cast<unsigned char>(MacroFunctions[row].Name[0]) < c)
            ++row;
        first[std::size_t(c)] = row;
    }
    return first;
}();

} // namespace

int32_t FirstFunctionRow(unsigned char c)
{
    return FirstRows[c];
}

const char* FunctionUsage(int32_t row)
{
    return MacroFunctions[row].Usage;
}
