#pragma once
// The integer operators: signed 32-bit arithmetic that wraps modulo 2^32
// without notice and never reaches undefined behaviour. The smallest
// integer divided by -1 gives itself, with remainder 0; a power is taken
// by squaring, which wraps to the same result as repeated multiplication.
#include "macro/macro_types.h"

#include <cstdint>

// 0 with `*result` set, or the error: 219 for `/` by 0, 215 for `%` by 0
// and for `^` with a negative exponent.
[[gnu::always_inline]] inline int ApplyIntegerOperator(int16_t op, int32_t a, int32_t b, int32_t* result)
{
    const auto ua = static_cast<uint32_t>(a);
    const auto ub = static_cast<uint32_t>(b);
    switch (op) {
    case OpAdd:
        *result = static_cast<int32_t>(ua + ub);
        break;
    case OpSubtract:
        *result = static_cast<int32_t>(ua - ub);
        break;
    case OpMultiply:
        *result = static_cast<int32_t>(ua * ub);
        break;
    case OpDivide:
        if (b == 0)
            return int(MessageId::DivisionByZero);
        *result = b == -1 ? static_cast<int32_t>(0u - ua) : a / b;
        break;
    case OpRemainder:
        if (b == 0)
            return int(MessageId::IncorrectArgumentValue);
        *result = b == -1 ? 0 : a % b;
        break;
    case OpPower: {
        if (b < 0)
            return int(MessageId::IncorrectArgumentValue);
        uint32_t power = 1;
        for (uint32_t base = ua, exponent = ub; exponent != 0; exponent >>= 1, base *= base) {
            if (exponent & 1)
                power *= base;
        }
        *result = static_cast<int32_t>(power);
        break;
    }
    case OpAnd:
        *result = a & b;
        break;
    case OpOr:
        *result = a | b;
        break;
    case OpXor:
        *result = a ^ b;
        break;
    case OpShiftLeft: {
        const uint32_t count = ub & 63;
        *result = count >= 32 ? 0 : static_cast<int32_t>(ua << count);
        break;
    }
    case OpShiftRight: {
        const uint32_t count = ub & 63;
        *result = count >= 32 ? (a < 0 ? -1 : 0) : a >> count;
        break;
    }
    case OpLess:
        *result = a < b;
        break;
    case OpGreater:
        *result = a > b;
        break;
    case OpLessEqual:
        *result = a <= b;
        break;
    case OpGreaterEqual:
        *result = a >= b;
        break;
    case OpEqual:
        *result = a == b;
        break;
    case OpNotEqual:
        *result = a != b;
        break;
    default:
        return int(MessageId::ErrorAnalysis);
    }
    return 0;
}
