#include "PosedDays.h"

#include "DashboardModel.h"

#include <QBuffer>
#include <QDateTime>
#include <QImage>

#include <limits>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

using namespace Qt::StringLiterals;

namespace wendlow {

namespace {

constexpr std::int64_t minute = 60;
constexpr std::int64_t hour = 3600;

struct Named {
    std::string name;
    std::int64_t seconds = 0;
};

/// All that is told of a day.
struct PosedDay {
    std::int64_t attended = 0;
    std::int64_t unattended = 0;
    std::vector<Named> apps;
    std::int64_t browser = 0;
    std::vector<Named> sites;
    AttentionReport attention = {};
    std::optional<DayStretchReport::FocusRun> streak = std::nullopt;
};

QDate dayOf(int daysAgo) {
    return QDate(2026, 11, 20).addDays(-daysAgo);
}

double timeOn(const QDate& day, int clock) {
    return static_cast<double>(QDateTime(day, QTime(clock, 0)).toSecsSinceEpoch());
}

PosedDay today() {
    return {.attended = 5 * hour + 24 * minute,
            .unattended = 2 * hour + 28 * minute,
            .apps = {{"Code", 128 * minute},
                     {"Terminal", 95 * minute},
                     {"Writer", 55 * minute},
                     {"Mail", 32 * minute},
                     {"Calendar", 12 * minute},
                     {"Preview", 9 * minute}},
            .browser = 125 * minute,
            .sites = {{"docs.example.org", 48 * minute},
                      {"wiki.example.net", 29 * minute},
                      {"maps.example.org", 18 * minute},
                      {"news.example.com", 12 * minute},
                      {"films.example.com", 12}},
            .attention = {.day = {},
                          .aiSeconds = 161 * minute,
                          .humansSeconds = 72 * minute,
                          .scrollingSeconds = 16 * minute,
                          .scrollingGlances = 9},
            .streak = DayStretchReport::FocusRun{
                .start = timeOn(dayOf(0), 9), .seconds = 107 * minute, .apps = {}}};
}

PosedDay anotherDay() {
    return {.attended = 6 * hour + 2 * minute,
            .unattended = 3 * hour + 4 * minute,
            .apps = {{"Code", 182 * minute},
                     {"Writer", 91 * minute},
                     {"Terminal", 76 * minute},
                     {"Conference Calls", 45 * minute},
                     {"Mail", 22 * minute},
                     {"Preview", 8 * minute}},
            .browser = 122 * minute,
            .sites = {{"docs.example.org", 64 * minute},
                      {"forum.example.net", 32 * minute},
                      {"wiki.example.net", 19 * minute},
                      {"library.example.edu", 10 * minute},
                      {"news.example.com", 3 * minute}},
            .attention = {.day = {},
                          .aiSeconds = 198 * minute,
                          .humansSeconds = 126 * minute,
                          .scrollingSeconds = 5 * minute,
                          .scrollingGlances = 4},
            .streak = DayStretchReport::FocusRun{.start = timeOn(dayOf(PosedDays::fullDaysAgo), 12),
                                                 .seconds = 140 * minute,
                                                 .apps = {}}};
}

PosedDay oddDay() {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    std::string endless;
    while (endless.size() < 5000)
        endless += "An application of very many words ";
    return {.attended = most,
            .unattended = 1,
            .apps = {{"🧭", most},
                     {endless, most / 2},
                     {"two\nlines and more", most / 4},
                     {"Nothing At All", 0},
                     {"Google Chrome", -7200}},
            .browser = most,
            .sites = {{"www.with-an-icon.example.org", most},
                      {"no-picture.example.org", hour},
                      {"example", minute},
                      {"", 1},
                      {"xn--bcher-kva.example", 0}},
            .attention = {.day = {},
                          .aiSeconds = 1,
                          .humansSeconds = most,
                          .scrollingSeconds = 1,
                          .scrollingGlances = most},
            .streak = DayStretchReport::FocusRun{.start = 1e300, .seconds = most, .apps = {}}};
}

PosedDay dayOf(const std::string& day) {
    const auto is = [&](int daysAgo) {
        return DashboardModel::dayString(dayOf(daysAgo)).toStdString() == day;
    };
    if (is(0))
        return today();
    if (is(PosedDays::fullDaysAgo))
        return anotherDay();
    if (is(PosedDays::oddDaysAgo))
        return oddDay();
    return {};
}

DayPresence presenceOf(const PosedDay& day) {
    DayPresence presence{.day = {}, .apps = {}};
    for (const auto& [name, seconds] : day.apps)
        presence.apps.push_back({.app = name, .active = seconds, .intervals = {}});
    if (!presence.apps.empty()) {
        presence.apps.front().attended = day.attended;
        presence.apps.front().unattended = day.unattended;
    }
    return presence;
}

WireData drawnIcon() {
    constexpr int side = 32;
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(QColor(u"#6A4C93"_s));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return {bytes.toStdString()};
}

/// What is asked of days is answered, and nothing else.
struct Answers {
    GatewayResponse operator()(const ReadCase::DayPresence& asked) const {
        return AnswerCase::Presence{presenceOf(dayOf(asked.day))};
    }
    GatewayResponse operator()(const ReadCase::AllTime& /*asked*/) const {
        return AnswerCase::AllTime{{.meetings = 143,
                                    .days = 86,
                                    .storageBytes = 4'509'715'661,
                                    .cpuMs = 14,
                                    .cpuWallMs = 1000}};
    }
    GatewayResponse operator()(const ReadCase::DayStretches& asked) const {
        DayStretchReport report{.day = asked.day, .focus = {}};
        if (auto streak = dayOf(asked.day).streak)
            report.focus.push_back(*std::move(streak));
        return AnswerCase::Stretches{std::move(report)};
    }
    GatewayResponse operator()(const ReadCase::DayAttention& asked) const {
        return AnswerCase::Attention{dayOf(asked.day).attention};
    }
    GatewayResponse operator()(const ReadCase::DayWeb& asked) const {
        const PosedDay day = dayOf(asked.day);
        WebReport report{.day = asked.day, .browserSeconds = day.browser, .sites = {}};
        for (const auto& [name, seconds] : day.sites)
            report.sites.push_back({name, seconds});
        return AnswerCase::Web{std::move(report)};
    }
    GatewayResponse operator()(const ReadCase::Favicons& /*asked*/) const {
        return AnswerCase::Icons{{{"www.with-an-icon.example.org", drawnIcon()},
                                  {"no-picture.example.org", {"<!doctype html>"}}}};
    }
    template<class Case> GatewayResponse operator()(const Case& /*asked*/) const {
        return AnswerCase::Unimplemented{std::string(Case::verb)};
    }
};

} // namespace

std::chrono::system_clock::time_point PosedDays::now() {
    constexpr int evening = 18;
    return std::chrono::system_clock::time_point(
        std::chrono::seconds(static_cast<std::int64_t>(timeOn(dayOf(0), evening))));
}

QCoro::Task<GatewayResponse> PosedDays::handle(GatewayRequest request) {
    const auto* const read = std::get_if<GatewayCase::Read>(&request);
    if (read == nullptr)
        co_return AnswerCase::Unimplemented{std::string(request.verb())};
    co_return std::visit(Answers{}, static_cast<const ReadRequest::variant&>(read->_0));
}

} // namespace wendlow
