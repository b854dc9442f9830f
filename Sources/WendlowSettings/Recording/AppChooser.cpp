#include "Recording/AppChooser.h"

#include "PlainText.h"
#include "Recording/InstalledApps.h"
#include "Say.h"

#include <QCoroFuture>
#include <QtConcurrentRun>

#include <utility>

namespace wendlow {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

} // namespace

AppChooser::AppChooser(Surroundings surroundings, QObject* parent)
    : QObject(parent), m_around(std::move(surroundings)) {}

QString AppChooser::title() {
    return text(say("Choose an app to add a recording rule for"));
}

void AppChooser::openFor(RuleGroup* group) {
    if (group == nullptr)
        return;
    disconnect(m_added);
    m_group = group;
    m_added = connect(group, &RuleGroup::added, this, &AppChooser::close);
    m_term.clear();
    m_note.clear();
    narrow();
    Q_EMIT changed();
    if (!m_looking)
        look(); // shows by itself what it finds
}

void AppChooser::close() {
    disconnect(m_added);
    m_group.clear();
    Q_EMIT changed();
}

QCoro::Task<> AppChooser::look() {
    const QPointer<AppChooser> self(this);
    m_looking = true;
    Q_EMIT namesChanged();
    const QFuture<std::vector<std::string>> work = QtConcurrent::run(m_around.installed);
    std::vector<std::string> found = co_await work;
    if (!self)
        co_return;
    m_looking = false;
    m_installed = std::move(found);
    narrow();
}

void AppChooser::setTerm(const QString& term) {
    m_term = term;
    narrow();
    Q_EMIT changed();
}

void AppChooser::narrow() {
    const std::string term = PlainText::lowerCased(PlainText::trimmed(m_term.toStdString()));
    m_names.clear();
    for (const std::string& name : m_installed)
        if (PlainText::lowerCased(name).contains(term))
            m_names.append(text(name));
    Q_EMIT namesChanged();
}

QString AppChooser::emptyWords() const {
    if (!m_names.isEmpty())
        return {};
    if (m_looking)
        return text(say("Looking for apps…"));
    return text(m_installed.empty() ? say("No apps were found here.")
                                    : say("No app of that name."));
}

void AppChooser::tell(const QString& note) {
    m_note = note;
    Q_EMIT changed();
}

void AppChooser::pick(const QString& name) {
    if (m_group && !m_group->offer(name.toStdString()))
        tell(m_group->note());
}

void AppChooser::other() {
    if (m_group && !m_elsewhere)
        chooseOther();
}

QCoro::Task<> AppChooser::chooseOther() {
    const QPointer<AppChooser> self(this);
    const QPointer<RuleGroup> group = m_group;
    m_elsewhere = true;
    tell({});
    FileChooser::Question question{.title = title(), .folder = QStringLiteral("/Applications")};
    const FileChooser::Answer answer = co_await m_around.choose(std::move(question));
    if (!self)
        co_return;
    m_elsewhere = false;
    // The sheet may have gone meanwhile, or stand for another tier.
    if (m_group != group) {
        tell({});
        co_return;
    }
    if (!answer) {
        tell(text(answer.error()));
        co_return;
    }
    if (answer->isEmpty()) { // the dialog was left
        tell({});
        co_return;
    }
    const auto name = InstalledApps::nameOfBundle(answer->toStdString());
    if (name)
        tell({});
    if (name)
        pick(text(*name));
    else
        tell(text(say("An app ends in “.app”; this does not.")));
}

} // namespace wendlow

#include "moc_AppChooser.cpp"
