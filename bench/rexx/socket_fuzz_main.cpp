// socket_fuzz [REQUESTS] [SEED]: the long run of the host sockets' fuzzer
// (100,000 requests by default), meant for a build with
// -DTAVREL_SANITIZE=address; the test suite runs a short one.
#include "socket_fuzz.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    const long requests = argc > 1 ? std::atol(argv[1]) : 100000;
    const unsigned seed = argc > 2 ? unsigned(std::strtoul(argv[2], nullptr, 10)) : 1;
    const long failures = RunSocketFuzz(requests, seed);
    std::printf("%ld requests, %ld failures\n", requests, failures);
    return failures == 0 ? 0 : 1;
}
