#pragma once

#include "AllTimeBand.h"
#include "DashboardModel.h"
#include "DashboardWords.h"
#include "StatsBarList.h"
#include "StatsFigure.h"

#include <QVariantList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <array>
#include <memory>

namespace wendlow {

/// What the Stats window shows: the model of a day, in the words and shares of its cards. Lives as
/// long as the window. UI thread.
class StatsRoot final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the root and hands it to the window.")

    Q_PROPERTY(bool onToday READ isOnToday NOTIFY dayChanged)
    /// Above the first card: what day it is.
    Q_PROPERTY(QString eyebrow READ eyebrow NOTIFY dayChanged)
    Q_PROPERTY(bool loading READ isLoading NOTIFY loadingChanged)

    Q_PROPERTY(wendlow::StatsFigure* total READ total CONSTANT)
    /// Shares of a stacked bar, a list of maps: `share`, of the sum of all; `name`; `beside`, the
    /// rest of the legend; `spoken`, all of it with the exact time.
    Q_PROPERTY(QVariantList work READ work NOTIFY workChanged)
    Q_PROPERTY(QVariantList attention READ attention NOTIFY attentionChanged)
    Q_PROPERTY(wendlow::StatsFigure* streak READ streak CONSTANT)
    /// When it was; empty without one.
    Q_PROPERTY(QString streakTag READ streakTag NOTIFY streakChanged)

    Q_PROPERTY(wendlow::StatsBarList* apps READ apps CONSTANT)
    Q_PROPERTY(QString appsTitle READ appsTitle NOTIFY appsChanged)
    Q_PROPERTY(wendlow::StatsBarList* web READ web CONSTANT)
    Q_PROPERTY(QString webTitle READ webTitle NOTIFY webChanged)
    /// In place of what a card shows; empty: it shows that.
    Q_PROPERTY(QString appsWords READ appsWords NOTIFY appsChanged)
    Q_PROPERTY(QString webWords READ webWords NOTIFY webChanged)
    Q_PROPERTY(QString attentionWords READ attentionWords NOTIFY attentionChanged)

    /// Of all time: five of `StatsFigure`.
    Q_PROPERTY(QVariantList band READ band CONSTANT)

public:
    /// Rows of a card of bars.
    static constexpr std::size_t barCount = 5;

    explicit StatsRoot(std::shared_ptr<WendlowClient> client,
                       DashboardModel::Clock now = std::chrono::system_clock::now);

    /// The window shows it: the first time, the day is loaded.
    Q_INVOKABLE void appear();
    Q_INVOKABLE void refresh() { m_model.refresh(); }
    Q_INVOKABLE void goToPreviousDay() { m_model.goToPreviousDay(); }
    Q_INVOKABLE void goToNextDay() { m_model.goToNextDay(); }
    Q_INVOKABLE void goToToday() { m_model.goToToday(); }

    /// A person comes back to the window.
    void lookAgain() { m_model.lookAtClock(); }
    /// There is a daemon again: what it was not there to answer is asked once more.
    void daemonCame();
    /// Nothing is on its way.
    bool settled() const { return !m_model.isLoading(); }

    const DashboardModel& model() const { return m_model; }

    bool isOnToday() const { return m_model.isOnToday(); }
    QString eyebrow() const;
    bool isLoading() const { return m_model.isLoading(); }
    StatsFigure* total() { return &m_total; }
    QVariantList work() const;
    QVariantList attention() const;
    StatsFigure* streak() { return &m_streak; }
    QString streakTag() const;
    StatsBarList* apps() { return &m_apps; }
    QString appsTitle() const;
    QString appsWords() const;
    StatsBarList* web() { return &m_web; }
    QString webTitle() const;
    QString webWords() const;
    QString attentionWords() const;
    QVariantList band();

Q_SIGNALS:
    void dayChanged();
    void loadingChanged();
    void workChanged();
    void appsChanged();
    void webChanged();
    void attentionChanged();
    void streakChanged();
    /// A person who does not see the window is to hear this.
    void said(const QString& words);

private:
    QString wordsOf(const Dashboard::DayCardFace& face) const;
    void showToday();
    void showWeb();
    void showStreak();
    void showBand();
    void tellLoading();

    DashboardModel m_model;
    bool m_appeared = false;
    StatsFigure m_total{QString()};
    StatsFigure m_streak;
    StatsBarList m_apps{nullptr};
    StatsBarList m_web{nullptr};
    std::array<std::unique_ptr<StatsFigure>, AllTimeBand::size> m_band;
};

} // namespace wendlow
