#include "fuzz_commands.h"

#include "macro/user_functions.h"
#include "shown_value.h"
#include "text/record/text_record.h"

#include <cstring>
#include <iterator>

namespace {

const char* const Pieces[] = {
    "0", "1", "-1", "7", "2147483647", "-2147483648", "$FF", "0X1F", "&B101", "&O7", "&H", "$", "12AB",
    "A", "B", "I", "S", "_", "ABCDEFGHIJKLMNOPQRSTUV", "ABCDEFGHIJKLMNOPQRSTU", "a",
    "\"x\"", "\"\"", "\"a\"\"b\"", "\"", "\"it's\"",
    "+", "-", "*", "/", "^", "&", "|", "?", "%", ":", "=", "<", ">", "<<", ">>", "<=", ">=", "==", "<>",
    "(", ")", ",", "'", " ",
    "IF(", "WHILE(", "FOR(", "INIT(", "RESET(", "EXEC(", "READDEF(", "F(", "G(", "H(", "DEF ",
    "EXEC(\"A=A+1\")", "EXEC(\"F(1)\")", "READDEF(\"F\")", "IF(A,1,2)", "WHILE(A<3,A=A+1)",
    "FOR(I=0,I<9,I=I+1,S=S+I)", "DEF F(X)=X+1", "DEF G(X,Y)=F(X)*Y", "DEF F(X)=G(X,X)", "DEF H(X)=X=X+1",
};

} // namespace

std::string MacroFuzzer::Pieces()
{
    std::string command;
    for (uint32_t count = 1 + Below(24); count > 0; --count)
        command += ::Pieces[Below(std::size(::Pieces))];
    return command;
}

std::string MacroFuzzer::Mutated()
{
    std::string command = last_;
    for (uint32_t edits = 1 + Below(4); edits > 0; --edits) {
        const uint32_t at = Below(uint32_t(command.size()) + 1);
        switch (Below(3)) {
        case 0: command.insert(at, ::Pieces[Below(std::size(::Pieces))]); break;
        case 1:
            if (at < command.size())
                command.erase(at, 1 + Below(3));
            break;
        default:
            if (at < command.size())
                command[at] = static_cast<char>(1 + Below(255));
        }
    }
    return command;
}

std::string MacroFuzzer::Bytes()
{
    std::string command;
    for (uint32_t count = Below(40); count > 0; --count)
        command += static_cast<char>(1 + Below(255));
    return command;
}

std::string MacroFuzzer::Next()
{
    std::string command;
    switch (Below(3)) {
    case 0: command = Pieces(); break;
    case 1: command = Mutated(); break;
    default: command = Bytes();
    }
    // Nothing may lift the loop limit.
    for (size_t at; (at = command.find("SECURITY")) != std::string::npos;)
        command.erase(at, 1);
    if (Below(4) == 0)
        last_ = command;
    return command;
}

long MacroFuzzer::Run(TextRecord* record, long count, std::string* fault)
{
    long failed = 0;
    ChangeLoopIterationLimit(3);
    for (long done = 0; done < count; ++done) {
        if (done % 1000 == 0) {
            FreeUserFunctions();
            ChangeLoopIterationLimit(3);
        }
        const std::string command = Next();
        const std::string shown = RunCommand(record, command);
        record->MacroScratch[0] = '\0';
        if (!IsValueOrLanguageError(shown, 238) && fault->empty())
            *fault = command + " gave " + shown;
        if (shown[0] == '#')
            ++failed;
    }
    FreeUserFunctions();
    return failed;
}
