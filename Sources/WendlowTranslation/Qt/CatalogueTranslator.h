#pragma once

#include <QTranslator>

namespace wendlow {

/// The door of what QML says by `qsTr`: the same catalogue, with the name of the QML file for the
/// context, as Qt gives it. Installed by `main`, once, after `Translation::begin`.
class CatalogueTranslator : public QTranslator {
    Q_OBJECT

public:
    using QTranslator::QTranslator;

    bool isEmpty() const override;
    /// A null string, which stands for the English, where the catalogue has nothing. Any thread.
    QString translate(const char* context, const char* english, const char* disambiguation,
                      int number) const override;
};

} // namespace wendlow
