#pragma once
// Mutated and random preferences files read one after the other: cut
// short, without line feeds, with huge lines, [Macros] lines without '=',
// binary bytes, sections spliced. After each file the state must still be
// sound (strings terminated, values in their ranges); the sanitizer builds
// catch reads beyond the buffer.
#include <cstdint>
#include <random>
#include <string>

class PrefsFuzzer {
public:
    explicit PrefsFuzzer(uint32_t seed) : random_(seed) {}

    // Reads `count` files; the first fault found goes to *fault.
    void Run(long count, std::string* fault);

    // One mutated file.
    std::string NextFile();

private:
    size_t Below(size_t limit);

    std::mt19937 random_;
};
