#pragma once

#ifdef __SSE2__

#include <cstring>
#include <emmintrin.h>

namespace wendlow {

/// Sixteen bytes that are looked at together, on the processors of which every one can. Whoever
/// uses it has another way for the rest, and for what is left at the end. What is asked of the
/// bytes is answered with all bits of each that it is true of.
class SixteenBytes {
public:
    /// The caller has sixteen to read.
    static SixteenBytes load(const char* at) {
        __m128i bytes;
        std::memcpy(&bytes, at, sizeof bytes);
        return SixteenBytes(bytes);
    }

    SixteenBytes are(char byte) const {
        return SixteenBytes(_mm_cmpeq_epi8(m_bytes, _mm_set1_epi8(byte)));
    }
    /// Control characters, and what is not ASCII: with its sign that is less than any of them.
    SixteenBytes areNoPlainASCII() const {
        return SixteenBytes(_mm_cmpgt_epi8(_mm_set1_epi8(0x20), m_bytes));
    }
    SixteenBytes operator|(SixteenBytes other) const {
        return SixteenBytes(_mm_or_si128(m_bytes, other.m_bytes));
    }
    SixteenBytes without(SixteenBytes other) const {
        return SixteenBytes(_mm_andnot_si128(other.m_bytes, m_bytes));
    }
    /// The answer as a bit for each byte, the lowest for the first.
    unsigned bits() const { return static_cast<unsigned>(_mm_movemask_epi8(m_bytes)); }

private:
    explicit SixteenBytes(__m128i bytes) : m_bytes(bytes) {}

    __m128i m_bytes;
};

} // namespace wendlow

#endif
