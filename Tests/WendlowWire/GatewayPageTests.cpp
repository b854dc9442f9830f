// Keeps docs/gateway.md true: its tables say what the types say, and its examples read.

#include "Codec/Shapes.h"
#include "GatewayEvent.h"
#include "GatewayPage.h"
#include "GatewayResponse.h"
#include "WireCodec.h"

#include <set>

#include <fmt/ranges.h>
#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::GatewayPage;

/// Says in the page's own words what the types are, and so what the page has to hold.
class Catalogue {
public:
    template<class Variant> void add() { addCases<Variant>(static_cast<Variant*>(nullptr)); }

    /// Rows by heading: the first cells joined.
    std::map<std::string, std::set<std::string>> rows;

private:
    template<class Variant, class... Cases> void addCases(const std::variant<Cases...>*) {
        const std::string heading(Variant::typeName);
        if (!rows[heading].empty())
            return;
        const auto addCase = [&]<class Case>(const Case*) {
            std::string row = fmt::format("`{}`", Case::wireName);
            if constexpr (requires { requires !std::is_member_pointer_v<decltype(&Case::verb)>; })
                row += fmt::format(" | `{}`", Case::verb);
            rows[heading].insert(fmt::format("{} | {}", row, items<Case>()));
        };
        (addCase(static_cast<const Cases*>(nullptr)), ...);
    }

    template<class T> std::string items() {
        std::vector<std::string> items;
        Codec::allFields<T>([&](auto field) {
            using Field = std::remove_reference_t<decltype(std::declval<T&>().*field.pointer)>;
            items.push_back(
                fmt::format("`{}`: {}", field.name, name(static_cast<Field*>(nullptr))));
            return true;
        });
        return fmt::format("{}", fmt::join(items, ", "));
    }

    static std::string name(const bool*) { return "bool"; }
    static std::string name(const std::int64_t*) { return "int"; }
    static std::string name(const double*) { return "double"; }
    static std::string name(const std::string*) { return "string"; }
    static std::string name(const WireData*) { return "data"; }
    static std::string name(const FilterValue*) { return "FilterValue"; }
    template<class T> std::string name(const std::optional<T>*) { return item<T>() + "?"; }
    template<class T> std::string name(const std::vector<T>*) { return "[" + item<T>() + "]"; }
    template<class T> std::string name(const std::map<std::string, T>*) {
        return "{" + item<T>() + "}";
    }
    template<Codec::TaggedVariant T> std::string name(const T*) {
        add<T>();
        return std::string(T::typeName);
    }
    template<Codec::Record T> std::string name(const T*) {
        rows["Records"].insert(fmt::format("`{}` | {}", ownName<T>(), items<T>()));
        return ownName<T>();
    }
    template<StringVariant T> std::string name(const T*) {
        std::vector<std::string> words;
        for (const T word : allCases<T>())
            words.push_back(fmt::format("`{}`", rawString(word)));
        rows["Words"].insert(fmt::format("`{}` | {}", ownName<T>(), fmt::join(words, ", ")));
        return ownName<T>();
    }
    template<class T> std::string item() { return name(static_cast<T*>(nullptr)); }

    /// "DayPresence.App" for `wendlow::DayPresence::App`, by what the compiler calls it.
    template<class T> static std::string ownName() {
        std::string text = __PRETTY_FUNCTION__;
        text = text.substr(text.rfind("T = wendlow::") + 13);
        text.resize(text.find_first_of("];"));
        if (const auto colons = text.find("::"); colons != std::string::npos)
            text.replace(colons, 2, ".");
        return text;
    }
};

TEST(GatewayPage, HoldsEveryCaseRecordAndWordAndNoOther) {
    Catalogue types;
    types.add<GatewayRequest>();
    types.add<GatewayResponse>();
    types.add<GatewayEvent>();
    const GatewayPage page;
    std::size_t requests = 0;
    for (const auto& [heading, expected] : types.rows) {
        SCOPED_TRACE(heading);
        std::set<std::string> told;
        for (GatewayPage::Row row : page.table(heading)) {
            const bool isRequest = row.size() == 4; // with what answers it behind
            row.resize(isRequest ? 3 : row.size());
            told.insert(fmt::format("{}", fmt::join(row, " | ")));
            requests += isRequest ? 1 : 0;
        }
        EXPECT_EQ(told, expected);
    }
    EXPECT_EQ(requests, 58 + 24 + 11 + 1);
}

/// Each example is what our own side would write, to the letter.
template<class Decode> void expectExamplesToReturn(const std::string& kind, Decode decode) {
    const GatewayPage page;
    for (const std::string& example : page.examples(kind)) {
        const auto value = decode(example);
        ASSERT_TRUE(value) << example << ": " << value.error().sentence;
        EXPECT_EQ(WireCodec::encode(*value), example);
    }
}

TEST(GatewayPage, GivesExamplesThatRead) {
    expectExamplesToReturn("request", WireCodec::decodeRequest);
    expectExamplesToReturn("answer", WireCodec::decodeResponse);
    expectExamplesToReturn("event", WireCodec::decodeEvent);
}

TEST(GatewayPage, GivesTheSentencesOfWhatDoesNotRead) {
    const GatewayPage page;
    for (const GatewayPage::Row& row : page.table("What does not read")) {
        const auto request = WireCodec::decodeRequest(GatewayPage::unquoted(row.at(0)));
        ASSERT_FALSE(request) << row.at(0);
        EXPECT_EQ(request.error().sentence, row.at(1));
    }
}

} // namespace
} // namespace wendlow
