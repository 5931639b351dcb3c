#include "platform/dos/volumes.h"

#include "platform/dos/errors.h"
#include "platform/dos/runtime_directory.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <pwd.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::mutex programDirectoryLock;
std::string programDirectory; // empty: not set, use the default

bool IsDirectory(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::string HomeDirectory() {
    std::string home = AbsoluteEnvironmentPath("HOME");
    if (!home.empty()) return home;
    struct passwd entry;
    struct passwd* found = nullptr;
    char buffer[4096];
    if (getpwuid_r(getuid(), &entry, buffer, sizeof buffer, &found) == 0 && found && found->pw_dir)
        return found->pw_dir;
    return "/";
}

std::string ConfigDirectory() {
    std::string config = AbsoluteEnvironmentPath("XDG_CONFIG_HOME");
    if (config.empty()) config = HomeDirectory() + "/.config";
    return config + "/tavrel";
}

std::string ClipsDirectory() {
    return RuntimeDirectory() + "/clips";
}

std::string DefaultProgramDirectory() {
    char exe[4096];
    ssize_t length = readlink("/proc/self/exe", exe, sizeof exe - 1);
    if (length <= 0) return ".";
    exe[length] = '\0';
    std::string dir(exe);
    dir.erase(dir.rfind('/'));
    if (dir.empty()) dir = "/";
    for (const char* candidate : {"/../share/tavrel", "/data"}) {
        std::string path = dir + candidate;
        if (IsDirectory(path)) return path;
    }
    return dir;
}

std::string ProgramDirectory() {
    std::lock_guard<std::mutex> hold(programDirectoryLock);
    if (programDirectory.empty()) programDirectory = DefaultProgramDirectory();
    return programDirectory;
}

// Length of the volume name at the start of `path` (the colon not counted),
// or 0 when the path has none.
size_t VolumeNameLength(const char* path) {
    for (size_t i = 0; path[i] != '\0'; ++i) {
        if (path[i] == '/') return 0;
        if (path[i] == ':') return i;
    }
    return 0;
}

bool NameIs(const char* name, size_t length, const char* volume) {
    return std::strlen(volume) == length && strncasecmp(name, volume, length) == 0;
}

// The directory of the volume of that name, "" when there is none.
std::string DirectoryOf(const char* name, size_t length) {
    if (NameIs(name, length, "PROGDIR")) return ProgramDirectory();
    if (NameIs(name, length, "S")) return ConfigDirectory();
    if (NameIs(name, length, "REXX")) return ConfigDirectory() + "/rexx";
    if (NameIs(name, length, "CLIPS")) return ClipsDirectory();
    if (NameIs(name, length, "T")) return TempDirectory();
    return "";
}

} // namespace

std::string ExpandVolumePath(const char* path) {
    size_t length = VolumeNameLength(path);
    if (length == 0) return path;
    std::string dir = DirectoryOf(path, length);
    if (dir.empty()) return path;
    const char* rest = path + length + 1;
    if (*rest == '\0') return dir;
    if (dir.back() != '/' && *rest != '/') dir += '/';
    return dir + rest;
}

std::string VolumeDirectory(const char* volume) {
    size_t length = std::strlen(volume);
    if (length > 0 && volume[length - 1] == ':') --length;
    return DirectoryOf(volume, length);
}

bool EnsureVolumeDirectory(const char* volume) {
    std::string dir = VolumeDirectory(volume);
    if (dir.empty()) {
        SetIoErr(ERROR_DIR_NOT_FOUND);
        return false;
    }
    // Each missing component is made in turn; one that exists already is
    // fine as long as it is a directory.
    for (size_t slash = dir.find('/', 1);; slash = dir.find('/', slash + 1)) {
        std::string part = dir.substr(0, slash);
        if (mkdir(part.c_str(), 0700) != 0 && errno != EEXIST) {
            SetIoErrFromErrno(errno);
            return false;
        }
        if (slash == std::string::npos) break;
    }
    if (!IsDirectory(dir)) {
        SetIoErr(ERROR_OBJECT_WRONG_TYPE);
        return false;
    }
    return true;
}

bool IsPrinterPath(const char* path) {
    return NameIs(path, VolumeNameLength(path), "PRT");
}

void SetProgramDirectory(const char* directory) {
    std::lock_guard<std::mutex> hold(programDirectoryLock);
    programDirectory = directory ? directory : "";
}
