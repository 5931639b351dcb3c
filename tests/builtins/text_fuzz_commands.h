#pragma once
// Commands for fuzzing the functions on the text: calls of them with
// arguments at and around their range limits, strung together with other
// pieces of the language, mutated, or random bytes, run on a text in a
// window. The loop limit stays low and no count makes the text grow
// without bound, so every command ends quickly.
#include <cstdint>
#include <functional>
#include <random>
#include <string>

struct TextRecord;

class TextMacroFuzzer {
public:
    explicit TextMacroFuzzer(uint32_t seed) : random_(seed) {}
    // The next command.
    std::string Next();
    // Runs `count` commands on `record`, which must have its window, and
    // after each asks `check` about the record: a non-empty answer is a
    // fault. Every thousand commands the text is cut back to a few lines.
    // The number of commands that failed with an error of the language;
    // `fault` describes the first fault.
    long Run(TextRecord* record, long count, const std::function<std::string(const TextRecord*)>& check,
        std::string* fault);

private:
    std::string Call();
    std::string Integer();
    std::string String();
    std::string Mutated();
    uint32_t Below(uint32_t limit) { return std::uniform_int_distribution<uint32_t>(0, limit - 1)(random_); }

    std::mt19937 random_;
    std::string last_ = "WRITE(\"a b\")";
};
