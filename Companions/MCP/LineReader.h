#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace wendlow {

/// Lines from a file descriptor, with a bound on the memory that one takes. What has been read is
/// worked off by `next`, line by line; `fill` reads on when that has come to its end.
class LineReader {
public:
    /// Twice as much would not fit into one message of the bus.
    static constexpr std::size_t lineLimit = std::size_t{32} << 20U;

    enum class Outcome {
        line,    ///< `take()` has one, without its line end (LF or CRLF); at the end of the input
                 ///< also one that has none
        tooLong, ///< a line went by that passes the limit
        more,    ///< the next line has not come whole: `fill()`
        end,     ///< the input has ended or cannot be read
    };

    /// Does not own the descriptor. `limit` is in bytes.
    explicit LineReader(int descriptor, std::size_t limit = lineLimit);

    /// Reads once; waits where there is nothing to read yet, unless the descriptor does not wait.
    void fill();
    Outcome next();
    /// The line that `next` has found, once.
    std::string take() { return std::exchange(m_line, {}); }

private:
    void add(std::string_view bytes);
    Outcome whole();

    int m_descriptor;
    std::size_t m_limit;
    std::string m_chunk;
    std::size_t m_position = 0; ///< of what is unread in the chunk
    std::string m_line;
    bool m_isWhole = true;
    bool m_isTooLong = false;
    bool m_hasEnded = false;
};

} // namespace wendlow
