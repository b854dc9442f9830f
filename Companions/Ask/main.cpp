// wendlow-ask: asks the gateway what the windows ask, by the same client.

#include "Say.h"

#include "Translation.h"
#include "WireCodec.h"
#include "XPCClient.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include <QCoreApplication>
#include <fmt/format.h>

namespace {

using namespace wendlow;

enum ExitStatus { succeeded = 0, wasRefused = 1, wrongUsage = 2 };

std::string usage() {
    return say("usage: wendlow-ask 'REQUEST JSON'") + "\n";
}

std::string help() {
    return "\n" + say(R"(Sends one request to the gateway and prints one JSON document:

  response    the answer
  served_ms   how long the gateway says it worked on it, where it says so
  fault       why the gateway could not be asked: absent, refused, silent or skew

As long as the gateway is there and says nothing, it waits. So:

  wendlow-ask '{"read":{"_0":{"health":{}}}}'

Exit status: 0; 1 when the answer is failure or unimplemented; 2 when the request does not read,
and for wrong usage.)") +
           "\n";
}

/// Whether all of it went out.
bool print(std::FILE* stream, std::string_view text) {
    return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
           std::fflush(stream) == 0;
}

ExitStatus complain(std::string_view sentence) {
    print(stderr, fmt::format("wendlow-ask: {}\n", sentence));
    return wrongUsage;
}

std::string document(const std::string& response, const WendlowClient::Timed& answer,
                     std::optional<DoorFault> fault) {
    std::string text = fmt::format(R"({{"response":{})", response);
    if (answer.daemon)
        text += fmt::format(R"(,"served_ms":{})", answer.daemon->count());
    if (fault)
        text += fmt::format(R"(,"fault":"{}")", DoorFaults::text(*fault));
    return text + "}\n";
}

ExitStatus ask(std::string_view json) {
    auto request = WireCodec::decodeRequest(json);
    if (!request) {
        const auto& [path, sentence] = request.error();
        return complain(path.empty() ? sentence : say("{} (in {})", sentence, path));
    }
    XPCClient client;
    const auto answer = QCoro::waitFor(client.sendTimed(std::move(*request)));
    const auto response = WireCodec::encode(answer.response);
    if (!response)
        return complain(response.error().sentence);
    const bool refused = std::holds_alternative<AnswerCase::Failure>(answer.response) ||
                         std::holds_alternative<AnswerCase::Unimplemented>(answer.response);
    const bool printed = print(stdout, document(*response, answer, client.lastDoorFault()));
    return printed && !refused ? succeeded : wasRefused;
}

} // namespace

int main(int count, char** words) {
    const QCoreApplication application(count, words);
    const std::string_view word = count == 2 ? words[1] : "";
    if (!word.empty() && !word.starts_with('-'))
        return ask(word);
    // Only here: an answer is JSON, which is for programs, and speaks English.
    const std::filesystem::path programs = application.applicationDirPath().toStdString();
    Translation::begin(programs / "../Resources");
    if (word == "--help")
        return print(stdout, usage() + help()) ? succeeded : wasRefused;
    print(stderr, usage());
    return wrongUsage;
}
