#include "socket_fuzz.h"

#include "echo_host.h"
#include "platform/exec/tasks.h"
#include "platform/rexx/host_socket_client.h"
#include "platform/rexx/host_sockets.h"
#include "platform/rexx/script_server.h"

#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <random>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace {

std::string Frame(const std::string& payload)
{
    const auto length = uint32_t(payload.size());
    return std::string{char(length >> 24), char(length >> 16), char(length >> 8), char(length)} + payload;
}

std::string Mutated(std::mt19937& random, bool toServer)
{
    std::string payload = toServer ? std::string("Echo.0\0/no/such/script\0arg\0", 27) : "1+2";
    std::string bytes = Frame(payload);
    const int mutations = 1 + int(random() % 4);
    for (int mutation = 0; mutation < mutations; ++mutation) {
        switch (random() % 4) {
        case 0:
            bytes[random() % bytes.size()] = char(random());
            break;
        case 1:
            bytes.resize(random() % bytes.size());
            break;
        case 2:
            bytes.append(random() % 64, char(random()));
            break;
        default:
            bytes[random() % 4] = char(random());
            break;
        }
        if (bytes.empty())
            bytes.push_back(char(random()));
    }
    return bytes;
}

// Sends the bytes, ends writing, and reads until the editor closes: true
// unless the connection stays open past the deadline.
bool EndsInTime(const char* port, const std::string& bytes)
{
    int fd = ConnectHostSocket(port);
    if (fd < 0)
        return false;
    send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    shutdown(fd, SHUT_WR);
    bool ended = false;
    char buffer[256];
    for (pollfd entry{fd, POLLIN, 0}; poll(&entry, 1, 10000) == 1;) {
        if (recv(fd, buffer, sizeof buffer, 0) <= 0) {
            ended = true;
            break;
        }
    }
    close(fd);
    return ended;
}

} // namespace

long RunSocketFuzz(long requests, unsigned seed)
{
    char directory[] = "/tmp/tavrel-fuzz-XXXXXX";
    if (!mkdtemp(directory))
        return 1;
    setenv("XDG_RUNTIME_DIR", directory, 1);
    long failures = 0;
    std::atomic<bool> open{false};
    std::atomic<bool> stop{false};
    Task* host = nullptr;
    if (StartHostSockets().empty() && StartScriptServer(nullptr, "Tavrel")) {
        host = CreateNewProc("Echo.0", [&open, &stop] { ServeEchoHost("Echo.0", &open, &stop); });
        while (host && !open.load())
            Delay(1);
    }
    int steady = host ? ConnectHostSocket("Echo.0") : -1;
    if (steady < 0) {
        std::fprintf(stderr, "socket fuzz: no host to send to\n");
        ++failures;
    }
    std::mt19937 random(seed);
    for (long request = 0; steady >= 0 && request < requests; ++request) {
        const bool toServer = random() % 3 == 0;
        if (!EndsInTime(toServer ? ScriptServerName : "Echo.0", Mutated(random, toServer))) {
            std::fprintf(stderr, "socket fuzz: request %ld (seed %u) left its connection open\n", request, seed);
            ++failures;
        }
        HostReply reply;
        if (request % 50 == 0 && (!HostRequest(steady, "steady", &reply) || reply.Result != "steady")) {
            std::fprintf(stderr, "socket fuzz: the steady client lost its answer after request %ld\n", request);
            ++failures;
        }
    }
    if (steady >= 0)
        close(steady);
    StopHostSockets();
    StopScriptServer();
    stop.store(true);
    if (host)
        Signal(host, SIGBREAKF_CTRL_C);
    WaitForAllTasks();
    std::system(("rm -rf '" + std::string(directory) + "'").c_str());
    return failures;
}
