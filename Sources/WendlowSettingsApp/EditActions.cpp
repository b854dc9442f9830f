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
    return {line("undo", Shortcuts::Undo, Need::undoable),
            line("redo", Shortcuts::Redo, Need::redoable),
            {},
            line("cut", Shortcuts::Cut, Need::changeableSelection),
            line("copy", Shortcuts::Copy, Need::selection),
            line("paste", Shortcuts::Paste, Need::pasteable),
            line("selectAll", Shortcuts::SelectAll, Need::text)};
}

MenuLine EditActions::line(const char* verb, Shortcuts::Id keys, Need need) {
    MenuLine line =
        MenuLine::of(keys, verb, [this, verb] { QMetaObject::invokeMethod(m_text, verb); });
    line.enabled = [this, need] { return can(need); };
    return line;
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
