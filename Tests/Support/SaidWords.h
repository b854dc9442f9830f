#pragma once

#include <QAccessible>
#include <QFile>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <filesystem>
#include <utility>

namespace wendlow::testing {

/// Tells what a person reads that came through no door. It is read in a language in which each
/// sentence stands in ⟦brackets⟧ and each of its holes in ⟨others⟩: outside of a sentence, and in
/// its holes, there is but data, which is known by the words that a made-up world is made of.
class SaidWords {
public:
    /// What is called so in every language, and what the toolkit and the locale word: a key, a
    /// month, a unit.
    void know(const QString& data) {
        for (auto found = wordIn.globalMatch(data); found.hasNext();)
            m_known.insert(found.next().captured());
    }
    /// The words of the literals of a source.
    void knowLiteralsOf(const std::filesystem::path& source) {
        static const QRegularExpression literal(
            QStringLiteral(R"re(^[ \t]*#[^\n]*|//[^\n]*|R"\((.*?)\)"|"((?:\\.|[^"\\\n])*)")re"),
            QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
        static const QRegularExpression escape(QStringLiteral(R"(\\[a-z])"));
        QFile file(QString::fromStdString(source.string()));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("%s cannot be read", source.c_str());
        for (auto found = literal.globalMatch(QString::fromUtf8(file.readAll()));
             found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            QString text = match.captured(1) + match.captured(2);
            know(text.replace(escape, QStringLiteral(" ")));
        }
    }
    /// A sentence that begins so may have another in one of its holes. Any may have a measure, and
    /// a clause where it quotes one: behind a dash, a colon, or the beginning of a quotation.
    void mayQuote(const QString& beginning) { m_quoting.append(beginning); }

    /// What is wrong with these words; empty for nothing.
    QString fault(const QString& words) const {
        QString open;  // the brackets that are, from the outside
        QString plain; // since the last of them
        QChar ended;   // what the sentence before ends with
        for (qsizetype at = 0; at < words.size(); ++at) {
            const QChar sign = words[at];
            const bool isSaid = open.endsWith(u'⟦');
            const bool opens = sign == u'⟦' || sign == u'⟨';
            if (!opens && sign != u'⟧' && sign != u'⟩') {
                plain += sign;
                continue;
            }
            if (!isSaid)
                if (const QString unknown = unknownIn(plain); !unknown.isEmpty())
                    return unknown;
            if (sign == u'⟦') {
                if (!ended.isNull() && plain.trimmed().isEmpty() && !plain.contains(u'\n') &&
                    !QStringLiteral(".!?…:").contains(ended))
                    return QStringLiteral("is glued of two");
                if (!open.isEmpty() && !mayFill(words, at))
                    return QStringLiteral("has a sentence for a piece");
            }
            ended = sign == u'⟧' ? words[at - 1] : QChar();
            plain.clear();
            if (opens)
                open += sign;
            else
                open.chop(1);
        }
        return unknownIn(plain);
    }

    /// The faults of everything that a person reads or hears of a window, each once.
    QStringList faults(const QQuickWindow& window) {
        m_texts = {window.title()};
        readItem(*window.contentItem());
        readAloud(QAccessible::queryAccessibleInterface(const_cast<QQuickWindow*>(&window)));
        return faults(m_texts);
    }
    QStringList faults(const QSet<QString>& texts) {
        QStringList all;
        for (const QString& text : texts) {
            if (m_told.contains(text))
                continue;
            m_told.insert(text);
            m_said += text.count(u'⟦');
            if (const QString what = fault(text); !what.isEmpty())
                all.append(QStringLiteral("“%1” %2").arg(text, what));
        }
        return all;
    }
    /// Sentences that came through a door so far, each once for each filling of its holes.
    qsizetype said() const { return m_said; }

private:
    QString unknownIn(QString plain) const {
        static const QRegularExpression path(QStringLiteral(R"((?<![\p{L}\d])~?/\S+)"));
        plain.remove(path);
        for (auto found = wordIn.globalMatch(plain); found.hasNext();)
            // A letter may stand for a picture.
            if (const QString word = found.next().captured();
                word.size() > 1 && !m_known.contains(word))
                return QStringLiteral("goes round the door with “%1”").arg(word);
        return {};
    }
    bool mayFill(const QString& words, qsizetype at) const {
        static const QRegularExpression measure(QStringLiteral(R"(^⟦⟨?[\d.,]+⟩? ?\S+⟧)"));
        static const QRegularExpression quotes(QStringLiteral(R"((— |: |“)⟨$)"));
        for (const QString& beginning : m_quoting)
            if (words.left(at).contains(u'⟦' + beginning))
                return true;
        return measure.match(words.mid(at)).hasMatch() || quotes.match(words.left(at)).hasMatch();
    }

    void readItem(const QQuickItem& item) {
        if (!item.isVisible())
            return;
        const bool isText = item.inherits("QQuickText") || item.inherits("QQuickTextEdit") ||
                            item.inherits("QQuickTextInput");
        // A tooltip is made while it is wanted, but known before.
        if (isText || QByteArrayView(item.metaObject()->className()).startsWith("Hint_")) {
            QString text = item.property("text").toString();
            if (item.property("textFormat").toInt() != Qt::PlainText && Qt::mightBeRichText(text))
                text = QTextDocumentFragment::fromHtml(text).toPlainText();
            m_texts.insert(text);
        }
        for (const QQuickItem* const child : item.childItems())
            readItem(*child);
    }
    void readAloud(QAccessibleInterface* face) {
        for (int at = 0; face && at < face->childCount(); ++at) {
            QAccessibleInterface* const child = face->child(at);
            if (!child || child->state().invisible)
                continue;
            m_texts.insert(child->text(QAccessible::Name));
            m_texts.insert(child->text(QAccessible::Description));
            readAloud(child);
        }
    }

    /// Letters beside figures are those of a name or a number.
    inline static const QRegularExpression wordIn{
        QStringLiteral(R"((?<![\p{L}\d])\p{L}[\p{L}\p{M}’']*+(?!\d))"),
        QRegularExpression::UseUnicodePropertiesOption};

    QSet<QString> m_known;
    QStringList m_quoting;
    QSet<QString> m_texts;
    QSet<QString> m_told;
    qsizetype m_said = 0;
};

} // namespace wendlow::testing
