#include "platform/rexx/socket_directory.h"

#include "platform/dos/volumes.h"

#include <cstring>
#include <sys/socket.h>

std::string HostSocketDirectory()
{
    // The program's runtime directory is the one its clips live under.
    std::string clips = VolumeDirectory("CLIPS");
    return clips.substr(0, clips.rfind('/'));
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
