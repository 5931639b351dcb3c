#include "text_fuzz_commands.h"

#include "macro/user_functions.h"
#include "shown_value.h"
#include "text/record/text_record.h"

#include <iterator>

namespace {

// The functions and the kinds of their arguments: i an integer, s a
// string, n a small count (INSLINES adds lines for every count it gets).
struct FuzzedFunction {
    const char* Name;
    const char* Arguments;
};

const FuzzedFunction Functions[] = {
    {"BEGLINE", "i"}, {"BLOCK", "i"}, {"CATLINES", "i"}, {"COL", ""}, {"CURRWORD", ""}, {"CUTLINE", "i"},
    {"DELBEGIN", ""}, {"DELCHARS", "i"}, {"DELEND", ""}, {"DELLEFT", "i"}, {"DELPREV", "i"},
    {"DELRIGHT", "i"}, {"ENDLINE", "i"}, {"FIND", "is"}, {"GOTO", "ii"}, {"INSLINES", "n"}, {"LINE", ""},
    {"MARK", "i"}, {"MODEDIT", "i"}, {"MODIF", ""}, {"NBLINES", ""}, {"READCHAR", "i"}, {"READLINE", "i"},
    {"REPLACE", "iss"}, {"SEARCH", "s"}, {"SORT", "iii"}, {"SUPBLOCK", ""}, {"SUPLINES", "i"},
    {"TESTCASE", "i"}, {"TEXTSEL", ""}, {"TRACE", "i"}, {"UNMARK", ""}, {"WLEFT", "i"}, {"WRIGHT", "i"},
    {"WRITE", "s"}, {"WRITETAB", "i"},
};

const char* const Integers[] = {"-2147483648", "-13", "-12", "-2", "-1", "0", "1", "2", "3", "4", "5", "12",
    "13", "254", "255", "256", "2147483647", "NBLINES", "NBLINES+1", "LINE", "COL", "A", "\"x\""};
const char* const Counts[] = {"-1", "0", "1", "2", "3", "A"};
const char* const Strings[] = {"\"\"", "\"a\"", "\"a b\"", "\"line\n\"", "\"\n\n\"", "\"#?\"", "\"(a|b)#?\"",
    "\"[a-\"", "\"~(a)\"", "\"'\"", "\"%\"", "TEXTSEL", "CURRWORD", "READCHAR(9)", "\"l'eau-ray\"", "7",
    "S", "\"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\""};
const char* const Joins[] = {":", ":", ":", "+", "=", "<>", ","};

} // namespace

std::string TextMacroFuzzer::Integer()
{
    return Integers[Below(std::size(Integers))];
}

std::string TextMacroFuzzer::String()
{
    if (Below(8) > 0)
        return Strings[Below(std::size(Strings))];
    std::string text = "\"";
    for (uint32_t count = Below(12); count > 0; --count) {
        const auto c = static_cast<char>(1 + Below(255));
        text += c == '"' ? std::string("\"\"") : std::string(1, c);
    }
    return text + "\"";
}

std::string TextMacroFuzzer::Call()
{
    const FuzzedFunction& function = Functions[Below(std::size(Functions))];
    std::string call = function.Name;
    const std::string kinds = function.Arguments;
    if (kinds.empty())
        return call;
    call += "(";
    for (size_t i = 0; i < kinds.size(); ++i) {
        if (i > 0)
            call += ",";
        call += kinds[i] == 's' ? String() : kinds[i] == 'n' ? Counts[Below(std::size(Counts))] : Integer();
    }
    return call + ")";
}

std::string TextMacroFuzzer::Mutated()
{
    std::string command = last_;
    for (uint32_t edits = 1 + Below(3); edits > 0; --edits) {
        const uint32_t at = Below(uint32_t(command.size()) + 1);
        if (Below(2) == 0)
            command.insert(at, Call());
        else if (at < command.size())
            command[at] = static_cast<char>(1 + Below(255));
    }
    return command;
}

std::string TextMacroFuzzer::Next()
{
    std::string command;
    switch (Below(4)) {
    case 0:
        command = Mutated();
        break;
    case 1:
        command = "FOR(I=0,I<" + std::to_string(Below(4)) + ",I=I+1," + Call() + ")";
        break;
    default:
        command = Call();
        for (uint32_t more = Below(4); more > 0; --more)
            command += Joins[Below(std::size(Joins))] + Call();
    }
    for (size_t at; (at = command.find("SECURITY")) != std::string::npos;)
        command.erase(at, 1);
    if (Below(4) == 0)
        last_ = command;
    return command;
}

long TextMacroFuzzer::Run(TextRecord* record, long count, const std::function<std::string(const TextRecord*)>& check,
    std::string* fault)
{
    long failed = 0;
    ChangeLoopIterationLimit(5);
    for (long done = 0; done < count && fault->empty(); ++done) {
        if (done % 1000 == 0)
            RunCommand(record, "GOTO(1,1):UNMARK:IF(NBLINES>8,SUPLINES(NBLINES-8),0)");
        const std::string command = Next();
        const std::string shown = RunCommand(record, command);
        record->MacroScratch[0] = '\0';
        if (!IsValueOrLanguageError(shown, 240))
            *fault = command + " gave " + shown;
        else if (std::string problem = check(record); !problem.empty())
            *fault = command + ": " + problem;
        if (shown[0] == '#')
            ++failed;
    }
    return failed;
}
