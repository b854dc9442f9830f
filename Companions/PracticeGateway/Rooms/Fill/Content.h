#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace wendlow {

/// A piece of work with its place in the scopes.
struct Project {
    std::string_view scope;
    std::string_view name;
    std::string_view folder;
};

/// Plausible things of a developer's working life, drawn one after the other. The same stream gives
/// the same things in every run, on every machine. Each room draws from a stream of its own, so
/// that a thing more in one leaves the others as they were.
class Content {
public:
    explicit Content(std::string_view stream);

    /// A number below `end`, which is at least 1.
    std::uint64_t below(std::uint64_t end);
    bool oneIn(std::uint64_t count) { return below(count) == 0; }
    template<class T> const T& pick(std::span<const T> items) { return items[below(items.size())]; }
    template<class T, std::size_t count> const T& pick(const T (&items)[count]) {
        return items[below(count)];
    }

    const Project& project();
    std::string_view person();
    /// A pattern with its slots drawn: {person}, {project}, {thing}, {part}, {tool}, {reason},
    /// {count}, {weekday}.
    std::string filled(std::string_view pattern);
    /// Sentences about the project, one behind the other.
    std::string prose(std::string_view projectName, std::uint64_t sentences);
    /// A second of the last `days` before `now`, in working hours, the nearer days more often.
    double before(double now, std::uint64_t days);

    static std::span<const Project> projects();
    static std::span<const std::string_view> people();

private:
    std::string_view drawn(std::string_view slot);

    std::uint64_t m_state = 0;
    std::string_view m_projectName;
    std::string m_number;
};

} // namespace wendlow
