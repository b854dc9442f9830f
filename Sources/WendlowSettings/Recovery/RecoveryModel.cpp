#include "Recovery/RecoveryModel.h"

#include "PaneQuestion.h"
#include "Say.h"
#include "StoreWords.h"

#include <QPointer>

#include <utility>

namespace wendlow {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString text(StoreWord word) {
    return text(StoreWords::said(word));
}

void overwriteAll(RecoveryModel::Words& words) {
    for (std::string& word : words)
        RecoveryModel::overwrite(word);
    words.clear();
}

RecoveryModel::Protection protectionIn(const GatewayResponse& answer) {
    const auto* const told = std::get_if<AnswerCase::Text>(&answer);
    if (told != nullptr && told->_0 == "plaintext")
        return RecoveryModel::Protection::plaintext;
    if (told != nullptr && told->_0 == "locked")
        return RecoveryModel::Protection::locked;
    // An older daemon, which does not know the question, has a key too.
    return RecoveryModel::Protection::armed;
}

template<class Case, class Variant> QString sentenceOf(const Variant& state) {
    const auto* const found = std::get_if<Case>(&state);
    return found == nullptr ? QString() : text(found->sentence);
}

} // namespace

RecoveryModel::RecoveryModel(std::shared_ptr<WendlowClient> client,
                             std::function<void(const QString&)> copy)
    : m_client(std::move(client)), m_copy(std::move(copy)) {}

RecoveryModel::~RecoveryModel() {
    forgetWords();
}

void RecoveryModel::refresh() {
    load(); // shows by itself what it finds
}

QCoro::Task<> RecoveryModel::load() {
    const QPointer<RecoveryModel> self(this);
    const int mine = ++m_loads;
    ++m_asking;
    GatewayRequest request = ReadRequest(ReadCase::RecoveryState{});
    const GatewayResponse answer = co_await PaneQuestion::ask(m_client, std::move(request));
    if (!self)
        co_return;
    --m_asking;
    if (mine != m_loads)
        co_return;
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&answer))
        PaneStates::fail(m_protection, failure->message);
    else
        m_protection = PaneCase::Populated<Protection>{protectionIn(answer)};
    Q_EMIT changed();
}

void RecoveryModel::overwrite(std::string& word) {
    // Volatile, or the writes would be left out, as nobody reads what they leave.
    volatile char* const letters = word.data();
    for (std::size_t at = 0; at < word.size(); ++at)
        letters[at] = '\0';
}

void RecoveryModel::forgetWords() {
    if (auto* const revealed = std::get_if<Revealed>(&m_state))
        overwriteAll(revealed->words);
    m_state = Hidden{};
}

void RecoveryModel::hide() {
    ++m_reveals;
    m_revealing = false;
    forgetWords();
    Q_EMIT changed();
}

void RecoveryModel::left() {
    if (std::holds_alternative<Accepted>(m_restore))
        m_restore = Idle{};
    hide();
}

void RecoveryModel::revealOrHide() {
    if (isRevealed())
        hide();
    else if (!m_revealing)
        reveal();
}

QCoro::Task<> RecoveryModel::reveal() {
    const QPointer<RecoveryModel> self(this);
    const int mine = ++m_reveals;
    m_revealing = true;
    ++m_asking;
    Q_EMIT changed();
    GatewayRequest request = ControlRequest(ControlCase::RevealPhrase{});
    GatewayResponse answer = co_await PaneQuestion::ask(m_client, std::move(request));
    auto* const phrase = std::get_if<AnswerCase::Phrase>(&answer);
    const bool isWanted = self && mine == m_reveals;
    if (phrase != nullptr && !isWanted)
        overwriteAll(phrase->_0);
    if (self)
        --m_asking;
    if (!isWanted)
        co_return;
    m_revealing = false;
    forgetWords();
    if (phrase != nullptr)
        m_state = Revealed{std::move(phrase->_0)};
    else if (const auto* const failure = std::get_if<AnswerCase::Failure>(&answer))
        m_state = Error{failure->message};
    else
        m_state = Error{say("recovery phrase unavailable")};
    Q_EMIT changed();
    if (!isRevealed())
        Q_EMIT said(error());
}

QString RecoveryModel::clipboardText() const {
    return words().join(u' ');
}

void RecoveryModel::copy() {
    if (isRevealed())
        m_copy(clipboardText());
}

void RecoveryModel::unlock(const QString& typed) {
    if (!isRestoring())
        adopt(typed);
}

QCoro::Task<> RecoveryModel::adopt(QString typed) {
    const QPointer<RecoveryModel> self(this);
    m_restore = Working{};
    ++m_asking;
    Q_EMIT changed();
    ControlCase::EnterPhrase phrase;
    for (const QString& word : typed.simplified().split(u' ', Qt::SkipEmptyParts))
        phrase.words.push_back(word.toStdString());
    GatewayRequest request = ControlRequest(std::move(phrase));
    const GatewayResponse answer = co_await PaneQuestion::ask(m_client, std::move(request));
    if (!self)
        co_return;
    --m_asking;
    if (const auto* const note = std::get_if<AnswerCase::Text>(&answer))
        m_restore = Accepted{note->_0};
    else if (std::holds_alternative<AnswerCase::Ok>(answer))
        m_restore = Accepted{};
    else if (const auto* const failure = std::get_if<AnswerCase::Failure>(&answer))
        m_restore = Refused{failure->message};
    else
        m_restore = Refused{say("the phrase could not be delivered to Wendlow")};
    Q_EMIT changed();
    Q_EMIT said(refusal() + accepted());
}

QString RecoveryModel::title() const {
    const Protection* const told = PaneStates::content(m_protection);
    const bool isPlain = told != nullptr && *told == Protection::plaintext;
    if (told == nullptr) // nothing is promised that nobody has said
        return phraseHeader();
    return text(isPlain ? StoreWord::panePlaintextTitle : StoreWord::paneArmedTitle);
}

QString RecoveryModel::body() const {
    const Protection* const told = PaneStates::content(m_protection);
    if (told == nullptr)
        return {};
    const bool isPlain = told != nullptr && *told == Protection::plaintext;
    return text(isPlain ? StoreWord::panePlaintextBody : StoreWord::paneArmedBody);
}

QString RecoveryModel::warning() const {
    const Protection* const told = PaneStates::content(m_protection);
    return told != nullptr && *told == Protection::locked ? text(StoreWord::noKeyForTheStoreOnDisk)
                                                          : text(PaneStates::error(m_protection));
}

bool RecoveryModel::hasPhrase() const {
    const Protection* const told = PaneStates::content(m_protection);
    return told == nullptr || *told != Protection::plaintext;
}

QString RecoveryModel::phraseHeader() {
    return text(StoreWord::panePhraseHeader);
}

QString RecoveryModel::phraseFooter() {
    return text(StoreWord::panePhraseFooter);
}

QString RecoveryModel::maskedPhrase() {
    return text(StoreWord::paneMaskedPhrase);
}

QString RecoveryModel::copyWords() {
    return text(StoreWord::paneCopyButton);
}

QString RecoveryModel::revealWords() const {
    return text(isRevealed() ? StoreWord::paneHideButton : StoreWord::paneRevealButton);
}

QStringList RecoveryModel::words() const {
    QStringList list;
    if (const auto* const revealed = std::get_if<Revealed>(&m_state))
        for (const std::string& word : revealed->words)
            list.append(text(word));
    return list;
}

QString RecoveryModel::error() const {
    return sentenceOf<Error>(m_state);
}

QString RecoveryModel::restoreHeader() {
    return text(StoreWord::paneRestoreHeader);
}

QString RecoveryModel::restoreFooter() {
    return text(StoreWord::paneRestoreFooter);
}

QString RecoveryModel::restorePrompt() {
    return text(StoreWord::paneRestorePrompt);
}

QString RecoveryModel::restoreButton() {
    return text(StoreWord::paneRestoreButton);
}

QString RecoveryModel::restoreProgress() const {
    return isRestoring() ? text(StoreWord::paneRestoreWorking) : QString();
}

QString RecoveryModel::refusal() const {
    return sentenceOf<Refused>(m_restore);
}

QString RecoveryModel::accepted() const {
    const auto* const accepted = std::get_if<Accepted>(&m_restore);
    if (accepted == nullptr)
        return {};
    return accepted->note ? text(*accepted->note) : text(StoreWord::paneRestoreAccepted);
}

} // namespace wendlow

#include "moc_RecoveryModel.cpp"
