// host_load_client [-w WINDOW] CLIENTS COMMANDS PORT...: CLIENTS connections
// at once, client i on PORT i mod the number of ports, each sending
// COMMANDS macro commands "i*100000+k" and checking that every answer is
// RC 0 with that number, in order. Each client keeps up to WINDOW requests
// unanswered (1, the default: strict request and reply). Prints "N right
// of M" and exits with 0 only when all are right.
#include "platform/rexx/host_socket_client.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

int main(int argc, char** argv)
{
    size_t window = 1;
    if (argc > 2 && std::strcmp(argv[1], "-w") == 0) {
        window = size_t(std::atol(argv[2]));
        argc -= 2;
        argv += 2;
    }
    if (argc < 4 || window == 0) {
        std::fprintf(stderr, "usage: host_load_client [-w WINDOW] CLIENTS COMMANDS PORT...\n");
        return 2;
    }
    const int clients = std::atoi(argv[1]);
    const int commands = std::atoi(argv[2]);
    std::vector<std::string> ports(argv + 3, argv + argc);
    std::atomic<long> right{0};
    std::vector<std::thread> threads;
    for (int client = 0; client < clients; ++client) {
        threads.emplace_back([&, client] {
            int fd = ConnectHostSocket(ports[size_t(client) % ports.size()].c_str());
            if (fd < 0)
                return;
            std::vector<std::string> requests;
            for (int command = 0; command < commands; ++command)
                requests.push_back(std::to_string(client) + "*100000+" + std::to_string(command));
            std::vector<HostReply> replies;
            PipelinedRequests(fd, requests, window, &replies);
            for (size_t at = 0; at < replies.size(); ++at) {
                if (replies[at].ReturnCode == 0 && replies[at].Result == std::to_string(client * 100000 + int(at)))
                    right.fetch_add(1);
            }
            close(fd);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    const long all = long(clients) * commands;
    std::printf("%ld right of %ld\n", right.load(), all);
    return right.load() == all ? 0 : 1;
}
