#pragma once

#include "Client.h"
#include "DashboardRecords.h"
#include "Records/HoursReports.h"

#include <QDate>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace wendlow {

/// One day as the daemon measured it, and the figures of all time. Eight questions are asked, one
/// after the other, and each answer is published as it comes; one that failed, or is none to its
/// question, leaves its record empty and stops nothing. A load that a newer one has overtaken asks
/// no further, and what it had asked is dropped: the records are always of one day. UI thread; may
/// go while answers are under way.
class DashboardModel final : public QObject {
    Q_OBJECT

public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;
    /// Whether the daemon is to count the totals anew.
    enum class Force { no, yes };

    explicit DashboardModel(std::shared_ptr<WendlowClient> client,
                            Clock now = std::chrono::system_clock::now);

    void load(Force force);
    /// Everything from an empty page, counted anew.
    void refresh();
    /// By days of the calendar, however long they are.
    void goToPreviousDay();
    /// Does nothing on today.
    void goToNextDay();
    void goToToday();
    /// To be called when a person comes back: midnight may have passed.
    void lookAtClock();

    const QDate& selectedDay() const { return m_selectedDay; }
    /// By the clock, whenever it is asked.
    bool isOnToday() const { return m_selectedDay == today(); }
    bool isLoading() const { return m_loading; }
    /// Every question of a card has been answered.
    bool isFilled() const;

    const std::optional<Dashboard::Today>& todayRecord() const { return m_today; }
    const std::optional<Dashboard::Week>& week() const { return m_week; }
    const std::optional<AllTimeTotals>& allTime() const { return m_allTime; }
    const std::optional<std::vector<Dashboard::FocusRun>>& todayFocus() const { return m_focus; }
    const std::vector<Dashboard::Session>& todaySessions() const { return m_sessions; }
    const std::optional<Dashboard::Attention>& todayAttention() const { return m_attention; }
    const std::optional<Dashboard::Web>& todayWeb() const { return m_web; }

    /// "2026-11-21", as the daemon takes a day.
    static QString dayString(const QDate& day);
    /// The same for so many days before today.
    QString dayString(int daysAgo) const;

Q_SIGNALS:
    /// Another day, or no longer today.
    void dayChanged();
    void loadingChanged();
    void todayChanged();
    void weekChanged();
    void allTimeChanged();
    void focusChanged();
    void sessionsChanged();
    void attentionChanged();
    void webChanged();

private:
    struct Load {
        std::uint64_t number = 0;
        QDate day;
        Force force = Force::no;
    };
    struct Question;

    QDate today() const;
    void clearPage();
    void select(const QDate& day);
    QCoro::Task<> run(Load load);
    std::optional<GatewayRequest> iconRequest() const;

    const std::shared_ptr<WendlowClient> m_client;
    const Clock m_now;
    QDate m_selectedDay;
    QDate m_knownToday; ///< the last time anybody was told
    std::uint64_t m_load = 0;
    bool m_loading = false;
    std::optional<Dashboard::Today> m_today;
    std::optional<Dashboard::Week> m_week;
    std::optional<AllTimeTotals> m_allTime;
    std::optional<std::vector<Dashboard::FocusRun>> m_focus;
    std::vector<Dashboard::Session> m_sessions;
    std::optional<Dashboard::Attention> m_attention;
    std::optional<Dashboard::Web> m_web;
};

} // namespace wendlow
