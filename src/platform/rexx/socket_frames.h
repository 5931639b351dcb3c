#pragma once
// The framing of the host sockets, shared by the editor and its clients.
// On one connection a client sends requests and reads one reply to each,
// in the order of the requests:
//
//   request: its length N, 4 bytes big-endian, 1 to MaxRequestLength;
//            then N bytes
//   reply:   the return code, 4 bytes big-endian two's complement; the
//            length M of the result and the count V of variables, 4 bytes
//            big-endian each; M bytes, the RESULT (empty unless the return
//            code is 0); then V times a name and its value, each as a
//            4-byte big-endian length and its bytes
//
// A client need not wait for a reply before it sends the next request: the
// editor takes every complete request it has received, runs them in order
// and writes their replies together, still in order. Strict request and
// reply costs two trips through the kernel a command; a client that keeps
// several requests under way pays that once for all of them.
//
// At a text's port the request is one macro command, with no zero byte in
// it. The variables of the reply are those the command set in its caller,
// as a script's host command would (TEXTS sets one per text; REQSTR and
// REQNUM with a variable name set that variable), in the order they were
// set. At the script server's socket the request is fields ended by zero
// bytes: the host address the script starts with, the script's name, then
// its arguments (at most 15); its replies carry no variables.
//
// A request of length 0 or above the limit, a zero byte in a command, a
// connection that ends inside a request, and one that sends nothing for
// StallMilliseconds inside a request, are closed without a reply (the
// requests before it are answered first); nothing else notices.
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

constexpr uint32_t MaxRequestLength = 65536;
constexpr uint32_t MaxReplyLength = 1u << 24;
constexpr int StallMilliseconds = 5000;

struct HostReply {
    int32_t ReturnCode = 0;
    std::string Result;
    std::vector<std::pair<std::string, std::string>> Variables;
};

// The bytes read from one connection and not yet taken as frames.
struct FrameBuffer {
    explicit FrameBuffer(int fd) : Fd(fd) {}
    int Fd;
    std::string Bytes;
    size_t Start = 0;     // the first byte not yet taken
    bool Broken = false;  // the framing broke: nothing more is taken
};

// Every complete request in the buffer, reading until there is at least
// one. `firstByteWait` is how long to wait for a request to begin, -1
// forever; inside one every wait is StallMilliseconds at most. False when
// not one comes: end of connection, a bad length or a stall. Requests
// before a bad length are given first; the next call gives false.
bool ReadRequests(FrameBuffer* buffer, std::vector<std::string>* payloads, int firstByteWait);
// Every complete reply in the buffer, reading until there is at least one;
// false when the connection ends first or breaks the framing.
bool ReadReplies(FrameBuffer* buffer, std::vector<HostReply>* replies);

// Appends one framed request or reply to `frames`, for one write of many.
void AppendRequest(std::string* frames, const std::string& payload);
void AppendReply(std::string* frames, const HostReply& reply);
// All the bytes, or false when the connection broke.
bool WriteAll(int fd, const std::string& bytes);
