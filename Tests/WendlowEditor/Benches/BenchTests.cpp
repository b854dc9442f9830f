#include "Benches/FiltersBenchModel.h"
#include "Benches/RowsBenchModel.h"
#include "Benches/SearchBenchModel.h"
#include "Benches/WorkbenchModel.h"
#include "UnimplementedGateway.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;

std::shared_ptr<WendlowClient> noDaemon() {
    return std::make_shared<InProcessClient>(std::make_shared<UnimplementedGateway>());
}

QString picked(const QVariantList& choices) {
    QStringList words;
    for (const QVariant& choice : choices)
        if (choice.toMap()[u"picked"_s].toBool())
            words.append(choice.toMap()[u"word"_s].toString());
    return words.join(u'|');
}

TEST(Workbench, StandsAsItsPanelSays) {
    WorkbenchModel bench(noDaemon());
    EditorRoot* const first = bench.root();
    EXPECT_EQ(picked(bench.answers()), u"Power user"_s);
    bench.chooseFace(u"Scopes"_s);
    EXPECT_EQ(bench.root(), first);
    EXPECT_EQ(first->face(), EditorFace::scopes);
    bench.chooseWidth(u"700"_s);
    EXPECT_EQ(bench.width(), 700);
    bench.chooseAnswers(u"Each question refused"_s);
    EditorRoot* const refused = bench.root();
    EXPECT_EQ(refused->face(), EditorFace::scopes) << "the face stays";
    EXPECT_TRUE(QTest::qWaitFor([&] { return refused->gaveUp(); }));
    bench.chooseAnswers(u"No answer comes"_s);
    EXPECT_FALSE(bench.root()->isFilled());
    bench.chooseAnswers(u"Power user"_s);
    EXPECT_EQ(bench.root(), first) << "as it was left";
    EXPECT_EQ(picked(bench.answers()) + picked(bench.faces()) + picked(bench.widths()),
              u"Power userScopes700"_s);
}

TEST(FiltersBench, AnswersWhatIsPicked) {
    FiltersBenchModel bench;
    const auto cases = bench.cases();
    auto& opened = *cases[1].value<FiltersBenchCase*>();
    ASSERT_TRUE(opened.bar()->panelOpen());
    const QString before = opened.asked();
    EXPECT_TRUE(before.startsWith(u"Everything — "_s));
    opened.bar()->toggleValue(0);
    EXPECT_NE(opened.asked(), before);
    EXPECT_TRUE(opened.asked().startsWith(u"owner: "_s)) << opened.asked().toStdString();
    opened.bar()->clearAll();
    EXPECT_EQ(opened.asked(), before);
    // What a state is named for is there to be seen.
    const auto chips = [&](int at) {
        return cases[at].value<FiltersBenchCase*>()->bar()->chips()->rowCount();
    };
    EXPECT_TRUE(cases[2].value<FiltersBenchCase*>()->bar()->picked());
    EXPECT_EQ(chips(3), 1) << "the scope alone";
    EXPECT_LT(chips(6), chips(7));
}

TEST(SearchBench, SearchesForTheSameElsewhere) {
    SearchBenchModel bench(noDaemon());
    bench.root()->search()->setText(u"backup"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return bench.root()->search()->selectionIndex() >= 0; }));
    bench.chooseAnswers(u"Day zero"_s);
    EXPECT_EQ(bench.root()->search()->text(), u"backup"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !bench.root()->search()->noMatches().isEmpty(); }));
}

TEST(RowsBench, BeginsAtTheDatabaseAndHasAnEditorForEachKind) {
    RowsBenchModel bench(noDaemon());
    EXPECT_EQ(picked(bench.sources()), u"Database"_s);
    const QVariantList real = bench.kinds();
    auto& memories = *real[0].value<RowsBenchKind*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return memories.root()->gaveUp(); })) << "it is asked";
    bench.chooseSource(u"Power user"_s);
    std::set<EditorRoot*> roots;
    std::set<EditorFace> faces;
    for (const QVariant& each : bench.kinds()) {
        EditorRoot* const root = each.value<RowsBenchKind*>()->root();
        roots.insert(root);
        faces.insert(root->face());
        EXPECT_TRUE(QTest::qWaitFor([&] { return root->isFilled(); }));
    }
    EXPECT_EQ(roots.size(), 8);
    EXPECT_EQ(faces.size(), EditorFaces::all.size()) << "rows of every face";
    bench.chooseSource(u"Database"_s);
    EXPECT_EQ(bench.kinds(), real);
}

} // namespace
} // namespace wendlow
