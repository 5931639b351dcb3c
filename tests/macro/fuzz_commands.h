#pragma once
// Commands for fuzzing the macro language: pieces of its grammar strung
// together at random, mutations of such commands, and random bytes. The
// loop limit is kept low and SECURITY never appears, so that every command
// ends quickly.
#include <cstdint>
#include <random>
#include <string>

struct TextRecord;

class MacroFuzzer {
public:
    explicit MacroFuzzer(uint32_t seed) : random_(seed) {}
    // The next command: a third each from pieces, mutations and bytes.
    std::string Next();
    // Runs `count` commands on `record`, the user functions freed every
    // thousand. The number of commands that failed; a result that is
    // neither an error of the language nor an integer or string counts as
    // a fault, and `fault` describes the first.
    long Run(TextRecord* record, long count, std::string* fault);

private:
    std::string Pieces();
    std::string Mutated();
    std::string Bytes();
    uint32_t Below(uint32_t limit) { return std::uniform_int_distribution<uint32_t>(0, limit - 1)(random_); }

    std::mt19937 random_;
    std::string last_ = "A=1";
};
