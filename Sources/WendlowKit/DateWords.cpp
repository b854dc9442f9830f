#include "DateWords.h"

#include "Say.h"

#include <vector>

namespace wendlow::DateWords {

namespace {

/// A field of a date format, such as "MMMM", and the literal text up to the next one.
struct Field {
    QString letters;
    QString literal;
};

bool isFieldLetter(QChar letter) {
    return letter == u'y' || letter == u'M' || letter == u'd';
}

std::vector<Field> fieldsOf(const QString& format) {
    std::vector<Field> fields;
    bool quoted = false;
    QChar before;
    for (const QChar letter : format) {
        if (letter == u'\'')
            quoted = !quoted;
        if (quoted || !isFieldLetter(letter)) {
            if (!fields.empty())
                fields.back().literal += letter;
        } else if (letter == before) {
            fields.back().letters += letter;
        } else {
            fields.push_back({letter, {}});
        }
        before = letter;
    }
    return fields;
}

/// What was between two fields goes with the later one; what belongs to the earlier one, such as
/// the sign for "day" or the point of an ordinal, stays.
QString closing(QString literal) {
    if (literal.startsWith(u' ') || literal.startsWith(u','))
        return {};
    while (literal.endsWith(u' ') || literal.endsWith(u','))
        literal.chop(1);
    return literal;
}

/// The locale's long format without its weekday and without the field of `dropped`, if there is
/// one, and with the month's name short. No locale has a short format of its own that leaves out
/// the year.
QString shortened(const QLocale& locale, QChar dropped = {}) {
    std::vector<Field> fields = fieldsOf(locale.dateFormat(QLocale::LongFormat));
    std::erase_if(fields, [&](const Field& field) {
        const bool weekday = field.letters.startsWith(u"ddd");
        return weekday || (!dropped.isNull() && field.letters.startsWith(dropped));
    });
    if (fields.empty())
        return locale.dateFormat(QLocale::ShortFormat);
    fields.back().literal = closing(fields.back().literal);
    QString format;
    for (const Field& field : fields)
        format +=
            (field.letters == u"MMMM" ? QStringLiteral("MMM") : field.letters) + field.literal;
    return format;
}

/// Some locales' short format has seconds, which nobody asks for.
QString shortTime(const QTime& time, const QLocale& locale) {
    QString format = locale.timeFormat(QLocale::ShortFormat);
    return locale.toString(time, format.remove(QStringLiteral(":ss")));
}

/// Written out again, with what is between the fields.
QString joined(const std::vector<Field>& fields) {
    QString format;
    for (const Field& field : fields)
        format += field.letters + field.literal;
    return format;
}

} // namespace

QDateTime local(Date date) {
    using std::chrono::milliseconds;
    return QDateTime::fromMSecsSinceEpoch(
        std::chrono::floor<milliseconds>(date.time_since_epoch()).count());
}

QString day(Date date, Date now, const QLocale& locale) {
    const QDate wanted = local(date).date();
    const QDate today = local(now).date();
    if (wanted == today)
        return QString::fromStdString(say("Today"));
    if (wanted.addDays(1) == today)
        return QString::fromStdString(say("Yesterday"));
    return locale.toString(wanted, shortened(locale, wanted.year() == today.year() ? u'y' : u'd'));
}

QString weekday(const QDate& day, const QDate& today, const QLocale& locale) {
    QString format = locale.dateFormat(QLocale::LongFormat);
    if (day.year() == today.year()) {
        std::vector<Field> fields = fieldsOf(format);
        std::erase_if(fields, [](const Field& field) { return field.letters.startsWith(u'y'); });
        if (!fields.empty())
            fields.back().literal = closing(fields.back().literal);
        format = joined(fields);
    }
    return locale.toString(day, format);
}

QString dateAndTime(Date date, const QLocale& locale) {
    const QDateTime wanted = local(date);
    return locale.toString(wanted.date(), shortened(locale)) + QStringLiteral(", ") +
           shortTime(wanted.time(), locale);
}

QString dayAndTime(Date date, const QLocale& locale) {
    const QDateTime wanted = local(date);
    return locale.toString(wanted.date(), shortened(locale, u'y')) + QStringLiteral(", ") +
           shortTime(wanted.time(), locale);
}

QString time(Date date, const QLocale& locale) {
    return shortTime(local(date).time(), locale);
}

QString exact(Date date, const QLocale& locale) {
    const QDateTime wanted = local(date);
    return locale.toString(wanted.date(), QLocale::LongFormat) + QStringLiteral(", ") +
           shortTime(wanted.time(), locale);
}

} // namespace wendlow::DateWords
