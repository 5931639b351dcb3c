#pragma once
// Fuzzing the readers of what a user writes as a number or a date: VAL's
// number reader, run through the language, and the dos layer's StrToDate.
// Inputs are mutations of well-formed texts and random bytes.
#include <cstdint>
#include <random>
#include <string>

struct TextRecord;

class ValueReaderFuzzer {
public:
    explicit ValueReaderFuzzer(uint32_t seed) : random_(seed) {}
    // Runs `count` rounds on `record`, each a number, a mutated VAL
    // argument, and a mutated date and time. `fault` describes the first
    // broken promise: a number that doesn't read back as written, a VAL
    // that ends in anything but a number or a reader's error, a date or
    // time accepted out of range or not read back as shown.
    void Run(TextRecord* record, long count, std::string* fault);

private:
    std::string Mutated(const char* const* seeds, size_t seedCount);
    void CheckNumberRoundTrips(TextRecord* record, std::string* fault);
    void CheckVal(TextRecord* record, std::string* fault);
    void CheckDate(std::string* fault);
    uint32_t Below(uint32_t limit) { return std::uniform_int_distribution<uint32_t>(0, limit - 1)(random_); }

    std::mt19937 random_;
};
