#include "Moments/MomentWords.h"

#include "DateWords.h"
#include "Floor/RowText.h"
#include "Say.h"

namespace wendlow {

namespace {

namespace Case = EditorAnswerStateCase;

struct EmptyLine {
    std::optional<std::int64_t> count;

    QString operator()(const Case::Warming& /*state*/) const {
        return say("Your screens will be ready in a moment — the index is still building.");
    }
    QString operator()(const Case::Settled& /*state*/) const {
        return count.value_or(0) < 1 ? say("No moments captured yet.") : QString();
    }
    QString operator()(const Case::Pending& /*state*/) const {
        return say("Reading your screens…");
    }
    QString operator()(const Case::Failed& state) const { return RowText::plain(state.words); }
};

} // namespace

QString MomentWords::heading(const QDate& newest, const QDate& today) {
    return newest == today ? say("Today") : day(newest, today);
}

QString MomentWords::day(const QDate& day, const QDate& today) {
    return DateWords::weekday(day, today);
}

QString MomentWords::subheading(std::optional<std::int64_t> count) {
    if (!count)
        return {};
    return say.plural(*count, "{} moment", "{} moments in all", *count);
}

QString MomentWords::empty(const EditorAnswerState& state, std::optional<std::int64_t> count) {
    return std::visit(EmptyLine{count}, state);
}

} // namespace wendlow
