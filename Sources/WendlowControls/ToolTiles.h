#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// The two letters that stand for an AI tool, by the name of its asset ("tool-claude"). No brand's
/// own mark is drawn anywhere.
class ToolTiles : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Whether a tile of this name exists.
    static bool has(const QString& asset);

    /// The tile's letters; empty when there is no tile of this name.
    Q_INVOKABLE static QString letters(const QString& asset);
};

} // namespace wendlow
