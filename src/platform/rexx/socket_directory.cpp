#include "platform/rexx/socket_directory.h"

#include "platform/dos/runtime_directory.h"

#include <cstring>
#include <sys/socket.h>

std::string HostSocketDirectory()
{
    return RuntimeDirectory();
}

bool SocketAddress(const std::string& path, sockaddr_un* address)
{
    *address = sockaddr_un{};
    address->sun_family = AF_UNIX;
    if (path.size() >= sizeof address->sun_path)
        return false;
    std::memcpy(address->sun_path, path.c_str(), path.size() + 1);
    return true;
}
