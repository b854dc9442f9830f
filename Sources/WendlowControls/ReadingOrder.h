#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// Keeps the rows of a list in the order in which they are seen. A list view leaves them in the
/// order in which it has made them, and a screen reader reads them so: rows that came into sight
/// from above, or between others, would be read last. Does nothing while no screen reader listens.
/// Belongs to the UI thread.
class ReadingOrder : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// What the rows stand in: the `contentItem` of a list or grid.
    Q_PROPERTY(QQuickItem* rows READ rows WRITE setRows NOTIFY rowsChanged REQUIRED FINAL)

public:
    using QObject::QObject;

    QQuickItem* rows() const { return m_rows; }
    void setRows(QQuickItem* rows);

Q_SIGNALS:
    void rowsChanged();

private:
    void followWindow();
    void sort() const;

    QPointer<QQuickItem> m_rows;
    QMetaObject::Connection m_frames;
};

} // namespace wendlow
