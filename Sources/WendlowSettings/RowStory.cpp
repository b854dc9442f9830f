#include "RowStory.h"

#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow::RowStory {

namespace {

using Result = ConnectorOutcome::Result;
using Tone = RowStrip::Tone;

/// Whether the app is as the verb was to leave it.
bool isDone(const Subject& subject) {
    const bool connected = subject.state == ConnectorState::connected;
    const bool drifted = subject.state == ConnectorState::drifted;
    return subject.verb->verb == RowVerb::connect ? connected : !connected && !drifted;
}

std::string headline(const Subject& subject) {
    const bool connect = subject.verb->verb == RowVerb::connect;
    const std::string& name = subject.name;
    if (subject.verb->result == Result::refused)
        return connect ? say("{} was not connected.", name) : say("{} was not disconnected.", name);
    const bool changed = subject.verb->result == Result::changed;
    if (isDone(subject) && changed)
        return connect ? say("Connected. Restart {} to use it.", name)
                       : say("Disconnected. Restart {} to finish.", name);
    if (isDone(subject))
        return connect ? say("{} is connected. Nothing needed changing.", name)
                       : say("{} is not connected. Nothing needed changing.", name);
    if (changed)
        return connect
                   ? say("Changed, but {} is not connected yet. What is left stands below.", name)
                   : say("Changed, but {} is not disconnected yet. What is left stands below.",
                         name);
    return connect
               ? say("Nothing was changed, but {} is not connected yet. What is left stands below.",
                     name)
               : say("Nothing was changed, but {} is not disconnected yet. What is left stands "
                     "below.",
                     name);
}

RowStrip verbStrip(const Subject& subject) {
    const VerbNote& verb = *subject.verb;
    RowStrip strip{.tone = isDone(subject) ? Tone::information : Tone::warning,
                   .headline = headline(subject)};
    if (verb.canBeUndone)
        strip.actions = {RowAction::undo};
    if (verb.result != Result::refused)
        return strip;
    strip.tone = Tone::refusal;
    strip.lines = numbered(verb.lines, verb.places);
    const bool hasPath = std::ranges::any_of(
        strip.lines, [](const ConnectableAppNote& line) { return !line.subject.empty(); });
    if (hasPath)
        strip.actions.push_back(RowAction::copyPath);
    strip.actions.push_back(RowAction::lookAgain);
    return strip;
}

} // namespace

std::vector<RowStrip> strips(const Subject& subject) {
    std::vector<RowStrip> list;
    if (subject.verb)
        list.push_back(verbStrip(subject));
    // The switch is off and can but connect; here it can be taken out too.
    if (subject.state == ConnectorState::drifted)
        list.push_back({.tone = Tone::warning,
                        .headline = say("{} is not as Wendlow left it.", subject.name),
                        .actions = {RowAction::connect, RowAction::disconnect}});
    return list;
}

std::vector<ConnectableAppNote> changes(const Subject& subject) {
    if (!subject.verb || subject.verb->result == Result::refused)
        return {};
    return numbered(subject.verb->lines, subject.verb->places);
}

std::string changesTitle(const Subject& subject) {
    if (changes(subject).empty())
        return {};
    return subject.verb->result == Result::changed ? say("What changed")
                                                   : say("What was looked at");
}

std::string spoken(const Subject& subject) {
    if (!subject.verb)
        return {};
    const RowStrip strip = verbStrip(subject);
    std::string words = strip.headline;
    for (const ConnectableAppNote& line : strip.lines) {
        words += " " + line.subject + ": " + line.text;
        if (!line.place.empty())
            words += ", " + line.place;
    }
    return words;
}

std::string label(RowAction action) {
    switch (action) {
    case RowAction::undo:
        return say("Undo");
    case RowAction::connect:
        return say("Connect again");
    case RowAction::disconnect:
        return say("Disconnect");
    case RowAction::copyPath:
        return say("Copy path");
    case RowAction::lookAgain:
        return say("Look again");
    }
    std::unreachable();
}

std::string hint(RowAction action, const std::string& name, const std::string& path) {
    return action == RowAction::copyPath ? path : name;
}

std::vector<ConnectableAppNote> numbered(const Observations& lines,
                                         const std::vector<std::string>& places) {
    std::vector<ConnectableAppNote> list;
    for (const Observation& line : lines) {
        const std::size_t at = list.size();
        list.push_back({.id = static_cast<int>(at),
                        .text = line.text,
                        .subject = line.subject,
                        .place = at < places.size() ? places[at] : std::string()});
    }
    return list;
}

} // namespace wendlow::RowStory
