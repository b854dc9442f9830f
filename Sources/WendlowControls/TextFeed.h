#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace wendlow {

/// Puts words of any length into the document of a text editor: what is seen first at once, and the
/// rest in parts behind it, each as long as all before, so that the window opens without it. Each
/// line is a paragraph of its own, for an editor lays out and draws by paragraphs. Belongs to the
/// UI thread.
class TextFeed : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument* document MEMBER m_document NOTIFY documentChanged REQUIRED FINAL)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged REQUIRED FINAL)
    /// Of each line, in pixels.
    Q_PROPERTY(int lineHeight READ lineHeight WRITE setLineHeight NOTIFY lineHeightChanged FINAL)
    /// All of it is there.
    Q_PROPERTY(bool done READ isDone NOTIFY doneChanged FINAL)

public:
    explicit TextFeed(QObject* parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString& text);
    int lineHeight() const { return m_lineHeight; }
    void setLineHeight(int height);
    bool isDone() const { return m_at > m_text.size(); }

    /// From the beginning. To be called once, when the editor is there; other words, and another
    /// height of them, then begin anew by themselves.
    Q_INVOKABLE void start();
    /// The rest at once, however long that takes.
    Q_INVOKABLE void finish();

Q_SIGNALS:
    void documentChanged();
    void textChanged();
    void lineHeightChanged();
    void doneChanged();

private:
    void put(qsizetype budget);

    QPointer<QQuickTextDocument> m_document;
    QString m_text;
    int m_lineHeight = 0;
    bool m_started = false;
    qsizetype m_at = 0; ///< where the next line begins
    QTimer m_next;
};

} // namespace wendlow
