#include "JourneyRoot.h"

#include "JourneyPages.h"
#include "JourneyWords.h"
#include "Say.h"

#include <QLocale>
#include <QVariantMap>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace wendlow {

namespace {

namespace Words = JourneyWords;

QString inWords(Words::Text text) {
    return QString::fromUtf8(text.said());
}

QString line(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QStringList lines(const std::vector<std::string>& all) {
    QStringList list;
    std::ranges::transform(all, std::back_inserter(list), &line);
    return list;
}

QString markWord(JourneyMark mark) {
    switch (mark) {
    case JourneyMark::done:
        return u"done"_s;
    case JourneyMark::current:
        return u"current"_s;
    case JourneyMark::todo:
        break;
    }
    return u"todo"_s;
}

/// As a screen reader says it.
QString spoken(const QString& title, JourneyMark mark, int number, int count) {
    switch (mark) {
    case JourneyMark::done:
        return say("{}, step {} of {}, done", title, number, count);
    case JourneyMark::current:
        return say("{}, step {} of {}, you are here", title, number, count);
    case JourneyMark::todo:
        break;
    }
    return say("{}, step {} of {}, still to come", title, number, count);
}

QVariantMap marked(const QString& title, JourneyMark mark, int number, int count) {
    return {{u"title"_s, title},
            {u"mark"_s, markWord(mark)},
            {u"spoken"_s, spoken(title, mark, number, count)}};
}

constexpr std::array railTitles{Words::Rail::welcome,     Words::Rail::permissions,
                                Words::Rail::recoveryKey, Words::Rail::plugIn,
                                Words::Rail::localModels, Words::Rail::sayHello};
constexpr std::array stepperTitles{Words::Stepper::screenRecording, Words::Stepper::accessibility,
                                   Words::Stepper::microphone};

} // namespace

JourneyRoot::JourneyRoot(std::unique_ptr<JourneyModel> model) : m_model(std::move(model)) {
    const JourneyModel* const from = m_model.get();
    connect(from, &JourneyModel::screenChanged, this, &JourneyRoot::tellScreen);
    connect(from, &JourneyModel::startedChanged, this, &JourneyRoot::startedChanged);
    connect(from, &JourneyModel::movingChanged, this, &JourneyRoot::primaryChanged);
    connect(from, &JourneyModel::ticksChanged, this, &JourneyRoot::ticksChanged);
    connect(from, &JourneyModel::ticksChanged, this, &JourneyRoot::primaryChanged);
    connect(from, &JourneyModel::grantsChanged, this, &JourneyRoot::showGrants);
    connect(from, &JourneyModel::phraseChanged, this, &JourneyRoot::phraseChanged);
    connect(from, &JourneyModel::phraseChanged, this, &JourneyRoot::primaryChanged);
    connect(from, &JourneyModel::appsChanged, this, &JourneyRoot::showApps);
    connect(from, &JourneyModel::progressChanged, this, &JourneyRoot::showModels);
    connect(from, &JourneyModel::helloChanged, this, &JourneyRoot::showHello);
    connect(from, &JourneyModel::cancelChanged, this, &JourneyRoot::cancelChanged);
    connect(from, &JourneyModel::cancelChanged, this, &JourneyRoot::primaryChanged);
    showApps();
}

void JourneyRoot::appear() {
    if (!std::exchange(m_appeared, true))
        m_model->start();
}

void JourneyRoot::lookAgain() {
    m_model->lookAgain();
}

// Screens

void JourneyRoot::tellScreen() {
    m_wasGranted = isGranted();
    if (m_model->screen() == JourneyScreen::localModels)
        showModels();
    for (const auto told :
         {&JourneyRoot::screenChanged, &JourneyRoot::stepperChanged, &JourneyRoot::hintChanged,
          &JourneyRoot::grantChanged, &JourneyRoot::helloChanged, &JourneyRoot::primaryChanged})
        Q_EMIT(this->*told)();
    const QString where = railSpoken();
    const QString what = title().isEmpty() ? paragraphs().value(0) : title();
    Q_EMIT said(where.isEmpty() ? what : what + u", "_s + where);
}

QString JourneyRoot::screen() const {
    return QString::fromUtf8(wendlow::text(m_model->screen()));
}

QVariantList JourneyRoot::rail() const {
    QVariantList list;
    const int count = static_cast<int>(railTitles.size());
    for (int at = 0; at < count; ++at)
        list.append(marked(inWords(railTitles[static_cast<std::size_t>(at)]),
                           JourneySteps::mark(static_cast<JourneyStep>(at), m_model->screen()),
                           at + 1, count));
    return list;
}

QString JourneyRoot::railSpoken() const {
    const auto step = JourneySteps::of(m_model->screen());
    return step ? say("step {} of {}", static_cast<int>(*step) + 1, railTitles.size()) : QString();
}

QVariantList JourneyRoot::stepper() const {
    const auto marks = PermissionStepper::marks(m_model->screen(), m_model->lastGrants());
    if (!marks)
        return {};
    QVariantList list;
    const int count = static_cast<int>(marks->size());
    for (int at = 0; at < count; ++at) {
        const auto place = static_cast<std::size_t>(at);
        list.append(marked(inWords(stepperTitles[place]), (*marks)[place], at + 1, count));
    }
    return list;
}

QVariantList JourneyRoot::stepperLines(double column, double circle, double gap) const {
    const auto marks = PermissionStepper::marks(m_model->screen(), m_model->lastGrants());
    if (!marks)
        return {};
    const auto spans = PermissionStepper::lineSpans(
        {.count = static_cast<int>(marks->size()), .column = column, .circle = circle, .gap = gap});
    QVariantList list;
    for (std::size_t at = 0; at < spans.size(); ++at)
        list.append(QVariantMap{{u"x"_s, spans[at].x},
                                {u"width"_s, spans[at].width},
                                {u"done"_s, (*marks)[at] == JourneyMark::done}});
    return list;
}

QString JourneyRoot::eyebrow() const {
    return inWords(JourneyPage::of(m_model->screen()).eyebrow);
}

QString JourneyRoot::doneLine() const {
    return inWords(JourneyPage::of(m_model->screen()).doneLine);
}

QString JourneyRoot::title() const {
    return inWords(JourneyPage::of(m_model->screen()).title);
}

QStringList JourneyRoot::paragraphs() const {
    QStringList list;
    std::ranges::transform(JourneyPage::of(m_model->screen()).paragraphs, std::back_inserter(list),
                           &inWords);
    return list;
}

JourneyWords::Hint JourneyRoot::hintParts() const {
    if (m_model->screen() == JourneyScreen::localModels)
        return Words::split(LocalModelsScreen::hint(m_model->lastProgress(), m_model->appBytes()));
    return Words::split(JourneyPage::of(m_model->screen()).hint.said());
}

QString JourneyRoot::hintTitle() const {
    return line(hintParts().title);
}

QString JourneyRoot::hint() const {
    return line(Words::styled(hintParts().text));
}

QString JourneyRoot::hintSpoken() const {
    const Words::Hint parts = hintParts();
    return parts.text.empty() ? QString() : line(parts.title + "\n" + Words::plain(parts.text));
}

// The foot

QString JourneyRoot::primaryWords() const {
    if (m_model->screen() == JourneyScreen::sayHello && helloReceived())
        return inWords(Words::SayHello::closeButton);
    return inWords(JourneyPage::of(m_model->screen()).primary);
}

bool JourneyRoot::isPrimaryEnabled() const {
    if (!m_model->isStarted() || m_model->isMoving() || m_model->isCancelling())
        return false;
    switch (m_model->screen()) {
    case JourneyScreen::welcome:
        return m_model->agreedToTerms();
    case JourneyScreen::screenRecording:
    case JourneyScreen::accessibility:
    case JourneyScreen::microphone:
        return isGranted();
    case JourneyScreen::recoveryKey:
        return !phraseFailure().isEmpty() || (!phrase().isEmpty() && m_model->wroteItDown());
    case JourneyScreen::sayHello:
        return helloReceived();
    case JourneyScreen::warming:
        return false;
    case JourneyScreen::plugIn:
    case JourneyScreen::localModels:
    case JourneyScreen::done:
        break;
    }
    return true;
}

void JourneyRoot::press() {
    if (!isPrimaryEnabled())
        return;
    switch (m_model->screen()) {
    case JourneyScreen::welcome:
        return m_model->beginSetup();
    case JourneyScreen::screenRecording:
    case JourneyScreen::accessibility:
    case JourneyScreen::microphone:
        return m_model->nextFromPermission();
    case JourneyScreen::recoveryKey:
        return m_model->continueFromRecoveryKey();
    case JourneyScreen::plugIn:
        return m_model->continueToLocalModels();
    case JourneyScreen::localModels:
        return m_model->continueFromLocalModels();
    case JourneyScreen::sayHello:
        return m_model->closeSetup();
    case JourneyScreen::done:
        return m_model->quit();
    case JourneyScreen::warming:
        break;
    }
}

void JourneyRoot::goBack() {
    m_model->goBack();
}

void JourneyRoot::returnForward() {
    m_model->returnForward();
}

void JourneyRoot::jump(int step) {
    if (step >= 0 && step < static_cast<int>(railTitles.size()))
        m_model->jump(static_cast<JourneyStep>(step));
}

// Welcome

void JourneyRoot::openTerms() {
    m_model->openTerms();
}

// Permissions

void JourneyRoot::ask() {
    m_model->ask();
}

bool JourneyRoot::isGranted() const {
    const GrantPair grants = m_model->lastGrants().value_or(GrantPair());
    switch (m_model->screen()) {
    case JourneyScreen::screenRecording:
        return grants.screenRecording;
    case JourneyScreen::accessibility:
        return grants.accessibility;
    case JourneyScreen::microphone:
        return grants.microphone;
    default:
        return false;
    }
}

void JourneyRoot::showGrants() {
    Q_EMIT stepperChanged();
    Q_EMIT grantChanged();
    Q_EMIT primaryChanged();
    if (const bool granted = isGranted();
        std::exchange(m_wasGranted, granted) != granted && granted)
        Q_EMIT said(grantedLine());
}

QString JourneyRoot::askWords() const {
    return inWords(JourneyPage::of(m_model->screen()).ask);
}

QString JourneyRoot::grantedLine() const {
    return inWords(JourneyPage::of(m_model->screen()).granted);
}

QString JourneyRoot::customizeHint() const {
    return inWords(JourneyPage::of(m_model->screen()).customizeHint);
}

bool JourneyRoot::isWaiting() const {
    return !isGranted() && refusedLine().isEmpty() &&
           m_model->hasAsked(std::string(Journey::grantKind(m_model->screen())));
}

QString JourneyRoot::refusedLine() const {
    const bool refused = m_model->screen() == JourneyScreen::microphone && m_model->lastGrants() &&
                         m_model->lastGrants()->microphoneDenied;
    return refused ? inWords(Words::Microphone::refused) : QString();
}

// Recovery key

QStringList JourneyRoot::phrase() const {
    const auto& last = m_model->lastPhrase();
    const auto* const words = last ? std::get_if<RecoveryWordsRead>(&*last) : nullptr;
    return words ? lines(*words) : QStringList();
}

QString JourneyRoot::phraseFailure() const {
    const auto& last = m_model->lastPhrase();
    const auto* const failed = last ? std::get_if<RecoveryFailed>(&*last) : nullptr;
    return failed ? line(failed->sentence) : QString();
}

bool JourneyRoot::isPhraseLoading() const {
    return m_model->screen() == JourneyScreen::recoveryKey && !m_model->lastPhrase();
}

// Plug in

void JourneyRoot::showApps() {
    std::vector<JourneyApp> rows;
    std::ranges::transform(m_model->apps().apps(), std::back_inserter(rows), &JourneyApp::of);
    m_apps.show(std::move(rows));
    Q_EMIT appsChanged();
}

void JourneyRoot::setWired(const QString& appId, bool on) {
    m_model->setWired(appId.toStdString(), on);
}

bool JourneyRoot::areAllWired() const {
    return std::ranges::all_of(m_apps.rows(), &JourneyApp::connected);
}

void JourneyRoot::toggleAll() {
    if (areAllWired())
        m_model->unselectAll();
    else
        m_model->selectAll();
}

QString JourneyRoot::allWords() const {
    if (m_apps.rows().empty())
        return {};
    return inWords(areAllWired() ? Words::PlugIn::unselectAll : Words::PlugIn::selectAll);
}

QString JourneyRoot::appsWords() const {
    return m_apps.rows().empty() ? m_model->apps().emptySentence() : QString();
}

QString JourneyRoot::appsAdvice() const {
    return m_apps.rows().empty() ? m_model->apps().emptyAdvice() : QString();
}

// Local models

void JourneyRoot::showModels() {
    std::vector<LocalModelRow> rows;
    const bool plausible = m_model->isPlausible();
    if (const auto& progress = m_model->lastProgress()) {
        for (const LocalModelsProgress::Row& row : progress->rows) {
            LocalModelsScreen::RowFace face = LocalModelsScreen::face(row, m_model->shownWriter());
            // Figures that cannot be true are not told.
            if (!plausible)
                face.total.reset();
            const bool moving = face.kind == LocalModelsScreen::RowFace::Kind::progress;
            rows.push_back(
                {.id = row.id,
                 .name = LocalModelsScreen::name(row),
                 .line = moving && !plausible ? std::string() : LocalModelsScreen::rowLine(face),
                 .face = face,
                 .fraction = LocalModelsScreen::fraction(face)});
        }
    }
    m_models.show(std::move(rows));
    Q_EMIT modelsChanged();
    if (m_model->screen() == JourneyScreen::localModels)
        Q_EMIT hintChanged();
}

QString JourneyRoot::modelsWords() const {
    return m_models.rows().empty() ? inWords(Words::Beside::noReading) : QString();
}

QString JourneyRoot::modelsLine() const {
    if (!m_model->isPlausible())
        return {};
    using LocalModelsScreen::Writer;
    std::string all = LocalModelsScreen::totalLine(
        m_model->lastProgress(), m_model->writerAlive() ? Writer::alive : Writer::gone);
    if (const auto estimate = m_model->estimate()) {
        if (!all.empty())
            all += ' ';
        all += LocalModelsScreen::estimateLine(*estimate, QLocale());
    }
    return line(all);
}

bool JourneyRoot::offersCancel() const {
    return LocalModelsScreen::offersCancel(m_model->lastProgress());
}

// The cancel

void JourneyRoot::askToCancel() {
    if (m_model->isCancelling() || std::exchange(m_confirming, true))
        return;
    m_removes = lines(m_model->cancelDeletes());
    m_keeps = lines(m_model->cancelKeeps()) + lines(m_model->cancelCaveats());
    Q_EMIT cancelChanged();
}

void JourneyRoot::keepGoing() {
    if (m_model->isCancelling() || !std::exchange(m_confirming, false))
        return;
    Q_EMIT cancelChanged();
}

void JourneyRoot::cancelInstall() {
    if (!m_confirming || m_model->isCancelling())
        return;
    m_model->cancelInstall();
    Q_EMIT said(cancellingWords());
}

void JourneyRoot::closeCancelFailed() {
    m_model->closeCancelFailed();
}

QString JourneyRoot::confirmRemovesTitle() const {
    return inWords(m_removes.isEmpty() ? Words::LocalModels::confirmNothing
                                       : Words::LocalModels::confirmDeletes);
}

QString JourneyRoot::confirmKeepsTitle() const {
    return m_keeps.isEmpty() ? QString() : inWords(Words::LocalModels::confirmKeeps);
}

// Hello

void JourneyRoot::showHello() {
    Q_EMIT helloChanged();
    Q_EMIT primaryChanged();
    if (m_model->screen() == JourneyScreen::sayHello && helloReceived())
        Q_EMIT said(helloLine());
}

bool JourneyRoot::helloReceived() const {
    return m_model->lastHello().value_or(false);
}

QString JourneyRoot::helloLine() const {
    return inWords(helloReceived() ? Words::SayHello::receivedLine
                                   : Words::SayHello::listeningLine);
}

} // namespace wendlow

#include "moc_JourneyRoot.cpp"
