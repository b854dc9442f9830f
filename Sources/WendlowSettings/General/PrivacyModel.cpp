#include "General/PrivacyModel.h"

#include "General/PrivacyWords.h"
#include "PaneQuestion.h"
#include "Say.h"
#include "SelfNames.h"

#include <QPointer>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <array>
#include <utility>
#include <vector>

namespace wendlow {

namespace {

/// After so many polls that came to nothing in a row, the daemon is asked less often.
constexpr int patientPolls = 3;
constexpr std::chrono::milliseconds slowPoll = std::chrono::seconds(10);

constexpr const char* takesNoNames =
    sayLater("This Mac is still running an older Wendlow daemon, which cannot save your names yet. "
             "Quitting and reopening Wendlow picks up the new one.");

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string joined(const std::vector<std::string>& names) {
    return fmt::format("{}", fmt::join(names, SelfNames::separator));
}

/// The names that the daemon holds; nothing for an answer that tells none.
std::optional<std::string> namesIn(const GatewayResponse& answer) {
    const auto* const note = std::get_if<AnswerCase::NoteID>(&answer);
    if (note == nullptr)
        return std::nullopt;
    return joined(note->echo.value_or(std::vector<std::string>()));
}

} // namespace

PrivacyModel::PrivacyModel(std::shared_ptr<WendlowClient> client, Surroundings surroundings)
    : m_client(std::move(client)), m_around([this, &surroundings] {
          if (!surroundings.sleep)
              surroundings.sleep = [this](std::chrono::milliseconds time) -> QCoro::Task<> {
                  co_await m_pause.lasting(time);
              };
          return std::move(surroundings);
      }()) {
    for (const DaemonSwitch* const toggle : {&m_frameKeep, &m_reelKeep, &m_diagnosticLogging})
        connect(toggle, &DaemonSwitch::changed, this, &PrivacyModel::changed);
}

PrivacyModel::~PrivacyModel() {
    stopPolling();
}

void PrivacyModel::refresh() {
    m_seen = true;
    if (!m_loading || m_loadingFor.hasExpired(m_around.patience.count()))
        load(); // shows by itself what it finds
}

void PrivacyModel::left() {
    m_seen = false;
    stopPolling();
}

QCoro::Task<> PrivacyModel::load() {
    const QPointer<PrivacyModel> self(this);
    const Load mine = ++m_loads;
    ++m_asking;
    m_seen = true;
    m_loading = true;
    m_loadingFor.start();
    m_failure.clear();
    Q_EMIT changed();
    for (const Subject subject :
         {Subject::diagnosticLogging, Subject::selfNames, Subject::frameKeep, Subject::reelKeep,
          Subject::frameStats, Subject::reelStats, Subject::diskUsed}) {
        const Outcome outcome = co_await read(subject, mine);
        if (outcome == Outcome::gone)
            co_return;
        if (outcome == Outcome::overtaken)
            break;
    }
    --m_asking;
    if (mine != m_loads)
        co_return;
    m_loading = false;
    if (!m_failure.empty())
        PaneStates::fail(m_state, std::exchange(m_failure, {}));
    Q_EMIT changed();
    startPollingIfNeeded();
}

DaemonSwitch* PrivacyModel::switchOf(Subject subject) {
    switch (subject) {
    case Subject::diagnosticLogging:
        return &m_diagnosticLogging;
    case Subject::frameKeep:
        return &m_frameKeep;
    case Subject::reelKeep:
        return &m_reelKeep;
    case Subject::selfNames:
    case Subject::frameStats:
    case Subject::reelStats:
    case Subject::diskUsed:
        return nullptr;
    }
    std::unreachable();
}

int PrivacyModel::ageOf(Subject subject) {
    const DaemonSwitch* const toggle = switchOf(subject);
    return toggle == nullptr ? m_namesAge : toggle->age();
}

QCoro::Task<PrivacyModel::Outcome> PrivacyModel::read(Subject subject, std::optional<Load> load) {
    const QPointer<PrivacyModel> self(this);
    const auto question = [subject]() -> GatewayRequest {
        switch (subject) {
        case Subject::diagnosticLogging:
            return ReadRequest(ReadCase::DiagnosticLoggingState{});
        case Subject::selfNames:
            return NotesRequest(NotesCase::SelfNames{});
        case Subject::frameKeep:
            return ReadRequest(ReadCase::FrameKeepState{});
        case Subject::reelKeep:
            return ReadRequest(ReadCase::ReelKeepState{});
        case Subject::frameStats:
            return ReadRequest(ReadCase::FrameStats{});
        case Subject::reelStats:
            return ReadRequest(ReadCase::ReelStats{});
        case Subject::diskUsed:
            return ReadRequest(ReadCase::DiskUsed{});
        }
        std::unreachable();
    };
    const int asked = ageOf(subject);
    GatewayRequest request = question();
    const GatewayResponse answer = co_await PaneQuestion::ask(m_client, std::move(request));
    if (!self)
        co_return Outcome::gone;
    if (load && *load != m_loads)
        co_return Outcome::overtaken;
    if (!keep(subject, answer, asked)) {
        m_failure = PaneQuestion::refusal(answer);
        co_return Outcome::refused;
    }
    m_state = PaneCase::Populated<std::monostate>{};
    Q_EMIT changed();
    co_return Outcome::kept;
}

bool PrivacyModel::keep(Subject subject, const GatewayResponse& answer, int asked) {
    const auto into = [&answer]<class Record>(std::optional<Record>& figure, auto* which) {
        using Case = std::remove_pointer_t<decltype(which)>;
        const auto* const found = std::get_if<Case>(&answer);
        if (found != nullptr)
            figure = found->_0;
        return found != nullptr;
    };
    switch (subject) {
    case Subject::frameStats:
        return into(m_frameStats, static_cast<AnswerCase::FrameStats*>(nullptr));
    case Subject::reelStats:
        return into(m_reelStats, static_cast<AnswerCase::ReelStats*>(nullptr));
    case Subject::diskUsed:
        return into(m_diskUsed, static_cast<AnswerCase::DiskUsed*>(nullptr));
    case Subject::selfNames: {
        const auto names = namesIn(answer);
        if (names && asked == m_namesAge) {
            m_selfNames = *names;
            Q_EMIT namesChanged();
        }
        return names.has_value();
    }
    case Subject::diagnosticLogging:
    case Subject::frameKeep:
    case Subject::reelKeep:
        break;
    }
    const auto* const flag = std::get_if<AnswerCase::Flag>(&answer);
    if (flag != nullptr)
        switchOf(subject)->take(flag->_0, asked);
    return flag != nullptr;
}

void PrivacyModel::note(std::string_view verb, const std::string& reason) {
    if (!m_relay)
        m_relay.emplace(DiagnosticSource::settings, m_client);
    m_relay->note(fmt::format("{} refused — {}", verb, reason));
}

QCoro::Task<PrivacyModel::Outcome> PrivacyModel::write(DaemonSwitch& toggle,
                                                       ControlRequest control) {
    const QPointer<PrivacyModel> self(this);
    toggle.beginWrite();
    GatewayRequest request = std::move(control);
    const std::string verb(request.verb());
    const GatewayResponse answer = co_await PaneQuestion::ask(m_client, std::move(request));
    if (!self)
        co_return Outcome::gone;
    const std::string refusal = PaneQuestion::refusal(answer);
    toggle.answerWrite(text(refusal));
    if (refusal.empty())
        co_return Outcome::kept;
    note(verb, PaneQuestion::logged(answer));
    Q_EMIT said(text(refusal));
    co_return Outcome::refused;
}

void PrivacyModel::toggleFrameKeep(bool on) {
    if (m_frameKeep.isWriting())
        return;
    if (on || (m_frameStats && m_frameStats->screenshots == 0)) {
        writeFrameKeep(on);
        return;
    }
    m_confirmingFrameKeepOff = true;
    Q_EMIT changed();
    startPollingIfNeeded(); // the question's size comes while it stands
}

void PrivacyModel::confirmFrameKeepOff() {
    if (!m_confirmingFrameKeepOff)
        return;
    cancelFrameKeepOff();
    if (!m_frameKeep.isWriting())
        writeFrameKeep(false);
}

void PrivacyModel::cancelFrameKeepOff() {
    m_confirmingFrameKeepOff = false;
    Q_EMIT changed();
}

QCoro::Task<> PrivacyModel::writeFrameKeep(bool on) {
    ++m_asking;
    ControlRequest request = ControlCase::SetFrameKeep{on};
    const Outcome written = co_await write(m_frameKeep, std::move(request));
    if (written == Outcome::gone)
        co_return;
    for (const Subject subject : {Subject::frameKeep, Subject::reelKeep, Subject::frameStats,
                                  Subject::reelStats, Subject::diskUsed}) {
        const Outcome outcome = co_await read(subject);
        if (outcome == Outcome::gone)
            co_return;
        if (subject == Subject::frameKeep)
            m_frameKeep.endWrite();
    }
    --m_asking;
    startPollingIfNeeded();
}

void PrivacyModel::toggleReelKeep(bool on) {
    if (m_reelKeep.isWriting())
        return;
    if (on)
        writeReelKeep(true);
    else
        askReelKeepOff();
}

QCoro::Task<> PrivacyModel::askReelKeepOff() {
    ++m_asking;
    m_reelKeep.beginWrite(); // it takes no second press meanwhile
    const Outcome outcome = co_await read(Subject::reelStats);
    if (outcome == Outcome::gone)
        co_return;
    --m_asking;
    m_reelKeep.endWrite();
    if (outcome == Outcome::kept && m_reelStats->meetings == 0) {
        writeReelKeep(false);
        co_return;
    }
    m_confirmingReelKeepOff = true;
    Q_EMIT changed();
}

void PrivacyModel::confirmReelKeepOff() {
    if (!m_confirmingReelKeepOff)
        return;
    cancelReelKeepOff();
    if (!m_reelKeep.isWriting())
        writeReelKeep(false);
}

void PrivacyModel::cancelReelKeepOff() {
    m_confirmingReelKeepOff = false;
    Q_EMIT changed();
}

QCoro::Task<> PrivacyModel::writeReelKeep(bool on) {
    ++m_asking;
    ControlRequest request = ControlCase::SetReelKeep{on};
    const Outcome written = co_await write(m_reelKeep, std::move(request));
    if (written == Outcome::gone)
        co_return;
    const Outcome told = co_await read(Subject::reelKeep);
    if (told == Outcome::gone)
        co_return;
    m_reelKeep.endWrite();
    const Outcome counted = co_await read(Subject::diskUsed);
    if (counted != Outcome::gone)
        --m_asking;
}

void PrivacyModel::toggleDiagnosticLogging(bool on) {
    if (!m_diagnosticLogging.isWriting())
        writeDiagnosticLogging(on);
}

QCoro::Task<> PrivacyModel::writeDiagnosticLogging(bool on) {
    ++m_asking;
    ControlRequest request = ControlCase::SetDiagnosticLogging{on};
    const Outcome written = co_await write(m_diagnosticLogging, std::move(request));
    if (written == Outcome::gone)
        co_return;
    --m_asking;
    if (written == Outcome::kept) // the daemon has said so
        m_diagnosticLogging.take(on, m_diagnosticLogging.age());
    m_diagnosticLogging.endWrite();
}

void PrivacyModel::setNames(const QString& typed) {
    m_draft = typed;
    Q_EMIT namesChanged();
}

bool PrivacyModel::namesCanBeSaved() const {
    return !m_savingNames && PrivacyWords::selfNamesChanged(names().toStdString(), m_selfNames);
}

void PrivacyModel::saveSelfNames(const QString& typed) {
    if (!m_savingNames && PrivacyWords::selfNamesChanged(typed.toStdString(), m_selfNames))
        writeNames(typed);
}

QCoro::Task<> PrivacyModel::writeNames(QString typed) {
    const QPointer<PrivacyModel> self(this);
    ++m_asking;
    ++m_namesAge;
    m_savingNames = true;
    m_draft = typed;
    Q_EMIT namesChanged();
    NotesCase::SelfNames names;
    names.names = SelfNames::tidy(std::vector<std::string>{typed.toStdString()});
    GatewayRequest request = NotesRequest(std::move(names));
    const std::string verb(request.verb());
    const GatewayResponse answer = co_await PaneQuestion::ask(m_client, std::move(request));
    if (!self)
        co_return;
    --m_asking;
    ++m_namesAge;
    m_savingNames = false;
    m_selfNamesRefusal.clear();
    if (const auto held = namesIn(answer)) {
        m_selfNames = *held;
        // What was typed on meanwhile stays.
        if (m_draft == typed)
            m_draft.reset();
    } else {
        // An `ok` is no word of the names.
        const char* const ours =
            std::holds_alternative<AnswerCase::Unimplemented>(answer) ? takesNoNames
            : std::holds_alternative<AnswerCase::Ok>(answer)          ? PaneQuestion::notUnderstood
                                                                      : nullptr;
        m_selfNamesRefusal = text(ours ? say(ours) : PaneQuestion::refusal(answer));
        note(verb, ours ? ours : PaneQuestion::logged(answer));
        Q_EMIT said(m_selfNamesRefusal);
    }
    Q_EMIT namesChanged();
}

bool PrivacyModel::pollNeeded() const {
    const bool sizeUnknown = m_frameStats && !m_frameStats->bytes;
    return sizeUnknown || (m_confirmingFrameKeepOff && !m_frameStats) || purging();
}

void PrivacyModel::startPollingIfNeeded() {
    if (m_polling || !m_seen || !pollNeeded())
        return;
    m_polling = true;
    poll(++m_polls);
}

void PrivacyModel::stopPolling() {
    ++m_polls;
    m_polling = false;
    m_pause.end();
}

QCoro::Task<> PrivacyModel::poll(int number) {
    const QPointer<PrivacyModel> self(this);
    int failures = 0;
    do {
        co_await m_around.sleep(failures < patientPolls ? m_around.pollEvery : slowPoll);
        if (!self || number != m_polls)
            co_return;
        const Outcome outcome = co_await read(Subject::frameStats);
        if (outcome == Outcome::gone || number != m_polls)
            co_return;
        failures = outcome == Outcome::kept ? 0 : failures + 1;
    } while (pollNeeded());
    m_polling = false;
    const QString ended = purge();
    co_await read(Subject::diskUsed);
    if (self && !ended.isEmpty())
        Q_EMIT said(ended);
}

QVariantList PrivacyModel::rows() {
    QVariantList list;
    for (const PrivacyWords::KeepRow& row : PrivacyWords::rows) {
        DaemonSwitch* const toggle = row.keep == PrivacyWords::Keep::everyday   ? &m_frameKeep
                                     : row.keep == PrivacyWords::Keep::meetings ? &m_reelKeep
                                                                                : nullptr;
        list.append(QVariantMap{{QStringLiteral("label"), text(say(row.label))},
                                {QStringLiteral("rate"), text(say(row.rate))},
                                {QStringLiteral("month"), text(say(row.month))},
                                {QStringLiteral("keep"), QVariant::fromValue(toggle)}});
    }
    return list;
}

QStringList PrivacyModel::used() const {
    QStringList words;
    for (const PrivacyWords::KeepRow& row : PrivacyWords::rows)
        words.append(text(PrivacyWords::used(row.used, m_diskUsed)));
    return words;
}

QString PrivacyModel::purge() const {
    return m_frameStats ? text(PrivacyWords::purge(m_frameStats->purge)) : QString();
}

bool PrivacyModel::purging() const {
    return !m_frameKeep.isOn() && m_frameStats && m_frameStats->purge &&
           PrivacyWords::daysToClear(*m_frameStats->purge) > 0;
}

QString PrivacyModel::frameKeepQuestion() const {
    const auto count = m_frameStats ? std::optional(m_frameStats->screenshots) : std::nullopt;
    const auto bytes = m_frameStats ? m_frameStats->bytes : std::nullopt;
    return text(PrivacyWords::frameKeepConfirmBody(count, bytes, m_reelKeep.isOn()));
}

QString PrivacyModel::reelKeepQuestion() const {
    return text(PrivacyWords::reelKeepConfirmBody(m_reelStats));
}

QString PrivacyModel::diagnosticLoggingDetail() const {
    return text(PrivacyWords::diagnosticLoggingDetail(m_diagnosticLogging.isOn()));
}

} // namespace wendlow

#include "moc_PrivacyModel.cpp"
