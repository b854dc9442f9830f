#include "JourneyReceipts.h"

#include "ClientStoreMode.h"
#include "TextFile.h"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>
#include <boost/json/value_to.hpp>

#include <system_error>

namespace wendlow {

namespace {

/// A folder, or a link that leads nowhere, is no receipt: nobody has agreed by it.
bool isThere(const std::filesystem::path& file) {
    std::error_code failed;
    return std::filesystem::is_regular_file(file, failed);
}

void put(const std::filesystem::path& file, std::string_view text) {
    [[maybe_unused]] const auto written = ClientStoreMode::write(text, file);
}

} // namespace

namespace TermsReceipt {

std::filesystem::path path(const std::filesystem::path& support) {
    return support / "terms-agreed";
}

bool isAgreed(const std::filesystem::path& at) {
    return isThere(at);
}

void markAgreed(const std::filesystem::path& at) {
    put(at, {});
}

} // namespace TermsReceipt

namespace RecoveryKeyReceipt {

std::filesystem::path path(const std::filesystem::path& support) {
    return support / "recovery-key-passed";
}

bool isPassed(const std::filesystem::path& at) {
    return isThere(at);
}

void markPassed(const std::filesystem::path& at) {
    put(at, {});
}

} // namespace RecoveryKeyReceipt

namespace JourneyWiringReceipt {

std::filesystem::path path(const std::filesystem::path& support) {
    return support / "journey-wired.json";
}

std::vector<std::string> read(const std::filesystem::path& at) {
    const auto text = TextFile::read(at);
    if (!text)
        return {};
    boost::system::error_code failed;
    const boost::json::value value = boost::json::parse(*text, failed);
    if (failed || !value.is_array())
        return {};
    std::vector<std::string> ids;
    for (const boost::json::value& each : value.get_array()) {
        if (!each.is_string())
            return {};
        ids.emplace_back(each.get_string().c_str(), each.get_string().size());
    }
    return ids;
}

void write(const std::vector<std::string>& ids, const std::filesystem::path& to) {
    boost::json::array list;
    for (const std::string& id : ids)
        list.emplace_back(boost::json::string(id));
    put(to, boost::json::serialize(list));
}

} // namespace JourneyWiringReceipt
} // namespace wendlow
