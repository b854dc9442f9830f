#pragma once

#include "ConfigFile/JSONEditMeasures.h"
#include "ConfigFile/JSONLiteral.h"
#include "ConfigFile/JSONStep.h"
#include "ConfigFile/JSONText.h"

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>
#include <variant>

namespace wendlow {

/// Why a path-level edit could not be made.
struct JSONEditError {
    enum class Kind { notAnObject, notAnArray, noSuchMember, noSuchElement };

    Kind kind = Kind::notAnObject;
    JSONPath path;
    std::string key;          ///< of `noSuchMember`
    std::ptrdiff_t index = 0; ///< of `noSuchElement`

    static JSONEditError notAnObject(JSONPath path);
    static JSONEditError notAnArray(JSONPath path);
    static JSONEditError noSuchMember(JSONPath path, std::string_view key);
    static JSONEditError noSuchElement(JSONPath path, std::ptrdiff_t index);

    /// The failure as a sentence that names the path, as `hooks.PreToolUse.[0].hooks`.
    std::string description() const;
    bool operator==(const JSONEditError&) const = default;
};

/// An edit fails because the bytes are not JSON or because the path leads to nothing that can be
/// edited so.
using JSONEditFailure = std::variant<JSONTextError, JSONEditError>;

/// The failure as a sentence without its file.
std::string description(const JSONEditFailure& failure);

/// Pure functions from bytes to bytes. The result of each equals the input with exactly one
/// contiguous range replaced; where nothing fits, nothing is edited.
namespace JSONEdit {

using Result = std::expected<std::string, JSONEditFailure>;

/// Sets or adds member `key` of the object at `path`. Makes no intermediate objects.
Result setMember(std::string_view text, const JSONPath& path, std::string_view key,
                 const JSONLiteral& literal, JSONDialect dialect);
/// Removes the first member named `key` of the object at `path`. Comments in what is cut stay.
Result removeMember(std::string_view text, const JSONPath& path, std::string_view key,
                    JSONDialect dialect);
/// Appends to the array at `path`. Dialect `json`.
Result appendElement(std::string_view text, const JSONPath& path, const JSONLiteral& literal);
/// Removes one element of the array at `path`. Dialect `json`.
Result removeElement(std::string_view text, const JSONPath& path, std::ptrdiff_t index);

/// The same for a text that has just been scanned: `document` has to be the scan of `text`.
Result setMember(std::string_view text, const JSONDocument& document, const JSONPath& path,
                 std::string_view key, const JSONLiteral& literal);
Result removeMember(std::string_view text, const JSONDocument& document, const JSONPath& path,
                    std::string_view key);
Result appendElement(std::string_view text, const JSONDocument& document, const JSONPath& path,
                     const JSONLiteral& literal);
Result removeElement(std::string_view text, const JSONDocument& document, const JSONPath& path,
                     std::ptrdiff_t index);

} // namespace JSONEdit
} // namespace wendlow
