#include "platform/dos/errors.h"
#include "platform/dos/numbers.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <string>
#include <thread>

namespace {

TEST(StrToLong, Table) {
    struct NumberCase {
        const char* text;
        long used;
        long value; // unchanged sentinel 77 when nothing was read
    };
    const NumberCase cases[] = {
        {"  \t42x", 5, 42}, {"-17", 3, -17}, {"+5", 2, 5},   {"007", 3, 7},    {"12 34", 2, 12},
        {"", -1, 77},       {"   ", -1, 77}, {"-", -1, 77}, {"+-3", -1, 77}, {"- 3", -1, 77},
        {"x12", -1, 77},    {"\n12", -1, 77},
        {"9223372036854775807", 19, LONG_MAX},
        {"-9223372036854775808", 20, LONG_MIN},
        {"99999999999999999999", 20, LONG_MAX},
        {"-99999999999999999999", 21, LONG_MIN},
    };
    for (const NumberCase& c : cases) {
        long value = 77;
        EXPECT_EQ(StrToLong(c.text, &value), c.used) << '"' << c.text << '"';
        EXPECT_EQ(value, c.value) << '"' << c.text << '"';
    }
}

TEST(Errors, FaultFormatsWithAndWithoutHeader) {
    char buffer[90];
    EXPECT_EQ(Fault(ERROR_OBJECT_NOT_FOUND, nullptr, buffer, sizeof buffer), 16);
    EXPECT_STREQ(buffer, "object not found");
    // An empty header still puts ": " in front; callers strip it.
    Fault(ERROR_OBJECT_NOT_FOUND, "", buffer, sizeof buffer);
    EXPECT_STREQ(buffer, ": object not found");
    EXPECT_EQ(Fault(0, "x", buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "");
    Fault(4242, nullptr, buffer, sizeof buffer);
    EXPECT_STREQ(buffer, "Error 4242");
    // Cut to the buffer, terminated.
    EXPECT_EQ(Fault(ERROR_OBJECT_NOT_FOUND, nullptr, buffer, 7), 6);
    EXPECT_STREQ(buffer, "object");
    EXPECT_EQ(Fault(ERROR_OBJECT_NOT_FOUND, nullptr, buffer, 0), 0);
}

TEST(Errors, ErrnoValuesMapToCodesOrKeepTheSystemText) {
    EXPECT_EQ(IoErrFromErrno(ENOENT), ERROR_OBJECT_NOT_FOUND);
    EXPECT_EQ(IoErrFromErrno(ENOSPC), ERROR_DISK_FULL);
    EXPECT_EQ(IoErrFromErrno(0), 0);
    long code = IoErrFromErrno(EACCES);
    EXPECT_EQ(code, ERROR_ERRNO_BASE + EACCES);
    char buffer[90];
    EXPECT_GT(Fault(code, nullptr, buffer, sizeof buffer), 0);
    EXPECT_STRNE(buffer, ("Error " + std::to_string(code)).c_str());
}

TEST(Errors, LastErrorBelongsToEachThread) {
    SetIoErr(ERROR_BAD_NUMBER);
    long seenByOther = -1;
    std::thread other([&] {
        seenByOther = IoErr();
        SetIoErr(ERROR_DISK_FULL);
    });
    other.join();
    EXPECT_EQ(seenByOther, 0);
    EXPECT_EQ(SetIoErr(0), ERROR_BAD_NUMBER);
}

} // namespace
