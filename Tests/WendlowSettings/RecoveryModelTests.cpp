#include "PlayedDaemon.h"
#include "Recovery/RecoveryModel.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;
using ::testing::HasSubstr;
using testing::PlayedDaemon;
using Words = RecoveryModel::Words;
using Verbs = std::vector<std::string>;

const Words phrase{"amber",  "canvas", "orbit",  "gentle",
                   "harbor", "lemon",  "meadow", "pepper",
                   "quiet",  "river",  "saddle", "a-word-beyond-sixteen-letters"};

struct Recovery : ::testing::Test {
    Recovery() {
        daemon->answer("recovery_state", {AnswerCase::Text{"armed"}});
        daemon->answer("reveal_phrase", {AnswerCase::Phrase{phrase}});
    }
    ~Recovery() override { daemon->release(); }

    std::shared_ptr<PlayedDaemon> daemon = std::make_shared<PlayedDaemon>();
    QStringList copied;
    std::unique_ptr<RecoveryModel> model = std::make_unique<RecoveryModel>(
        daemon, [this](const QString& text) { copied.append(text); });
};

TEST_F(Recovery, RevealsCopiesAndHides) {
    model->copy();
    EXPECT_EQ(copied, QStringList()) << "there is nothing to copy";
    model->revealOrHide();
    EXPECT_EQ(model->state(), RecoveryModel::State(RecoveryModel::Revealed{phrase}));
    EXPECT_EQ(model->words().size(), 12);
    EXPECT_EQ(model->revealWords(), u"Hide Recovery Phrase"_s);
    model->copy();
    ASSERT_EQ(copied.size(), 1);
    EXPECT_TRUE(copied[0].startsWith(u"amber canvas orbit "_s) && copied[0].count(u' ') == 11);

    daemon->newlyAsked();
    model->revealOrHide();
    EXPECT_EQ(model->state(), RecoveryModel::State(RecoveryModel::Hidden{}));
    EXPECT_EQ(model->words(), QStringList());
    EXPECT_EQ(model->clipboardText(), QString());
    EXPECT_EQ(daemon->newlyAsked(), Verbs());
    model->revealOrHide();
    EXPECT_EQ(daemon->newlyAsked(), Verbs{"reveal_phrase"}) << "it is asked again";
    model->left();
    EXPECT_FALSE(model->isRevealed()) << "nobody leaves it lying open";
}

TEST_F(Recovery, OverwritesTheWordsThatItHides) {
    for (std::string word : phrase) {
        RecoveryModel::overwrite(word);
        EXPECT_EQ(word, std::string(word.size(), '\0'));
        EXPECT_FALSE(word.empty());
    }
}

TEST_F(Recovery, ShowsNothingThatComesAfterItWasHidden) {
    for (const bool isLeft : {false, true}) {
        daemon->held = {"reveal_phrase"};
        model->revealOrHide();
        EXPECT_TRUE(model->isRevealing());
        model->revealOrHide();
        if (isLeft)
            model->left();
        else
            model->hide();
        daemon->release();
        EXPECT_FALSE(model->isRevealed() || model->isRevealing());
    }
    EXPECT_EQ(daemon->newlyAsked(), (Verbs{"reveal_phrase", "reveal_phrase"}));
    daemon->held = {"reveal_phrase", "recovery_state", "enter_phrase"};
    model->load();
    model->reveal();
    model->adopt(u"a"_s);
    model.reset();
    daemon->release();
}

TEST_F(Recovery, TellsWhyThereIsNoPhrase) {
    const std::pair<GatewayResponse, const char*> rows[] = {
        {AnswerCase::Failure{"this Mac holds no key"}, "this Mac holds no key"},
        {AnswerCase::Unimplemented{"reveal_phrase"}, "recovery phrase unavailable"},
        {AnswerCase::Ok{}, "recovery phrase unavailable"},
    };
    for (const auto& [answer, sentence] : rows) {
        daemon->answer("reveal_phrase", {answer});
        model->revealOrHide();
        EXPECT_EQ(model->error().toStdString(), sentence);
    }
}

TEST_F(Recovery, PassesAPhraseOnAsItWasTyped) {
    daemon->answer("enter_phrase", {AnswerCase::Failure{"no"}});
    const std::pair<const char*, const char*> rows[] = {
        {"a  b\nc", R"(["a","b","c"])"},
        {"\tAmber\u00a0CANVAS \r\n", R"(["Amber","CANVAS"])"},
        {"", "[]"},
        {"1 2 3 4 5 6 7 8 9 10 11 12 13",
         R"(["1","2","3","4","5","6","7","8","9","10","11","12","13"])"},
    };
    for (const auto& [typed, words] : rows) {
        model->unlock(QString::fromUtf8(typed));
        EXPECT_THAT(daemon->sent.back(),
                    HasSubstr(std::string(R"("enterPhrase":{"words":)") + words));
    }
    daemon->held = {"enter_phrase"};
    model->unlock(u"a"_s);
    EXPECT_EQ(model->restoreProgress(), u"Checking the phrase…"_s);
    const std::size_t asked = daemon->asked.size();
    model->unlock(u"b"_s);
    EXPECT_EQ(daemon->asked.size(), asked);
}

TEST_F(Recovery, TellsWhatBecameOfAPhrase) {
    const std::tuple<GatewayResponse, const char*, const char*> rows[] = {
        {AnswerCase::Text{"it opened 1"}, "", "it opened 1"},
        {AnswerCase::Ok{}, "", "Phrase accepted. Wendlow is restarting to unlock your memory."},
        {AnswerCase::Failure{"one of the words is wrong"}, "one of the words is wrong", ""},
        {AnswerCase::Flag{true}, "the phrase could not be delivered to Wendlow", ""},
        {AnswerCase::Unimplemented{"enter_phrase"}, "the phrase could not be delivered to Wendlow",
         ""},
    };
    for (const auto& [answer, refusal, accepted] : rows) {
        daemon->answer("enter_phrase", {answer});
        model->unlock(u"a"_s);
        EXPECT_EQ(model->refusal().toStdString(), refusal);
        EXPECT_EQ(model->accepted().toStdString(), accepted);
    }
}

TEST_F(Recovery, HasTheWordsOfTheStoreThatTheDaemonHas) {
    struct Row {
        GatewayResponse answer;
        const char* title;
        const char* warning;
        bool hasPhrase;
    };
    const char* const armed = "Your memory is encrypted";
    const Row rows[] = {
        {AnswerCase::Failure{"away"}, "Recovery Phrase", "away", true},
        {AnswerCase::Text{"armed"}, armed, "", true},
        {AnswerCase::Text{"plaintext"}, "This build does not encrypt its memory", "", false},
        {AnswerCase::Failure{"away"}, "This build does not encrypt its memory", "", false},
        {AnswerCase::Text{"locked"}, armed,
         "this Mac holds no key for the store on disk — that is what the phrase is for", true},
        {AnswerCase::Unimplemented{"recovery_state"}, armed, "", true},
    };
    EXPECT_EQ(model->title(), u"Recovery Phrase"_s) << "nobody has said yet that it is encrypted";
    for (const Row& row : rows) {
        daemon->answer("recovery_state", {row.answer});
        model->load();
        EXPECT_EQ(model->title().toStdString(), row.title);
        EXPECT_EQ(model->warning().toStdString(), row.warning);
        EXPECT_EQ(model->hasPhrase(), row.hasPhrase);
    }
}

} // namespace
} // namespace wendlow
