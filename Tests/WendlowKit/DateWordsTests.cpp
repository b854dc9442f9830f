#include "DateWords.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

DateWords::Date at(int year, int month, int day, int hour = 12) {
    const QDateTime local(QDate(year, month, day), QTime(hour, 5));
    return DateWords::Date(std::chrono::milliseconds(local.toMSecsSinceEpoch()));
}

const DateWords::Date now = at(2026, 11, 21);
const QLocale english(QLocale::English, QLocale::UnitedStates);

TEST(DateWords, AreShortAndInTheOrderOfTheLocale) {
    struct Row {
        QLocale::Language language;
        const char16_t* thisYear;
        const char16_t* before;
        const char16_t* dayBefore;
    };
    const Row rows[] = {{QLocale::English, u"Nov 9", u"Sep 2024", u"Sep 30, 2024"},
                        {QLocale::German, u"9. Nov.", u"Sept. 2024", u"30. Sept. 2024"},
                        {QLocale::French, u"9 nov.", u"sept. 2024", u"30 sept. 2024"},
                        {QLocale::Spanish, u"9 de nov", u"sept de 2024", u"30 de sept de 2024"},
                        {QLocale::Hungarian, u"nov. 9.", u"2024. szept.", u"2024. szept. 30."},
                        {QLocale::Japanese, u"11月9日", u"2024年9月", u"2024年9月30日"},
                        {QLocale::C, u"9 Nov", u"Sep 2024", u"30 Sep 2024"}};
    for (const auto& [language, thisYear, before, dayBefore] : rows) {
        const QLocale locale(language);
        EXPECT_EQ(DateWords::day(at(2026, 11, 9), now, locale), thisYear);
        EXPECT_EQ(DateWords::day(at(2024, 9, 30), now, locale), before);
        EXPECT_EQ(DateWords::dateAndTime(at(2024, 9, 30), locale),
                  QString::fromUtf16(dayBefore) + u", "_s +
                      locale.toString(QTime(12, 5), QLocale::ShortFormat).remove(u":00"_s))
            << "without seconds";
    }
    EXPECT_EQ(DateWords::day(at(2026, 11, 21, 0), now, english), u"Today");
    EXPECT_EQ(DateWords::day(at(2026, 11, 20, 23), now, english), u"Yesterday");
    EXPECT_EQ(DateWords::day(at(2026, 11, 22), now, english), u"Nov 22");
    EXPECT_EQ(DateWords::day(at(2025, 11, 21), now, english), u"Nov 2025");
    EXPECT_EQ(DateWords::time(at(2026, 11, 9, 14), english), u"2:05 PM");
    EXPECT_EQ(DateWords::time(at(2026, 11, 9, 14), QLocale::c()), u"14:05") << "without seconds";
    EXPECT_EQ(DateWords::exact(at(2026, 11, 9, 14), english), u"Monday, November 9, 2026, 2:05 PM");
}

} // namespace
} // namespace wendlow::testing
