#include "platform/rexx/host_socket_client.h"

#include "platform/rexx/socket_directory.h"
#include "platform/rexx/socket_frames.h"

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

bool HostRequest(int fd, const std::string& request, int32_t* returnCode, std::string* result)
{
    return WriteRequest(fd, request) && ReadReply(fd, returnCode, result);
}
