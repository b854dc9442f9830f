#include "LineReader.h"

#include <cerrno>

#include <unistd.h>

namespace wendlow {

namespace {

constexpr std::size_t chunkSize = 65536;

} // namespace

LineReader::LineReader(int descriptor, std::size_t limit)
    : m_descriptor(descriptor), m_limit(limit) {}

LineReader::Outcome LineReader::next() {
    m_line.clear();
    m_isTooLong = false;
    bool hasBegun = false;
    while (m_position < m_chunk.size() || fill()) {
        hasBegun = true;
        const std::string_view unread = std::string_view(m_chunk).substr(m_position);
        const std::size_t end = unread.find('\n');
        take(unread.substr(0, end));
        if (end == std::string_view::npos) {
            m_position = m_chunk.size();
            continue;
        }
        m_position += end + 1;
        break;
    }
    if (!hasBegun)
        return Outcome::end;
    if (m_line.ends_with('\r'))
        m_line.pop_back();
    return m_isTooLong ? Outcome::tooLong : Outcome::line;
}

bool LineReader::fill() {
    m_chunk.resize(chunkSize);
    m_position = 0;
    ssize_t length = 0;
    do
        length = ::read(m_descriptor, m_chunk.data(), m_chunk.size());
    while (length < 0 && errno == EINTR);
    m_chunk.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return length > 0;
}

void LineReader::take(std::string_view bytes) {
    m_isTooLong = m_isTooLong || bytes.size() > m_limit - m_line.size();
    if (m_isTooLong) {
        m_line.clear();
        m_line.shrink_to_fit();
    } else {
        m_line += bytes;
    }
}

} // namespace wendlow
