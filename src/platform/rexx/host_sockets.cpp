#include "platform/rexx/host_sockets.h"

#include "platform/exec/tasks.h"
#include "platform/rexx/host_ports.h"
#include "platform/rexx/host_socket_client.h"
#include "platform/rexx/rexx_message.h"
#include "platform/rexx/rexx_variables.h"
#include "platform/rexx/script_server.h"
#include "platform/rexx/socket_frames.h"

#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <poll.h>
#include <set>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

struct SocketState {
    std::mutex Lock;
    std::condition_variable ConnectionEnded;
    bool Running = false;
    std::string Directory;
    std::map<std::string, int> Listeners; // host port name -> listening socket
    std::vector<int> Retired;             // listening sockets the listener closes
    std::set<int> Connections;
    int Wake[2] = {-1, -1}; // a byte in Wake[1] makes the listener look again
    std::thread Listener;
};

// Never destroyed: connection tasks may end while the program exits.
SocketState& State()
{
    static SocketState* state = new SocketState;
    return *state;
}

void WakeListener(SocketState& state)
{
    char byte = 0;
    while (write(state.Wake[1], &byte, 1) < 0 && errno == EINTR) {
    }
}

bool PeerIsThisUser(int fd)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

// The message a request asks for; null when the request breaks the framing.
RexxMsg* RequestMessage(const std::string& payload, bool toScriptServer, MsgPort* replyPort)
{
    std::vector<std::string> fields;
    if (toScriptServer) {
        if (payload.back() != '\0')
            return nullptr;
        for (size_t start = 0; start < payload.size();) {
            size_t end = payload.find('\0', start);
            fields.push_back(payload.substr(start, end - start));
            start = end + 1;
        }
        if (fields.size() < 2 || fields.size() > 2 + MAXRMARG || fields[1].empty())
            return nullptr;
    } else if (payload.find('\0') != std::string::npos) {
        return nullptr;
    }
    RexxMsg* message = CreateRexxMsg(replyPort, nullptr, toScriptServer ? fields[0].c_str() : nullptr);
    if (!message)
        return nullptr;
    if (!toScriptServer) {
        message->rm_Action = RXCOMM;
        message->rm_Args[0] = CreateArgstring(payload.data(), long(payload.size()));
        return message;
    }
    message->rm_Action = RXFUNC | uint32_t(fields.size() - 2);
    for (size_t field = 1; field < fields.size(); ++field)
        message->rm_Args[field - 1] = CreateArgstring(fields[field].data(), long(fields[field].size()));
    return message;
}

// Puts every request at the port at once, waits for all the answers and
// writes the replies, in the order of the requests, in one write. False
// when the connection is to close: a request broke the framing, the port
// has gone, or the client went away.
bool ServeRequests(int fd, const std::string& portName, const std::vector<std::string>& payloads)
{
    const bool toScriptServer = portName == ScriptServerName;
    MsgPort* replyPort = FindTask(nullptr)->pr_MsgPort;
    std::vector<RexxVariables> variables(payloads.size());
    std::vector<RexxMsg*> sent;
    bool open = true;
    for (const std::string& payload : payloads) {
        RexxMsg* message = RequestMessage(payload, toScriptServer, replyPort);
        if (message && !toScriptServer)
            message->rm_Variables = &variables[sent.size()];
        const bool put = message && message->rm_Args[0]
            && (toScriptServer ? PutToScriptServer(message) : PutToHostPort(portName.c_str(), &message->rm_Node));
        if (!put) {
            FreeRexxMsg(message);
            open = false;
            break;
        }
        sent.push_back(message);
    }
    for (size_t answered = 0; answered < sent.size();) {
        if (GetMsg(replyPort))
            ++answered;
        else
            WaitPort(replyPort);
    }
    std::string frames;
    for (size_t at = 0; at < sent.size(); ++at) {
        RexxMsg* message = sent[at];
        HostReply reply{int32_t(message->rm_Result1), "", std::move(variables[at].Pending)};
        if (message->rm_Result1 == 0 && message->rm_Result2) {
            auto* text = reinterpret_cast<const char*>(message->rm_Result2);
            reply.Result.assign(text, size_t(LengthArgstring(text)));
        }
        AppendReply(&frames, reply);
        FreeRexxMsg(message);
    }
    return WriteAll(fd, frames) && open;
}

// Serves one connection until it ends or breaks the framing.
void ServeConnection(int fd, const std::string& portName)
{
    FrameBuffer buffer{fd};
    std::vector<std::string> payloads;
    while (ReadRequests(&buffer, &payloads, -1) && ServeRequests(fd, portName, payloads)) {
    }
}

void StartConnection(SocketState& state, int fd, const std::string& portName)
{
    {
        std::lock_guard<std::mutex> hold(state.Lock);
        state.Connections.insert(fd);
    }
    Task* task = CreateNewProc("host socket", [fd, portName] {
        ServeConnection(fd, portName);
        SocketState& state = State();
        std::lock_guard<std::mutex> hold(state.Lock);
        state.Connections.erase(fd);
        close(fd);
        state.ConnectionEnded.notify_all();
    });
    if (!task) {
        std::lock_guard<std::mutex> hold(state.Lock);
        state.Connections.erase(fd);
        close(fd);
    }
}

void AcceptOn(SocketState& state, int listener, const std::string& portName)
{
    int fd = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (fd < 0)
        return;
    if (!PeerIsThisUser(fd)) {
        close(fd);
        return;
    }
    StartConnection(state, fd, portName);
}

void ListenLoop()
{
    SocketState& state = State();
    for (;;) {
        std::vector<pollfd> watched{{state.Wake[0], POLLIN, 0}};
        std::vector<std::string> names{""};
        {
            std::lock_guard<std::mutex> hold(state.Lock);
            for (int fd : state.Retired)
                close(fd);
            state.Retired.clear();
            if (!state.Running)
                break;
            for (const auto& [name, fd] : state.Listeners) {
                watched.push_back({fd, POLLIN, 0});
                names.push_back(name);
            }
        }
        if (poll(watched.data(), watched.size(), -1) < 0 && errno != EINTR)
            break;
        if (watched[0].revents) {
            char bytes[64];
            while (read(state.Wake[0], bytes, sizeof bytes) == sizeof bytes) {
            }
            continue;
        }
        for (size_t at = 1; at < watched.size(); ++at) {
            if (watched[at].revents & POLLIN)
                AcceptOn(state, watched[at].fd, names[at]);
        }
    }
}

// "" when the directory is there, private and ours, else why not.
std::string CheckDirectory(const std::string& directory)
{
    size_t slash = directory.rfind('/');
    if (slash != std::string::npos && slash > 0)
        mkdir(directory.substr(0, slash).c_str(), 0700);
    if (mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST)
        return "The socket directory " + directory + " cannot be made: " + std::strerror(errno) + ".";
    struct stat status{};
    if (lstat(directory.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return "The socket directory " + directory + " is no directory.";
    if (status.st_uid != geteuid())
        return "The socket directory " + directory + " belongs to another user; the script ports stay closed to other programs.";
    if ((status.st_mode & 07777) != 0700)
        return "The socket directory " + directory + " is open to other users (its mode is not 0700); the script ports stay closed to other programs.";
    return "";
}

std::string SocketPath(const std::string& directory, const char* name)
{
    return directory + "/" + name;
}

// A listening socket at `path`, or -1. A stale socket left by an ended
// program is replaced; one that answers belongs to a running one.
int Listen(const std::string& path)
{
    sockaddr_un address;
    if (!SocketAddress(path, &address))
        return -1;
    int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return -1;
    auto* raw = reinterpret_cast<sockaddr*>(&address);
    if (bind(fd, raw, sizeof address) != 0 && errno == EADDRINUSE) {
        int probe = ConnectSocketAt(path);
        if (probe >= 0)
            close(probe);
        if (probe >= 0 || unlink(path.c_str()) != 0 || bind(fd, raw, sizeof address) != 0) {
            close(fd);
            return -1;
        }
    }
    if (listen(fd, 64) != 0) {
        close(fd);
        return -1;
    }
    return fd;
}

} // namespace

std::string StartHostSockets()
{
    SocketState& state = State();
    std::lock_guard<std::mutex> hold(state.Lock);
    if (state.Running)
        return "";
    std::string directory = HostSocketDirectory();
    std::string refusal = CheckDirectory(directory);
    if (!refusal.empty())
        return refusal;
    if (pipe2(state.Wake, O_CLOEXEC | O_NONBLOCK) != 0)
        return std::string("The script sockets cannot start: ") + std::strerror(errno) + ".";
    state.Directory = directory;
    state.Running = true;
    state.Listener = std::thread(ListenLoop);
    return "";
}

void StopHostSockets()
{
    SocketState& state = State();
    std::unique_lock<std::mutex> hold(state.Lock);
    if (!state.Running)
        return;
    state.Running = false;
    for (const auto& [name, fd] : state.Listeners) {
        unlink(SocketPath(state.Directory, name.c_str()).c_str());
        state.Retired.push_back(fd);
    }
    state.Listeners.clear();
    for (int fd : state.Connections)
        shutdown(fd, SHUT_RDWR);
    WakeListener(state);
    hold.unlock();
    state.Listener.join();
    hold.lock();
    state.ConnectionEnded.wait(hold, [&state] { return state.Connections.empty(); });
    close(state.Wake[0]);
    close(state.Wake[1]);
    state.Wake[0] = state.Wake[1] = -1;
}

void OpenHostSocket(const char* name)
{
    SocketState& state = State();
    std::lock_guard<std::mutex> hold(state.Lock);
    if (!state.Running || state.Listeners.count(name))
        return;
    int fd = Listen(SocketPath(state.Directory, name));
    if (fd < 0)
        return;
    state.Listeners[name] = fd;
    WakeListener(state);
}

void CloseHostSocket(const char* name)
{
    SocketState& state = State();
    std::lock_guard<std::mutex> hold(state.Lock);
    auto listener = state.Listeners.find(name);
    if (listener == state.Listeners.end())
        return;
    unlink(SocketPath(state.Directory, name).c_str());
    state.Retired.push_back(listener->second);
    state.Listeners.erase(listener);
    WakeListener(state);
}
