#include "StatsRoot.h"

#include "AllTimeBand.h"
#include "Say.h"
#include "SiteIcon.h"

#include <QLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace wendlow {

namespace {

using Dashboard::DayCardFace;
using Dashboard::Figure;

Figure time(std::int64_t seconds) {
    return {.kind = Figure::Kind::time, .amount = seconds};
}

/// One share of a stacked bar with its legend.
struct Share {
    QString name;
    QString beside;
    std::int64_t seconds = 0;
};

QVariantList shareList(const std::vector<Share>& shares) {
    double all = 0;
    for (const Share& share : shares)
        all += static_cast<double>(std::max<std::int64_t>(share.seconds, 0));
    QVariantList list;
    for (const auto& [name, beside, seconds] : shares) {
        const double part = static_cast<double>(std::max<std::int64_t>(seconds, 0));
        list.append(QVariantMap{{u"share"_s, all > 0 ? part / all : 0},
                                {u"name"_s, name},
                                {u"beside"_s, beside},
                                {u"spoken"_s, name + u", "_s + Dashboard::exactTime(seconds)}});
    }
    return list;
}

Share attentionShare(const Dashboard::Attention& attention, Dashboard::Attention::Bucket bucket) {
    using Bucket = Dashboard::Attention::Bucket;
    const std::int64_t seconds = attention.seconds(bucket);
    const QString spent = Dashboard::dashTime(seconds);
    switch (bucket) {
    case Bucket::humans:
        return {say("Talking with Humans"), spent, seconds};
    case Bucket::ai:
        return {say("Talking with AI"), spent, seconds};
    case Bucket::scrolling:
        break;
    }
    const std::int64_t glances = attention.scrollingGlances;
    return {say("Doom Scrolling"),
            say.plural(glances, "{} glances", "{} glances", glances) + u" · "_s + spent, seconds};
}

} // namespace

StatsRoot::StatsRoot(std::shared_ptr<WendlowClient> client, DashboardModel::Clock now)
    : m_model(std::move(client), std::move(now)),
      m_streak(say("today's longest uninterrupted streak")) {
    const auto stats = AllTimeBand::stats(std::nullopt);
    std::ranges::transform(stats, m_band.begin(), [](const AllTimeBand::Stat& stat) {
        return std::make_unique<StatsFigure>(stat.label);
    });
    connect(&m_model, &DashboardModel::dayChanged, this, &StatsRoot::dayChanged);
    connect(&m_model, &DashboardModel::loadingChanged, this, &StatsRoot::tellLoading);
    connect(&m_model, &DashboardModel::todayChanged, this, &StatsRoot::showToday);
    connect(&m_model, &DashboardModel::webChanged, this, &StatsRoot::showWeb);
    connect(&m_model, &DashboardModel::focusChanged, this, &StatsRoot::showStreak);
    connect(&m_model, &DashboardModel::attentionChanged, this, &StatsRoot::attentionChanged);
    connect(&m_model, &DashboardModel::allTimeChanged, this, &StatsRoot::showBand);
}

void StatsRoot::appear() {
    if (!std::exchange(m_appeared, true))
        m_model.load(DashboardModel::Force::no);
}

void StatsRoot::daemonCame() {
    if (m_appeared && !m_model.isFilled())
        m_model.load(DashboardModel::Force::no);
}

QString StatsRoot::eyebrow() const {
    if (isOnToday())
        return say("YOUR WORKING DAY");
    return QLocale::c().toString(m_model.selectedDay(), say("dddd MMMM d yyyy")).toUpper();
}

void StatsRoot::tellLoading() {
    Q_EMIT loadingChanged();
    // What a card says while its answer is missing depends on whether it is still to come.
    Q_EMIT appsChanged();
    Q_EMIT webChanged();
    if (isLoading())
        return;
    const QString day = isOnToday()
                            ? say("Today")
                            : QLocale::c().toString(m_model.selectedDay(), say("dddd MMMM d yyyy"));
    Q_EMIT said(day + u", "_s + (m_total.isKnown() ? m_total.words() : say("not known yet")));
}

QString StatsRoot::wordsOf(const DayCardFace& face) const {
    if (face.kind == DayCardFace::Kind::loading)
        return isLoading() ? say("reading…") : say("not known yet");
    return face.words;
}

void StatsRoot::showToday() {
    const auto& today = m_model.todayRecord();
    std::vector<StatsBar> bars;
    if (Dashboard::appsFace(today).kind == DayCardFace::Kind::loaded) {
        const auto listed = Dashboard::listedApps(*today);
        auto made = Dashboard::appBars(listed, barCount);
        for (std::size_t at = 0; at < made.size(); ++at)
            bars.push_back({.id = listed[at].name, .bar = std::move(made[at]), .picture = {}});
    }
    m_apps.show(std::move(bars));
    m_total.show(today ? std::optional(time(Dashboard::sum(today->attended, today->unattended)))
                       : std::nullopt);
    Q_EMIT appsChanged();
    Q_EMIT workChanged();
}

void StatsRoot::showWeb() {
    const auto& web = m_model.todayWeb();
    std::vector<StatsBar> bars;
    if (Dashboard::webFace(web).kind == DayCardFace::Kind::loaded) {
        auto made = Dashboard::webBars(web->sites, barCount);
        for (std::size_t at = 0; at < made.size(); ++at) {
            const Dashboard::WebSite& site = web->sites[at];
            bars.push_back({.id = site.domain,
                            .bar = std::move(made[at]),
                            .picture = site.favicon ? SiteIcon::picture(*site.favicon) : QImage()});
        }
    }
    m_web.show(std::move(bars));
    Q_EMIT webChanged();
}

void StatsRoot::showStreak() {
    const auto& focus = m_model.todayFocus();
    const bool any = focus && !focus->empty();
    m_streak.show(any ? std::optional(time(focus->front().seconds)) : std::nullopt);
    Q_EMIT streakChanged();
}

QString StatsRoot::streakTag() const {
    const auto& focus = m_model.todayFocus();
    return focus && !focus->empty() ? Dashboard::dayPartOf(focus->front().startedAt) : QString();
}

void StatsRoot::showBand() {
    const auto stats = AllTimeBand::stats(m_model.allTime());
    for (std::size_t at = 0; at < stats.size(); ++at)
        m_band[at]->show(stats[at].value);
}

QVariantList StatsRoot::work() const {
    const auto& today = m_model.todayRecord();
    const auto share = [&](const QString& name, std::int64_t seconds) {
        return Share{name, today ? u"· "_s + Dashboard::dashTime(seconds) : QString(), seconds};
    };
    return shareList({share(say("You Work"), today ? today->attended : 0),
                      share(say("Your AI Unattended"), today ? today->unattended : 0)});
}

QVariantList StatsRoot::attention() const {
    const auto& attention = m_model.todayAttention();
    if (Dashboard::attentionFace(attention).kind != DayCardFace::Kind::loaded)
        return {};
    std::vector<Share> shares;
    for (const auto bucket : attention->ranked())
        shares.push_back(attentionShare(*attention, bucket));
    return shareList(shares);
}

QString StatsRoot::appsTitle() const {
    return Dashboard::appsTitle(m_model.todayRecord());
}

QString StatsRoot::appsWords() const {
    return wordsOf(Dashboard::appsFace(m_model.todayRecord()));
}

QString StatsRoot::webTitle() const {
    return Dashboard::webTitle(m_model.todayWeb());
}

QString StatsRoot::webWords() const {
    return wordsOf(Dashboard::webFace(m_model.todayWeb()));
}

QString StatsRoot::attentionWords() const {
    return wordsOf(Dashboard::attentionFace(m_model.todayAttention()));
}

QVariantList StatsRoot::band() {
    QVariantList all;
    for (const auto& figure : m_band)
        all.append(QVariant::fromValue(figure.get()));
    return all;
}

} // namespace wendlow

#include "moc_StatsRoot.cpp"
