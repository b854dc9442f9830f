#include "LineReader.h"

#include <algorithm>
#include <cerrno>

#include <unistd.h>

namespace wendlow {

namespace {

constexpr std::size_t chunkSize = 65536;

} // namespace

LineReader::LineReader(int descriptor, std::size_t limit)
    : m_descriptor(descriptor), m_limit(limit) {}

void LineReader::fill() {
    m_chunk.resize(chunkSize);
    m_position = 0;
    ssize_t length = 0;
    do
        length = ::read(m_descriptor, m_chunk.data(), m_chunk.size());
    while (length < 0 && errno == EINTR);
    m_hasEnded = length == 0 || (length < 0 && errno != EAGAIN);
    m_chunk.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
}

LineReader::Outcome LineReader::next() {
    if (m_position < m_chunk.size()) {
        if (m_isWhole) { // the one before
            m_line.clear();
            m_isWhole = false;
            m_isTooLong = false;
        }
        const std::string_view unread = std::string_view(m_chunk).substr(m_position);
        const std::size_t end = unread.find('\n');
        add(unread.substr(0, end));
        m_position += std::min(unread.size(), end) + 1;
        if (end != std::string_view::npos)
            return whole();
    }
    if (!m_hasEnded)
        return Outcome::more;
    return m_isWhole ? Outcome::end : whole();
}

LineReader::Outcome LineReader::whole() {
    m_isWhole = true;
    if (m_line.ends_with('\r'))
        m_line.pop_back();
    return m_isTooLong ? Outcome::tooLong : Outcome::line;
}

void LineReader::add(std::string_view bytes) {
    m_isTooLong = m_isTooLong || bytes.size() > m_limit - m_line.size();
    if (m_isTooLong) {
        m_line.clear();
        m_line.shrink_to_fit();
    } else {
        m_line += bytes;
    }
}

} // namespace wendlow
