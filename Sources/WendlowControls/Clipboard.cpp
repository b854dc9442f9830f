#include "Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace wendlow {

bool Clipboard::copy(const QString& text) {
    if (!text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
    return !text.isEmpty();
}

} // namespace wendlow

#include "moc_Clipboard.cpp"
