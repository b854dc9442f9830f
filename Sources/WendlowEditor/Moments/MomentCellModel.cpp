#include "Moments/MomentCellModel.h"

#include "Floor/RowText.h"
#include "Moments/MomentTextCard.h"

#include <utility>

namespace wendlow {

MomentCellModel::Story MomentCellModel::storyOf(const EditorMoment& moment) {
    return {.badge = MomentTextCard::badge(moment),
            .title = RowText::line(MomentTextCard::title(moment).toStdString()),
            .body = RowText::line(MomentTextCard::abstract(moment).toStdString()),
            .files = MomentTextCard::filesLine(moment),
            .filesTip = MomentTextCard::filesTooltip(moment)};
}

void MomentCellModel::show(std::size_t held, const EditorMoment& moment, Words words) {
    const bool isTextCard = moment.drawsTextCard();
    const auto number = moment.thumbnailKey();
    const double shade = number ? 0 : moment.shade;
    const bool isOtherKind = m_textCard != isTextCard || m_shade != shade;
    m_held = held;
    m_textCard = isTextCard;
    m_shade = shade;
    const QString keyBefore =
        std::exchange(m_key, number && !isTextCard ? QString::number(*number) : QString());
    const bool wasTold = std::exchange(m_told, words == Words::now);
    // Before anything else is shown, the old words go from sight.
    if (wasTold && !m_told)
        Q_EMIT toldChanged();
    if (isOtherKind)
        Q_EMIT kindChanged();
    if (m_key != keyBefore)
        Q_EMIT keyChanged();
    if (m_told)
        word(moment);
    if (m_told && !wasTold)
        Q_EMIT toldChanged();
    if (!std::exchange(m_shown, true))
        Q_EMIT shownChanged();
}

void MomentCellModel::tell(const EditorMoment& moment) {
    if (std::exchange(m_told, true))
        return;
    word(moment);
    Q_EMIT toldChanged();
}

void MomentCellModel::word(const EditorMoment& moment) {
    Story story = m_textCard ? storyOf(moment) : Story();
    m_title = m_textCard ? story.title : RowText::line(moment.title);
    m_time = MomentTextCard::time(moment.at);
    const bool isOtherStory = m_story != story;
    m_story = std::move(story);
    if (isOtherStory)
        Q_EMIT storyChanged();
    Q_EMIT worded();
}

void MomentCellModel::stand(std::size_t place, MomentLayout::Spot spot) {
    if (m_place == place && m_spot == spot)
        return;
    m_place = place;
    m_spot = spot;
    Q_EMIT placed();
}

void MomentCellModel::setCurrent(bool isCurrent) {
    if (std::exchange(m_current, isCurrent) != isCurrent)
        Q_EMIT currentChanged();
}

void MomentCellModel::hide() {
    m_held.reset();
    setCurrent(false);
    if (std::exchange(m_shown, false))
        Q_EMIT shownChanged();
}

QString MomentCellModel::spoken() const {
    const auto before = [](const QString& part) {
        return part.isEmpty() ? part : part + QStringLiteral(", ");
    };
    return before(m_story.badge) + before(m_title) + m_time;
}

QString MomentCellModel::tip() const {
    return m_story.filesTip.isEmpty() ? m_title : m_title + u'\n' + m_story.filesTip;
}

} // namespace wendlow

#include "moc_MomentCellModel.cpp"
