#include "shown_value.h"

#include "macro/command_pool.h"
#include "macro/evaluator.h"

#include <cstdlib>

std::string RunCommand(TextRecord* record, const std::string& command)
{
    CommandPool pool;
    MacroValue value{};
    std::string shown = "?";
    if (const int error = Evaluate(record, command.c_str(), &value, &pool, nullptr))
        shown = "#" + std::to_string(error);
    else if (value.Kind == KindInteger)
        shown = std::to_string(value.Integer);
    else if (value.Kind == KindString && value.String)
        shown = "\"" + std::string(value.String) + "\"";
    FreeCommandPool(&pool);
    return shown;
}

bool IsValueOrLanguageError(const std::string& shown, int lastError)
{
    if (shown == "?")
        return false;
    if (shown[0] != '#')
        return true;
    const int error = std::atoi(shown.c_str() + 1);
    return error >= 205 && error <= lastError;
}
