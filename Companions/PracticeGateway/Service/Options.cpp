#include "Service/Options.h"

#include <algorithm>
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
    "--refuse, --unimplemented and --garble are each for one verb, and may be given again for\n"
    "others: it is refused in these words, is not known yet, or gets the answer to another\n"
    "question.\n\n"
    "The last ten options make it misbehave, for trying what a client does then. A reply is "
    "told\n"
    "by words with + between them, a list of replies has commas, and its last reply stays:\n"
    "  answer, silent, refuse, die       what it does at all\n"
    "  no-payload, empty, rubbish, unknown-case, nested, cut, huge, wrong-types, no-dictionary\n"
    "                                    what the reply carries in place of the answer\n"
    "  no-wire, wire-2                   the version in the reply\n"
    "  late-300                          after so many milliseconds\n"
    "So --replies answer,answer,die answers two requests and dies at the third.";

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
            QCommandLineOption({QStringLiteral("store"), QStringLiteral("database")},
                               QStringLiteral("The file it keeps all in, in a private folder of "
                                              "its own; a script may read it beside."),
                               QStringLiteral("path")),
            option("fill",
                   "Fill an empty database: day, power for one of years, moments for a day with "
                   "50,000 moments.",
                   "size"),
            option("live", "Let the day go on, and another moment come, each so many milliseconds.",
                   "number"),
            option("name", "What it owns on the session bus.", "name"),
            option("recovery",
                   "Its key: armed, locked for one that has gone, plain for a store without one. "
                   "Stays until it is told otherwise.",
                   "state"),
            option("refuse", "Refuse a verb in these words.", "verb=words"),
            option("unimplemented", "Know a verb not yet.", "verb"),
            option("garble", "Answer a verb as if it were another.", "verb"),
            option("replies", "How the first request is replied to, the second and so on.", "list"),
            option("knocks", "How a knock is replied to.", "words"),
            option("rules",
                   "What is wrong with the rules, with commas: older-card, other-scope, no-card, "
                   "other-path, warning, overflow.",
                   "list"),
            option("days",
                   "What is odd about days, with commas: no-times, many-apps, negative, enormous, "
                   "odd-names, no-pictures.",
                   "list"),
            option("lines",
                   "What happens to a line right before the first delete of one, the second and so "
                   "on, with commas: stay, change, move, go, twin.",
                   "list"),
            option("mods", "What is special about the mods, with commas: none, every-outcome.",
                   "list"),
            option("deny",
                   "The permissions that are refused, with commas: screen_recording, "
                   "accessibility, microphone.",
                   "list"),
            option("withhold", "The permissions of which nothing is said.", "list"),
            option("grant-after",
                   "After how many milliseconds a permission that was asked for is there.",
                   "number"),
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
        if (error != std::errc() || stopped != end)
            fail(name, *word);
        return value;
    }

    /// What `read` makes of an option's words.
    template<class Read> void parsed(const char* name, Read read, auto& target) {
        const auto words = text(name);
        if (!words)
            return;
        if (auto value = read(*words))
            target = std::move(*value);
        else
            fail(name, value.error());
    }

    /// Has `read` take each of an option's values in.
    template<class Read> void each(const char* name, Read read, auto& target) {
        for (const QString& words : m_parser.values(QString::fromUtf8(name)))
            if (const auto taken = read(words.toStdString(), target); !taken)
                fail(name, taken.error());
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
    reading.parsed("replies", &ReplyManner::parseList, result.replies);
    reading.parsed("knocks", &ReplyManner::parse, result.knockReply);
    result.flood = reading.number("flood").value_or(0);
    return result;
}

SteeredGateway::Answers steeredIn(Reading& reading) {
    SteeredGateway::Answers answers;
    reading.each("refuse", &SteeredGateway::refuse, answers);
    reading.each("unimplemented", &SteeredGateway::unimplemented, answers);
    reading.each("garble", &SteeredGateway::garble, answers);
    return answers;
}

std::expected<StoreProtection, std::string> protection(std::string_view word) {
    if (word == "armed")
        return StoreProtection::armed;
    if (word == "locked")
        return StoreProtection::locked;
    if (word == "plain")
        return StoreProtection::plaintext;
    return std::unexpected(std::string(word));
}

std::expected<FillSize, std::string> fillSize(std::string_view word) {
    if (word == "day")
        return FillSize::day;
    if (word == "power")
        return FillSize::power;
    if (word == "moments")
        return FillSize::moments;
    return std::unexpected(std::string(word));
}

} // namespace

std::expected<Options, std::string> Options::parse(const QStringList& words) {
    Reading reading(words);
    Options options{.name = reading.text("name").value_or(std::string(ClientInstance::gatewayID)),
                    .database = reading.text("store").value_or(ClientInstance::defaultSupport() +
                                                               "/Wendlow Practice/practice.db"),
                    .fill = std::nullopt,
                    .live = std::chrono::milliseconds(
                        std::min<std::uint64_t>(reading.number("live").value_or(0), INT32_MAX)),
                    .misbehaviour = misbehaviourIn(reading),
                    .steered = steeredIn(reading),
                    .recovery = std::nullopt,
                    .rules = {},
                    .days = {},
                    .lines = {},
                    .mods = {},
                    .grants = {},
                    .help = std::nullopt};
    reading.parsed("fill", fillSize, options.fill);
    reading.parsed("recovery", protection, options.recovery);
    reading.parsed("rules", &RuleManner::parse, options.rules);
    reading.parsed("days", &DayManner::parse, options.days);
    reading.parsed("lines", &LineManners::parse, options.lines);
    reading.parsed("mods", &ModManner::parse, options.mods);
    reading.parsed("deny", &GrantManner::kinds, options.grants.denied);
    reading.parsed("withhold", &GrantManner::kinds, options.grants.withheld);
    options.grants.after = std::chrono::milliseconds(
        std::min<std::uint64_t>(reading.number("grant-after").value_or(0), INT32_MAX));
    if (reading.isSet("help"))
        options.help = reading.help();
    if (!reading.fault().empty())
        return std::unexpected(reading.fault());
    return options;
}

} // namespace wendlow
