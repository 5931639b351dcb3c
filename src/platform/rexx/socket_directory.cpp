#include "platform/rexx/socket_directory.h"

#include "platform/dos/volumes.h"

std::string HostSocketDirectory()
{
    // The program's runtime directory is the one its clips live under.
    std::string clips = VolumeDirectory("CLIPS");
    return clips.substr(0, clips.rfind('/'));
}
