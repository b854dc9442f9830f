#pragma once

#include "MainMenu.h"

#include <QObject>
#include <QPointer>

namespace wendlow {

/// The Edit menu's verbs, done by the text that a person is working in. The text stays theirs while
/// a menu has the focus. UI thread.
class EditActions final : public QObject {
    Q_OBJECT

public:
    EditActions();

    /// The lines of the Edit menu. The object must outlive them.
    std::vector<MenuLine> lines();

private:
    enum class Need { undoable, redoable, changeableSelection, selection, pasteable, text };

    MenuLine line(const char* verb, Shortcuts::Id keys, Need need);
    void followFocus(QObject* focus);
    bool can(Need need) const;

    QPointer<QObject> m_text;
};

} // namespace wendlow
