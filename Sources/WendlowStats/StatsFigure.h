#pragma once

#include "Figure.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <optional>
#include <utility>

namespace wendlow {

/// One figure of the Stats window, with what stands below it. UI thread.
class StatsFigure final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    /// There is one; its words are a dash while there is none.
    Q_PROPERTY(bool known READ isKnown NOTIFY changed)
    Q_PROPERTY(QString words READ words NOTIFY changed)
    Q_PROPERTY(QString label READ label CONSTANT)

public:
    explicit StatsFigure(QString label) : m_label(std::move(label)) {}

    void show(std::optional<Dashboard::Figure> figure);

    bool isKnown() const { return m_figure.has_value(); }
    QString words() const;
    QString label() const { return m_label; }
    /// A part of it, from 0 to 1, in words, for counting up to it.
    Q_INVOKABLE QString at(double part) const;

Q_SIGNALS:
    void changed();

private:
    const QString m_label;
    std::optional<Dashboard::Figure> m_figure;
};

} // namespace wendlow
