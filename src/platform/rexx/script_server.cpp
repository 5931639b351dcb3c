#include "platform/rexx/script_server.h"

#include "platform/dos/volumes.h"
#include "platform/exec/tasks.h"
#include "platform/rexx/host_ports.h"
#include "platform/rexx/rexx_message.h"
#include "platform/rexx/rexx_variables.h"
#include "platform/rexx/script_run.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <list>
#include <mutex>
#include <string>
#include <thread>

namespace {

constexpr unsigned ScriptPathSize = 4096;

// A script task that has not ended, and its stop switch.
struct RunningEntry {
    RexxMsg* Message;
    HaltSwitch Halt;
};

struct ServerState {
    std::mutex Lock;
    std::condition_variable Changed;
    Task* Server = nullptr;
    bool Listening = false; // the server's port is open
    bool Stopping = false;  // scripts start halted
    bool Repeating = false; // a repeater tells halted scripts again
    std::list<RunningEntry> Running;
    ScriptNameResolver Resolver = nullptr;
    std::string Extension;
};

// Never destroyed: script tasks may end while the program exits.
ServerState& State()
{
    static ServerState* state = new ServerState;
    return *state;
}

std::atomic<int> AtWork{0};

// Every answer of the server goes through here.
void Answer(RexxMsg* message)
{
    ReplyMsg(&message->rm_Node);
    AtWork.fetch_sub(1);
}

void ReplyNotFound(RexxMsg* message)
{
    message->rm_Result1 = 5;
    message->rm_Result2 = 1;
    Answer(message);
}

// The file of the script a message names: a path (volume names expanded)
// as it stands, any other name through the resolver.
bool FindNamedScript(const char* name, const char* extension, char* path)
{
    std::string expanded = ExpandVolumePath(name);
    if (expanded[0] == '/')
        return FindScriptFile(expanded.c_str(), extension, path, ScriptPathSize);
    char resolved[ScriptPathSize];
    ScriptNameResolver resolver = State().Resolver;
    return resolver && resolver(name, resolved, sizeof resolved)
        && FindScriptFile(ExpandVolumePath(resolved).c_str(), extension, path, ScriptPathSize);
}

// A command message may carry an argument string behind the script's name.
bool FindScript(RexxMsg* message, char* path)
{
    const char* command = message->rm_Args[0];
    if (!command || !*command)
        return false;
    const char* extension = message->rm_FileExt ? message->rm_FileExt : State().Extension.c_str();
    if (FindNamedScript(command, extension, path))
        return true;
    const char* blank = std::strchr(command, ' ');
    if ((message->rm_Action & RXCODEMASK) != RXCOMM || !blank)
        return false;
    std::string name(command, size_t(blank - command));
    return FindNamedScript(name.c_str(), extension, path);
}

void StartScript(RexxMsg* message)
{
    ServerState& state = State();
    std::string path(ScriptPathSize, '\0');
    if (!FindScript(message, path.data())) {
        ReplyNotFound(message);
        return;
    }
    path.resize(std::strlen(path.c_str()));
    std::list<RunningEntry>::iterator entry;
    {
        std::lock_guard<std::mutex> hold(state.Lock);
        entry = state.Running.emplace(state.Running.end());
        entry->Message = message;
        entry->Halt.Halted = state.Stopping;
    }
    Task* task = CreateNewProc("REXX script", [message, path, entry] {
        RunScriptMessage(message, path.c_str(), &entry->Halt);
        ServerState& state = State();
        std::lock_guard<std::mutex> hold(state.Lock);
        state.Running.erase(entry);
        Answer(message);
        state.Changed.notify_all();
    });
    if (!task) {
        std::lock_guard<std::mutex> hold(state.Lock);
        state.Running.erase(entry);
        message->rm_Result1 = 20;
        message->rm_Result2 = 3;
        Answer(message);
    }
}

void ServeScripts(MsgPort* port)
{
    const uint32_t portSignal = PortSignal(port);
    for (;;) {
        uint32_t signals = Wait(portSignal | SIGBREAKF_CTRL_C);
        while (Message* received = GetMsg(port))
            StartScript(reinterpret_cast<RexxMsg*>(received));
        if (signals & SIGBREAKF_CTRL_C)
            break;
    }
    WithdrawHostPort(port);
    while (Message* received = GetMsg(port))
        ReplyNotFound(reinterpret_cast<RexxMsg*>(received));
    DeleteMsgPort(port);
}

} // namespace

bool PutToScriptServer(RexxMsg* message)
{
    Forbid();
    MsgPort* server = FindPort(ScriptServerName);
    if (server) {
        AtWork.fetch_add(1);
        PutMsg(server, &message->rm_Node);
    }
    Permit();
    return server != nullptr;
}

int ScriptsAtWork()
{
    return AtWork.load();
}

void ScriptWaitsForHost()
{
    AtWork.fetch_sub(1);
}

void ReplyRexxMsg(RexxMsg* message)
{
    if (message->rm_Variables && message->rm_Variables->FromScript)
        AtWork.fetch_add(1);
    ReplyMsg(&message->rm_Node);
}

bool StartScriptServer(ScriptNameResolver resolver, const char* extension)
{
    ServerState& state = State();
    std::unique_lock<std::mutex> hold(state.Lock);
    state.Resolver = resolver;
    state.Extension = extension ? extension : "";
    if (state.Server)
        return true;
    state.Server = CreateNewProc(ScriptServerName, [] {
        MsgPort* port = OpenHostPort(ScriptServerName);
        ServerState& state = State();
        {
            std::lock_guard<std::mutex> hold(state.Lock);
            state.Listening = port != nullptr;
            state.Changed.notify_all();
        }
        if (port)
            ServeScripts(port);
        std::lock_guard<std::mutex> hold(state.Lock);
        state.Server = nullptr;
        state.Listening = false;
        state.Changed.notify_all();
    });
    if (!state.Server)
        return false;
    state.Changed.wait(hold, [&state] { return state.Listening || !state.Server; });
    return state.Listening;
}

namespace {

// A script may not hear its halt at once (the interpreter sets its handler
// up only some clauses after the start, and loses a halt that comes in its
// first moments), so a short-lived thread tells every halted script again
// every 10 ms until none is left running. Called with the state's lock held.
void StartHaltRepeater(ServerState& state)
{
    if (state.Repeating)
        return;
    state.Repeating = true;
    std::thread([&state] {
        std::unique_lock<std::mutex> hold(state.Lock);
        for (;;) {
            state.Changed.wait_for(hold, std::chrono::milliseconds(10));
            bool running = false;
            for (RunningEntry& entry : state.Running)
                running = RepeatHalt(&entry.Halt) || running;
            if (!running)
                break;
        }
        state.Repeating = false;
        state.Changed.notify_all();
    }).detach();
}

} // namespace

void HaltScripts(const MsgPort* replyPort)
{
    ServerState& state = State();
    std::lock_guard<std::mutex> hold(state.Lock);
    for (RunningEntry& entry : state.Running) {
        if (!replyPort || entry.Message->rm_Node.mn_ReplyPort == replyPort)
            HaltScript(&entry.Halt);
    }
    StartHaltRepeater(state);
}

void StopScriptServer()
{
    ServerState& state = State();
    std::unique_lock<std::mutex> hold(state.Lock);
    state.Stopping = true;
    if (state.Server)
        Signal(state.Server, SIGBREAKF_CTRL_C);
    hold.unlock();
    HaltScripts(nullptr);
    hold.lock();
    state.Changed.wait(hold, [&state] { return !state.Server && state.Running.empty() && !state.Repeating; });
    state.Stopping = false;
}
