#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <array>
#include <span>
#include <string_view>

namespace wendlow {

/// Every key that does something by name, in one table: the menus, the faces and the sheet that
/// tells them to a person all take theirs from it. What is walked by arrows or pressed by Return is
/// no part of it. Any thread; the table is fixed.
class Shortcuts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// In the order of the sheet.
    enum Id {
        KeyboardShortcuts,
        Settings,
        Close,
        Minimize,
        MenuBar,
        Quit,

        Undo,
        Redo,
        Cut,
        Copy,
        Paste,
        SelectAll,

        Search,
        BackToResults,
        StepBack,
        CopyMemory,
        MemoryMenu,
        NewRule,
        NewScope,
        EraseLine,

        DayZero,
        SomeData,
        PowerUser,
        RealData,

        PreviousDay,
        NextDay,
        Today,
        Refresh,

        DiagnosticLog,
        RemoveRule,
    };
    Q_ENUM(Id)

    struct Line {
        Id id;
        const char* place; ///< where the keys work; still to be said
        const char* title; ///< what they do; of what is in a menu, the words there; to be said too
        std::array<std::string_view, 2>
            keys; ///< as the toolkit writes them; the second may be empty
    };

    using QObject::QObject;

    /// In the order of the cases; those of one place stand together.
    static std::span<const Line> all();
    static QString place(Id id);
    static QString title(Id id);
    /// One at least; a person is told the first.
    static QList<QKeySequence> keys(Id id);

    /// For the sequences of a shortcut in QML.
    Q_INVOKABLE static QVariantList of(int id);
    /// As a person reads them, for a menu or a tooltip.
    Q_INVOKABLE static QString told(int id);
    /// Whether this key press is meant, for what has to have the focus to be worked.
    Q_INVOKABLE static bool isPressed(int id, int key, int modifiers);
};

} // namespace wendlow
