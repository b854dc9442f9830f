#include "MomentRoom.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <utility>

#include <fmt/format.h>

#include "Base64.h"
#include "DocumentCard.h"
#include "LocalTime.h"
#include "WordQuery.h"

namespace wendlow {
namespace {

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS moments(
    moment INTEGER PRIMARY KEY,
    number INTEGER NOT NULL UNIQUE REFERENCES documents(number) ON DELETE CASCADE,
    day TEXT NOT NULL, chapter INTEGER NOT NULL, app TEXT NOT NULL, window TEXT NOT NULL,
    title_source TEXT NOT NULL, site TEXT, bytes INTEGER NOT NULL, seconds INTEGER, turns INTEGER);
CREATE INDEX IF NOT EXISTS moments_by_day ON moments(day);
CREATE INDEX IF NOT EXISTS moments_by_chapter ON moments(chapter);
)sql";

constexpr std::string_view png = "image/png";

/// An id of the contract as a number; nothing for what is none.
std::optional<std::int64_t> numberOf(std::string_view id) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(id.data(), id.data() + id.size(), number);
    return error == std::errc() && end == id.data() + id.size() ? std::optional(number)
                                                                : std::nullopt;
}

std::string chapterID(std::int64_t number) {
    return fmt::format("c{}", number);
}

ScreenPicture::Style styleOf(const Document& moment, const MomentRecord& record) {
    if (record.site)
        return ScreenPicture::Style::page;
    constexpr std::string_view code[] = {"Terminal", "Cursor", "Xcode"};
    constexpr std::string_view talk[] = {"Slack", "Mail", "Claude", "zoom.us"};
    const auto isOneOf = [&](std::span<const std::string_view> apps) {
        return std::ranges::find(apps, record.app) != apps.end();
    };
    if (isOneOf(code) || moment.sessionTool)
        return ScreenPicture::Style::code;
    return isOneOf(talk) ? ScreenPicture::Style::talk : ScreenPicture::Style::paper;
}

} // namespace

std::string_view MomentRoom::schema() {
    return tables;
}

MomentRoom::MomentRoom(DocumentStore& documents, ActivityLedger& ledger, KeepRoom& keep,
                       Clock clock)
    : m_documents(documents), m_ledger(ledger), m_keep(keep), m_clock(std::move(clock)),
      m_put(documents.database().prepare(
          "INSERT INTO moments(moment, number, day, chapter, app, window, title_source, site, "
          "bytes, seconds, turns) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")) {}

void MomentRoom::put(const MomentRecord& record) {
    m_put
        .bind(record.moment, record.number, record.day, record.chapter, record.app, record.window,
              record.titleSource, record.site, record.bytes, record.seconds, record.turns)
        .run();
}

std::int64_t MomentRoom::last() {
    Statement highest =
        m_documents.database().prepare("SELECT coalesce(max(moment), 0) FROM moments");
    highest.step();
    return highest.integer(0);
}

std::optional<MomentRecord> MomentRoom::find(std::int64_t moment) {
    Statement row = m_documents.database().prepare(
        "SELECT moment, number, day, chapter, app, window, title_source, site, bytes, seconds, "
        "turns FROM moments WHERE moment = ?");
    if (!row.bind(moment).step())
        return std::nullopt;
    return MomentRecord{.moment = row.integer(0),
                        .number = row.integer(1),
                        .day = row.text(2),
                        .chapter = row.integer(3),
                        .app = row.text(4),
                        .window = row.text(5),
                        .titleSource = row.text(6),
                        .site = row.textIfAny(7),
                        .bytes = row.integer(8),
                        .seconds = row.integerIfAny(9),
                        .turns = row.integerIfAny(10)};
}

GatewayResponse MomentRoom::answer(const ReadCase::GetMoment& request) {
    const auto number = numberOf(request.id);
    const auto record = number ? find(*number) : std::nullopt;
    if (!record)
        return AnswerCase::Thing{};
    const Document moment = *m_documents.find(record->number);
    Card card = DocumentCard::whole(moment);
    card.src = record->moment;
    if (const auto chapter = m_ledger.chapter(record->chapter))
        card.chapter = chapter->title;
    card.locator = record->site;
    card.body = MomentBody{.text = moment.body,
                           .source = moment.sessionTool ? "transcript" : "screen",
                           .cleaned = true,
                           .sessionArtifact = moment.session};
    return AnswerCase::Thing{std::move(card)};
}

GatewayResponse MomentRoom::answer(const ReadCase::GetChapter& request) {
    const auto number = request.id.starts_with('c')
                            ? numberOf(std::string_view(request.id).substr(1))
                            : std::nullopt;
    const auto chapter = number ? m_ledger.chapter(*number) : std::nullopt;
    if (!chapter)
        return AnswerCase::Thing{};
    std::string list;
    Statement moments = m_documents.database().prepare(
        "SELECT moment, at, app, title FROM (SELECT moments.moment, documents.at, moments.app, "
        "documents.title FROM moments JOIN documents USING(number) WHERE chapter = ?) "
        "ORDER BY at, moment");
    moments.bind(*number);
    while (moments.step())
        list += fmt::format("- {} · {} · {} · {}\n", moments.integer(0),
                            LocalTime::clock(moments.real(1)), moments.view(2), moments.view(3));
    return AnswerCase::Thing{Card{
        .kind = "chapter",
        .id = chapterID(chapter->number),
        .snippet = std::move(list),
        .why = fmt::format("{} from {} to {}", LocalTime::length(chapter->end - chapter->start),
                           LocalTime::clock(chapter->start), LocalTime::clock(chapter->end)),
        .when = LocalTime::minute(chapter->start),
        .title = chapter->title}};
}

GatewayResponse MomentRoom::answer(const ReadCase::TitleTrace& request) {
    const auto number = numberOf(request.id);
    const auto record = number ? find(*number) : std::nullopt;
    if (!record)
        return AnswerCase::Failure{fmt::format("no moment has the id “{}”", request.id)};
    return AnswerCase::Text{fmt::format("title: {}\nfrom: {}\nwindow: {}\napp: {}",
                                        m_documents.find(record->number)->title,
                                        record->titleSource, record->window, record->app)};
}

std::expected<std::string, std::string>
MomentRoom::picture(std::int64_t moment, std::string_view window, ScreenPicture::Size size) {
    m_keep.purgeWhatIsDue();
    const auto record = find(moment);
    if (!record)
        return std::unexpected(fmt::format("no moment has the id “{}”", moment));
    if (!window.empty() && window != record->window && window != record->app)
        return std::unexpected(fmt::format("moment {} has no window “{}”", moment, window));
    const Document document = *m_documents.find(record->number);
    if (!document.framed)
        return std::unexpected(fmt::format("no picture is kept of moment {}", moment));
    const auto extent =
        window.empty() ? ScreenPicture::Extent::screen : ScreenPicture::Extent::window;
    return ScreenPicture::draw(fmt::format("{}", moment), styleOf(document, *record), extent, size);
}

GatewayResponse MomentRoom::answer(const ReadCase::GetScreen& request) {
    const auto drawn = picture(request.momentID, request.window, ScreenPicture::Size::whole);
    if (!drawn)
        return AnswerCase::Failure{drawn.error()};
    return AnswerCase::Image{base64(*drawn), std::string(png)};
}

GatewayResponse MomentRoom::answer(const ReadCase::GetThumbnail& request) {
    const auto drawn = picture(request.momentID, "", ScreenPicture::Size::thumbnail);
    if (!drawn)
        return AnswerCase::Failure{drawn.error()};
    return AnswerCase::Image{base64(*drawn), std::string(png)};
}

GatewayResponse MomentRoom::answer(const ReadCase::OpenScreens& request) {
    AnswerCase::Images images;
    for (const ScreenRef& wanted : request._0) {
        ScreenImage& image = images._0.emplace_back(
            ScreenImage{.moment = wanted.moment, .window = wanted.window.value_or("")});
        const auto drawn = picture(image.moment, image.window, ScreenPicture::Size::whole);
        if (drawn)
            image.heic = WireData{*drawn};
        else
            image.note = drawn.error();
    }
    return images;
}

GatewayResponse MomentRoom::answer(const ReadCase::Favicons& request) {
    AnswerCase::Icons icons;
    for (const std::string& host : request.hosts)
        if (host.contains('.'))
            icons._0[host] = WireData{ScreenPicture::icon(host)};
    return icons;
}

GatewayResponse MomentRoom::answer(const ReadCase::GetEntity& request) {
    const auto match = WordQuery::phrase(request.name);
    if (!match)
        return AnswerCase::Thing{};
    Statement met = m_documents.database().prepare(
        "SELECT coalesce(sum(kind = 0), 0), coalesce(sum(kind = 1), 0), "
        "coalesce(sum(kind = 2), 0), min(at), max(at) FROM document_words "
        "JOIN documents ON number = document_words.rowid WHERE document_words MATCH ?");
    met.bind(*match).step();
    if (met.isNull(3))
        return AnswerCase::Thing{};
    return AnswerCase::Thing{
        Card{.kind = "entity",
             .id = request.name,
             .snippet = fmt::format("{} memories, {} moments, {} meetings; first met {}, last {}",
                                    met.integer(0), met.integer(1), met.integer(2),
                                    LocalTime::day(met.real(3)),
                                    LocalTime::ago(met.real(4), secondsOf(m_clock()))),
             .why = "its name stands there",
             .when = LocalTime::minute(met.real(4)),
             .title = request.name}};
}

GatewayResponse MomentRoom::answer(const ReadCase::SessionList& request) {
    constexpr std::int64_t page = 10;
    Statement scopeOf = m_documents.database().prepare(
        "SELECT scope FROM documents WHERE kind = 1 AND session = ? "
        "UNION ALL SELECT scope FROM session_scopes WHERE session = ?");
    const std::string session = request.session.value_or("");
    const std::string scope = request.session && scopeOf.bind(session, session).step()
                                  ? scopeOf.text(0)
                                  : std::string("/");
    scopeOf.reset();
    Statement rows = m_documents.database().prepare(
        "SELECT session, title, at, seconds, turns FROM documents JOIN moments USING(number) "
        "WHERE session IS NOT NULL AND session != ?1 AND (?2 = '/' OR scope = ?2) "
        "ORDER BY at DESC, number DESC LIMIT ?3 OFFSET ?4");
    rows.bind(session, scope, page, request.older ? page : 0);
    SessionOffer offer{.scope = scope, .rows = {}};
    while (rows.step()) {
        SessionOfferRow& row = offer.rows.emplace_back(SessionOfferRow{
            .id = rows.text(0), .title = rows.text(1), .when = LocalTime::minute(rows.real(2))});
        if (const auto seconds = rows.integerIfAny(3))
            row.length = LocalTime::length(static_cast<double>(*seconds));
        row.turns = rows.integerIfAny(4);
    }
    return AnswerCase::Sessions{offer.rows.empty() ? std::nullopt : std::optional(offer)};
}

} // namespace wendlow
