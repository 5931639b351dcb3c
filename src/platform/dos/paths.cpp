#include "platform/dos/paths.h"

#include "platform/dos/errors.h"

#include <cstring>

namespace {

// Index of the volume colon, or -1 when the path has no volume name.
long VolumeColon(const char* path) {
    for (long i = 0; path[i] != '\0'; ++i) {
        if (path[i] == '/') return -1;
        if (path[i] == ':') return i > 0 ? i : -1;
    }
    return -1;
}

} // namespace

bool HasVolumeName(const char* path) { return VolumeColon(path) >= 0; }

bool AddPart(char* dir, const char* name, size_t size) {
    size_t nameLength = std::strlen(name);
    if (nameLength == 0) return true;
    if (name[0] == '/' || HasVolumeName(name)) {
        if (nameLength + 1 > size) {
            SetIoErr(ERROR_LINE_TOO_LONG);
            return false;
        }
        std::memmove(dir, name, nameLength + 1);
        return true;
    }
    size_t dirLength = std::strlen(dir);
    bool slash = dirLength > 0 && dir[dirLength - 1] != '/' && dir[dirLength - 1] != ':';
    size_t total = dirLength + (slash ? 1 : 0) + nameLength;
    if (total + 1 > size) {
        SetIoErr(ERROR_LINE_TOO_LONG);
        return false;
    }
    if (slash) dir[dirLength++] = '/';
    std::memcpy(dir + dirLength, name, nameLength + 1);
    return true;
}

const char* FilePart(const char* path) {
    const char* slash = std::strrchr(path, '/');
    if (slash) return slash + 1;
    long colon = VolumeColon(path);
    return colon >= 0 ? path + colon + 1 : path;
}

const char* PathPart(const char* path) {
    const char* slash = std::strrchr(path, '/');
    if (slash) {
        // A slash that begins the path, or one right behind the volume
        // colon, is part of the directory: cutting before it would lose the
        // root.
        if (slash == path) return slash + 1;
        long colon = VolumeColon(path);
        if (colon >= 0 && slash == path + colon + 1) return slash + 1;
        return slash;
    }
    long colon = VolumeColon(path);
    return colon >= 0 ? path + colon + 1 : path;
}

void JoinPath(const char* directory, const char* name, char* output)
{
    output[0] = '\0';
    if (std::strlen(directory) < PathSize)
        std::memcpy(output, directory, std::strlen(directory) + 1);
    AddPart(output, name, JoinedPathSize);
}
