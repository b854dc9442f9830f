#pragma once

#include "Moments/TileRoom.h"

#include <QPointer>
#include <QQuickItem>

#include <optional>

namespace wendlow {

/// Draws the picture of one moment: as its cell, or whole.
class TilePicture : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(wendlow::TileRoom* room READ room WRITE setRoom NOTIFY roomChanged REQUIRED)
    /// The moment's number; empty: it has no picture.
    Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged REQUIRED)
    /// All of it, as the room has opened it, and until that is there what a cell shows.
    Q_PROPERTY(bool whole MEMBER m_whole NOTIFY wholeChanged)
    /// Of the whole picture; empty until it is there.
    Q_PROPERTY(QSize naturalSize READ naturalSize NOTIFY filledChanged)
    /// Something is drawn.
    Q_PROPERTY(bool filled READ isFilled NOTIFY filledChanged)

public:
    explicit TilePicture(QQuickItem* parent = nullptr);

    TileRoom* room() const { return m_room; }
    void setRoom(TileRoom* room);
    QString key() const;
    void setKey(const QString& key);
    bool isFilled() const { return !m_image.isNull(); }
    QSize naturalSize() const;

Q_SIGNALS:
    void roomChanged();
    void keyChanged();
    void filledChanged();
    void wholeChanged();
    /// A picture that was waited for has come.
    void arrived();

protected:
    QSGNode* updatePaintNode(QSGNode* before, UpdatePaintNodeData* data) override;

private:
    void look();

    QPointer<TileRoom> m_room;
    std::optional<std::int64_t> m_key;
    QImage m_image;
    bool m_imageIsNew = false;
    bool m_whole = false;
};

} // namespace wendlow
