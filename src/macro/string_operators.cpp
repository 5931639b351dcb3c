#include "macro/string_operators.h"

#include "macro/command_pool.h"

#include <algorithm>
#include <cstring>

namespace {

int Compare(const MacroValue* left, const MacroValue* right)
{
    return std::strcmp(left->String, right->String);
}

} // namespace

int ApplyStringOperator(MacroContext* context, int16_t op, MacroValue* left, const MacroValue* right)
{
    switch (op) {
    case OpAdd: {
        const size_t leftLength = std::strlen(left->String);
        const size_t rightLength = std::strlen(right->String);
        char* joined = PoolAllocate(context->Pool, leftLength + rightLength + 1);
        if (!joined)
            return int(MessageId::NotEnoughMemory);
        std::memcpy(joined, left->String, leftLength);
        std::memcpy(joined + leftLength, right->String, rightLength + 1);
        left->String = joined;
        return 0;
    }
    case OpShiftLeft:
    case OpShiftRight: {
        if (right->Integer < 0)
            return int(MessageId::IncorrectArgumentValue);
        const size_t length = std::strlen(left->String);
        const size_t cut = std::min(length, static_cast<size_t>(right->Integer));
        if (op == OpShiftLeft) {
            left->String += cut;
            return 0;
        }
        char* kept = PoolString(context->Pool, left->String, length - cut);
        if (!kept)
            return int(MessageId::NotEnoughMemory);
        left->String = kept;
        return 0;
    }
    case OpLess:
    case OpGreater:
    case OpLessEqual:
    case OpGreaterEqual:
    case OpEqual:
    case OpNotEqual: {
        const int order = Compare(left, right);
        const bool holds = op == OpLess ? order < 0
            : op == OpGreater           ? order > 0
            : op == OpLessEqual         ? order <= 0
            : op == OpGreaterEqual      ? order >= 0
            : op == OpEqual             ? order == 0
                                        : order != 0;
        left->Kind = KindInteger;
        left->Integer = holds;
        return 0;
    }
    default:
        return int(MessageId::StringProcessingImpossible);
    }
}
