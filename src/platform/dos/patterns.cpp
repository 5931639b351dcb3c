#include "platform/dos/patterns.h"

#include "platform/dos/errors.h"
#include "platform/dos/pattern_tokens.h"

#include <cstring>
#include <vector>

namespace {

// A recursive-descent compiler from pattern text to tokens. It stops at the
// first fault; the caller then marks the buffer invalid.
class PatternCompiler {
public:
    PatternCompiler(const char* source, bool noCase)
        : p_(reinterpret_cast<const uint8_t*>(source)), noCase_(noCase) {}

    // Gives the wildcard flag, or -1 on a syntax fault.
    int Compile() {
        if (!Sequence(false, 0) || *p_ != '\0') return -1;
        out_.push_back(PT_END);
        return wild_ ? 1 : 0;
    }

    const std::vector<uint8_t>& Tokens() const { return out_; }

private:
    const uint8_t* p_;
    bool noCase_;
    bool wild_ = false;
    int composites_ = 0;
    std::vector<uint8_t> out_;

    void Literal(uint8_t c) {
        out_.push_back(PT_CHAR);
        out_.push_back(noCase_ ? PatternUpper(c) : c);
    }

    // Items up to the end of the pattern or, inside a group, up to its ')'.
    bool Sequence(bool inGroup, int depth) {
        for (;;) {
            uint8_t c = *p_;
            if (c == '\0') return !inGroup;
            if (c == ')') return inGroup;
            if (c == '|' && inGroup) {
                ++p_;
                out_.push_back(PT_ALT);
                continue;
            }
            if (!Item(inGroup, depth)) return false;
        }
    }

    bool Item(bool inGroup, int depth) {
        if (depth > PatternMaxDepth) return false;
        uint8_t c = *p_;
        if ((c == '#' || c == '~' || c == '(' || c == '%') && ++composites_ > PatternMaxComposites)
            return false;
        switch (c) {
        case '\0':
        case ')':
            return false;
        case '|':
            if (inGroup) return false;
            ++p_;
            Literal(c);
            return true;
        case '?':
            ++p_;
            wild_ = true;
            out_.push_back(PT_ANY);
            return true;
        case '%':
            ++p_;
            wild_ = true;
            out_.push_back(PT_EMPTY);
            return true;
        case '#':
        case '~':
            ++p_;
            wild_ = true;
            out_.push_back(c == '#' ? PT_REPEAT : PT_NOT);
            return Item(inGroup, depth + 1);
        case '(':
            ++p_;
            wild_ = true;
            out_.push_back(PT_OPEN);
            if (!Sequence(true, depth + 1)) return false;
            ++p_; // the ')'
            out_.push_back(PT_CLOSE);
            return true;
        case '[':
            ++p_;
            wild_ = true;
            return Class();
        case '\'':
            if (p_[1] == '\0') return false;
            Literal(p_[1]);
            p_ += 2;
            return true;
        default:
            ++p_;
            Literal(c);
            return true;
        }
    }

    // One class character, an escape taken into account; 0 at the end.
    uint8_t ClassChar() {
        if (*p_ == '\'') {
            if (p_[1] == '\0') return 0;
            ++p_;
        }
        return *p_ ? *p_++ : 0;
    }

    bool Class() {
        out_.push_back(PT_CLASS);
        bool negated = *p_ == '~';
        if (negated) ++p_;
        out_.push_back(negated ? 1 : 0);
        size_t countAt = out_.size();
        out_.push_back(0);
        out_.push_back(0);
        unsigned count = 0;
        while (*p_ != ']') {
            uint8_t lo = ClassChar();
            if (lo == 0) return false;
            uint8_t hi = lo;
            if (p_[0] == '-' && p_[1] != ']') {
                ++p_;
                hi = ClassChar();
                if (hi == 0 || hi < lo) return false;
            }
            out_.push_back(lo);
            out_.push_back(hi);
            if (++count > 0xFFFF) return false;
        }
        ++p_; // the ']'
        out_[countAt] = static_cast<uint8_t>(count >> 8);
        out_[countAt + 1] = static_cast<uint8_t>(count & 0xFF);
        return true;
    }
};

int Parse(const char* source, char* tokens, long size, bool noCase) {
    if (size > 0) tokens[0] = static_cast<char>(PT_INVALID);
    PatternCompiler compiler(source, noCase);
    int result = compiler.Compile();
    if (result < 0) {
        SetIoErr(ERROR_BAD_TEMPLATE);
        return -1;
    }
    const std::vector<uint8_t>& out = compiler.Tokens();
    if (size <= 0 || out.size() > static_cast<size_t>(size)) {
        SetIoErr(ERROR_BUFFER_OVERFLOW);
        return -1;
    }
    std::memcpy(tokens, out.data(), out.size());
    return result;
}

} // namespace

int ParsePattern(const char* source, char* tokens, long size) {
    return Parse(source, tokens, size, false);
}

int ParsePatternNoCase(const char* source, char* tokens, long size) {
    return Parse(source, tokens, size, true);
}
