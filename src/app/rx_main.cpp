// tavrel-rx: drives a running editor from the shell.
//
//   tavrel-rx PORT COMMAND      sends the macro command to the text whose
//                               host port is PORT ("Tavrel.1", any case),
//                               prints RESULT and exits with RC; then a
//                               line NAME=VALUE for every variable the
//                               command set in its caller (TEXTS("P")
//                               prints the count, then P.0=Tavrel.1 ...)
//   tavrel-rx SCRIPT [ARG...]   asks the editor's script server to run the
//                               REXX script with the arguments, each one
//                               an argument of its own; the script starts
//                               at the port of the lowest-numbered text;
//                               prints the script's result and exits with
//                               its return code
//
// A SCRIPT that names a file here (as it stands, or with ".tavrel") is
// sent by its full path, any other name is sought in the editor's script
// directory. What the script says goes to the editor's output. Failing to
// reach the editor prints why and exits with 20.
#include "platform/rexx/host_socket_client.h"
#include "platform/rexx/socket_directory.h"
#include "platform/rexx/script_server.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <map>
#include <string>
#include <unistd.h>

namespace {

constexpr int Unreachable = 20;
constexpr char HostPrefix[] = "tavrel.";

// "Tavrel.N" in any case: the number, else -1.
long PortNumber(const char* name)
{
    const size_t prefix = sizeof HostPrefix - 1;
    if (strncasecmp(name, HostPrefix, prefix) != 0 || !std::isdigit(static_cast<unsigned char>(name[prefix])))
        return -1;
    char* end = nullptr;
    long number = std::strtol(name + prefix, &end, 10);
    return *end == '\0' ? number : -1;
}

// The socket names of the texts, by their numbers.
std::map<long, std::string> TextPorts()
{
    std::map<long, std::string> ports;
    DIR* directory = opendir(HostSocketDirectory().c_str());
    if (!directory)
        return ports;
    while (dirent* entry = readdir(directory)) {
        long number = PortNumber(entry->d_name);
        if (number >= 0)
            ports[number] = entry->d_name;
    }
    closedir(directory);
    return ports;
}

// The port of the lowest-numbered text, or "".
std::string FirstTextPort()
{
    std::map<long, std::string> ports = TextPorts();
    return ports.empty() ? "" : ports.begin()->second;
}

// The socket of a port named in any case; the name itself when none fits.
std::string PortSocket(const char* name)
{
    for (const auto& [number, port] : TextPorts()) {
        if (strcasecmp(port.c_str(), name) == 0)
            return port;
    }
    return name;
}

std::string ScriptName(const char* name)
{
    for (std::string candidate : {std::string(name), std::string(name) + ".tavrel"}) {
        if (access(candidate.c_str(), R_OK) != 0)
            continue;
        char full[PATH_MAX];
        if (realpath(candidate.c_str(), full))
            return full;
    }
    return name;
}

int Request(const std::string& port, const std::string& request)
{
    int fd = ConnectHostSocket(port.c_str());
    if (fd < 0) {
        std::fprintf(stderr, "tavrel-rx: no port %s in %s: is the editor running?\n", port.c_str(),
            HostSocketDirectory().c_str());
        return Unreachable;
    }
    HostReply reply;
    const bool answered = HostRequest(fd, request, &reply);
    close(fd);
    if (!answered) {
        std::fprintf(stderr, "tavrel-rx: %s closed the connection without an answer\n", port.c_str());
        return Unreachable;
    }
    if (reply.ReturnCode == 0) {
        std::fwrite(reply.Result.data(), 1, reply.Result.size(), stdout);
        std::fputc('\n', stdout);
    }
    for (const auto& [name, value] : reply.Variables)
        std::printf("%s=%s\n", name.c_str(), value.c_str());
    return reply.ReturnCode;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: tavrel-rx PORT COMMAND\n       tavrel-rx SCRIPT [ARG...]\n");
        return Unreachable;
    }
    if (argc == 3 && PortNumber(argv[1]) >= 0) {
        if (*argv[2] == '\0') {
            std::fprintf(stderr, "tavrel-rx: the command is empty\n");
            return Unreachable;
        }
        return Request(PortSocket(argv[1]), argv[2]);
    }
    if (argc - 2 > 15) {
        std::fprintf(stderr, "tavrel-rx: a script takes at most 15 arguments\n");
        return Unreachable;
    }
    std::string request = FirstTextPort();
    request.push_back('\0');
    request += ScriptName(argv[1]);
    request.push_back('\0');
    for (int argument = 2; argument < argc; ++argument) {
        request += argv[argument];
        request.push_back('\0');
    }
    return Request(ScriptServerName, request);
}
