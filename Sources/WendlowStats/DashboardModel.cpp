#include "DashboardModel.h"

#include "DashboardReports.h"
#include "DateWords.h"

#include <QLocale>
#include <QPointer>

#include <array>
#include <utility>

namespace wendlow {

namespace {

namespace Answer = AnswerCase;

/// What `make` makes of an answer of the case that is due, and nothing of any other.
template<class Case, class Make>
auto madeOf(const GatewayResponse& response, const Make& make)
    -> std::optional<decltype(make(std::declval<const Case&>()))> {
    const auto* const answer = std::get_if<Case>(&response);
    if (answer == nullptr)
        return std::nullopt;
    return make(*answer);
}

} // namespace

/// What is asked, and what becomes of the answer.
struct DashboardModel::Question {
    std::optional<GatewayRequest> (*ask)(const DashboardModel& model, const Load& load);
    void (*take)(DashboardModel& model, const GatewayResponse& response);

    /// In the order in which they are asked.
    static const std::array<Question, 8>& all();
};

const std::array<DashboardModel::Question, 8>& DashboardModel::Question::all() {
    using Model = DashboardModel;
    using Request = std::optional<GatewayRequest>;
    using Response = const GatewayResponse&;
    static const std::array<Question, 8> questions{{
        {[](const Model&, const Load& load) -> Request {
             return ReadRequest(ReadCase::DayPresence{.day = dayString(load.day).toStdString()});
         },
         [](Model& model, Response response) {
             model.m_today = madeOf<Answer::Presence>(
                 response, [](const auto& answer) { return Dashboard::todayOf(answer._0); });
             Q_EMIT model.todayChanged();
         }},
        {[](const Model& model, const Load&) -> Request {
             constexpr int weekAgo = 6;
             return ReadRequest(ReadCase::SpanHours{.from = model.dayString(weekAgo).toStdString(),
                                                    .to = model.dayString(0).toStdString()});
         },
         [](Model& model, Response response) {
             model.m_week = madeOf<Answer::SpanHours>(
                 response, [](const auto& answer) { return Dashboard::weekOf(answer._0); });
             Q_EMIT model.weekChanged();
         }},
        {[](const Model&, const Load& load) -> Request {
             return ReadRequest(ReadCase::AllTime{.force = load.force == Force::yes});
         },
         [](Model& model, Response response) {
             model.m_allTime =
                 madeOf<Answer::AllTime>(response, [](const auto& answer) { return answer._0; });
             Q_EMIT model.allTimeChanged();
         }},
        {[](const Model&, const Load& load) -> Request {
             return ReadRequest(ReadCase::DayStretches{.day = dayString(load.day).toStdString()});
         },
         [](Model& model, Response response) {
             model.m_focus = madeOf<Answer::Stretches>(
                 response, [](const auto& answer) { return Dashboard::focusOf(answer._0); });
             Q_EMIT model.focusChanged();
         }},
        {[](const Model&, const Load& load) -> Request {
             return ReadRequest(ReadCase::DayTopSessions{.day = dayString(load.day).toStdString()});
         },
         [](Model& model, Response response) {
             model.m_sessions = madeOf<Answer::TopSessions>(response, [](const auto& answer) {
                                    return Dashboard::sessionsOf(answer._0);
                                }).value_or(std::vector<Dashboard::Session>());
             Q_EMIT model.sessionsChanged();
         }},
        {[](const Model&, const Load& load) -> Request {
             return ReadRequest(ReadCase::DayAttention{.day = dayString(load.day).toStdString()});
         },
         [](Model& model, Response response) {
             model.m_attention = madeOf<Answer::Attention>(
                 response, [](const auto& answer) { return Dashboard::attentionOf(answer._0); });
             Q_EMIT model.attentionChanged();
         }},
        {[](const Model&, const Load& load) -> Request {
             return ReadRequest(ReadCase::DayWeb{.day = dayString(load.day).toStdString()});
         },
         [](Model& model, Response response) {
             model.m_web = madeOf<Answer::Web>(
                 response, [](const auto& answer) { return Dashboard::webOf(answer._0); });
             Q_EMIT model.webChanged();
         }},
        {[](const Model& model, const Load&) { return model.iconRequest(); },
         [](Model& model, Response response) {
             const auto* const icons = std::get_if<Answer::Icons>(&response);
             if (icons == nullptr || !model.m_web)
                 return;
             Dashboard::addIcons(*model.m_web, icons->_0);
             Q_EMIT model.webChanged();
         }},
    }};
    return questions;
}

DashboardModel::DashboardModel(std::shared_ptr<WendlowClient> client, Clock now)
    : m_client(std::move(client)), m_now(std::move(now)), m_selectedDay(today()),
      m_knownToday(m_selectedDay) {}

QDate DashboardModel::today() const {
    return DateWords::local(m_now()).date();
}

QString DashboardModel::dayString(const QDate& day) {
    return QLocale::c().toString(day, QStringLiteral("yyyy-MM-dd"));
}

QString DashboardModel::dayString(int daysAgo) const {
    return dayString(today().addDays(-daysAgo));
}

void DashboardModel::load(Force force) {
    const Load load{.number = ++m_load, .day = m_selectedDay, .force = force};
    if (!std::exchange(m_loading, true))
        Q_EMIT loadingChanged();
    // Runs on by itself, and ends by itself where this goes or a newer load comes.
    [[maybe_unused]] const auto task = run(load);
}

QCoro::Task<> DashboardModel::run(Load load) {
    const QPointer<DashboardModel> self(this);
    // It has to outlive its calls.
    const std::shared_ptr<WendlowClient> client = m_client;
    for (const Question& question : Question::all()) {
        std::optional<GatewayRequest> request = question.ask(*this, load);
        if (!request)
            continue;
        const GatewayResponse response = co_await client->send(*std::move(request));
        if (!self || load.number != m_load)
            co_return;
        question.take(*this, response);
        // Whoever was told may have begun another load.
        if (!self || load.number != m_load)
            co_return;
    }
    m_loading = false;
    Q_EMIT loadingChanged();
}

std::optional<GatewayRequest> DashboardModel::iconRequest() const {
    std::vector<std::string> hosts =
        m_web ? Dashboard::iconHosts(*m_web) : std::vector<std::string>();
    if (hosts.empty())
        return std::nullopt;
    return ReadRequest(ReadCase::Favicons{.hosts = std::move(hosts)});
}

bool DashboardModel::isFilled() const {
    return m_today && m_allTime && m_focus && m_attention && m_web;
}

void DashboardModel::clearPage() {
    m_today.reset();
    m_week.reset();
    m_allTime.reset();
    m_focus.reset();
    m_attention.reset();
    m_web.reset();
    m_sessions.clear();
    for (const auto told : {&DashboardModel::todayChanged, &DashboardModel::weekChanged,
                            &DashboardModel::allTimeChanged, &DashboardModel::focusChanged,
                            &DashboardModel::attentionChanged, &DashboardModel::webChanged,
                            &DashboardModel::sessionsChanged})
        Q_EMIT(this->*told)();
}

void DashboardModel::refresh() {
    clearPage();
    load(Force::yes);
}

void DashboardModel::select(const QDate& day) {
    clearPage();
    m_selectedDay = day;
    m_knownToday = today();
    Q_EMIT dayChanged();
    load(Force::no);
}

void DashboardModel::goToPreviousDay() {
    select(m_selectedDay.addDays(-1));
}

void DashboardModel::goToNextDay() {
    // Where the clock was set back, the day may even lie ahead.
    if (m_selectedDay < today())
        select(m_selectedDay.addDays(1));
}

void DashboardModel::goToToday() {
    select(today());
}

void DashboardModel::lookAtClock() {
    if (std::exchange(m_knownToday, today()) != m_knownToday)
        Q_EMIT dayChanged();
}

} // namespace wendlow

#include "moc_DashboardModel.cpp"
