#include "frame/process/command_line.h"

#include "frame/process/start_text.h"
#include "frame/protocol/app_globals.h"
#include "platform/dos/readargs.h"
#include "platform/dos/volumes.h"

#include <cstring>
#include <sys/stat.h>

namespace {

constexpr const char* ArgumentTemplate = "FILE/M,PUBSCREEN/K";

bool NamesExistingFile(const std::string& argument)
{
    struct stat status;
    return !argument.empty() && ::stat(ExpandVolumePath(argument.c_str()).c_str(), &status) == 0;
}

} // namespace

bool AsksForUsage(const std::vector<std::string>& arguments)
{
    for (const std::string& argument : arguments) {
        if (argument == "--help")
            return true;
    }
    return false;
}

void PrintUsage(std::FILE* out, const char* program)
{
    const char* slash = std::strrchr(program, '/');
    std::fprintf(out,
        "Usage: %s [FILE...] [PUBSCREEN name]\n"
        "Template: %s\n"
        "  FILE       a file to open, one text each; a name that exists is taken\n"
        "             as it stands, any other is a pattern (#?.txt, *.c)\n"
        "  PUBSCREEN  the screen that later windows open on\n"
        "  --help     prints this and ends\n",
        slash ? slash + 1 : program, ArgumentTemplate);
}

std::optional<std::string> StartFromArguments(const std::vector<std::string>& arguments)
{
    // Each argument is looked at once: the file system may change while the
    // texts start, and the two walks below must agree on every argument.
    std::vector<bool> literal;
    std::vector<const char*> others;
    for (const std::string& argument : arguments) {
        literal.push_back(NamesExistingFile(argument));
        if (!literal.back())
            others.push_back(argument.c_str());
    }
    RDArgs args;
    const bool read = ReadArgs(ArgumentTemplate, static_cast<int>(others.size()), others.data(), &args);
    // The FILE values come in the order of their words, so walking the
    // arguments once keeps every text in the order given.
    const std::vector<std::string> none;
    const std::vector<std::string>& patterns = read ? args.items[0].strings : none;
    size_t nextPattern = 0;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (literal[i]) {
            if (!StartTextProcess(Globals.MainPort, argument.c_str()))
                break;
        } else if (nextPattern < patterns.size() && patterns[nextPattern] == argument) {
            StartFromPattern(Globals.MainPort, patterns[nextPattern++].c_str());
        }
    }
    // A value given as "FILE=name" doesn't stand as a word of its own.
    for (; nextPattern < patterns.size(); ++nextPattern)
        StartFromPattern(Globals.MainPort, patterns[nextPattern].c_str());
    if (read && args.items[1].present)
        return args.items[1].string;
    return std::nullopt;
}
