#pragma once
// Finding the end of a line in a run of bytes. Lines are short, so a loop
// of 16-byte compares in place beats a call of memchr, which pays for its
// set-up at every line.
#include <cstddef>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// The first newline in the `size` bytes at `from`, or null.
inline const char* FindNewline(const char* from, size_t size)
{
#if defined(__SSE2__)
    const __m128i newlines = _mm_set1_epi8('\n');
    for (; size >= 16; from += 16, size -= 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        if (const int hits = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, newlines)))
            return from + __builtin_ctz(static_cast<unsigned>(hits));
    }
#endif
    return static_cast<const char*>(std::memchr(from, '\n', size));
}

// The first newline or zero byte in the `size` bytes at `from`, or null.
inline const char* FindNewlineOrZero(const char* from, size_t size)
{
#if defined(__SSE2__)
    const __m128i newlines = _mm_set1_epi8('\n');
    const __m128i zeros = _mm_setzero_si128();
    for (; size >= 16; from += 16, size -= 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        const __m128i ends = _mm_or_si128(_mm_cmpeq_epi8(bytes, newlines), _mm_cmpeq_epi8(bytes, zeros));
        if (const int hits = _mm_movemask_epi8(ends))
            return from + __builtin_ctz(static_cast<unsigned>(hits));
    }
#endif
    for (; size > 0; ++from, --size) {
        if (*from == '\n' || *from == '\0')
            return from;
    }
    return nullptr;
}
