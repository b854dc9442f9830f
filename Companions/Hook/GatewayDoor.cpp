#include "GatewayDoor.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

#include <fmt/format.h>
#include <systemd/sd-bus.h>

#include "WireCodec.h"
#include "WireContract.h"

namespace wendlow {

namespace {

constexpr const char* path = "/works/fenmoor/wendlow/gateway";
constexpr const char* interface = "works.fenmoor.wendlow.Gateway";
constexpr const char* payloadKey = "payload";
constexpr const char* wireKey = "wire";

constexpr const char* silent = "the gateway did not answer in time";

struct Unref {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, Unref>;

/// One entry of the dictionary, of a key and what stands behind it as a variant.
template<class Append>
int addEntry(sd_bus_message* message, const char* key, const char* type, const Append& append) {
    int result = sd_bus_message_open_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv");
    if (result >= 0)
        result = sd_bus_message_append_basic(message, 's', key);
    if (result >= 0)
        result = sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, type);
    if (result >= 0)
        result = append();
    if (result >= 0)
        result = sd_bus_message_close_container(message);
    return result < 0 ? result : sd_bus_message_close_container(message);
}

int fill(sd_bus_message* message, const std::string& json) {
    int result = sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
    if (result >= 0)
        result = addEntry(message, payloadKey, "ay", [&] {
            return sd_bus_message_append_array(message, 'y', json.data(), json.size());
        });
    if (result >= 0)
        result = addEntry(message, wireKey, "t", [&] {
            const std::uint64_t version = WireContract::version;
            return sd_bus_message_append_basic(message, 't', &version);
        });
    return result < 0 ? result : sd_bus_message_close_container(message);
}

/// What of a reply's dictionary matters.
struct Reply {
    std::string_view payload;
    std::optional<std::uint64_t> wire;
};

/// The value of the entry whose key has been read.
int readValue(sd_bus_message* message, std::string_view key, Reply& reply) {
    const char* type = nullptr;
    int result = sd_bus_message_peek_type(message, nullptr, &type);
    if (result < 0)
        return result;
    const std::string_view held = type;
    if (key == payloadKey && held == "ay") {
        const void* bytes = nullptr;
        std::size_t size = 0;
        result = sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, type);
        if (result >= 0)
            result = sd_bus_message_read_array(message, 'y', &bytes, &size);
        reply.payload = {static_cast<const char*>(bytes), bytes == nullptr ? 0 : size};
        return result < 0 ? result : sd_bus_message_exit_container(message);
    }
    if (key == wireKey) {
        // What is no such number counts as 0, which no side ever spoke.
        reply.wire = 0;
        if (held == "t")
            return sd_bus_message_read(message, "v", "t", &*reply.wire);
    }
    return sd_bus_message_skip(message, "v");
}

int readReply(sd_bus_message* message, Reply& reply) {
    int result = sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
    while (result >= 0 &&
           (result = sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv")) > 0) {
        const char* key = nullptr;
        result = sd_bus_message_read_basic(message, 's', static_cast<void*>(&key));
        if (result >= 0)
            result = readValue(message, key, reply);
        if (result >= 0)
            result = sd_bus_message_exit_container(message);
    }
    return result;
}

HookAnswer answerIn(sd_bus_message* message) {
    if (const sd_bus_error* const error = sd_bus_message_get_error(message)) {
        const std::string_view name = error->name;
        const char* const sender = sd_bus_message_get_sender(message);
        // A peer may give its errors any name.
        if (sender != nullptr && *sender == ':')
            return std::unexpected("the gateway refused: " + std::string(name));
        if (name == SD_BUS_ERROR_SERVICE_UNKNOWN || name == SD_BUS_ERROR_NAME_HAS_NO_OWNER)
            return std::unexpected("no gateway is running");
        if (name == SD_BUS_ERROR_NO_REPLY)
            return std::unexpected("the gateway left before it had answered");
        return std::unexpected("the session bus refused: " + std::string(name));
    }
    Reply reply;
    if (readReply(message, reply) < 0)
        return std::unexpected("the gateway's reply is no dictionary");
    if (WireContract::verdict(WireContract::version, reply.wire) == WireContract::Verdict::mismatch)
        return std::unexpected(std::string(WireContract::mismatchMessage));
    auto response = WireCodec::decodeResponse(reply.payload);
    if (!response)
        return std::unexpected("the gateway's answer does not read");
    return std::move(*response);
}

std::uint64_t microseconds(GatewayDoor::Clock::duration left) {
    const auto count = std::chrono::ceil<std::chrono::microseconds>(left).count();
    return static_cast<std::uint64_t>(std::max<std::int64_t>(count, 1));
}

} // namespace

struct GatewayDoor::Bus {
    Bus() { fault = sd_bus_open_user(&bus); }
    ~Bus() {
        // Nothing is flushed: a bus that takes no bytes would be waited for.
        if (bus != nullptr) {
            sd_bus_close(bus);
            sd_bus_unref(bus);
        }
    }
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    sd_bus* bus = nullptr;
    int fault = 0;
};

/// Stays where it is, since the bus keeps its address.
struct GatewayDoor::Question {
    Question() = default;
    ~Question() { sd_bus_slot_unref(slot); }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

    static int arrived(sd_bus_message* message, void* question, sd_bus_error* /*error*/) {
        static_cast<Question*>(question)->answer = answerIn(message);
        return 0;
    }
    void fail(std::string sentence) {
        if (!answer)
            answer = std::unexpected(std::move(sentence));
    }

    sd_bus_slot* slot = nullptr;
    std::optional<HookAnswer> answer = std::nullopt;
};

GatewayDoor::GatewayDoor(std::string name, Clock::time_point deadline)
    : m_name(std::move(name)), m_deadline(deadline) {}

GatewayDoor::~GatewayDoor() = default;

void GatewayDoor::send(const GatewayRequest& request, Question& question) {
    const auto json = WireCodec::encode(request);
    if (!json)
        return question.fail("what the tool says cannot be told to the gateway");
    sd_bus_message* made = nullptr;
    int result = sd_bus_message_new_method_call(m_bus->bus, &made, m_name.c_str(), path, interface,
                                                "Exchange");
    const Message message(made);
    if (result >= 0)
        result = sd_bus_message_set_auto_start(made, 0);
    if (result >= 0)
        result = fill(made, *json);
    if (result >= 0)
        // Without a limit of its own: what is late is told apart from what has failed.
        result = sd_bus_call_async(m_bus->bus, &question.slot, made, &Question::arrived, &question,
                                   UINT64_MAX);
    if (result < 0)
        question.fail(fmt::format("the gateway could not be asked: {}", std::strerror(-result)));
}

std::vector<HookAnswer> GatewayDoor::ask(const std::vector<GatewayRequest>& requests) {
    if (!m_bus)
        m_bus = std::make_unique<Bus>();
    std::vector<std::unique_ptr<Question>> questions;
    for (const GatewayRequest& request : requests) {
        Question& question = *questions.emplace_back(std::make_unique<Question>());
        if (m_bus->fault < 0)
            question.fail("there is no session bus");
        else
            send(request, question);
    }
    while (std::ranges::any_of(questions, [](const auto& one) { return !one->answer; }))
        if (const char* const fault = goOn())
            for (const auto& question : questions)
                question->fail(fault);
    std::vector<HookAnswer> answers;
    answers.reserve(questions.size());
    for (const auto& question : questions)
        answers.push_back(std::move(*question->answer));
    return answers;
}

const char* GatewayDoor::goOn() {
    const int done = sd_bus_process(m_bus->bus, nullptr);
    if (done < 0)
        return "the session bus has gone";
    const auto left = m_deadline - Clock::now();
    if (left <= Clock::duration::zero())
        return silent;
    const int waited = done > 0 ? 0 : sd_bus_wait(m_bus->bus, microseconds(left));
    return waited < 0 && waited != -EINTR ? "the session bus has gone" : nullptr;
}

} // namespace wendlow
