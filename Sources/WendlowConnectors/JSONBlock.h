#pragma once

#include "BlockEdit.h"
#include "ConfigFile/JSONEdit.h"
#include "ConfigFile/JSONText.h"

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace wendlow {

/// What the JSON blocks of every connector share. Pure; any thread.
namespace JSONBlock {

template<class T> using Result = std::expected<T, JSONEditFailure>;
/// A document that is fit to be edited, or why the file is not.
using Readable = std::expected<JSONDocument, Unreadable>;

/// What a file that does not exist is planned from. The line feed makes the new file multi-line.
inline constexpr std::string_view seed = "{}\n";

/// The document, unless it does not scan or an object at one of `paths` holds a name twice.
Readable read(std::string_view bytes, JSONDialect dialect, std::span<const JSONPath> paths);
/// Tells the first name that `object` holds twice. The editor addresses the first of two and the
/// tool reads the last, so such an object is left alone.
std::optional<Unreadable> repeatedName(const JSONNode& object);
/// Why a file is not fit to be edited; nothing where it is.
std::optional<Unreadable> reason(const Readable& document);
/// The string at member `key` of an object; nothing where it is not a string.
std::optional<std::string_view> text(const JSONNode& object, std::string_view key);
/// Why no entry can be put under `name`.
std::string notAnObject(std::string_view name);
std::string notAnArray(std::string_view name);
/// `literal` in place of `node`, laid out as the node was. `root` is the scan of `bytes`.
std::string replaced(std::string_view bytes, const JSONNode& root, const JSONNode& node,
                     const JSONLiteral& literal);
/// Whether `bytes` are an object without members and nothing else.
bool isEmptyObject(std::string_view bytes);

} // namespace JSONBlock
} // namespace wendlow
