#include "Rules/RulesRows.h"

#include "Floor/RowText.h"
#include "Floor/Stops.h"

#include <algorithm>
#include <array>
#include <utility>

namespace wendlow {

namespace {

/// All that a row tells beside its text.
QString description(const RulesRow& row) {
    QStringList parts;
    for (const std::string* const part :
         {&row.lead, &row.count, &row.beside, &row.under, &row.trailing})
        if (!part->empty())
            parts.append(RowText::line(*part));
    return parts.join(QStringLiteral(", "));
}

bool wraps(const RulesRow& row) {
    return row.kind == RulesRow::Kind::strip || row.kind == RulesRow::Kind::note;
}

} // namespace

void RulesRows::mark(int index, bool editing, bool busy) {
    RulesRow next = row(index);
    next.editing = editing;
    next.busy = busy;
    change(index, std::move(next));
}

int RulesRows::indexOf(std::string_view id) const {
    const auto found = std::ranges::find(rows(), id, &RulesRow::id);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

int RulesRows::indexOfRule(std::string_view ruleID) const {
    for (const char* const of : {"filed/", "card/"})
        if (const int found = indexOf(std::string(of).append(ruleID)); found >= 0)
            return found;
    return -1;
}

int RulesRows::stop(int from, int by) const {
    return Stops::reached(*this, from, by);
}

QVariant RulesRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const RulesRow& here = row(index.row());
    switch (role) {
    case KindRole:
        return static_cast<int>(here.kind);
    case Qt::DisplayRole:
    case TextRole:
        return wraps(here) ? RowText::plain(here.text) : RowText::line(here.text);
    case LeadRole:
        return RowText::line(here.lead);
    case BesideRole:
        return RowText::line(here.beside);
    case CountRole:
        return RowText::line(here.count);
    case TrailingRole:
        return RowText::line(here.trailing);
    case UnderRole:
        return RowText::line(here.under);
    case TipRole:
        return RowText::tip(here.under.empty() ? here.text : here.under);
    case DescriptionRole:
        return description(here);
    case WarnsRole:
        return here.tone == RulesRow::Tone::warning;
    case ApartRole:
        return here.apart;
    case FirstRole:
        return here.first;
    case LastRole:
        return here.last;
    case EndsRole:
        return here.ends;
    case StopRole:
        return here.isStop();
    case EditableRole:
        return !here.ruleID.empty();
    case CanAddRole:
        return here.canAdd;
    case CanRetryRole:
        return here.canRetry;
    case EditingRole:
        return here.editing;
    case BusyRole:
        return here.busy;
    default:
        return {};
    }
}

QHash<int, QByteArray> RulesRows::roleNames() const {
    return {{KindRole, "kind"},         {TextRole, "words"},    {LeadRole, "lead"},
            {BesideRole, "beside"},     {CountRole, "number"},  {TrailingRole, "trailing"},
            {UnderRole, "under"},       {TipRole, "tip"},       {DescriptionRole, "told"},
            {WarnsRole, "warns"},       {ApartRole, "apart"},   {FirstRole, "first"},
            {LastRole, "last"},         {EndsRole, "ends"},     {StopRole, "stop"},
            {EditableRole, "editable"}, {CanAddRole, "canAdd"}, {CanRetryRole, "canRetry"},
            {EditingRole, "editing"},   {BusyRole, "busy"}};
}

} // namespace wendlow

#include "moc_RulesRows.cpp"
