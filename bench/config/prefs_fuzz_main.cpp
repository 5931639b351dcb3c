// The long run of the preferences fuzzer: `prefs_fuzz [FILES] [SEED]`, by
// default 500,000 mutated files. Prints the number read and exits with 1
// on a fault. Meant for the address-sanitizer build.
#include "prefs_fuzz.h"

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    const long count = argc > 1 ? std::atol(argv[1]) : 500000;
    const auto seed = static_cast<uint32_t>(argc > 2 ? std::atol(argv[2]) : 1);
    PrefsFuzzer fuzzer(seed);
    std::string fault;
    fuzzer.Run(count, &fault);
    std::printf("%ld files read\n", count);
    if (!fault.empty())
        std::printf("fault: %s\n", fault.c_str());
    return fault.empty() ? 0 : 1;
}
