#include "ToolNote.h"

#include "ClientStoreMode.h"
#include "TextFile.h"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>

#include <utility>

#include <fmt/format.h>

namespace wendlow::ToolNote {

namespace {

namespace json = boost::json;

// What reads gives false for anything that is not as it is written.

bool take(const json::value& from, std::string& into) {
    const json::string* const text = from.if_string();
    if (text)
        into.assign(text->data(), text->size());
    return text != nullptr;
}

bool take(const json::value& from, std::optional<std::string>& into) {
    return from.is_null() || take(from, into.emplace());
}

bool take(const json::value& from, FileTime& into) {
    constexpr std::int64_t second = 1'000'000'000;
    const json::array* const parts = from.if_array();
    if (!parts || parts->size() != 2 || !(*parts)[0].is_int64() || !(*parts)[1].is_int64())
        return false;
    into = {(*parts)[0].get_int64(), (*parts)[1].get_int64()};
    return into.nanoseconds >= 0 && into.nanoseconds < second;
}

bool take(const json::value& from, FileBefore& into);
bool take(const json::value& from, FolderBefore& into);

template<class Element> bool take(const json::value& from, std::vector<Element>& into) {
    const json::array* const elements = from.if_array();
    if (!elements)
        return false;
    for (const json::value& element : *elements)
        if (!take(element, into.emplace_back()))
            return false;
    return true;
}

template<class Value> bool takeMember(const json::value& from, const char* key, Value& into) {
    const json::object* const object = from.if_object();
    const json::value* const member = object ? object->if_contains(key) : nullptr;
    return member && take(*member, into);
}

bool take(const json::value& from, FileBefore& into) {
    return takeMember(from, "name", into.name) && takeMember(from, "bytes", into.bytes) &&
           takeMember(from, "time", into.time) && takeMember(from, "copies", into.copies) &&
           takeMember(from, "wired", into.wired);
}

bool take(const json::value& from, FolderBefore& into) {
    return takeMember(from, "folder", into.path) && takeMember(from, "names", into.names) &&
           takeMember(from, "time", into.time) && takeMember(from, "files", into.files);
}

json::value value(const std::optional<std::string>& text) {
    return text ? json::value(json::string(*text)) : json::value(nullptr);
}

json::value value(const FileTime& time) {
    return json::array{time.seconds, time.nanoseconds};
}

json::value value(const FileBefore& file) {
    json::array copies;
    for (const std::string& copy : file.copies)
        copies.emplace_back(json::string(copy));
    return json::object{{"name", json::string(file.name)},
                        {"bytes", value(file.bytes)},
                        {"time", value(file.time)},
                        {"copies", std::move(copies)},
                        {"wired", value(file.wired)}};
}

json::value value(const FolderBefore& folder) {
    json::array files;
    for (const FileBefore& file : folder.files)
        files.push_back(value(file));
    return json::object{{"folder", json::string(folder.path)},
                        {"names", value(folder.names)},
                        {"time", value(folder.time)},
                        {"files", std::move(files)}};
}

} // namespace

std::filesystem::path path(const std::filesystem::path& support, std::string_view tool) {
    return support / fmt::format("journey-before-{}.json", tool);
}

std::optional<Folders> read(const std::filesystem::path& at) {
    const auto text = TextFile::read(at);
    if (!text)
        return std::nullopt;
    boost::system::error_code failed;
    const json::value parsed = json::parse(*text, failed);
    Folders folders;
    if (failed || !take(parsed, folders))
        return std::nullopt;
    return folders;
}

void write(const Folders& folders, const std::filesystem::path& to) {
    json::array list;
    for (const FolderBefore& folder : folders)
        list.push_back(value(folder));
    [[maybe_unused]] const auto written = ClientStoreMode::write(json::serialize(list), to);
}

} // namespace wendlow::ToolNote
