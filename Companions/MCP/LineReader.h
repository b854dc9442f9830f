#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace wendlow {

/// Lines from a file descriptor, with a bound on the memory that one takes.
class LineReader {
public:
    static constexpr std::size_t lineLimit = std::size_t{64} << 20U;

    enum class Outcome {
        line, ///< `line()` has one, without its line end (LF or CRLF); at the end of the input also
              ///< one that has none
        tooLong, ///< a line went by that passes the limit
        end,     ///< the input has ended or cannot be read
    };

    /// Does not own the descriptor. `limit` is in bytes.
    explicit LineReader(int descriptor, std::size_t limit = lineLimit);

    /// Waits for the next line.
    Outcome next();

    std::string_view line() const { return m_line; }

private:
    bool fill();
    void take(std::string_view bytes);

    int m_descriptor;
    std::size_t m_limit;
    std::string m_chunk;
    std::size_t m_position = 0; ///< of what is unread in the chunk
    std::string m_line;
    bool m_isTooLong = false;
};

} // namespace wendlow
