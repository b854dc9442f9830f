#include "EditActions.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QMetaObject>
#include <QQuickItem>
#include <QQuickWindow>

namespace wendlow {

namespace {

bool isText(const QObject& object) {
    return object.metaObject()->indexOfMethod("selectAll()") >= 0 &&
           object.metaObject()->indexOfProperty("selectedText") >= 0;
}

bool isMenu(QObject& object) {
    const QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(&object);
    if (!face)
        return false;
    const QAccessible::Role role = face->role();
    return role == QAccessible::MenuItem || role == QAccessible::MenuBar ||
           role == QAccessible::PopupMenu;
}

/// A text of a window that was closed keeps the focus in there.
bool isOnScreen(const QObject& text) {
    const auto* const item = qobject_cast<const QQuickItem*>(&text);
    return item && item->window() && item->window()->isVisible();
}

} // namespace

EditActions::EditActions() {
    connect(qGuiApp, &QGuiApplication::focusObjectChanged, this, &EditActions::followFocus);
    followFocus(QGuiApplication::focusObject());
}

void EditActions::followFocus(QObject* focus) {
    if (!focus)
        return; // another program has it, and the text has it again after that
    if (isText(*focus))
        m_text = focus;
    else if (!isMenu(*focus))
        m_text = nullptr;
}

std::vector<MenuLine> EditActions::lines() {
    return {line("undo", "Undo", QKeySequence(Qt::CTRL | Qt::Key_Z), Need::undoable),
            line("redo", "Redo", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), Need::redoable),
            {},
            line("cut", "Cut", QKeySequence(Qt::CTRL | Qt::Key_X), Need::changeableSelection),
            line("copy", "Copy", QKeySequence(Qt::CTRL | Qt::Key_C), Need::selection),
            line("paste", "Paste", QKeySequence(Qt::CTRL | Qt::Key_V), Need::pasteable),
            line("selectAll", "Select All", QKeySequence(Qt::CTRL | Qt::Key_A), Need::text)};
}

MenuLine EditActions::line(const char* verb, const char* title, const QKeySequence& keys,
                           Need need) {
    return {.id = QString::fromLatin1(verb),
            .title = QString::fromLatin1(title),
            .keys = keys,
            .act = [this, verb] { QMetaObject::invokeMethod(m_text, verb); },
            .enabled = [this, need] { return can(need); }};
}

bool EditActions::can(Need need) const {
    if (!m_text || !isOnScreen(*m_text))
        return false;
    const auto is = [this](const char* property) { return m_text->property(property).toBool(); };
    const bool selection = !m_text->property("selectedText").toString().isEmpty();
    switch (need) {
    case Need::undoable:
        return is("canUndo");
    case Need::redoable:
        return is("canRedo");
    case Need::changeableSelection:
        return selection && !is("readOnly");
    case Need::selection:
        return selection;
    case Need::pasteable:
        return is("canPaste") && !is("readOnly");
    case Need::text:
        return true;
    }
    return false;
}

} // namespace wendlow

#include "moc_EditActions.cpp"
