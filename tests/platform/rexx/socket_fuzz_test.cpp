#include "socket_fuzz.h"

#include <gtest/gtest.h>

// A short run; bench/rexx's socket_fuzz is the long one.
TEST(SocketFuzz, MutatedRequestsEndAndHarmNoOther)
{
    EXPECT_EQ(RunSocketFuzz(300, 1), 0);
}
