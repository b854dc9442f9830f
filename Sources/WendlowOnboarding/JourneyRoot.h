#pragma once

#include "JourneyAppsList.h"
#include "JourneyModel.h"
#include "JourneyWords.h"
#include "LocalModelsList.h"

#include <QAbstractItemModel>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariantList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>

namespace wendlow {

/// What the window of the first-run journey shows: the model in words, marks and rows, and its
/// buttons. Lives as long as a journey; a window that comes back gets another. UI thread.
class JourneyRoot final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the root and hands it to the window.")

    /// Which screen is shown, by its short name: "welcome", "screenrec", "accessibility", "mic",
    /// "recovery", "ais", "models", "hello", "warming" or "done".
    Q_PROPERTY(QString screen READ screen NOTIFY screenChanged)
    /// The machine has been looked at, and the screen is the right one; before, show nothing yet.
    Q_PROPERTY(bool started READ isStarted NOTIFY startedChanged)
    /// Maps with `title`, `mark` ("done", "current" or "todo") and `spoken`.
    Q_PROPERTY(QVariantList rail READ rail NOTIFY screenChanged)
    /// "step 3 of 6"; empty behind the last.
    Q_PROPERTY(QString railSpoken READ railSpoken NOTIFY screenChanged)
    Q_PROPERTY(bool railClickable READ isRailClickable CONSTANT)
    /// Three maps with `title`, `mark` and `spoken` on a permission screen, else none.
    Q_PROPERTY(QVariantList stepper READ stepper NOTIFY stepperChanged)

    // The words of the screen that is shown; what a screen does not have is empty.
    Q_PROPERTY(QString eyebrow READ eyebrow NOTIFY screenChanged)
    /// In accent above the title: "✓ Plugged in. …"
    Q_PROPERTY(QString doneLine READ doneLine NOTIFY screenChanged)
    Q_PROPERTY(QString title READ title NOTIFY screenChanged)
    /// Of several the last ones are second text.
    Q_PROPERTY(QStringList paragraphs READ paragraphs NOTIFY screenChanged)
    /// The card with a hint: its bold first line, and what follows.
    Q_PROPERTY(QString hintTitle READ hintTitle NOTIFY hintChanged)
    /// In the tags of styled text; `hintSpoken` is title and text without.
    Q_PROPERTY(QString hint READ hint NOTIFY hintChanged)
    Q_PROPERTY(QString hintSpoken READ hintSpoken NOTIFY hintChanged)

    // The foot of every screen.
    /// The primary button; empty where there is none.
    Q_PROPERTY(QString primaryWords READ primaryWords NOTIFY primaryChanged)
    Q_PROPERTY(bool primaryEnabled READ isPrimaryEnabled NOTIFY primaryChanged)
    /// A press has been taken and is being carried out; the button is busy.
    Q_PROPERTY(bool primaryBusy READ isPrimaryBusy NOTIFY primaryChanged)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY screenChanged)
    /// Back to the furthest screen that was reached, while a person looks back.
    Q_PROPERTY(bool canReturn READ canReturn NOTIFY screenChanged)
    Q_PROPERTY(QString backWords READ backWords CONSTANT)
    Q_PROPERTY(QString returnWords READ returnWords CONSTANT)

    // "welcome"
    Q_PROPERTY(bool agreedToTerms READ agreedToTerms WRITE setAgreedToTerms NOTIFY ticksChanged)
    Q_PROPERTY(bool autoInstall READ autoInstall WRITE setAutoInstall NOTIFY ticksChanged)
    Q_PROPERTY(QString termsTick READ termsTick CONSTANT)
    /// Which of its words is the link.
    Q_PROPERTY(QString termsWord READ termsWord CONSTANT)
    Q_PROPERTY(QString updatesTick READ updatesTick CONSTANT)

    // "screenrec", "accessibility", "mic"
    Q_PROPERTY(QString askWords READ askWords NOTIFY screenChanged)
    Q_PROPERTY(bool granted READ isGranted NOTIFY grantChanged)
    /// "✓ Permission granted"
    Q_PROPERTY(QString grantedLine READ grantedLine NOTIFY screenChanged)
    /// It has been asked for and is not there yet: a spinner with `awaiting` beside the button.
    Q_PROPERTY(bool waiting READ isWaiting NOTIFY grantChanged)
    Q_PROPERTY(QString awaiting READ awaiting CONSTANT)
    /// Why it will not come by itself; empty: nothing is known against it.
    Q_PROPERTY(QString refusedLine READ refusedLine NOTIFY grantChanged)
    /// Small, below the paragraphs of the first of the three.
    Q_PROPERTY(QString customizeHint READ customizeHint NOTIFY screenChanged)

    // "recovery"
    /// The twelve words; none while they are not known or another screen is shown.
    Q_PROPERTY(QStringList phrase READ phrase NOTIFY phraseChanged)
    /// In place of the words: why they cannot be shown.
    Q_PROPERTY(QString phraseFailure READ phraseFailure NOTIFY phraseChanged)
    Q_PROPERTY(bool phraseLoading READ isPhraseLoading NOTIFY phraseChanged)
    Q_PROPERTY(bool wroteItDown READ wroteItDown WRITE setWroteItDown NOTIFY ticksChanged)
    Q_PROPERTY(QString wroteItDownTick READ wroteItDownTick CONSTANT)
    Q_PROPERTY(QString phraseHint READ phraseHint CONSTANT)

    // "ais"
    /// `JourneyAppsList`: appId, name, detail, iconAsset, iconGlyph, connected, busy, refusal,
    /// spoken.
    Q_PROPERTY(QAbstractItemModel* apps READ apps CONSTANT)
    /// In place of the rows while there is none.
    Q_PROPERTY(QString appsWords READ appsWords NOTIFY appsChanged)
    Q_PROPERTY(QString appsAdvice READ appsAdvice NOTIFY appsChanged)
    /// "select all" or "unselect all"; empty without rows.
    Q_PROPERTY(QString allWords READ allWords NOTIFY appsChanged)

    // "models"
    /// `LocalModelsList`: name, line, state, fraction, spoken.
    Q_PROPERTY(QAbstractItemModel* models READ models CONSTANT)
    /// In place of the rows while nothing is known.
    Q_PROPERTY(QString modelsWords READ modelsWords NOTIFY modelsChanged)
    /// How much of how much, and by when, in one line; empty while nothing can be said.
    Q_PROPERTY(QString modelsLine READ modelsLine NOTIFY modelsChanged)
    Q_PROPERTY(bool offersCancel READ offersCancel NOTIFY modelsChanged)
    Q_PROPERTY(QString cancelWords READ cancelWords CONSTANT)

    // The dialog before a cancel, as it stood when it was asked for.
    Q_PROPERTY(bool confirming READ isConfirming NOTIFY cancelChanged)
    Q_PROPERTY(QString confirmTitle READ confirmTitle CONSTANT)
    Q_PROPERTY(QString confirmBody READ confirmBody CONSTANT)
    /// Above the lines of what goes; without lines: that there are none.
    Q_PROPERTY(QString confirmRemovesTitle READ confirmRemovesTitle NOTIFY cancelChanged)
    Q_PROPERTY(QStringList confirmRemoves READ confirmRemoves NOTIFY cancelChanged)
    /// Above the lines of what stays; empty where there are none.
    Q_PROPERTY(QString confirmKeepsTitle READ confirmKeepsTitle NOTIFY cancelChanged)
    Q_PROPERTY(QStringList confirmKeeps READ confirmKeeps NOTIFY cancelChanged)
    Q_PROPERTY(QString confirmProceed READ confirmProceed CONSTANT)
    Q_PROPERTY(QString confirmKeepGoing READ confirmKeepGoing CONSTANT)
    /// It is under way: the dialog stays, with progress, until the application ends.
    Q_PROPERTY(bool cancelling READ isCancelling NOTIFY cancelChanged)
    Q_PROPERTY(QString cancellingWords READ cancellingWords CONSTANT)
    /// The download could not be stopped; over everything, until it is read.
    Q_PROPERTY(bool cancelFailed READ hasCancelFailed NOTIFY cancelChanged)
    Q_PROPERTY(QString cancelFailedTitle READ cancelFailedTitle CONSTANT)
    Q_PROPERTY(QString cancelFailedBody READ cancelFailedBody CONSTANT)
    Q_PROPERTY(QString cancelFailedButton READ cancelFailedButton CONSTANT)

    // "hello"
    Q_PROPERTY(QString stepOne READ stepOne CONSTANT)
    Q_PROPERTY(QString stepOneSub READ stepOneSub CONSTANT)
    Q_PROPERTY(QString stepTwo READ stepTwo CONSTANT)
    Q_PROPERTY(QString stepTwoSub READ stepTwoSub CONSTANT)
    Q_PROPERTY(QString bothLine READ bothLine CONSTANT)
    Q_PROPERTY(bool helloReceived READ helloReceived NOTIFY helloChanged)
    /// "listening for your AI" with a spinner, then "hello received".
    Q_PROPERTY(QString helloLine READ helloLine NOTIFY helloChanged)

public:
    explicit JourneyRoot(std::unique_ptr<JourneyModel> model);

    /// The window shows it: the machine is looked at, and the first screen chosen.
    Q_INVOKABLE void appear();
    /// The button at the foot, whatever it is on this screen; nothing while it is not enabled.
    Q_INVOKABLE void press();
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void returnForward();
    /// Does nothing while the rail is not clickable.
    Q_INVOKABLE void jump(int step);

    Q_INVOKABLE void openTerms();
    /// Asks for the permission of this screen.
    Q_INVOKABLE void ask();
    Q_INVOKABLE void setWired(const QString& appId, bool on);
    /// Plugs in all, or unplugs all where all are plugged in.
    Q_INVOKABLE void toggleAll();

    Q_INVOKABLE void askToCancel(); ///< opens the dialog
    Q_INVOKABLE void keepGoing();   ///< closes it; nothing while a cancel is under way
    Q_INVOKABLE void cancelInstall();
    Q_INVOKABLE void closeCancelFailed();

    /// The lines between the circles of the stepper: maps with `x`, `width` and `done`.
    Q_INVOKABLE QVariantList stepperLines(double column, double circle, double gap) const;

    /// A person comes back to the window.
    void lookAgain();
    JourneyModel& model() { return *m_model; }

    QString screen() const;
    bool isStarted() const { return m_model->isStarted(); }
    QVariantList rail() const;
    QString railSpoken() const;
    bool isRailClickable() const { return m_model->isRailClickable(); }
    QVariantList stepper() const;
    QString eyebrow() const;
    QString doneLine() const;
    QString title() const;
    QStringList paragraphs() const;
    QString hintTitle() const;
    QString hint() const;
    QString hintSpoken() const;
    QString primaryWords() const;
    bool isPrimaryEnabled() const;
    bool isPrimaryBusy() const { return m_model->isMoving(); }
    bool canGoBack() const { return m_model->canGoBack(); }
    bool canReturn() const { return m_model->canReturn(); }
    static QString backWords();
    static QString returnWords();
    bool agreedToTerms() const { return m_model->agreedToTerms(); }
    void setAgreedToTerms(bool agreed) { m_model->setAgreedToTerms(agreed); }
    bool autoInstall() const { return m_model->autoInstall(); }
    void setAutoInstall(bool automatic) { m_model->setAutoInstall(automatic); }
    static QString termsTick();
    static QString termsWord();
    static QString updatesTick();
    QString askWords() const;
    bool isGranted() const;
    QString grantedLine() const;
    bool isWaiting() const;
    static QString awaiting();
    QString refusedLine() const;
    QString customizeHint() const;
    QStringList phrase() const;
    QString phraseFailure() const;
    bool isPhraseLoading() const;
    bool wroteItDown() const { return m_model->wroteItDown(); }
    void setWroteItDown(bool wrote) { m_model->setWroteItDown(wrote); }
    static QString wroteItDownTick();
    static QString phraseHint();
    QAbstractItemModel* apps() { return &m_apps; }
    QString appsWords() const;
    QString appsAdvice() const;
    QString allWords() const;
    QAbstractItemModel* models() { return &m_models; }
    QString modelsWords() const;
    QString modelsLine() const;
    bool offersCancel() const;
    static QString cancelWords();
    bool isConfirming() const { return m_confirming; }
    static QString confirmTitle();
    static QString confirmBody();
    QString confirmRemovesTitle() const;
    QStringList confirmRemoves() const { return m_removes; }
    QString confirmKeepsTitle() const;
    QStringList confirmKeeps() const { return m_keeps; }
    static QString confirmProceed();
    static QString confirmKeepGoing();
    bool isCancelling() const { return m_model->isCancelling(); }
    static QString cancellingWords();
    bool hasCancelFailed() const { return m_model->hasCancelFailed(); }
    static QString cancelFailedTitle();
    static QString cancelFailedBody();
    static QString cancelFailedButton();
    static QString stepOne();
    static QString stepOneSub();
    static QString stepTwo();
    static QString stepTwoSub();
    static QString bothLine();
    bool helloReceived() const;
    QString helloLine() const;

Q_SIGNALS:
    void screenChanged();
    void startedChanged();
    void stepperChanged();
    void hintChanged();
    void primaryChanged();
    void ticksChanged();
    void grantChanged();
    void phraseChanged();
    void appsChanged();
    void modelsChanged();
    void helloChanged();
    void cancelChanged();
    /// A person who does not see the window is to hear this.
    void said(const QString& words);

private:
    void tellScreen();
    void showGrants();
    void showApps();
    void showModels();
    void showHello();
    JourneyWords::Hint hintParts() const;
    bool areAllWired() const;

    const std::unique_ptr<JourneyModel> m_model;
    JourneyAppsList m_apps{nullptr};
    LocalModelsList m_models{nullptr};
    bool m_appeared = false;
    bool m_wasGranted = false; ///< as it was last told
    bool m_confirming = false;
    QStringList m_removes;
    QStringList m_keeps;
};

} // namespace wendlow
