#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow::testing {

/// The contract as docs/gateway.md has it, which knows nothing of the types.
class Catalogue {
public:
    struct Item {
        std::string name;
        std::string type;
        enum Presence { required, optional, filledIn } presence = required;
    };
    struct Entry {
        std::string name;
        std::string verb;
        std::vector<Item> items;
        std::vector<std::string> words;
        bool hasUnlabelledItem() const { return !items.empty() && items.front().name == "_0"; }
    };

    Catalogue();

    /// The entries of a kind, in order.
    const std::vector<Entry>& of(const std::string& kind) const { return m_entries.at(kind); }

private:
    std::map<std::string, std::vector<Entry>> m_entries;
};

/// Writes JSON for entries of the catalogue, every value another one, and leaves out or adds what a
/// test asks for.
class Sample {
public:
    enum class Shape {
        full,    ///< every item
        bare,    ///< only what has to be there
        nulled,  ///< the same, and null for all others
        answered ///< what the bare one reads as
    };

    static constexpr std::size_t nothing = -1;

    /// `choice` picks among words, cases and scalars. The item number `omitted`, counted through
    /// all depths, is left out.
    Sample(const Catalogue& catalogue, Shape shape, std::size_t choice,
           std::size_t omitted = nothing)
        : m_catalogue(catalogue), m_shape(shape), m_choice(choice), m_omitted(omitted) {}

    /// The object of a case: its name and its items. `extra` goes among the items as it is.
    std::string ofCase(const Catalogue::Entry& entry, std::string_view extra = {});

    /// The item that was left out; none where there are not so many.
    const Catalogue::Item* omitted() const { return m_omittedItem; }

private:
    std::string object(const Catalogue::Entry& entry, std::string_view extra = {});
    std::string value(std::string_view type);

    const Catalogue& m_catalogue;
    Shape m_shape;
    std::size_t m_choice;
    std::size_t m_omitted;
    const Catalogue::Item* m_omittedItem = nullptr;
    std::size_t m_items = 0;
    std::size_t m_values = 0;
};

} // namespace wendlow::testing
