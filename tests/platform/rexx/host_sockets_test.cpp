#include "echo_hosts.h"

#include "platform/rexx/host_socket_client.h"
#include "platform/rexx/socket_frames.h"

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <random>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#ifndef TAVREL_REXX_LOAD_COMMANDS
#define TAVREL_REXX_LOAD_COMMANDS 5000
#endif

namespace {

using HostSockets = EchoHosts;

std::string Answer(int fd, const std::string& command, int32_t* returnCode)
{
    HostReply reply;
    EXPECT_TRUE(HostRequest(fd, command, &reply)) << command.substr(0, 40);
    *returnCode = reply.ReturnCode;
    return reply.Result;
}

// True when the editor closed the connection without a word: the client
// reads the end of the stream (or a reset) and no reply bytes.
bool ClosedWithoutReply(int fd)
{
    pollfd entry{fd, POLLIN, 0};
    if (poll(&entry, 1, 10000) != 1)
        return false;
    char byte;
    return recv(fd, &byte, 1, 0) <= 0;
}

std::string Frame(uint32_t length, const std::string& bytes)
{
    std::string frame{char(length >> 24), char(length >> 16), char(length >> 8), char(length)};
    return frame + bytes;
}

TEST_F(HostSockets, CommandsComeBackWithTheirReturnCodes)
{
    StartHosts(1);
    int fd = ConnectHostSocket("Echo.0");
    ASSERT_GE(fd, 0);
    struct Row {
        std::string command;
        int32_t returnCode;
        std::string result;
    } rows[] = {
        {"abc", 0, "abc"},
        {"fail", 20, ""},
        {std::string(MaxRequestLength, 'x'), 0, std::string(MaxRequestLength, 'x')},
        {"\xe9t\xe9", 0, "\xe9t\xe9"},
    };
    for (const Row& row : rows) {
        int32_t returnCode = -1;
        EXPECT_EQ(Answer(fd, row.command, &returnCode), row.result);
        EXPECT_EQ(returnCode, row.returnCode);
    }
    close(fd);
    EXPECT_LT(ConnectHostSocket("Echo.9"), 0);
}

// Each broken request closes its own connection; a client that keeps to
// the framing is served before and after.
TEST_F(HostSockets, BrokenRequestsCloseOnlyTheirConnection)
{
    StartHosts(1);
    int good = ConnectHostSocket("Echo.0");
    ASSERT_GE(good, 0);
    std::mt19937 random(7);
    std::string noise(1 << 20, '\0');
    for (char& byte : noise)
        byte = char(random());
    noise[0] = '\x7f'; // a length far above the limit
    struct Row {
        const char* what;
        std::string bytes;
        bool endWriting;
    } rows[] = {
        {"length 0", Frame(0, ""), false},
        {"length above the limit", Frame(MaxRequestLength + 1, "abc"), false},
        {"zero byte in a command", Frame(3, std::string("a\0b", 3)), false},
        {"ends inside the request", Frame(100, "only ten b"), true},
        {"ends inside the length", std::string("\0\0", 2), true},
        {"1 MB of random bytes", noise, false},
    };
    for (const Row& row : rows) {
        int fd = ConnectHostSocket("Echo.0");
        ASSERT_GE(fd, 0);
        send(fd, row.bytes.data(), row.bytes.size(), MSG_NOSIGNAL);
        if (row.endWriting)
            shutdown(fd, SHUT_WR);
        EXPECT_TRUE(ClosedWithoutReply(fd)) << row.what;
        close(fd);
        int32_t returnCode = -1;
        EXPECT_EQ(Answer(good, row.what, &returnCode), row.what);
    }
    close(good);
}

TEST_F(HostSockets, AClientKilledInsideARequestHarmsNoOther)
{
    StartHosts(1);
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        int fd = ConnectHostSocket("Echo.0");
        std::string half = Frame(64, "half of it");
        if (fd >= 0 && write(fd, half.data(), half.size()) > 0)
            pause();
        _exit(1);
    }
    Delay(10);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    int fd = ConnectHostSocket("Echo.0");
    ASSERT_GE(fd, 0);
    int32_t returnCode = -1;
    EXPECT_EQ(Answer(fd, "still here", &returnCode), "still here");
    close(fd);
}

// A request that stops half-way is given up after a while; the others
// go on meanwhile.
TEST_F(HostSockets, AnAbandonedRequestIsClosed)
{
    StartHosts(1);
    int stalled = ConnectHostSocket("Echo.0");
    ASSERT_GE(stalled, 0);
    std::string half = Frame(64, "half");
    ASSERT_EQ(write(stalled, half.data(), half.size()), ssize_t(half.size()));
    int fd = ConnectHostSocket("Echo.0");
    int32_t returnCode = -1;
    EXPECT_EQ(Answer(fd, "meanwhile", &returnCode), "meanwhile");
    EXPECT_TRUE(ClosedWithoutReply(stalled));
    close(stalled);
    close(fd);
}

// Requests sent before any reply is read come back in order, each with
// the variables its command set; the window only limits how many are under
// way, never what comes back.
TEST_F(HostSockets, PipelinedRequestsAreAnsweredInOrder)
{
    StartHosts(1);
    int fd = ConnectHostSocket("Echo.0");
    ASSERT_GE(fd, 0);
    std::vector<std::string> requests;
    for (int command = 0; command < 300; ++command)
        requests.push_back(command % 7 == 3 ? "fail" : "set V." + std::to_string(command) + " " + std::to_string(command));
    for (size_t window : {size_t(1), size_t(5), size_t(64), size_t(1000)}) {
        std::vector<HostReply> replies;
        ASSERT_TRUE(PipelinedRequests(fd, requests, window, &replies)) << window;
        ASSERT_EQ(replies.size(), requests.size());
        for (size_t at = 0; at < requests.size(); ++at) {
            if (requests[at] == "fail") {
                EXPECT_EQ(replies[at].ReturnCode, 20) << at;
                EXPECT_TRUE(replies[at].Variables.empty()) << at;
                continue;
            }
            const std::string number = std::to_string(at);
            EXPECT_EQ(replies[at].Result, requests[at]) << at;
            ASSERT_EQ(replies[at].Variables.size(), 1u) << at;
            EXPECT_EQ(replies[at].Variables[0].first, "V." + number);
            EXPECT_EQ(replies[at].Variables[0].second, number);
        }
    }
    close(fd);
}

// Good requests in one write with a broken one behind them: the good ones
// are answered, then the connection closes.
TEST_F(HostSockets, RequestsBeforeABrokenOneAreAnswered)
{
    StartHosts(1);
    int fd = ConnectHostSocket("Echo.0");
    ASSERT_GE(fd, 0);
    std::string bytes;
    AppendRequest(&bytes, "one");
    AppendRequest(&bytes, "two");
    bytes += Frame(0, "");
    ASSERT_TRUE(WriteAll(fd, bytes));
    FrameBuffer buffer{fd};
    std::vector<HostReply> replies;
    std::vector<std::string> results;
    while (results.size() < 2 && ReadReplies(&buffer, &replies)) {
        for (const HostReply& reply : replies)
            results.push_back(reply.Result);
    }
    EXPECT_EQ(results, (std::vector<std::string>{"one", "two"}));
    EXPECT_TRUE(ClosedWithoutReply(fd));
    close(fd);
}

TEST_F(HostSockets, TwentyClientsOnFiveHostsLoseNothing)
{
    constexpr int Clients = 20;
    constexpr int Hosts = 5;
    constexpr int Commands = TAVREL_REXX_LOAD_COMMANDS;
    StartHosts(Hosts);
    std::atomic<int> right{0};
    std::vector<std::thread> clients;
    for (int client = 0; client < Clients; ++client) {
        clients.emplace_back([client, &right] {
            int fd = ConnectHostSocket(("Echo." + std::to_string(client % Hosts)).c_str());
            if (fd < 0)
                return;
            // Half the clients strict, half with requests under way.
            std::vector<std::string> requests;
            for (int command = 0; command < Commands; ++command)
                requests.push_back(std::to_string(client) + ":" + std::to_string(command));
            std::vector<HostReply> replies;
            PipelinedRequests(fd, requests, client % 2 ? 16 : 1, &replies);
            for (size_t at = 0; at < replies.size(); ++at) {
                if (replies[at].ReturnCode == 0 && replies[at].Result == requests[at])
                    right.fetch_add(1);
            }
            close(fd);
        });
    }
    for (std::thread& client : clients)
        client.join();
    EXPECT_EQ(right.load(), Clients * Commands);
}

TEST(HostSocketDirectory, AnUnsafeDirectoryIsRefused)
{
    TempDir runtime;
    setenv("XDG_RUNTIME_DIR", runtime.path.c_str(), 1);
    const std::string directory = runtime.path + "/tavrel";
    struct Row {
        const char* what;
        std::string (*make)(const std::string& directory);
        const char* refusal; // a word of the message, or "" for none
    } rows[] = {
        {"made when missing", [](const std::string&) { return std::string(); }, ""},
        {"open to others", [](const std::string& d) { return std::to_string(mkdir(d.c_str(), 0755)); }, "mode"},
        {"a file", [](const std::string& d) { return std::to_string(close(creat(d.c_str(), 0600))); }, "no directory"},
    };
    for (const Row& row : rows) {
        std::system(("rm -rf '" + directory + "'").c_str());
        row.make(directory);
        std::string refusal = StartHostSockets();
        StopHostSockets();
        if (*row.refusal) {
            EXPECT_NE(refusal.find(row.refusal), std::string::npos) << row.what << ": " << refusal;
            continue;
        }
        EXPECT_EQ(refusal, "") << row.what;
        struct stat status{};
        ASSERT_EQ(stat(directory.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0700u);
    }
    if (geteuid() == 0) {
        std::system(("rm -rf '" + directory + "'").c_str());
        ASSERT_EQ(mkdir(directory.c_str(), 0700), 0);
        ASSERT_EQ(chown(directory.c_str(), 65534, 65534), 0);
        EXPECT_NE(StartHostSockets().find("another user"), std::string::npos);
        StopHostSockets();
    }
}

} // namespace
