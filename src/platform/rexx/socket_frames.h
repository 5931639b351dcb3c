#pragma once
// The framing of the host sockets, shared by the editor and its clients.
// On one connection a client sends requests and reads one reply to each,
// in order:
//
//   request: its length N, 4 bytes big-endian, 1 to MaxRequestLength;
//            then N bytes
//   reply:   the return code, 4 bytes big-endian two's complement; the
//            length M of the result, 4 bytes big-endian; then M bytes,
//            the RESULT (empty unless the return code is 0)
//
// At a text's port the request is one macro command, with no zero byte in
// it. At the script server's socket it is fields ended by zero bytes: the
// host address the script starts with, the script's name, then its
// arguments (at most 15).
//
// A request of length 0 or above the limit, a zero byte in a command, a
// connection that ends inside a request, and one that sends nothing for
// StallMilliseconds inside a request, are closed without a reply; nothing
// else notices.
#include <cstdint>
#include <string>

constexpr uint32_t MaxRequestLength = 65536;
constexpr uint32_t MaxReplyLength = 1u << 24;
constexpr int StallMilliseconds = 5000;

// One request; false on end of connection, a bad length or a stall.
// `firstByteWait` is how long to wait for a request to begin, -1 forever.
bool ReadRequest(int fd, std::string* payload, int firstByteWait);
bool WriteRequest(int fd, const std::string& payload);
bool WriteReply(int fd, int32_t returnCode, const std::string& result);
// One reply; false when the connection ends first or breaks the framing.
bool ReadReply(int fd, int32_t* returnCode, std::string* result);
