#include "Catalogue.h"

#include "GatewayEvent.h"
#include "GatewayRequest.h"
#include "GatewayResponse.h"
#include "WireCodec.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

using testing::Catalogue;
using testing::Sample;
using Shape = Sample::Shape;
using ::testing::EndsWith;

const Catalogue& catalogue() {
    static const Catalogue catalogue;
    return catalogue;
}

/// As many as the longest list of words has, so that each word and case has its turn.
constexpr std::size_t choices = 5;

/// One family of cases, and how a message that holds one is read and written again. The result is
/// the message, or what could not be read.
struct Family {
    std::string kind;
    std::size_t size;
    std::string (*again)(const std::string& message);
    bool isRequest;

    std::string message(const std::string& json) const {
        return isRequest ? fmt::format(R"({{"{}":{{"_0":{}}}}})", kind, json) : json;
    }
};

template<auto decode> std::string again(const std::string& message) {
    const auto value = decode(message);
    if (!value)
        return value.error().path + ": " + value.error().sentence;
    return WireCodec::encode(*value).value_or("cannot be written");
}

const Family families[] = {
    {"read", std::variant_size_v<ReadRequest::variant>, again<WireCodec::decodeRequest>, true},
    {"control", std::variant_size_v<ControlRequest::variant>, again<WireCodec::decodeRequest>,
     true},
    {"notes", std::variant_size_v<NotesRequest::variant>, again<WireCodec::decodeRequest>, true},
    {"diagnostic", std::variant_size_v<DiagnosticRequest::variant>, again<WireCodec::decodeRequest>,
     true},
    {"answer", std::variant_size_v<GatewayResponse::variant>, again<WireCodec::decodeResponse>,
     false},
    {"event", std::variant_size_v<GatewayEvent::variant>, again<WireCodec::decodeEvent>, false},
};

template<class Check> void eachCase(Check&& check) {
    for (const Family& family : families)
        for (const Catalogue::Entry& entry : catalogue().of(family.kind)) {
            SCOPED_TRACE(family.kind + " " + entry.name);
            check(family, entry);
        }
}

TEST(Catalogue, IsWhole) {
    std::size_t requests = 0;
    for (const Family& family : families) {
        EXPECT_EQ(catalogue().of(family.kind).size(), family.size) << family.kind;
        requests += family.isRequest ? family.size : 0;
    }
    EXPECT_EQ(requests, 58U + 24U + 11U + 1U);
    EXPECT_EQ(catalogue().of("answer").size(), 38U);
}

TEST(Catalogue, EveryCaseComesBackAsItWasWritten) {
    eachCase([](const Family& family, const Catalogue::Entry& entry) {
        for (std::size_t choice = 0; choice < choices; ++choice) {
            const auto message =
                family.message(Sample(catalogue(), Shape::full, choice).ofCase(entry));
            EXPECT_EQ(family.again(message), message);
        }
    });
}

TEST(Catalogue, EveryCaseTellsItsNames) {
    std::vector<std::string> notes;
    eachCase([&](const Family& family, const Catalogue::Entry& entry) {
        const auto message = family.message(Sample(catalogue(), Shape::full, 0).ofCase(entry));
        if (family.kind == "answer") {
            EXPECT_EQ(WireCodec::decodeResponse(message).value().caseName(), entry.name);
        }
        if (!family.isRequest)
            return;
        const GatewayRequest request = WireCodec::decodeRequest(message).value();
        EXPECT_EQ(request.verb(), entry.verb);
        EXPECT_EQ(request.caseName(), family.kind + "." + entry.name);
        if (family.kind == "notes")
            notes.push_back(entry.verb);
    });
    EXPECT_THAT(NotesRequest::allVerbs, ::testing::ElementsAreArray(notes));
}

TEST(Catalogue, WhatMayBeAbsentReadsAsAbsentOrIsFilledIn) {
    eachCase([](const Family& family, const Catalogue::Entry& entry) {
        const auto sample = [&](Shape shape) {
            return family.message(Sample(catalogue(), shape, 1).ofCase(entry));
        };
        EXPECT_EQ(family.again(sample(Shape::bare)), sample(Shape::answered));
        EXPECT_EQ(family.again(sample(Shape::nulled)), sample(Shape::answered));
    });
}

TEST(Catalogue, NothingThatIsRequiredMayBeMissingAtAnyDepth) {
    eachCase([](const Family& family, const Catalogue::Entry& entry) {
        for (std::size_t choice = 0; choice < choices; ++choice)
            for (std::size_t omitted = 0;; ++omitted) {
                Sample sample(catalogue(), Shape::full, choice, omitted);
                const std::string outcome = family.again(family.message(sample.ofCase(entry)));
                if (sample.omitted() == nullptr)
                    break;
                const std::string refusal = sample.omitted()->name + ": this key is missing";
                EXPECT_EQ(outcome.ends_with(refusal),
                          sample.omitted()->presence == Catalogue::Item::required)
                    << omitted << " " << outcome;
            }
    });
}

TEST(Catalogue, AnUnknownKeyIsDroppedButBesideAnUnlabelledItemOfARequest) {
    eachCase([](const Family& family, const Catalogue::Entry& entry) {
        const auto sample = [&](std::string_view extra) {
            return family.message(Sample(catalogue(), Shape::full, 0).ofCase(entry, extra));
        };
        const std::string outcome = family.again(sample(R"("later":[{"x":null}])"));
        if (family.isRequest && entry.hasUnlabelledItem())
            EXPECT_THAT(outcome, EndsWith(": Invalid number of keys found, expected one."));
        else
            EXPECT_EQ(outcome, sample({}));
    });
}

TEST(Catalogue, CasesWithoutItemsReadNoValueOnlyInQuestions) {
    eachCase([](const Family& family, const Catalogue::Entry& entry) {
        if (!entry.items.empty())
            return;
        const auto message = family.message(fmt::format(R"({{"{}":7}})", entry.name));
        if (family.kind == "read")
            EXPECT_EQ(family.again(message),
                      family.message(fmt::format(R"({{"{}":{{}}}})", entry.name)));
        else
            EXPECT_THAT(family.again(message), EndsWith("expected an object, found a number"));
    });
}

} // namespace
} // namespace wendlow
