#pragma once

#include "ExportedScreens.h"
#include "Model/EditorMoment.h"
#include "Moments/TileRoom.h"
#include "Store/Lifetime.h"

#include <QCoroTask>
#include <QObject>
#include <QUrl>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <optional>

namespace wendlow {

/// One moment opened large: its picture, or its words. UI thread; may go while a picture is being
/// written. The room of the pictures must outlive it.
class MomentLightbox final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the moments makes it.")
    Q_PROPERTY(bool open READ isOpen NOTIFY changed)
    /// It is words.
    Q_PROPERTY(bool textCard READ isTextCard NOTIFY changed)
    Q_PROPERTY(QString badge READ badge NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    /// When it was.
    Q_PROPERTY(QString when READ when NOTIFY changed)
    Q_PROPERTY(QString body READ body NOTIFY changed)
    Q_PROPERTY(QString files READ files NOTIFY changed)
    /// Of its picture; empty for none.
    Q_PROPERTY(QString key READ key NOTIFY changed)
    Q_PROPERTY(double shade READ shade NOTIFY changed)
    /// The picture can be opened and copied.
    Q_PROPERTY(bool ready READ isReady NOTIFY changed)
    /// In place of the picture: that it is read, or that there is none. Empty: it is there.
    Q_PROPERTY(QString pictureWords READ pictureWords NOTIFY changed)
    Q_PROPERTY(bool waiting READ isWaiting NOTIFY changed)
    /// The picture is being written for another program.
    Q_PROPERTY(bool opening READ isOpening NOTIFY changed)
    /// What went wrong; empty: nothing.
    Q_PROPERTY(QString refusal READ refusal NOTIFY changed)

public:
    /// The way of a picture to the person's other programs.
    struct Door {
        std::function<std::optional<ExportedScreens>()> folder = ExportedScreens::live;
        std::function<bool(const QUrl&)> open; ///< whether a program was found; none: the desktop's
    };

    MomentLightbox(TileRoom& room, Door door);
    ~MomentLightbox() override { m_life.end(); }

    void show(EditorMoment moment);
    Q_INVOKABLE void dismiss();
    /// It has gone from the screen: what it showed is let go of.
    Q_INVOKABLE void wentAway();
    /// Writes the picture into the private folder and has the person's own viewer show it.
    Q_INVOKABLE void openPicture();
    /// Puts the picture on the clipboard. Gives whether there is one.
    Q_INVOKABLE bool copyPicture();
    /// Says what went wrong.
    void refuse(const QString& words);

    bool isOpen() const { return m_open; }
    bool isTextCard() const { return m_moment && m_moment->drawsTextCard(); }
    QString badge() const;
    QString title() const;
    QString when() const;
    QString body() const;
    QString files() const;
    QString key() const;
    double shade() const;
    bool isReady() const { return m_key && !m_room.whole().isNull(); }
    bool isWaiting() const { return m_key && !isReady() && !m_room.hasNone(*m_key); }
    QString pictureWords() const;
    bool isOpening() const { return m_opening; }
    const QString& refusal() const { return m_refusal; }

Q_SIGNALS:
    void changed();

private:
    QCoro::Task<> exportPicture(EditorMoment moment, std::string bytes);

    TileRoom& m_room;
    const Door m_door;
    bool m_open = false;
    std::optional<EditorMoment> m_moment; ///< stays while it closes
    std::optional<std::int64_t> m_key;
    bool m_opening = false;
    QString m_refusal;
    Lifetime m_life;
};

} // namespace wendlow
