#include "SearchBenchModel.h"

#include "BenchChoice.h"

namespace wendlow {

QVariantList SearchBenchModel::answers() const {
    return benchChoices(editorsOver, overLabel, m_over);
}

QStringList SearchBenchModel::examples() const {
    return {QStringLiteral("backup"), QStringLiteral("mooring lines"), QStringLiteral("harbour"),
            QStringLiteral("zeppelin")};
}

void SearchBenchModel::chooseAnswers(const QString& word) {
    const QString typed = root()->search()->text();
    m_over = benchChoice(editorsOver, overLabel, word);
    root()->search()->setText(typed);
    Q_EMIT changed();
}

} // namespace wendlow

#include "moc_SearchBenchModel.cpp"
