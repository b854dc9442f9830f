#pragma once

#include <fmt/format.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace wendlow {

/// The door of a module: what a person is to read is written `say("Nothing here yet.")` and comes
/// out in their language. Each module has one, `say`, in its header Say.h; the English is the key,
/// so that no sentence leaves the place where it is made. Any thread.
///
/// Whole sentences only: what is glued from pieces has the order of English words. Sentences that
/// are compared, stored, logged, hashed, written into a file or read by a program do not come here.
class TranslationContext {
public:
    /// `name` is the module's, and stands in the catalogue as the context of its sentences.
    constexpr explicit TranslationContext(const char* name) : m_name(name) {}

    std::string operator()(const char* english) const { return std::string(view(english)); }
    /// With holes, as fmt has them. A translation may take them in another order: "{1} of {0}"; one
    /// whose holes cannot be filled is passed over for the English.
    template<class... Args>
        requires(sizeof...(Args) > 0)
    std::string operator()(fmt::format_string<Args...> english, Args&&... args) const {
        return filled(english, fmt::make_format_args(args...));
    }
    /// By number: `say.plural(days, "{} day was cleared", "{} days were cleared", days)`. In
    /// English one is 1 and nothing else; other languages have their own rule in their file.
    template<class... Args>
    std::string plural(std::int64_t number, fmt::format_string<Args...> one,
                       fmt::format_string<Args...> many, Args&&... args) const {
        return filled(number, one, many, fmt::make_format_args(args...));
    }
    /// The same without a copy. It lasts as long as the program, if the English does.
    std::string_view view(const char* english) const;

private:
    std::string filled(fmt::string_view english, fmt::format_args args) const;
    std::string filled(std::int64_t number, fmt::string_view one, fmt::string_view many,
                       fmt::format_args args) const;

    const char* m_name;
};

/// Marks a sentence that stands in a table, for whoever collects the sentences; the reader of the
/// table says it: `say(row.title)`.
consteval const char* sayLater(const char* english) {
    return english;
}

} // namespace wendlow
