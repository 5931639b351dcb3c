#include "platform/rexx/script_run.h"

#include "platform/exec/tasks.h"
#include "platform/rexx/host_ports.h"
#include "platform/rexx/rexx_message.h"
#include "platform/rexx/rexx_variables.h"

#define INCL_RXSHV
#define INCL_RXSYSEXIT
#include <rexxsaa.h>

#include <algorithm>
#include <cctype>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

constexpr char HostExitName[] = "TavrelHostCommands";
constexpr char TraceExitName[] = "TavrelTrace";
// The trace a failed script's answer carries: its last lines, so the
// error's own line and the clause it names.
constexpr size_t TraceLines = 4;
constexpr size_t TraceLineLength = 160;

// What the exits of the running script need.
struct RunningScript {
    const char* Extension;
    std::vector<std::string> Trace; // the last TraceLines lines
};

thread_local RunningScript* CurrentScript = nullptr;

void SetVariable(const char* name, const char* value, size_t length)
{
    SHVBLOCK block{};
    block.shvcode = RXSHV_SYSET;
    MAKERXSTRING(block.shvname, const_cast<char*>(name), std::strlen(name));
    MAKERXSTRING(block.shvvalue, const_cast<char*>(value), length);
    RexxVariablePool(&block);
}

void DropVariable(const char* name)
{
    SHVBLOCK block{};
    block.shvcode = RXSHV_SYDRO;
    MAKERXSTRING(block.shvname, const_cast<char*>(name), std::strlen(name));
    RexxVariablePool(&block);
}

// A command to a host port goes there and waits for the answer; any other
// address is left to the interpreter.
LONG APIENTRY HostCommandExit(LONG function, LONG subfunction, PEXIT block)
{
    if (function != RXCMD || subfunction != RXCMDHST || !CurrentScript)
        return RXEXIT_NOT_HANDLED;
    auto* parameters = reinterpret_cast<RXCMDHST_PARM*>(block);
    std::string address(reinterpret_cast<const char*>(parameters->rxcmd_address), parameters->rxcmd_addressl);
    MsgPort* replyPort = FindTask(nullptr)->pr_MsgPort;
    RexxMsg* message = CreateRexxMsg(replyPort, CurrentScript->Extension, address.c_str());
    if (!message)
        return RXEXIT_RAISE_ERROR;
    const RXSTRING& command = parameters->rxcmd_command;
    message->rm_Args[0] = CreateArgstring(command.strptr ? command.strptr : "", long(RXSTRLEN(command)));
    message->rm_Action = RXCOMM;
    RexxVariables variables;
    variables.FromScript = true;
    message->rm_Variables = &variables;
    const bool copied = message->rm_Args[0] != nullptr;
    if (!copied || !PutToHostPort(address.c_str(), &message->rm_Node)) {
        FreeRexxMsg(message);
        return copied ? RXEXIT_NOT_HANDLED : RXEXIT_RAISE_ERROR;
    }
    ScriptWaitsForHost();
    while (!GetMsg(replyPort))
        WaitPort(replyPort);

    const long returnCode = message->rm_Result1;
    if (returnCode == 0) {
        auto* result = reinterpret_cast<char*>(message->rm_Result2);
        if (result)
            SetVariable("RESULT", result, size_t(LengthArgstring(result)));
    } else {
        DropVariable("RESULT");
    }
    for (const auto& [name, value] : variables.Pending)
        SetVariable(name.c_str(), value.c_str(), value.size());
    FreeRexxMsg(message);

    RXSTRING& code = parameters->rxcmd_retc;
    int written = std::snprintf(code.strptr, code.strlength, "%ld", returnCode);
    code.strlength = written > 0 ? ULONG(written) : 0;
    if (returnCode != 0)
        parameters->rxcmd_flags.rxfcerr = 1;
    return RXEXIT_HANDLED;
}

// The interpreter's trace and error lines are kept for the answer, and
// still written where the interpreter writes them.
LONG APIENTRY TraceExit(LONG function, LONG subfunction, PEXIT block)
{
    if (function != RXSIO || subfunction != RXSIOTRC || !CurrentScript)
        return RXEXIT_NOT_HANDLED;
    const RXSTRING& line = reinterpret_cast<RXSIOTRC_PARM*>(block)->rxsio_string;
    std::vector<std::string>& trace = CurrentScript->Trace;
    if (trace.size() == TraceLines)
        trace.erase(trace.begin());
    trace.emplace_back(line.strptr ? line.strptr : "", std::min<size_t>(RXSTRLEN(line), TraceLineLength));
    return RXEXIT_NOT_HANDLED;
}

// The lines, each ended by a newline, as an argstring; null for none.
char* TraceArgstring(const std::vector<std::string>& trace)
{
    std::string text;
    for (const std::string& line : trace)
        text += line + "\n";
    return text.empty() ? nullptr : CreateArgstring(text.data(), long(text.size()));
}

// The interpreter takes SIGINT as its halt: the thread that receives it
// stops its script at the next clause with error 4, and the interpreter's
// other threads, and the next script, go on as ever. (Its exit for halt
// tests would be the neater way, but the interpreter refuses to start with
// one.) The signal goes only to a thread inside the interpreter, and only
// once the interpreter's handler is in place: before that the signal would
// end the program.
bool InterpreterTakesInterrupts()
{
    struct sigaction current{};
    return sigaction(SIGINT, nullptr, &current) == 0 && current.sa_handler != SIG_DFL
        && current.sa_handler != SIG_IGN;
}

bool IsReadableFile(const std::string& path)
{
    struct stat status{};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// The interpreter gives a return code also for a result that only begins
// with a number; a command's exit value is a whole number or no code.
bool IsWholeNumber(const RXSTRING& text)
{
    size_t at = 0;
    if (at < text.strlength && (text.strptr[at] == '-' || text.strptr[at] == '+'))
        ++at;
    if (at == text.strlength)
        return false;
    for (; at < text.strlength; ++at) {
        if (!std::isdigit(static_cast<unsigned char>(text.strptr[at])))
            return false;
    }
    return true;
}

RXSTRING Argument(const char* text, size_t length)
{
    RXSTRING argument;
    MAKERXSTRING(argument, const_cast<char*>(text), length);
    return argument;
}

} // namespace

bool FindScriptFile(const char* name, const char* extension, char* buffer, unsigned size)
{
    std::vector<std::string> candidates{name};
    if (extension && *extension) {
        std::string lower(extension);
        for (char& c : lower)
            c = char(std::tolower(static_cast<unsigned char>(c)));
        candidates.push_back(std::string(name) + "." + extension);
        if (lower != extension)
            candidates.push_back(std::string(name) + "." + lower);
    }
    for (const std::string& candidate : candidates) {
        if (candidate.size() < size && IsReadableFile(candidate)) {
            std::memcpy(buffer, candidate.c_str(), candidate.size() + 1);
            return true;
        }
    }
    return false;
}

void HaltScript(HaltSwitch* halt)
{
    std::lock_guard<std::mutex> hold(halt->Lock);
    halt->Halted = true;
    if (halt->Interpreting && !halt->Signalled && InterpreterTakesInterrupts()) {
        pthread_kill(halt->Thread, SIGINT);
        halt->Signalled = true;
    }
}

bool RepeatHalt(HaltSwitch* halt)
{
    {
        std::lock_guard<std::mutex> hold(halt->Lock);
        if (!halt->Halted || !halt->Interpreting)
            return false;
        halt->Signalled = false;
    }
    HaltScript(halt);
    return true;
}

void RunScriptMessage(RexxMsg* message, const char* path, HaltSwitch* halt)
{
    {
        std::lock_guard<std::mutex> hold(halt->Lock);
        if (halt->Halted) {
            message->rm_Result1 = 20;
            message->rm_Result2 = HaltedError;
            return;
        }
        halt->Thread = pthread_self();
        halt->Interpreting = true;
    }
    RunningScript script{message->rm_FileExt, {}};
    CurrentScript = &script;
    RexxRegisterExitExe(HostExitName, HostCommandExit, nullptr);
    RexxRegisterExitExe(TraceExitName, TraceExit, nullptr);
    RXSYSEXIT exits[] = {{const_cast<char*>(HostExitName), RXCMD}, {const_cast<char*>(TraceExitName), RXSIO},
        {nullptr, RXENDLST}};

    std::vector<RXSTRING> arguments;
    const bool function = (message->rm_Action & RXCODEMASK) == RXFUNC;
    if (function) {
        const int count = int(message->rm_Action & RXARGMASK);
        for (int slot = 1; slot <= count; ++slot) {
            const char* text = message->rm_Args[slot] ? message->rm_Args[slot] : "";
            arguments.push_back(Argument(text, std::strlen(text)));
        }
    } else {
        // A command names the script, and whatever follows the name is its
        // one argument string; a name that is a file as it stands has none.
        const char* command = message->rm_Args[0];
        if (std::strcmp(path, command) != 0) {
            const char* blank = std::strchr(command, ' ');
            if (blank && blank[1])
                arguments.push_back(Argument(blank + 1, std::strlen(blank + 1)));
        }
    }

    short returnCode = 0;
    RXSTRING result;
    MAKERXSTRING(result, nullptr, 0);
    const char* host = message->rm_CommAddr ? message->rm_CommAddr : "REXX";
    LONG outcome = RexxStart(LONG(arguments.size()), arguments.data(), path, nullptr, host,
        function ? RXFUNCTION : RXCOMMAND, exits, &returnCode, &result);
    {
        std::lock_guard<std::mutex> hold(halt->Lock);
        halt->Interpreting = false;
    }
    RexxDeregisterExit(HostExitName, nullptr);
    RexxDeregisterExit(TraceExitName, nullptr);
    CurrentScript = nullptr;

    message->rm_Result1 = 0;
    message->rm_Result2 = 0;
    if (outcome != 0) {
        // An error of the script is negative; the interpreter's own
        // refusal to start it positive.
        message->rm_Result1 = 20;
        message->rm_Result2 = outcome < 0 ? -outcome : outcome;
        message->rm_Trace = TraceArgstring(script.Trace);
    } else if (!function && RXSTRPTR(result) && IsWholeNumber(result)) {
        message->rm_Result1 = returnCode;
    } else if (RXSTRPTR(result)) {
        message->rm_Result2 = reinterpret_cast<intptr_t>(CreateArgstring(result.strptr, long(result.strlength)));
    }
    if (RXSTRPTR(result))
        RexxFreeMemory(result.strptr);
}
