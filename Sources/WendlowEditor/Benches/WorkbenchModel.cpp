#include "WorkbenchModel.h"

#include "BenchChoice.h"

#include <array>
#include <string>

namespace wendlow {

namespace {

constexpr std::array widthsThereAre{0, 560, 700, 980, 1600};

std::string widthLabel(int width) {
    return width == 0 ? "All" : std::to_string(width);
}

} // namespace

EditorRoot* WorkbenchModel::root() {
    EditorRoot* const root = m_editors.over(m_over);
    if (root->face() != m_face)
        root->setFace(m_face);
    return root;
}

QVariantList WorkbenchModel::answers() const {
    return benchChoices(editorsOver, overLabel, m_over);
}

QVariantList WorkbenchModel::faces() {
    return benchChoices(EditorFaces::all, EditorFaces::title, m_face);
}

QVariantList WorkbenchModel::widths() const {
    return benchChoices(widthsThereAre, widthLabel, m_width);
}

void WorkbenchModel::chooseAnswers(const QString& word) {
    stand(benchChoice(editorsOver, overLabel, word), m_face, m_width);
}

void WorkbenchModel::chooseFace(const QString& word) {
    stand(m_over, benchChoice(EditorFaces::all, EditorFaces::title, word), m_width);
}

void WorkbenchModel::chooseWidth(const QString& word) {
    stand(m_over, m_face, benchChoice(widthsThereAre, widthLabel, word));
}

void WorkbenchModel::stand(EditorOver over, EditorFace face, int width) {
    m_over = over;
    m_face = face;
    m_width = width;
    root()->search()->clear();
    Q_EMIT changed();
}

} // namespace wendlow

#include "moc_WorkbenchModel.cpp"
