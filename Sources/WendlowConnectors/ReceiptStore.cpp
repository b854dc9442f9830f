#include "ReceiptStore.h"

#include "ConfigFile/AtomicWrite.h"
#include "ConfigFile/Disk.h"
#include "ConfigFile/JSONLiteral.h"
#include "ConfigFile/JSONText.h"

#include <algorithm>
#include <tuple>

namespace wendlow {
namespace {

/// Of members of one name the last counts.
std::optional<JSONNode> lastMember(const JSONNode& object, std::string_view key) {
    std::optional<JSONNode> found;
    for (const JSONNode::Member& member : object.members())
        if (member.key == key)
            found = member.value;
    return found;
}

/// Hands over the texts of an array of strings. An absent member, or one that is null, is an empty
/// array; false for anything else, and where a text is not taken: half a record would let removal
/// delete by half of the truth.
template<class Take>
bool takeTexts(const JSONNode& object, std::string_view key, const Take& take) {
    const auto member = lastMember(object, key);
    if (!member || member->kind() == JSONNode::Kind::null)
        return true;
    return member->isArray() &&
           std::ranges::all_of(member->elements(), [&](const JSONNode& element) {
               const auto text = element.string();
               return text && take(*text);
           });
}

/// Takes the text of a case; false for one that names none.
template<class Case>
auto into(std::set<Case>& cases, std::optional<Case> (*named)(std::string_view)) {
    return [&cases, named](std::string_view text) {
        const auto found = named(text);
        if (found)
            cases.insert(*found);
        return found.has_value();
    };
}

std::optional<ConnectorReceipt> decode(const JSONNode& object) {
    ConnectorReceipt receipt;
    const auto created = lastMember(object, "created");
    const auto version = lastMember(object, "appVersion");
    const bool isStated = version && version->kind() != JSONNode::Kind::null;
    const auto takeSlot = [&](std::string_view text) {
        receipt.trustSlots.emplace(text);
        return true;
    };
    if (!created || !created->isArray() || (isStated && !version->string()) ||
        !takeTexts(object, "created", into(receipt.created, createdNamed)) ||
        !takeTexts(object, "adopted", into(receipt.adopted, adoptedNamed)) ||
        !takeTexts(object, "trustSlots", takeSlot))
        return std::nullopt;
    if (isStated)
        receipt.appVersion = *version->string();
    return receipt;
}

std::optional<ConnectorReceipt> decode(std::string_view bytes) {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    return document ? decode(document->root()) : std::nullopt;
}

JSONLiteral literal(const std::set<std::string, std::less<>>& texts) {
    JSONLiteral::Array elements;
    for (const auto& text : texts)
        elements.push_back(JSONLiteral::string(text));
    return JSONLiteral::array(std::move(elements));
}

/// The texts of the cases, in the order of texts.
template<class Case> JSONLiteral literal(const std::set<Case>& cases) {
    std::set<std::string, std::less<>> sorted;
    for (const auto one : cases)
        sorted.emplace(text(one));
    return literal(sorted);
}

std::string encode(const ConnectorReceipt& receipt) {
    JSONLiteral::Object members{{"adopted", literal(receipt.adopted)}};
    if (receipt.appVersion)
        members.push_back({"appVersion", JSONLiteral::string(*receipt.appVersion)});
    members.push_back({"created", literal(receipt.created)});
    members.push_back({"trustSlots", literal(receipt.trustSlots)});
    return JSONLiteral::object(std::move(members)).render("", "  ", {.multiline = true});
}

} // namespace

ConnectorReceipt ReceiptStore::read() const {
    const auto bytes = Disk::read(file);
    if (!bytes || !bytes->has_value())
        return {};
    return decode(std::string_view(**bytes)).value_or(ConnectorReceipt());
}

std::expected<void, std::string> ReceiptStore::write(const ConnectorReceipt& receipt) const {
    const auto failed = [](const std::filesystem::path& path, int error) {
        return std::unexpected(
            ConfigFileError::writeFailed(path.string(), Disk::words(error)).description());
    };
    if (const auto made = Disk::createDirectories(file.parent_path(), 0700); !made)
        return failed(file.parent_path(), made.error());
    if (const auto written = AtomicWrite::write(encode(receipt), file, {.born = 0600}); !written)
        return std::unexpected(written.error().description());
    if (const auto set = Disk::setMode(file, 0600); !set)
        return failed(file, set.error());
    return {};
}

void ReceiptStore::remove() const {
    std::ignore = Disk::remove(file);
}

} // namespace wendlow
