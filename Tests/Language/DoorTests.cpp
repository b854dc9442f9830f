#include "ApplicationSeat.h"
#include "DoorFault.h"
#include "LaunchOptions.h"
#include "PosedApps.h"
#include "SaidWords.h"
#include "SettingsApplication.h"
#include "ThemeSource.h"
#include "UnimplementedGateway.h"
#include "WindowPictures.h"

#include <QLocale>
#include <QTest>

#include <gtest/gtest.h>

#include <array>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;

/// The states whose sentences have no door yet; their names begin so.
constexpr std::array<const char*, 1> notYet{"settings-recovery"};

/// The whole application over a daemon that understands nothing.
class Door : public ::testing::Test {
protected:
    Door() {
        QAccessible::setActive(true);
        words.know(u"Wendlow Claude Code Codex Cursor OpenCode Ollama AM PM KB MB GB bytes"_s);
        words.know(u"Ctrl Alt Shift Esc Del Ins Backspace Menu Left Right"_s);
        words.know(u"Cl Cx Cu Op"_s); // in place of an app's picture
        for (int month = 1; month <= 12; ++month)
            words.know(QLocale().monthName(month) + u' ' +
                       QLocale().monthName(month, QLocale::ShortFormat));
        for (int day = 1; day <= 7; ++day)
            words.know(QLocale().dayName(day) + u' ' +
                       QLocale().dayName(day, QLocale::ShortFormat));
    }
    void TearDown() override {
        if (!faults.isEmpty())
            ADD_FAILURE() << faults.join(u'\n').toStdString();
    }

    /// The literals of what lies below this folder and is of a made-up world, by a part of its
    /// name.
    void knowWorld(const char* folder, const char* part = "") {
        const std::filesystem::path tree = std::filesystem::path(WENDLOW_TREE) / folder;
        int read = 0;
        for (const auto& file : std::filesystem::recursive_directory_iterator(tree)) {
            const std::string name = file.path().string();
            if (file.is_regular_file() && name.find(part, tree.string().size()) != name.npos) {
                words.knowLiteralsOf(file.path());
                ++read;
            }
        }
        EXPECT_GT(read, 0) << folder;
    }

    void look(const QQuickWindow& window, const QString& state) {
        for (const char* const prefix : notYet)
            if (state.startsWith(QLatin1String(prefix)))
                return;
        QTest::qWait(30); // what a change sets in motion is drawn
        for (const QString& fault : words.faults(window))
            faults.append(state + u": "_s + fault);
    }
    void look(const QSet<QString>& texts) { faults.append(words.faults(texts)); }

    /// Every state of a window of which there is a picture. Gives how many there were.
    int walk(WindowKind kind) {
        const WindowDescription& description = WindowDescriptions::of(kind);
        auto& window = static_cast<QQuickWindow&>(application.present(kind));
        int states = 0;
        description.takePictures({.window = window,
                                  .save =
                                      [&](const QString& state, PictureSession::Focus) {
                                          EXPECT_TRUE(QTest::qWaitFor([&] {
                                              return application.models().settled();
                                          })) << state.toStdString();
                                          look(window, state);
                                          ++states;
                                      },
                                  .looks = application.factory().looksOf(kind),
                                  .isAsGiven = true},
                                 application.models());
        return states;
    }
    /// The titles of the menus and of their lines.
    QSet<QString> menus() {
        QSet<QString> titles;
        for (const QVariant& menu : application.mainMenu().menus()) {
            titles.insert(menu.toMap()[u"title"_s].toString());
            for (const QVariant& line : menu.toMap()[u"items"_s].toList())
                titles.insert(line.toMap()[u"title"_s].toString());
        }
        return titles;
    }

    testing::SaidWords words;
    QStringList faults;
    DistributedNotificationCenter silent;
    SettingsApplication application{
        {.followLooks = [](ThemeSource& looks,
                           WindowFactory::Darkness) { looks.setReduceMotion(true); },
         .notifications = silent,
         .setupLog = [](const std::string&) {},
         .client = std::make_shared<InProcessClient>(std::make_shared<UnimplementedGateway>()),
         .chooseFile = [](FileChooser::Question) -> QCoro::Task<FileChooser::Answer> {
             co_return QString();
         }}};
};

TEST_F(Door, LetsThroughWholeSentencesAndData) {
    words.know(u"Codex notes"_s);
    words.mayQuote(u"Install "_s);
    const std::pair<const char*, const char*> cases[] = {
        {"⟦⟨Codex⟩ is connected.⟧", ""},
        {"/notes, 12 KB · ⟦Today⟧", ""},
        {"⟦Nothing yet.⟧ ⟦A clause ends.⟧\n⟦Another⟧", ""},
        {"⟦No answer — ⟨⟦it is gone⟧⟩⟧, ⟦⟨⟦⟨1.8⟩ GB⟧⟩ left⟧", ""},
        {"⟦Install ⟨⟦⟨Codex⟩ or ⟨Codex⟩⟧⟩⟧", ""},
        {"Copied", "goes round the door with “Copied”"},
        {"⟦a⟧ days", "goes round the door with “days”"},
        {"⟦⟨Codex⟩ was not ⟨connected⟩.⟧", "goes round the door with “connected”"},
        {"⟦⟨Codex⟩ is ⟨⟦not connected⟧⟩.⟧", "has a sentence for a piece"},
        {"⟦Show all⟧ ⟦lines⟧", "is glued of two"},
    };
    for (const auto& [text, fault] : cases)
        EXPECT_EQ(words.fault(QString::fromUtf8(text)).toStdString(), fault) << text;
}

TEST_F(Door, OfSettings) {
    knowWorld("Sources/WendlowSettings", "Pictures.cpp");
    // Kind and tier of a rule that this build does not know are told in the daemon's words.
    words.know(u"word never"_s);
    EXPECT_GE(walk(WindowKind::settings), 30);
    EXPECT_GT(words.said(), 150);
}

TEST_F(Door, OfTheAppsThatAreConnected) {
    knowWorld("Tests/Language", "PosedApps.h");
    auto& window = static_cast<QQuickWindow&>(application.present(WindowKind::settings));
    SettingsRoot& root = application.models().settings();
    root.select(Pane::connected);
    testing::PosedApps posed;
    ConnectedAppsModel& model = *posed.model;
    QObject::connect(&model, &PaneModel::said, &model,
                     [this](const QString& said) { look({said}); });
    root.pose(&model);
    look(window, u"looking"_s);
    model.scan();
    const auto lookAtAll = [&](const QString& state) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return model.settled(); }));
        for (const ConnectedAppRow& row : std::vector(model.apps())) {
            const QString id = QString::fromStdString(row.app.id);
            model.setOpen(id, true);
            EXPECT_TRUE(QTest::qWaitFor([&] { return model.settled(); }));
            look(window, id + u' ' + state);
            row.inventory->projects()->toggle();
            look(window, id + u' ' + state + u", all of it"_s);
            model.setOpen(id, false);
        }
    };
    lookAtAll(u"as found"_s);
    for (const ConnectedAppRow& row : std::vector(model.apps()))
        model.connect(QString::fromStdString(row.app.id));
    lookAtAll(u"connected"_s);
    for (const ConnectedAppRow& row : std::vector(model.apps()))
        model.disconnect(QString::fromStdString(row.app.id));
    lookAtAll(u"disconnected"_s);
    model.copyEndpoint();
    for (const auto& connector : posed.connectors)
        static_cast<MockConnector&>(*connector).becomes(ConnectorState::notFound);
    model.scan();
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.settled(); }));
    words.mayQuote(u"Install "_s); // a list of names, which is made by a sentence of its own
    look(window, u"none found"_s);
    root.pose(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the face goes first
    EXPECT_GT(words.said(), 80);
}

TEST_F(Door, OfMenusSheetsAndWhatAStartSays) {
    words.know(u"Qt Core D-Bus GUI Network QML Quick SVG QCoro Boost Describe JSON fmt libplist "
               "libsodium SQLite LGPL MIT BSL ISC"_s);
    look(static_cast<QQuickWindow&>(application.showAbout()), u"about"_s);
    look(static_cast<QQuickWindow&>(application.showShortcuts()), u"shortcuts"_s);
    application.present(WindowKind::workbench);
    EXPECT_TRUE(QTest::qWaitFor([&] { return menus().size() > 20; })) << "with that of the worlds";
    look(menus());
    for (const WindowDescription& window : WindowDescriptions::all()) {
        QWindow dressed;
        WindowDescriptions::dress(dressed, window);
        look({dressed.title()});
    }
    words.know(u"snapshots size pane text scale general connected recording classifier recovery"_s);
    for (const char* const option : {"--snapshots", "--size", "--pane=", "--text-scale"}) {
        const std::vector<std::string> arguments{option};
        look({QString::fromStdString(LaunchOptions::parse(arguments).error())});
    }
    look({QString::fromStdString(ApplicationSeat::unheardSentence())});
    for (const DoorFault fault :
         {DoorFault::absent, DoorFault::refused, DoorFault::silent, DoorFault::skew})
        look({QString::fromStdString(DoorFaults::message(fault))});
    EXPECT_GT(words.said(), 60);
}

} // namespace
} // namespace wendlow
