// Macros over a large text, one measurement per process, for the side by
// side run against vim (run_vs_vim.sh); the text has its window open on
// the in-memory display, as when a user runs the macro.
//   bench_text_macros --sum FILE   loads FILE and sums the lengths of all
//                                  its lines in one FOR over NBLINES
//   bench_text_macros --write N    writes N lines of "line" with WRITE into
//                                  an empty text
// Each prints the macro's value, the form it ran and the peak resident
// memory in kilobytes, and exits with 1 when the macro failed.
#include "builtins/builtin_table.h"
#include "files/load_text.h"
#include "macro/macro_command.h"
#include "macro/variables.h"

#include "../peak_memory.h"
#include "../windowed_text.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

// The value of `command`, or -1 after an error, which is shown unless
// `quiet`. The command goes the way of a user's command, with the drawing
// held until it ends; the leading "=" asks for its value.
long Run(TextRecord* record, const std::string& command, bool quiet = false)
{
    std::string text = "=" + command;
    MacroReport report;
    MacroCommandLines(record, text.data(), &report);
    long value = report.LineCount == 2 ? std::atol(report.Lines[1]) : -1;
    if (report.LineCount == 3 && !quiet)
        std::fprintf(stderr, "%s %s in %s\n", report.Lines[1], report.Lines[2], command.c_str());
    FreeMacroReport(record, &report);
    return value;
}

// The sum of the lengths through LEN when the language has it; else every
// line is still read and made a string, and only the non-empty ones count.
std::string SumCommand(TextRecord* record)
{
    const bool haveLen = Run(record, "LEN(\"ab\")", true) == 2;
    return std::string("SECURITY(2000000000):S=0:FOR(L=1,L<=NBLINES,S=S+")
        + (haveLen ? "LEN(READLINE(L))" : "(READLINE(L)<>\"\")") + ",L=L+1):S";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3 || (std::strcmp(argv[1], "--sum") != 0 && std::strcmp(argv[1], "--write") != 0)) {
        std::fprintf(stderr, "usage: %s --sum FILE | --write LINES\n", argv[0]);
        return 2;
    }
    InstallBuiltinFunctions();
    WindowedText text(nullptr, 640, 200);
    TextRecord* record = text.Record();
    std::string command;
    if (std::strcmp(argv[1], "--sum") == 0) {
        if (!LoadText(record, argv[2], false))
            return 1;
        command = SumCommand(record);
    } else {
        // The string holds a line feed itself: literals have no escapes.
        command = "SECURITY(2000000000):FOR(I=0,I<" + std::to_string(std::atol(argv[2])) + ",I=I+1,WRITE(\"line\n\")):NBLINES";
    }
    const long value = Run(record, command);
    std::printf("%ld from %s\n%ld\n", value, command.c_str(), PeakKilobytes());
    FreeMacroVariables(record);
    return value < 0 ? 1 : 0;
}
