#pragma once

#include "Client.h"
#include "PaneModel.h"
#include "PaneState.h"

#include <QCoroTask>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace wendlow {

/// The pane of the recovery phrase: shows its words, and takes them back in. All judgement is the
/// daemon's. The words stand here while they are shown and nowhere else; who hides them has them
/// overwritten. UI thread; may go while answers are under way.
class RecoveryModel final : public PaneModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the model and hands it to the pane.")

    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString body READ body NOTIFY changed)
    /// What is said above all else: the store is locked, or why nobody knows; empty for nothing.
    Q_PROPERTY(QString warning READ warning NOTIFY changed)
    /// There is a key to be shown or to be given back.
    Q_PROPERTY(bool hasPhrase READ hasPhrase NOTIFY changed)

    Q_PROPERTY(QString phraseHeader READ phraseHeader CONSTANT)
    Q_PROPERTY(QString phraseFooter READ phraseFooter CONSTANT)
    Q_PROPERTY(QString maskedPhrase READ maskedPhrase CONSTANT)
    Q_PROPERTY(QString copyWords READ copyWords CONSTANT)
    Q_PROPERTY(QString revealWords READ revealWords NOTIFY changed)
    Q_PROPERTY(bool revealing READ isRevealing NOTIFY changed)
    Q_PROPERTY(bool revealed READ isRevealed NOTIFY changed)
    Q_PROPERTY(QStringList words READ words NOTIFY changed)
    /// Why it was not shown; empty: it was, or nobody asked.
    Q_PROPERTY(QString error READ error NOTIFY changed)

    Q_PROPERTY(QString restoreHeader READ restoreHeader CONSTANT)
    Q_PROPERTY(QString restoreFooter READ restoreFooter CONSTANT)
    Q_PROPERTY(QString restorePrompt READ restorePrompt CONSTANT)
    Q_PROPERTY(QString restoreButton READ restoreButton CONSTANT)
    Q_PROPERTY(bool restoring READ isRestoring NOTIFY changed)
    Q_PROPERTY(QString restoreProgress READ restoreProgress NOTIFY changed)
    /// What became of the phrase that was typed; empty for nothing.
    Q_PROPERTY(QString refusal READ refusal NOTIFY changed)
    Q_PROPERTY(QString accepted READ accepted NOTIFY changed)

public:
    using Words = std::vector<std::string>;

    struct Hidden {
        bool operator==(const Hidden&) const = default;
    };
    struct Revealed {
        Words words;
        bool operator==(const Revealed&) const = default;
    };
    struct Error {
        std::string sentence;
        bool operator==(const Error&) const = default;
    };
    using State = std::variant<Hidden, Revealed, Error>;

    struct Idle {
        bool operator==(const Idle&) const = default;
    };
    struct Working {
        bool operator==(const Working&) const = default;
    };
    struct Refused {
        std::string sentence;
        bool operator==(const Refused&) const = default;
    };
    struct Accepted {
        std::optional<std::string> note; ///< of the daemon
        bool operator==(const Accepted&) const = default;
    };
    using Restore = std::variant<Idle, Working, Refused, Accepted>;

    /// What the daemon says of its store.
    enum class Protection { armed, locked, plaintext };

    /// `copy` puts a text on the clipboard in place of what is there.
    RecoveryModel(std::shared_ptr<WendlowClient> client, std::function<void(const QString&)> copy);
    ~RecoveryModel() override;

    /// Asks how the store is protected; a newer question overtakes it.
    QCoro::Task<> load();
    QCoro::Task<> reveal();
    QCoro::Task<> adopt(QString text);
    /// Nothing is asked; an answer that is still to come is not shown.
    Q_INVOKABLE void hide();
    /// Only while the words are shown.
    Q_INVOKABLE void copy();
    Q_INVOKABLE void revealOrHide();
    Q_INVOKABLE void unlock(const QString& text);

    Q_INVOKABLE void refresh() override;
    /// Hides the words.
    void left() override;
    bool settled() const override { return m_asking == 0; }

    const State& state() const { return m_state; }
    const Restore& restore() const { return m_restore; }
    /// Leaves nothing of a word in the memory that it stands in, but for its length.
    static void overwrite(std::string& word);

    /// The words with a blank between them; empty unless they are shown.
    QString clipboardText() const;

    QString title() const;
    QString body() const;
    QString warning() const;
    bool hasPhrase() const;
    static QString phraseHeader();
    static QString phraseFooter();
    static QString maskedPhrase();
    static QString copyWords();
    QString revealWords() const;
    bool isRevealing() const { return m_revealing; }
    bool isRevealed() const { return std::holds_alternative<Revealed>(m_state); }
    QStringList words() const;
    QString error() const;
    static QString restoreHeader();
    static QString restoreFooter();
    static QString restorePrompt();
    static QString restoreButton();
    bool isRestoring() const { return std::holds_alternative<Working>(m_restore); }
    QString restoreProgress() const;
    QString refusal() const;
    QString accepted() const;

Q_SIGNALS:
    void changed();

private:
    void forgetWords();

    const std::shared_ptr<WendlowClient> m_client;
    const std::function<void(const QString&)> m_copy;
    PaneState<Protection> m_protection;
    State m_state;
    Restore m_restore;
    bool m_revealing = false;
    int m_reveals = 0; ///< an answer to an older one is not shown
    int m_loads = 0;
    int m_asking = 0;
};

} // namespace wendlow
