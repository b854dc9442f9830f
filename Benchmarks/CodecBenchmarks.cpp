// The codec of the contract beside nlohmann-json, each between the same records and the same bytes:
// for the peer a text is parsed and its members are read by name into the records, and back again,
// as its own macros for user types do it. Only what both do is measured; the peer checks less.

#include "Support/SampleAnswers.h"
#include "WireCodec.h"

#include <benchmark/benchmark.h>
#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>
#include <nlohmann/json.hpp>
#include <sodium/utils.h>

#include <string>

using Peer = nlohmann::json;

template<class T>
concept Described = boost::describe::has_describe_members<T>::value;
template<class T> constexpr bool isOptionalField = false;
template<class T> constexpr bool isOptionalField<std::optional<T>> = true;

/// The peer's own way for a user's record: each member by its name.
template<Described T> struct nlohmann::adl_serializer<T> {
    using Fields = boost::describe::describe_members<T, boost::describe::mod_public>;

    static void to_json(Peer& json, const T& record) {
        json = Peer::object();
        boost::mp11::mp_for_each<Fields>([&](auto field) {
            const auto& value = record.*field.pointer;
            if constexpr (isOptionalField<std::remove_cvref_t<decltype(value)>>) {
                if (value)
                    json[field.name] = *value;
            } else {
                json[field.name] = value;
            }
        });
    }

    static void from_json(const Peer& json, T& record) {
        boost::mp11::mp_for_each<Fields>([&](auto field) {
            auto& value = record.*field.pointer;
            if constexpr (isOptionalField<std::remove_cvref_t<decltype(value)>>) {
                if (const auto found = json.find(field.name); found != json.end())
                    found->get_to(value.emplace());
            } else {
                json.at(field.name).get_to(value);
            }
        });
    }
};

template<> struct nlohmann::adl_serializer<wendlow::FilterValue> {
    static void to_json(Peer& json, const wendlow::FilterValue& value) {
        std::visit([&](const auto& scalar) { json = scalar; }, value);
    }

    static void from_json(const Peer& json, wendlow::FilterValue& value) {
        if (json.is_boolean())
            value = json.get<bool>();
        else if (json.is_number())
            value = json.get<double>();
        else
            value = json.get<std::string>();
    }
};

template<class T> struct nlohmann::adl_serializer<wendlow::OpenCase<T>> {
    static void to_json(Peer& json, const wendlow::OpenCase<T>& value) { json = value.word(); }

    static void from_json(const Peer& json, wendlow::OpenCase<T>& value) {
        value = wendlow::OpenCase<T>::ofWord(json.get<std::string>());
    }
};

template<> struct nlohmann::adl_serializer<wendlow::WireData> {
    static constexpr int variant = sodium_base64_VARIANT_ORIGINAL;

    static void to_json(Peer& json, const wendlow::WireData& data) {
        std::string text(sodium_base64_encoded_len(data.bytes.size(), variant), '\0');
        sodium_bin2base64(text.data(), text.size(),
                          reinterpret_cast<const unsigned char*>(data.bytes.data()),
                          data.bytes.size(), variant);
        text.pop_back(); // the terminator
        json = std::move(text);
    }

    static void from_json(const Peer& json, wendlow::WireData& data) {
        const auto& text = json.get_ref<const std::string&>();
        data.bytes.resize(text.size());
        std::size_t length = 0;
        sodium_base642bin(reinterpret_cast<unsigned char*>(data.bytes.data()), data.bytes.size(),
                          text.data(), text.size(), nullptr, &length, nullptr, variant);
        data.bytes.resize(length);
    }
};

template<> struct nlohmann::adl_serializer<wendlow::ShortcutInjection> {
    static void to_json(Peer& json, const wendlow::ShortcutInjection& value) {
        std::visit([&]<class Case>(const Case& which) { json[Case::wireName] = which; }, value);
    }

    static void from_json(const Peer& json, wendlow::ShortcutInjection& value) {
        using Case = wendlow::ShortcutCase::List; // the only one in the samples
        json.at(Case::wireName).get_to(value.emplace<Case>());
    }
};

namespace wendlow::benchmarks {

namespace {

struct OurCodec {
    static std::string encoded(const GatewayResponse& response) {
        return WireCodec::encode(response).value_or("");
    }
    static bool decodes(const std::string& json, const GatewayResponse& response) {
        const auto decoded = WireCodec::decodeResponse(json);
        benchmark::DoNotOptimize(decoded);
        return decoded && decoded->index() == response.index();
    }
};

struct NlohmannJSON {
    static std::string encoded(const GatewayResponse& response) {
        Peer json;
        std::visit([&]<class Case>(const Case& which) { json[Case::wireName] = which; }, response);
        return json.dump();
    }
    static bool decodes(const std::string& json, const GatewayResponse& response) {
        const Peer document = Peer::parse(json);
        return std::visit(
            [&]<class Case>(const Case& /*which*/) {
                Case decoded;
                document.at(Case::wireName).get_to(decoded);
                benchmark::DoNotOptimize(decoded);
                return true;
            },
            response);
    }
};

template<class Codec> void encode(benchmark::State& state, const GatewayResponse& response) {
    std::size_t size = 0;
    for (auto _ : state) {
        const std::string json = Codec::encoded(response);
        benchmark::DoNotOptimize(json.data());
        size += json.size();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(size));
}

template<class Codec> void decode(benchmark::State& state, const GatewayResponse& response) {
    const std::string json = OurCodec::encoded(response);
    if (json.empty() || WireCodec::decodeResponse(json) != response) {
        state.SkipWithError("the answer does not come back as it was");
        return;
    }
    for (auto _ : state)
        if (!Codec::decodes(json, response))
            state.SkipWithError("the answer was not read");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(json.size()));
}

template<class Codec> void measure(const std::string& name, const GatewayResponse& response) {
    for (const bool isEncoding : {true, false})
        benchmark::RegisterBenchmark((name + (isEncoding ? "/encode" : "/decode")).c_str(),
                                     [=](benchmark::State& state) {
                                         isEncoding ? encode<Codec>(state, response)
                                                    : decode<Codec>(state, response);
                                     })
            ->Unit(benchmark::kMicrosecond);
}

const bool registered = [] {
    const std::pair<std::string, GatewayResponse> answers[] = {
        {"textBrowse", SampleAnswers::textBrowse(500)},
        {"cards", SampleAnswers::cards()},
        {"sessions", SampleAnswers::sessions()},
        {"presence", SampleAnswers::presence()},
        {"spanHours", SampleAnswers::spanHours()},
        {"stretches", SampleAnswers::stretches()},
        {"scopeBoard", SampleAnswers::scopeBoard()},
        {"modBoard", SampleAnswers::modBoard()},
        {"transcript", SampleAnswers::transcript()},
        {"images", SampleAnswers::images()},
        {"primed", SampleAnswers::primed()},
    };
    for (const auto& [name, response] : answers) {
        measure<OurCodec>(name + "/WireCodec", response);
        measure<NlohmannJSON>(name + "/nlohmann-json", response);
    }
    return true;
}();

} // namespace
} // namespace wendlow::benchmarks
