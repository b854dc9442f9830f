#include "Moments/MomentLightbox.h"

#include "DateWords.h"
#include "Floor/RowText.h"
#include "Moments/MomentTextCard.h"
#include "Say.h"

#include <QClipboard>
#include <QCoroFuture>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QtConcurrentRun>

#include <expected>
#include <utility>

namespace wendlow {

namespace {

/// The path of the picture, or why there is none.
using Written = std::expected<std::filesystem::path, std::string>;

Written write(const ExportedScreens& screens, const EditorMoment& moment,
              const std::string& bytes) {
    const std::string png = TileDecoder::png(bytes);
    if (png.empty())
        return std::unexpected(say("This picture could not be read.").toStdString());
    const auto path = screens.write(png, moment.thumbnailKey().value_or(0), moment.title);
    if (!path)
        return std::unexpected(path.error().description());
    return *path;
}

} // namespace

MomentLightbox::MomentLightbox(TileRoom& room, Door door) : m_room(room), m_door(std::move(door)) {
    connect(&m_room, &TileRoom::changed, this, [this](qint64 key) {
        if (m_key == key)
            Q_EMIT changed();
    });
}

void MomentLightbox::show(EditorMoment moment) {
    m_key = moment.drawsTextCard() ? std::nullopt : moment.thumbnailKey();
    m_moment = std::move(moment);
    m_open = true;
    m_refusal.clear();
    m_opening = false;
    m_room.setWhole(m_key);
    Q_EMIT changed();
}

void MomentLightbox::dismiss() {
    if (std::exchange(m_open, false))
        Q_EMIT changed();
}

void MomentLightbox::wentAway() {
    if (m_open || !m_moment)
        return;
    m_moment.reset();
    m_key.reset();
    m_room.setWhole(std::nullopt);
    Q_EMIT changed();
}

void MomentLightbox::openPicture() {
    const std::string* const bytes = m_key ? m_room.bytes(*m_key) : nullptr;
    if (!m_moment || bytes == nullptr || m_opening)
        return;
    m_opening = true;
    m_refusal.clear();
    Q_EMIT changed();
    // Runs on by itself, and ends by itself where this goes.
    [[maybe_unused]] const auto task = exportPicture(*m_moment, *bytes);
}

QCoro::Task<> MomentLightbox::exportPicture(EditorMoment moment, std::string bytes) {
    const Lifetime::Watch life = m_life.watch();
    const std::string id = moment.id;
    Written written =
        std::unexpected(say("There is no private folder on this computer.").toStdString());
    if (const auto screens = m_door.folder()) {
        const QFuture<Written> future =
            QtConcurrent::run([screens = *screens, moment = std::move(moment),
                               bytes = std::move(bytes)] { return write(screens, moment, bytes); });
        written = co_await future;
    }
    if (life.expired() || !m_moment || m_moment->id != id)
        co_return;
    m_opening = false;
    if (!written) {
        refuse(RowText::plain(written.error()));
        co_return;
    }
    const QUrl url = QUrl::fromLocalFile(RowText::plain(written->string()));
    if (!(m_door.open ? m_door.open(url) : QDesktopServices::openUrl(url)))
        refuse(say("No program was found that shows pictures."));
    Q_EMIT changed();
}

void MomentLightbox::refuse(const QString& words) {
    m_refusal = words;
    Q_EMIT changed();
}

bool MomentLightbox::copyPicture() {
    if (isReady())
        QGuiApplication::clipboard()->setImage(m_room.whole());
    return isReady();
}

QString MomentLightbox::badge() const {
    return isTextCard() ? MomentTextCard::badge(*m_moment) : QString();
}

QString MomentLightbox::title() const {
    if (!m_moment)
        return {};
    return isTextCard() ? MomentTextCard::title(*m_moment) : RowText::line(m_moment->title);
}

QString MomentLightbox::when() const {
    if (!m_moment)
        return {};
    const QDate day = DateWords::local(m_moment->at).date();
    return say("{}, {}", DateWords::weekday(day, QDate()), MomentTextCard::time(m_moment->at));
}

QString MomentLightbox::body() const {
    if (!isTextCard())
        return {};
    const QString words = RowText::plain(m_moment->abstract.value_or("")).trimmed();
    return words.isEmpty() ? say("No text has been distilled from this session yet.") : words;
}

QString MomentLightbox::files() const {
    return isTextCard() ? MomentTextCard::filesTooltip(*m_moment) : QString();
}

QString MomentLightbox::key() const {
    return m_key ? QString::number(*m_key) : QString();
}

double MomentLightbox::shade() const {
    return m_moment && !m_key ? m_moment->shade : 0;
}

QString MomentLightbox::pictureWords() const {
    if (!m_moment || isTextCard() || isReady() || shade() > 0)
        return {};
    return isWaiting() ? say("Reading the picture…") : say("No picture is kept of this moment.");
}

} // namespace wendlow

#include "moc_MomentLightbox.cpp"
