#include "Service/Options.h"

#include <charconv>
#include <string_view>

#include <QCommandLineParser>
#include <fmt/format.h>

#include "ClientInstance.h"

namespace wendlow {

namespace {

constexpr const char* description =
    "Answers in place of the product's daemon, from a database of its own, so that the\n"
    "application can be used, tested and shown. It keeps no real memory.\n\n"
    "The options from --wire on make it misbehave, for trying what a client does then.";

QCommandLineOption option(const char* name, const char* meaning, const char* value = "") {
    return QCommandLineOption(QString::fromUtf8(name), QString::fromUtf8(meaning),
                              QString::fromUtf8(value));
}

/// Takes the options in turn, and keeps the first sentence about one that is wrong.
class Reading {
public:
    explicit Reading(const QStringList& words) {
        m_parser.setApplicationDescription(QString::fromUtf8(description));
        m_parser.addOptions({
            option("help", "Say this."),
            option("database", "The file it keeps all in, in a private folder of its own.", "path"),
            option("name", "What it owns on the session bus.", "name"),
            option("wire", "The contract's version in replies; \"none\" leaves it out.", "number"),
            option("silent", "Take requests and never reply."),
            option("refuse", "Give the first requests a bus error; \"all\" for each.", "number"),
            option("delay", "Wait before each reply.", "milliseconds"),
            option("payload", "What replies carry: answer, absent, empty, rubbish, unknown-case, "
                              "nested, cut or huge.",
                   "kind"),
            option("die-after", "Answer so many requests, and die at the next.", "number"),
            option("flood", "Send each new subscriber so many events at once.", "number"),
        });
        if (!m_parser.parse(words))
            fail(m_parser.errorText().toStdString());
        else if (const QStringList rest = m_parser.positionalArguments(); !rest.isEmpty())
            fail(fmt::format("there is no use for {}", rest.first().toStdString()));
    }

    std::optional<std::string> text(const char* name) const {
        if (!isSet(name))
            return std::nullopt;
        return m_parser.value(QString::fromUtf8(name)).toStdString();
    }

    std::optional<std::uint64_t> number(const char* name) {
        const auto word = text(name);
        if (!word)
            return std::nullopt;
        std::uint64_t value = 0;
        const char* const end = word->data() + word->size();
        const auto [stopped, error] = std::from_chars(word->data(), end, value);
        // A wait in milliseconds has to fit a timer; nothing else comes near this.
        if (error != std::errc() || stopped != end || value > INT32_MAX)
            fail(name, *word);
        return value;
    }

    /// A number, or `word`, which stands for another value.
    template<class Value> Value numberOr(const char* name, const char* word, Value atWord) {
        return text(name) == word ? atWord : Value(number(name).value_or(0));
    }

    bool isSet(const char* name) const { return m_parser.isSet(QString::fromUtf8(name)); }
    std::string help() const { return m_parser.helpText().toStdString(); }

    void fail(const char* name, std::string_view value) {
        fail(fmt::format("--{} cannot be \"{}\"", name, value));
    }
    void fail(std::string sentence) {
        if (m_fault.empty())
            m_fault = std::move(sentence);
    }
    const std::string& fault() const { return m_fault; }

private:
    QCommandLineParser m_parser;
    std::string m_fault;
};

Misbehaviour misbehaviourIn(Reading& reading) {
    Misbehaviour result;
    if (reading.isSet("wire"))
        result.wire = reading.numberOr("wire", "none", std::optional<std::uint64_t>());
    result.isSilent = reading.isSet("silent");
    result.refusals = reading.numberOr("refuse", "all", Misbehaviour::all);
    result.delay = std::chrono::milliseconds(reading.number("delay").value_or(0));
    if (const auto word = reading.text("payload")) {
        if (const auto payload = Misbehaviour::payloadNamed(*word))
            result.payload = *payload;
        else
            reading.fail("payload", *word);
    }
    result.requestsInLife = reading.number("die-after");
    result.flood = reading.number("flood").value_or(0);
    return result;
}

} // namespace

std::expected<Options, std::string> Options::parse(const QStringList& words) {
    Reading reading(words);
    Options options{.name = reading.text("name").value_or(std::string(ClientInstance::gatewayID)),
                    .database = reading.text("database").value_or(
                        ClientInstance::defaultSupport() + "/Wendlow Practice/practice.db"),
                    .misbehaviour = misbehaviourIn(reading),
                    .help = std::nullopt};
    if (reading.isSet("help"))
        options.help = reading.help();
    if (!reading.fault().empty())
        return std::unexpected(reading.fault());
    return options;
}

} // namespace wendlow
