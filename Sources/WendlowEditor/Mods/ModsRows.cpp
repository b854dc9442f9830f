#include "Mods/ModsRows.h"

#include "Floor/RowText.h"
#include "Floor/Stops.h"
#include "Say.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

std::string outcome(const ModsRow& row) {
    return row.run ? std::string(row.run->outcome.words()) : std::string();
}

QString help(const ModsRow& row) {
    if (!row.run)
        return {};
    return RowText::plain(row.opens()
                              ? say("Open this run's report")
                              : say("no report — this run never got as far as a final message"));
}

/// These of them that say something.
QString joined(std::initializer_list<std::string> parts) {
    QStringList told;
    for (const std::string& part : parts)
        if (!part.empty())
            told.append(RowText::line(part));
    return told.join(QStringLiteral(", "));
}

} // namespace

int ModsRows::indexOfMod(std::string_view scope, std::string_view slug) const {
    const auto found =
        std::ranges::find(rows(), fmt::format("mod/{}/{}", scope, slug), &ModsRow::id);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

int ModsRows::stop(int from, int by) const {
    return Stops::reached(*this, from, by);
}

QVariant ModsRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ModsRow& here = row(index.row());
    switch (role) {
    case KindRole:
        return static_cast<int>(here.kind);
    case Qt::DisplayRole:
    case TextRole:
        return RowText::line(here.text);
    case BesideRole:
        return RowText::line(here.beside);
    case UnderRole:
        return RowText::line(here.under);
    case TrailingRole:
        return RowText::line(here.trailing);
    case OutcomeRole:
        return RowText::line(outcome(here));
    case ToneRole:
        return static_cast<int>(here.run ? here.run->outcome.tone()
                                         : EditorRunOutcome::Tone::neutral);
    case HelpRole:
        return help(here);
    case TipRole:
        return joined({here.text, here.beside, outcome(here), here.trailing, here.under});
    case DescriptionRole:
        return joined({here.beside, here.under, outcome(here), here.trailing});
    case OpensRole:
        return here.opens();
    case FirstRole:
        return here.first;
    case LastRole:
        return here.last;
    case PartsRole:
        return here.parts;
    case StopRole:
        return here.isStop();
    default:
        return {};
    }
}

QHash<int, QByteArray> ModsRows::roleNames() const {
    return {{KindRole, "kind"},        {TextRole, "words"},        {BesideRole, "beside"},
            {UnderRole, "under"},      {TrailingRole, "trailing"}, {OutcomeRole, "outcome"},
            {ToneRole, "tone"},        {HelpRole, "help"},         {TipRole, "tip"},
            {DescriptionRole, "told"}, {OpensRole, "opens"},       {FirstRole, "first"},
            {LastRole, "last"},        {PartsRole, "parts"},       {StopRole, "stop"}};
}

} // namespace wendlow

#include "moc_ModsRows.cpp"
