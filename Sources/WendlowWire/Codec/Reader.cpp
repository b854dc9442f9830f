#include "Codec/Reader.h"

#include <sodium/utils.h>

#include "Codec/Path.h"

namespace wendlow::Codec {

namespace {

std::string_view kindName(const boost::json::value& json) {
    switch (json.kind()) {
    case boost::json::kind::null:
        return "null";
    case boost::json::kind::bool_:
        return "a boolean";
    case boost::json::kind::int64:
    case boost::json::kind::uint64:
    case boost::json::kind::double_:
        return "a number";
    case boost::json::kind::string:
        return "a text";
    case boost::json::kind::array:
        return "a list";
    case boost::json::kind::object:
        return "an object";
    }
    return "something else";
}

} // namespace

bool Reader::read(const Value& json, bool& value) {
    if (!json.is_bool())
        return wrongKind("a boolean", json);
    value = json.get_bool();
    return true;
}

bool Reader::read(const Value& json, std::int64_t& value) {
    if (!json.is_number())
        return wrongKind("a whole number", json);
    if (json.is_int64()) {
        value = json.get_int64();
        return true;
    }
    // Both bounds are powers of two, so these comparisons are exact.
    constexpr double bound = 9223372036854775808.0;
    if (json.is_uint64() || json.get_double() < -bound || json.get_double() >= bound)
        return fail("this number is out of range");
    value = static_cast<std::int64_t>(json.get_double());
    return static_cast<double>(value) == json.get_double() || fail("this number is not whole");
}

bool Reader::read(const Value& json, double& value) {
    if (!json.is_number())
        return wrongKind("a number", json);
    boost::json::error_code error;
    value = json.to_number<double>(error);
    return !error;
}

bool Reader::read(const Value& json, std::string& value) {
    if (!json.is_string())
        return wrongKind("a text", json);
    value = json.get_string();
    return true;
}

bool Reader::read(const Value& json, WireData& value) {
    std::string base64;
    if (!read(json, base64))
        return false;
    value.bytes.resize(base64.size() / 4 * 3);
    std::size_t length = 0;
    const char* end = nullptr;
    const int status = sodium_base642bin(reinterpret_cast<unsigned char*>(value.bytes.data()),
                                         value.bytes.size(), base64.data(), base64.size(), nullptr,
                                         &length, &end, sodium_base64_VARIANT_ORIGINAL);
    // A strange character ends the decoding without an error; the end tells.
    if (status != 0 || end != base64.data() + base64.size())
        return fail("this text is not base64");
    value.bytes.resize(length);
    return true;
}

bool Reader::read(const Value& json, FilterValue& value) {
    if (json.is_bool())
        value = json.get_bool();
    else if (json.is_number())
        return read(json, value.emplace<double>());
    else if (json.is_string())
        value = std::string(json.get_string());
    else
        return fail(std::string(FilterValue::notAScalar));
    return true;
}

bool Reader::wrongKind(std::string_view wanted, const Value& found) {
    return fail(fmt::format("expected {}, found {}", wanted, kindName(found)));
}

bool Reader::failed(std::string_view key) {
    Path::prepend(m_error.path, key);
    return false;
}

bool Reader::failed(std::size_t index) {
    Path::prepend(m_error.path, index);
    return false;
}

bool Reader::fail(std::string sentence) {
    m_error.sentence = std::move(sentence);
    return false;
}

} // namespace wendlow::Codec
