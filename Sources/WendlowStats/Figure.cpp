#include "Figure.h"

#include "DashboardWords.h"
#include "Say.h"
#include "StorageWords.h"

namespace wendlow::Dashboard {

QString Figure::words() const {
    switch (kind) {
    case Kind::time:
        return dashTime(amount);
    case Kind::storage:
        return QString::fromStdString(storageLabel(amount));
    case Kind::count:
        return QString::number(amount);
    case Kind::percent:
        return say("{}%", QString::number(percent, 'f', 1));
    }
    return {};
}

QString Figure::wordsAt(double part) const {
    Figure smaller = *this;
    smaller.amount = static_cast<std::int64_t>(static_cast<double>(amount) * part);
    smaller.percent = percent * part;
    return smaller.words();
}

} // namespace wendlow::Dashboard
