#include "platform/rexx/socket_frames.h"

#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// Waits up to `milliseconds` (-1: forever) for bytes to read.
bool Readable(int fd, int milliseconds)
{
    pollfd entry{fd, POLLIN, 0};
    for (;;) {
        int ready = poll(&entry, 1, milliseconds);
        if (ready > 0)
            return true;
        if (ready == 0 || errno != EINTR)
            return false;
    }
}

// Exactly `size` bytes; the first may take `firstWait`, every later one
// at most StallMilliseconds.
bool ReadExactly(int fd, void* buffer, size_t size, int firstWait)
{
    auto* bytes = static_cast<char*>(buffer);
    size_t done = 0;
    while (done < size) {
        if (!Readable(fd, done == 0 ? firstWait : StallMilliseconds))
            return false;
        ssize_t got = read(fd, bytes + done, size - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        done += size_t(got);
    }
    return true;
}

bool WriteAll(int fd, const void* buffer, size_t size)
{
    auto* bytes = static_cast<const char*>(buffer);
    while (size > 0) {
        ssize_t put = send(fd, bytes, size, MSG_NOSIGNAL);
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return false;
        bytes += put;
        size -= size_t(put);
    }
    return true;
}

void PutWord(unsigned char* at, uint32_t value)
{
    at[0] = static_cast<unsigned char>(value >> 24);
    at[1] = static_cast<unsigned char>(value >> 16);
    at[2] = static_cast<unsigned char>(value >> 8);
    at[3] = static_cast<unsigned char>(value);
}

uint32_t GetWord(const unsigned char* at)
{
    return uint32_t(at[0]) << 24 | uint32_t(at[1]) << 16 | uint32_t(at[2]) << 8 | uint32_t(at[3]);
}

} // namespace

bool ReadRequest(int fd, std::string* payload, int firstByteWait)
{
    unsigned char header[4];
    if (!ReadExactly(fd, header, sizeof header, firstByteWait))
        return false;
    uint32_t length = GetWord(header);
    if (length == 0 || length > MaxRequestLength)
        return false;
    payload->resize(length);
    return ReadExactly(fd, payload->data(), length, StallMilliseconds);
}

bool WriteRequest(int fd, const std::string& payload)
{
    std::string frame(4, '\0');
    PutWord(reinterpret_cast<unsigned char*>(frame.data()), uint32_t(payload.size()));
    frame += payload;
    return WriteAll(fd, frame.data(), frame.size());
}

bool WriteReply(int fd, int32_t returnCode, const std::string& result)
{
    std::string frame(8, '\0');
    auto* header = reinterpret_cast<unsigned char*>(frame.data());
    PutWord(header, static_cast<uint32_t>(returnCode));
    PutWord(header + 4, uint32_t(result.size()));
    frame += result;
    return WriteAll(fd, frame.data(), frame.size());
}

bool ReadReply(int fd, int32_t* returnCode, std::string* result)
{
    unsigned char header[8];
    if (!ReadExactly(fd, header, sizeof header, -1))
        return false;
    *returnCode = static_cast<int32_t>(GetWord(header));
    uint32_t length = GetWord(header + 4);
    if (length > MaxReplyLength)
        return false;
    result->resize(length);
    return length == 0 || ReadExactly(fd, result->data(), length, -1);
}
