#include "platform/dos/errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

thread_local long lastError = 0;

struct ErrorText {
    long code;
    const char* text;
};

constexpr ErrorText errorTexts[] = {
    {ERROR_NO_FREE_STORE, "not enough memory available"},
    {ERROR_BAD_TEMPLATE, "bad template or pattern"},
    {ERROR_BAD_NUMBER, "bad number"},
    {ERROR_REQUIRED_ARG_MISSING, "required argument missing"},
    {ERROR_KEY_NEEDS_ARG, "value after keyword missing"},
    {ERROR_TOO_MANY_ARGS, "wrong number of arguments"},
    {ERROR_UNMATCHED_QUOTES, "unmatched quotes"},
    {ERROR_LINE_TOO_LONG, "argument line invalid or too long"},
    {ERROR_OBJECT_IN_USE, "object in use"},
    {ERROR_OBJECT_EXISTS, "object already exists"},
    {ERROR_DIR_NOT_FOUND, "directory not found"},
    {ERROR_OBJECT_NOT_FOUND, "object not found"},
    {ERROR_OBJECT_TOO_LARGE, "object too large"},
    {ERROR_ACTION_NOT_KNOWN, "action not supported by the file system"},
    {ERROR_INVALID_COMPONENT_NAME, "invalid file name"},
    {ERROR_OBJECT_WRONG_TYPE, "object is not of required type"},
    {ERROR_DISK_WRITE_PROTECTED, "file system is read-only"},
    {ERROR_RENAME_ACROSS_DEVICES, "rename across devices attempted"},
    {ERROR_DIRECTORY_NOT_EMPTY, "directory not empty"},
    {ERROR_TOO_MANY_LEVELS, "too many levels of links"},
    {ERROR_SEEK_ERROR, "seek error"},
    {ERROR_COMMENT_TOO_BIG, "comment is too long"},
    {ERROR_DISK_FULL, "disk is full"},
    {ERROR_NO_MORE_ENTRIES, "no more entries in directory"},
    {ERROR_NOT_IMPLEMENTED, "not implemented"},
    {ERROR_BUFFER_OVERFLOW, "buffer overflow"},
    {ERROR_BREAK, "break"},
    {ERROR_PLACE_NOT_PRIVATE, "directory belongs to another user or is writable by others"},
};

struct ErrnoCode {
    int errnum;
    long code;
};

constexpr ErrnoCode errnoCodes[] = {
    {ENOMEM, ERROR_NO_FREE_STORE},
    {ENOENT, ERROR_OBJECT_NOT_FOUND},
    {EEXIST, ERROR_OBJECT_EXISTS},
    {EBUSY, ERROR_OBJECT_IN_USE},
    {ETXTBSY, ERROR_OBJECT_IN_USE},
    {EFBIG, ERROR_OBJECT_TOO_LARGE},
    {ENOTSUP, ERROR_ACTION_NOT_KNOWN},
    {ENAMETOOLONG, ERROR_INVALID_COMPONENT_NAME},
    {EISDIR, ERROR_OBJECT_WRONG_TYPE},
    {ENOTDIR, ERROR_OBJECT_WRONG_TYPE},
    {EROFS, ERROR_DISK_WRITE_PROTECTED},
    {EXDEV, ERROR_RENAME_ACROSS_DEVICES},
    {ENOTEMPTY, ERROR_DIRECTORY_NOT_EMPTY},
    {ELOOP, ERROR_TOO_MANY_LEVELS},
    {ESPIPE, ERROR_SEEK_ERROR},
    {E2BIG, ERROR_COMMENT_TOO_BIG},
    {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},
    {ERANGE, ERROR_BUFFER_OVERFLOW},
};

std::string TextOf(long code) {
    for (const ErrorText& entry : errorTexts)
        if (entry.code == code) return entry.text;
    if (code > ERROR_ERRNO_BASE && code - ERROR_ERRNO_BASE < 4096) {
        char text[128];
        // The GNU strerror_r returns the text, which may or may not be in
        // the buffer given.
        return strerror_r(static_cast<int>(code - ERROR_ERRNO_BASE), text, sizeof text);
    }
    return "Error " + std::to_string(code);
}

} // namespace

long IoErr() { return lastError; }

long SetIoErr(long code) {
    long previous = lastError;
    lastError = code;
    return previous;
}

long IoErrFromErrno(int errnum) {
    if (errnum == 0) return 0;
    for (const ErrnoCode& entry : errnoCodes)
        if (entry.errnum == errnum) return entry.code;
    return ERROR_ERRNO_BASE + errnum;
}

long SetIoErrFromErrno(int errnum) {
    long code = IoErrFromErrno(errnum);
    SetIoErr(code);
    return code;
}

long Fault(long code, const char* header, char* buffer, long size) {
    if (size > 0) buffer[0] = '\0';
    if (code == 0 || size <= 0) return 0;
    std::string text = header ? std::string(header) + ": " + TextOf(code) : TextOf(code);
    size_t length = text.size() < static_cast<size_t>(size - 1) ? text.size() : static_cast<size_t>(size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    return static_cast<long>(length);
}
