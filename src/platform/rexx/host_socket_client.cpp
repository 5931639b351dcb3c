#include "platform/rexx/host_socket_client.h"

#include "platform/rexx/socket_directory.h"

#include <algorithm>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

int ConnectHostSocket(const char* name)
{
    return ConnectSocketAt(HostSocketDirectory() + "/" + name);
}

int ConnectSocketAt(const std::string& path)
{
    sockaddr_un address;
    if (!SocketAddress(path, &address))
        return -1;
    int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd >= 0 && connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        close(fd);
        return -1;
    }
    return fd;
}

bool HostRequest(int fd, const std::string& request, HostReply* reply)
{
    std::vector<HostReply> replies;
    if (!PipelinedRequests(fd, {request}, 1, &replies))
        return false;
    *reply = std::move(replies.front());
    return true;
}

bool PipelinedRequests(int fd, const std::vector<std::string>& requests, size_t window,
    std::vector<HostReply>* replies)
{
    replies->clear();
    FrameBuffer buffer{fd};
    std::vector<HostReply> arrived;
    size_t sent = 0;
    window = std::max<size_t>(window, 1);
    while (replies->size() < requests.size()) {
        std::string frames;
        for (; sent < requests.size() && sent - replies->size() < window; ++sent)
            AppendRequest(&frames, requests[sent]);
        if (!WriteAll(fd, frames) || !ReadReplies(&buffer, &arrived))
            return false;
        for (HostReply& reply : arrived)
            replies->push_back(std::move(reply));
    }
    // A server that answers more than was asked breaks the framing.
    return replies->size() == requests.size();
}
