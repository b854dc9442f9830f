#include "Moments/MomentTextCard.h"

#include "DateWords.h"
#include "Floor/EditorTranscriptTool.h"
#include "Floor/RowText.h"
#include "Say.h"

#include <QLocale>
#include <QTime>

#include <algorithm>
#include <array>
#include <cstdint>

namespace wendlow {

namespace {

bool isHex(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) {
        return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'f') ||
               (byte >= 'A' && byte <= 'F');
    });
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find(separator, from), text.size());
        pieces.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return pieces;
}

/// Without the slashes at its end.
std::string_view bare(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    return path;
}

/// A bare path's last `count` parts, and all of it where it has no more.
std::string_view ending(std::string_view path, std::size_t count) {
    std::size_t from = path.size();
    for (; count > 0 && from != std::string_view::npos && from > 0; --count)
        from = path.rfind('/', from - 1);
    if (from == std::string_view::npos || from == 0)
        return count > 0 || from == std::string_view::npos ? path : path.substr(1);
    return path.substr(from + 1);
}

std::int64_t rest(const EditorMoment& moment) {
    return std::max<std::int64_t>(0, moment.fileCount - std::ssize(moment.files));
}

QString told(const QTime& time) {
    return QLocale().toString(time, say("h:mm AP"));
}

QStringList names(const EditorMoment& moment) {
    QStringList names;
    for (const std::string& name : MomentTextCard::displayNames(moment.files))
        names.append(RowText::line(name));
    return names;
}

} // namespace

QString MomentTextCard::time(EditorDate at) {
    return told(DateWords::local(at).time());
}

QStringList MomentTextCard::wideTimes() {
    QStringList times;
    for (const int hour : {0, 10, 12, 22})
        for (const int minute : {0, 4, 8, 20, 26, 28, 40, 44, 46, 48, 56, 58})
            times.append(told(QTime(hour, minute)));
    return times;
}

bool MomentTextCard::isSessionID(std::string_view text) {
    constexpr std::string_view agent = "agent-";
    constexpr std::size_t shortest = 16;
    if (text.starts_with(agent) && text.size() >= agent.size() + shortest &&
        isHex(text.substr(agent.size())))
        return true;
    constexpr std::array<std::size_t, 5> lengths{8, 4, 4, 4, 12};
    const auto pieces = split(text, '-');
    return std::ranges::equal(pieces, lengths, {}, &std::string_view::size) &&
           std::ranges::all_of(pieces, isHex);
}

QString MomentTextCard::title(const EditorMoment& moment) {
    QString own = RowText::plain(moment.title).trimmed();
    if (!own.isEmpty() && !isSessionID(own.toStdString()))
        return own;
    return say("Session at {}", time(moment.at));
}

QString MomentTextCard::abstract(const EditorMoment& moment) {
    return RowText::plain(moment.abstract.value_or("")).simplified();
}

QString MomentTextCard::badge(const EditorMoment& moment) {
    return RowText::line(EditorTranscriptTool::name(moment.agentTool().value_or("")));
}

std::vector<std::string> MomentTextCard::displayNames(const std::vector<std::string>& files) {
    std::vector<std::string> names;
    for (const std::string& file : files) {
        const std::string_view path = bare(file);
        std::size_t parts = 1;
        const auto isTaken = [&](const std::string& other) {
            return bare(other) != path && ending(bare(other), parts) == ending(path, parts);
        };
        while (ending(path, parts) != path && std::ranges::any_of(files, isTaken))
            ++parts;
        names.emplace_back(ending(path, parts));
    }
    return names;
}

QString MomentTextCard::filesLine(const EditorMoment& moment) {
    QString line = names(moment).join(QStringLiteral(" · "));
    if (!line.isEmpty() && rest(moment) > 0)
        line += QStringLiteral(" · +%1").arg(rest(moment));
    return line;
}

QString MomentTextCard::filesTooltip(const EditorMoment& moment) {
    QStringList lines = names(moment);
    if (lines.isEmpty())
        return {};
    lines.prepend(say("Files seen ({})", moment.fileCount));
    if (rest(moment) > 0)
        lines.append(say.plural(rest(moment), "{} more", "{} more", rest(moment)));
    return lines.join(u'\n');
}

} // namespace wendlow
