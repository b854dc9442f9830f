#include "StatsFigure.h"

#include "AllTimeBand.h"

namespace wendlow {

void StatsFigure::show(std::optional<Dashboard::Figure> figure) {
    if (std::exchange(m_figure, figure) != m_figure)
        Q_EMIT changed();
}

QString StatsFigure::words() const {
    return m_figure ? m_figure->words() : AllTimeBand::none();
}

QString StatsFigure::at(double part) const {
    return m_figure && part < 1 ? m_figure->wordsAt(part) : words();
}

} // namespace wendlow

#include "moc_StatsFigure.cpp"
