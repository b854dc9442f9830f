#include "TextFeed.h"

#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <chrono>
#include <limits>

namespace wendlow {

namespace {

using namespace std::chrono_literals;

// In letters. The first fill any window. Each further part is as long as all that is there, for the
// editor draws all of that anew with each.
constexpr qsizetype firstPart = 8'000;
constexpr qsizetype perLine = 40; ///< what a line costs beside its letters

} // namespace

TextFeed::TextFeed(QObject* parent) : QObject(parent) {
    m_next.setSingleShot(true);
    m_next.setInterval(16ms);
    connect(&m_next, &QTimer::timeout, this, [this] { put(m_at); });
}

void TextFeed::setText(const QString& text) {
    if (m_text == text)
        return;
    m_text = text;
    Q_EMIT textChanged();
    if (m_started)
        start();
}

void TextFeed::setLineHeight(int height) {
    if (m_lineHeight == height)
        return;
    m_lineHeight = height;
    Q_EMIT lineHeightChanged();
    if (m_started)
        start();
}

void TextFeed::start() {
    m_started = true;
    m_at = 0;
    if (m_document) {
        m_document->textDocument()->setUndoRedoEnabled(false);
        m_document->textDocument()->clear();
    }
    put(firstPart);
}

void TextFeed::finish() {
    if (!isDone())
        put(std::numeric_limits<qsizetype>::max());
}

void TextFeed::put(qsizetype budget) {
    m_next.stop();
    if (!m_document)
        return;
    QTextBlockFormat paragraph;
    paragraph.setLineHeight(m_lineHeight, QTextBlockFormat::FixedHeight);
    QTextCursor cursor(m_document->textDocument());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    for (; budget > 0 && !isDone();) {
        if (m_at == 0)
            cursor.setBlockFormat(paragraph);
        else
            cursor.insertBlock(paragraph);
        const qsizetype found = m_text.indexOf(u'\n', m_at);
        const qsizetype end = found < 0 ? m_text.size() : found;
        QString line = m_text.mid(m_at, end - m_at);
        if (line.endsWith(u'\r'))
            line.chop(1);
        cursor.insertText(line.replace(u'\t', QStringLiteral("    ")));
        budget -= line.size() + perLine;
        m_at = end + 1;
    }
    cursor.endEditBlock();
    if (!isDone())
        m_next.start();
    Q_EMIT doneChanged();
}

} // namespace wendlow

#include "moc_TextFeed.cpp"
