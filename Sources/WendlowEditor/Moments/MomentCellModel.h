#pragma once

#include "Model/EditorMoment.h"
#include "Moments/MomentLayout.h"

#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

#include <optional>

namespace wendlow {

/// What one cell of the page shows. A cell is there for good and shows one moment after the other
/// as they come by: only what differs then is told, and no text is worked out twice. Its words may
/// come later than the rest: until then those of the moment before are held, and are not to be
/// shown. UI thread.
class MomentCellModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The grid of the moments makes it.")
    /// It is needed.
    Q_PROPERTY(bool shown READ isShown NOTIFY shownChanged FINAL)
    /// The keys are at its moment.
    Q_PROPERTY(bool current READ isCurrent NOTIFY currentChanged FINAL)
    /// Of the moment on the page.
    Q_PROPERTY(int place READ place NOTIFY placed FINAL)
    Q_PROPERTY(int column READ column NOTIFY placed FINAL)
    Q_PROPERTY(double top READ top NOTIFY placed FINAL)
    /// It is words.
    Q_PROPERTY(bool textCard READ isTextCard NOTIFY kindChanged FINAL)
    /// The grey in place of a picture; 0 for none.
    Q_PROPERTY(double shade READ shade NOTIFY kindChanged FINAL)
    /// Of its picture; empty for none.
    Q_PROPERTY(QString key READ key NOTIFY keyChanged FINAL)
    /// Its words are those of its moment.
    Q_PROPERTY(bool told READ isTold NOTIFY toldChanged FINAL)
    /// Below a picture; empty for words.
    Q_PROPERTY(QString caption READ caption NOTIFY worded FINAL)
    Q_PROPERTY(QString time READ time NOTIFY worded FINAL)
    /// For a screen reader.
    Q_PROPERTY(QString spoken READ spoken NOTIFY worded FINAL)
    Q_PROPERTY(QString tip READ tip NOTIFY worded FINAL)
    /// These are of words alone.
    Q_PROPERTY(QString title READ title NOTIFY storyChanged FINAL)
    Q_PROPERTY(QString badge READ badge NOTIFY storyChanged FINAL)
    Q_PROPERTY(QString body READ body NOTIFY storyChanged FINAL)
    Q_PROPERTY(QString files READ files NOTIFY storyChanged FINAL)

public:
    explicit MomentCellModel(QObject* parent) : QObject(parent) {}

    /// Its moment by its place among those held; nothing: the cell is not needed, or what it shows
    /// is not held any more.
    std::optional<std::size_t> held() const { return m_held; }
    /// It shows what is not held any more.
    bool isStale() const { return m_shown && !m_held; }

    enum class Words { now, later };

    void show(std::size_t held, const EditorMoment& moment, Words words = Words::now);
    /// The words of the moment that it shows, where they are still to come.
    void tell(const EditorMoment& moment);
    void stand(std::size_t place, MomentLayout::Spot spot);
    void setCurrent(bool isCurrent);
    /// What it shows is not held any more; it is shown until there is something else.
    void forget() { m_held.reset(); }
    void hide();

    bool isShown() const { return m_shown; }
    bool isCurrent() const { return m_current; }
    int place() const { return static_cast<int>(m_place); }
    int column() const { return m_spot.column; }
    double top() const { return m_spot.top; }
    bool isTextCard() const { return m_textCard; }
    double shade() const { return m_shade; }
    QString key() const { return m_key; }
    bool isTold() const { return m_told; }
    QString caption() const { return m_textCard ? QString() : m_title; }
    QString title() const { return m_story.title; }
    QString time() const { return m_time; }
    QString spoken() const;
    QString tip() const;
    QString badge() const { return m_story.badge; }
    QString body() const { return m_story.body; }
    QString files() const { return m_story.files; }

Q_SIGNALS:
    void shownChanged();
    void currentChanged();
    void placed();
    void kindChanged();
    void keyChanged();
    void toldChanged();
    void worded();
    void storyChanged();

private:
    struct Story {
        QString badge, title, body, files, filesTip;

        bool operator==(const Story&) const = default;
    };

    static Story storyOf(const EditorMoment& moment);
    void word(const EditorMoment& moment);

    std::optional<std::size_t> m_held;
    std::size_t m_place = 0;
    MomentLayout::Spot m_spot;
    bool m_shown = false;
    bool m_current = false;
    bool m_textCard = false;
    bool m_told = true;
    double m_shade = 0;
    QString m_key, m_title, m_time;
    Story m_story;
};

} // namespace wendlow
