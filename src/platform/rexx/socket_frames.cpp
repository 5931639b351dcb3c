#include "platform/rexx/socket_frames.h"
#include "platform/utility/big_endian.h"

#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr size_t ReadChunk = 16384;

// Waits up to `milliseconds` for bytes to read.
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

// Appends what one read brings, waiting up to `milliseconds` for it (-1:
// a plain blocking read, no poll); false at the end of the connection.
bool ReadMore(FrameBuffer* buffer, int milliseconds)
{
    if (milliseconds >= 0 && !Readable(buffer->Fd, milliseconds))
        return false;
    char chunk[ReadChunk];
    for (;;) {
        ssize_t got = read(buffer->Fd, chunk, sizeof chunk);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        buffer->Bytes.append(chunk, size_t(got));
        return true;
    }
}

// Forgets the bytes taken, so that the buffer holds only a frame begun.
void Compact(FrameBuffer* buffer)
{
    buffer->Bytes.erase(0, buffer->Start);
    buffer->Start = 0;
}

void PutWord(std::string* frames, uint32_t value)
{
    uint8_t word[4];
    WriteBigEndian32(word, value);
    frames->append(reinterpret_cast<const char*>(word), sizeof word);
}

uint32_t GetWord(const std::string& bytes, size_t at)
{
    return ReadBigEndian32(reinterpret_cast<const uint8_t*>(bytes.data() + at));
}

// A length-prefixed field at `*at`: 1 taken, 0 not all here, -1 too long.
int TakeField(const std::string& bytes, size_t* at, std::string* field)
{
    if (bytes.size() - *at < 4)
        return 0;
    const uint32_t length = GetWord(bytes, *at);
    if (length > MaxReplyLength)
        return -1;
    if (bytes.size() - *at - 4 < length)
        return 0;
    field->assign(bytes, *at + 4, length);
    *at += 4 + length;
    return 1;
}

// The next request: 1 taken, 0 not all here, -1 a bad length.
int TakeRequest(FrameBuffer* buffer, std::string* payload)
{
    const std::string& bytes = buffer->Bytes;
    if (bytes.size() - buffer->Start < 4)
        return 0;
    const uint32_t length = GetWord(bytes, buffer->Start);
    if (length == 0 || length > MaxRequestLength)
        return -1;
    if (bytes.size() - buffer->Start - 4 < length)
        return 0;
    payload->assign(bytes, buffer->Start + 4, length);
    buffer->Start += 4 + length;
    return 1;
}

// The next reply, by the same rule.
int TakeReply(FrameBuffer* buffer, HostReply* reply)
{
    const std::string& bytes = buffer->Bytes;
    size_t at = buffer->Start;
    if (bytes.size() - at < 12)
        return 0;
    const uint32_t length = GetWord(bytes, at + 4);
    const uint32_t count = GetWord(bytes, at + 8);
    if (length > MaxReplyLength || count > MaxReplyLength)
        return -1;
    if (bytes.size() - at - 12 < length)
        return 0;
    reply->ReturnCode = static_cast<int32_t>(GetWord(bytes, at));
    reply->Result.assign(bytes, at + 12, length);
    at += 12 + length;
    reply->Variables.clear();
    int taken = 1;
    for (uint32_t variable = 0; taken > 0 && variable < count; ++variable) {
        std::pair<std::string, std::string> named;
        taken = TakeField(bytes, &at, &named.first);
        if (taken > 0)
            taken = TakeField(bytes, &at, &named.second);
        reply->Variables.push_back(std::move(named));
    }
    if (taken > 0)
        buffer->Start = at;
    return taken;
}

} // namespace

bool ReadRequests(FrameBuffer* buffer, std::vector<std::string>* payloads, int firstByteWait)
{
    payloads->clear();
    for (;;) {
        std::string payload;
        int taken;
        while (!buffer->Broken && (taken = TakeRequest(buffer, &payload)) != 0) {
            if (taken < 0)
                buffer->Broken = true;
            else
                payloads->push_back(std::move(payload));
        }
        Compact(buffer);
        if (!payloads->empty())
            return true;
        if (buffer->Broken)
            return false;
        const bool inside = !buffer->Bytes.empty();
        if (!ReadMore(buffer, inside ? StallMilliseconds : firstByteWait))
            return false;
    }
}

bool ReadReplies(FrameBuffer* buffer, std::vector<HostReply>* replies)
{
    replies->clear();
    for (;;) {
        HostReply reply;
        int taken;
        while ((taken = TakeReply(buffer, &reply)) > 0)
            replies->push_back(std::move(reply));
        Compact(buffer);
        if (taken < 0)
            buffer->Broken = true;
        if (!replies->empty())
            return true;
        if (buffer->Broken || !ReadMore(buffer, -1))
            return false;
    }
}

void AppendRequest(std::string* frames, const std::string& payload)
{
    PutWord(frames, uint32_t(payload.size()));
    frames->append(payload);
}

void AppendReply(std::string* frames, const HostReply& reply)
{
    PutWord(frames, static_cast<uint32_t>(reply.ReturnCode));
    PutWord(frames, uint32_t(reply.Result.size()));
    PutWord(frames, uint32_t(reply.Variables.size()));
    frames->append(reply.Result);
    for (const auto& [name, value] : reply.Variables) {
        PutWord(frames, uint32_t(name.size()));
        frames->append(name);
        PutWord(frames, uint32_t(value.size()));
        frames->append(value);
    }
}

bool WriteAll(int fd, const std::string& bytes)
{
    const char* next = bytes.data();
    size_t size = bytes.size();
    while (size > 0) {
        ssize_t put = send(fd, next, size, MSG_NOSIGNAL);
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return false;
        next += put;
        size -= size_t(put);
    }
    return true;
}
