#include "platform/dos/filenotes.h"

#include "platform/dos/errors.h"
#include "platform/dos/volumes.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace {

constexpr const char* CommentAttribute = "user.comment";

// A missing attribute is no error, but a missing file is: the attribute
// calls answer ENODATA for both only when the file exists.
bool FileExists(const std::string& path) {
    struct stat info;
    if (stat(path.c_str(), &info) == 0) return true;
    SetIoErrFromErrno(errno);
    return false;
}

} // namespace

bool SetComment(const char* path, const char* note) {
    std::string file = ExpandVolumePath(path);
    size_t length = std::strlen(note);
    if (length > MaxCommentLength) {
        SetIoErr(ERROR_COMMENT_TOO_BIG);
        return false;
    }
    if (!FileExists(file)) return false;
    int result = length == 0 ? removexattr(file.c_str(), CommentAttribute)
                             : setxattr(file.c_str(), CommentAttribute, note, length, 0);
    if (result != 0 && !(length == 0 && errno == ENODATA)) {
        SetIoErrFromErrno(errno);
        return false;
    }
    return true;
}

bool GetComment(const char* path, char* buffer, size_t size) {
    if (size > 0) buffer[0] = '\0';
    std::string file = ExpandVolumePath(path);
    if (!FileExists(file)) return false;
    // Asked for its size first: a note set by another program may be longer
    // than we ever write, and is then read in part rather than refused.
    ssize_t length = getxattr(file.c_str(), CommentAttribute, nullptr, 0);
    std::string note(length > 0 ? static_cast<size_t>(length) : 0, '\0');
    if (length > 0) length = getxattr(file.c_str(), CommentAttribute, note.data(), note.size());
    if (length < 0) {
        if (errno == ENODATA) return true;
        SetIoErrFromErrno(errno);
        return false;
    }
    size_t copy = std::min({static_cast<size_t>(length), MaxCommentLength, size > 0 ? size - 1 : 0});
    if (size > 0) {
        std::memcpy(buffer, note.data(), copy);
        buffer[copy] = '\0';
    }
    return true;
}
