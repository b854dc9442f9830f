#include "ReceiptStore.h"

#include "ConfigFile/AtomicWrite.h"
#include "ConfigFile/Disk.h"
#include "ConfigFile/JSONLiteral.h"
#include "ConfigFile/JSONText.h"

#include <tuple>

namespace wendlow {
namespace {

/// The texts of an array of strings. An absent member, or one that is null, is an empty array;
/// anything else is nothing.
std::optional<std::vector<std::string>> texts(const JSONValue::Object& object,
                                              std::string_view key) {
    const auto member = object.find(key);
    if (member == object.end() || std::holds_alternative<JSONValue::Null>(member->second.value))
        return std::vector<std::string>();
    const auto* array = std::get_if<JSONValue::Array>(&member->second.value);
    if (array == nullptr)
        return std::nullopt;
    std::vector<std::string> found;
    for (const auto& element : *array) {
        const auto* text = std::get_if<std::string>(&element.value);
        if (text == nullptr)
            return std::nullopt;
        found.push_back(*text);
    }
    return found;
}

/// False when a text names no case: half a record would let removal delete by half of the truth.
template<class Case>
bool insertCases(std::set<Case>& cases, const std::vector<std::string>& texts,
                 std::optional<Case> (*named)(std::string_view)) {
    for (const auto& text : texts) {
        const auto found = named(text);
        if (!found)
            return false;
        cases.insert(*found);
    }
    return true;
}

std::optional<ConnectorReceipt> decode(const JSONValue::Object& object) {
    ConnectorReceipt receipt;
    const auto created = texts(object, "created");
    const auto adopted = texts(object, "adopted");
    const auto trustSlots = texts(object, "trustSlots");
    const auto required = object.find("created");
    if (required == object.end() ||
        !std::holds_alternative<JSONValue::Array>(required->second.value) || !created || !adopted ||
        !trustSlots || !insertCases(receipt.created, *created, createdNamed) ||
        !insertCases(receipt.adopted, *adopted, adoptedNamed))
        return std::nullopt;
    receipt.trustSlots.insert(trustSlots->begin(), trustSlots->end());
    if (const auto version = object.find("appVersion");
        version != object.end() &&
        !std::holds_alternative<JSONValue::Null>(version->second.value)) {
        const auto* text = std::get_if<std::string>(&version->second.value);
        if (text == nullptr)
            return std::nullopt;
        receipt.appVersion = *text;
    }
    return receipt;
}

std::optional<ConnectorReceipt> decode(std::string_view bytes) {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::nullopt;
    const auto root = document->root().value(bytes);
    const auto* object = std::get_if<JSONValue::Object>(&root.value);
    return object == nullptr ? std::nullopt : decode(*object);
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
