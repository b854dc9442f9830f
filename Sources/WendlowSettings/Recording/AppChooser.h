#pragma once

#include "FileChooser.h"
#include "Recording/RuleGroup.h"

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <string>
#include <vector>

namespace wendlow {

/// The sheet in which an app is picked for a rule: what is installed, narrowed by typing, and the
/// platform's own dialog for the rest. UI thread; may go while either is under way.
class AppChooser final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The model of the pane has its chooser.")

    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(bool open READ isOpen NOTIFY changed)
    Q_PROPERTY(QString term READ term WRITE setTerm NOTIFY changed)
    /// Those that the term leaves.
    Q_PROPERTY(QStringList names READ names NOTIFY namesChanged)
    /// In place of names; empty where there are some.
    Q_PROPERTY(QString emptyWords READ emptyWords NOTIFY namesChanged)
    /// Why nothing came of what was picked; empty for nothing.
    Q_PROPERTY(QString note READ note NOTIFY changed)
    /// The platform's dialog is open.
    Q_PROPERTY(bool elsewhere READ isElsewhere NOTIFY changed)

public:
    /// What it takes from the world around it. The first runs on a thread of its own.
    struct Surroundings {
        std::function<std::vector<std::string>()> installed;
        FileChooser::Choose choose;
    };

    AppChooser(Surroundings surroundings, QObject* parent);

    /// Opens for a group, and looks at what is installed.
    Q_INVOKABLE void openFor(wendlow::RuleGroup* group);
    Q_INVOKABLE void close();
    Q_INVOKABLE void pick(const QString& name);
    /// Opens the platform's dialog.
    Q_INVOKABLE void other();

    static QString title();
    bool isOpen() const { return m_group != nullptr; }
    QString term() const { return m_term; }
    void setTerm(const QString& term);
    const QStringList& names() const { return m_names; }
    QString emptyWords() const;
    QString note() const { return m_note; }
    bool isElsewhere() const { return m_elsewhere; }

Q_SIGNALS:
    void changed();
    void namesChanged();

private:
    QCoro::Task<> look();
    QCoro::Task<> chooseOther();
    void narrow();
    void tell(const QString& note);

    const Surroundings m_around;
    QPointer<RuleGroup> m_group;
    QMetaObject::Connection m_added;
    std::vector<std::string> m_installed;
    bool m_looking = false;
    QString m_term;
    QStringList m_names;
    QString m_note;
    bool m_elsewhere = false;
};

} // namespace wendlow
