#include "Recording/RecordingControlModel.h"

#include "PaneQuestion.h"
#include "RawString.h"
#include "TranslationContext.h"

#include <QPointer>

#include <array>
#include <utility>

namespace wendlow {

namespace {

constexpr std::array apps{RuleKind::app};
constexpr std::array sites{RuleKind::site};
constexpr std::array words{RuleKind::word, RuleKind::phrase};
constexpr std::array topics{RuleKind::topic};

constexpr const char* wordsCaption =
    sayLater("Exact match — any screen containing this text is never recorded.");
constexpr const char* topicsCaption =
    sayLater("Judged by the on-device AI, so it catches the subject even when the words differ.");

using Nature = RuleGroup::Nature;

constexpr std::array usageNatures{
    Nature{.kinds = apps,
           .tier = RuleTier::usageOnly,
           .title = sayLater("Apps"),
           .addWords = sayLater("Add app")},
    Nature{.kinds = sites,
           .tier = RuleTier::usageOnly,
           .title = sayLater("Websites"),
           .addWords = sayLater("Add site"),
           .hint = sayLater("example.com")},
    // Nobody adds one here, but a daemon may have some.
    Nature{.kinds = words,
           .tier = RuleTier::usageOnly,
           .title = sayLater("Words & phrases"),
           .symbol = "word",
           .stands = false},
    Nature{.kinds = topics,
           .tier = RuleTier::usageOnly,
           .title = sayLater("Topics"),
           .symbol = "topic",
           .stands = false},
};

constexpr std::array neverNatures{
    Nature{.kinds = apps,
           .tier = RuleTier::never,
           .title = sayLater("Apps"),
           .addWords = sayLater("Add app")},
    Nature{.kinds = sites,
           .tier = RuleTier::never,
           .title = sayLater("Websites"),
           .addWords = sayLater("Add site"),
           .hint = sayLater("example.com")},
    Nature{.kinds = words,
           .tier = RuleTier::never,
           .title = sayLater("Words & phrases"),
           .caption = wordsCaption,
           .addWords = sayLater("Add word or phrase…"),
           .hint = sayLater("e.g. salary"),
           .symbol = "word"},
    Nature{.kinds = topics,
           .tier = RuleTier::never,
           .title = sayLater("Topics"),
           .caption = topicsCaption,
           .addWords = sayLater("Add topic"),
           .hint = sayLater("e.g. my health"),
           .symbol = "topic"},
};

constexpr Nature otherNature{.kinds = {},
                             .tier = std::nullopt,
                             .title = sayLater("Other rules"),
                             .caption = sayLater("A newer Wendlow has made these. They hold, and "
                                                 "can be removed here."),
                             .symbol = "info",
                             .stands = false};

} // namespace

RecordingControlModel::RecordingControlModel(std::shared_ptr<WendlowClient> client,
                                             AppChooser::Surroundings installed)
    : m_client(std::move(client)), m_chooser(std::move(installed), this) {
    for (const Nature& nature : usageNatures)
        m_usage.append(QVariant::fromValue(group(nature)));
    for (const Nature& nature : neverNatures)
        m_never.append(QVariant::fromValue(group(nature)));
    m_others = group(otherNature);
}

RuleGroup* RecordingControlModel::group(const Nature& nature) {
    auto* const made = new RuleGroup(nature, this);
    connect(made, &RuleGroup::wanted, this, [this, made](const std::string& value, RuleKind kind) {
        add(value, kind, made->nature().tier.value()); // the reload shows what came of it
    });
    connect(made, &RuleGroup::unwanted, this, [this](const std::string& id) { remove(id); });
    m_groups.push_back(made);
    return made;
}

void RecordingControlModel::refresh() {
    load(); // shows by itself what it finds
}

QCoro::Task<> RecordingControlModel::load() {
    const QPointer<RecordingControlModel> self(this);
    const int mine = ++m_loads;
    ++m_asking;
    Q_EMIT changed();
    GatewayRequest request = ReadRequest(ReadCase::GetRules{});
    GatewayResponse answer = co_await PaneQuestion::ask(m_client, std::move(request));
    if (!self)
        co_return;
    if (mine == m_loads) {
        if (auto* const list = std::get_if<AnswerCase::Rules>(&answer)) {
            m_rules = std::move(list->_0);
            if (m_rules.empty())
                m_state = PaneCase::Empty{};
            else
                m_state = PaneCase::Populated<std::monostate>{};
            show();
        } else {
            PaneStates::fail(m_state, PaneQuestion::refusal(answer));
        }
        for (RuleGroup* const each : m_groups)
            each->settle();
        Q_EMIT changed();
        co_await loadIcons(mine);
        if (!self)
            co_return;
    }
    --m_asking;
    Q_EMIT changed();
}

QCoro::Task<> RecordingControlModel::loadIcons(int mine) {
    const QPointer<RecordingControlModel> self(this);
    ReadCase::Favicons favicons;
    for (const Rule& rule : m_rules)
        if (rule.kind == RuleKind::site)
            favicons.hosts.push_back(rule.value);
    if (favicons.hosts.empty())
        co_return;
    GatewayRequest request = ReadRequest(std::move(favicons));
    const GatewayResponse answer = co_await PaneQuestion::ask(m_client, std::move(request));
    const auto* const icons = std::get_if<AnswerCase::Icons>(&answer);
    if (!self || mine != m_loads || icons == nullptr)
        co_return;
    m_siteIcons.clear();
    for (const auto& [host, data] : icons->_0)
        m_siteIcons.emplace(
            host, QByteArray(data.bytes.data(), static_cast<qsizetype>(data.bytes.size())));
    show();
}

void RecordingControlModel::show() {
    for (RuleGroup* const each : m_groups)
        each->show(m_rules, m_siteIcons);
}

QCoro::Task<> RecordingControlModel::add(std::string value, RuleKind kind, RuleTier tier) {
    const QPointer<RecordingControlModel> self(this);
    ++m_asking;
    ControlCase::AddRule rule;
    rule.value = value;
    rule.kind = rawString(kind);
    rule.tier = rawString(tier);
    GatewayRequest request = ControlRequest(std::move(rule));
    co_await PaneQuestion::ask(m_client, std::move(request));
    if (!self)
        co_return;
    for (RuleGroup* const each : m_groups)
        each->answered({.id = {}, .kind = kind, .value = value, .tier = tier});
    co_await load();
    if (!self)
        co_return;
    --m_asking;
    Q_EMIT changed();
}

QCoro::Task<> RecordingControlModel::remove(std::string id) {
    const QPointer<RecordingControlModel> self(this);
    ++m_asking;
    ControlCase::RemoveRule rule;
    rule.id = std::move(id);
    GatewayRequest request = ControlRequest(std::move(rule));
    co_await PaneQuestion::ask(m_client, std::move(request));
    if (!self)
        co_return;
    co_await load();
    if (!self)
        co_return;
    --m_asking;
    Q_EMIT changed();
}

} // namespace wendlow

#include "moc_RecordingControlModel.cpp"
