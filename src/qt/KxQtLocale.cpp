#include "qt/KxQtLocale.h"

#include <algorithm>

namespace plotkit {

namespace {

char ByteOf(const QString& sign, char otherwise)
{
    return sign.size() == 1 && sign[0].unicode() > 0x20 && sign[0].unicode() < 0x7F ? sign[0].toLatin1() : otherwise;
}

/// Calls `translate(letter, count)` for runs of the same letter outside quotes; everything else is kept.
template <class TTranslate>
std::string Translated(const QString& format, TTranslate translate)
{
    QString result;
    bool isQuoted = false;
    for (qsizetype i = 0; i < format.size();) {
        const QChar sign = format[i];
        isQuoted ^= sign == u'\'';
        qsizetype end = i + 1;
        while (end < format.size() && format[end] == sign)
            ++end;
        if (!isQuoted && sign.isLetter())
            result += translate(sign, end - i);
        else
            result += sign.isSpace() ? QChar(u' ') : sign;
        i = !isQuoted && sign.isLetter() ? end : i + 1;
    }
    return result.trimmed().toStdString();
}

std::string DateFormatOf(const QString& format)
{
    return Translated(format, [](QChar letter, qsizetype count) { return QString(count, letter.toLower()); });
}

std::string TimeFormatOf(QString format)
{
    for (const auto& marker : {QStringLiteral("AP"), QStringLiteral("Ap"), QStringLiteral("aP"), QStringLiteral("ap")})
        format.replace(marker, QStringLiteral("a"));
    return Translated(format, [](QChar letter, qsizetype count) {
        switch (letter.toLower().unicode()) {
            case u'm':
                return QString(count, u'n');
            case u'a':
                return QStringLiteral("am/pm");
            case u't':  // the zone
                return QString();
            default:
                return QString(count, letter.toLower());
        }
    });
}

/// The first sign between the parts of a date or time.
char SeparatorOf(const QString& format, char otherwise)
{
    const auto sign = std::find_if(format.begin(), format.end(), [](QChar c) { return c.isPunct() && c != u'\''; });
    return sign == format.end() ? otherwise : ByteOf(QString(*sign), otherwise);
}

}  // namespace

TLocaleFormats LocaleFormatsOf(const QLocale& locale)
{
    TLocaleFormats formats;
    if (locale.language() == QLocale::C)
        return formats;
    const QString date = locale.dateFormat(QLocale::ShortFormat), time = locale.timeFormat(QLocale::LongFormat);
    formats.DecimalSeparator = ByteOf(locale.decimalPoint(), formats.DecimalSeparator);
    formats.DateSeparator = SeparatorOf(date, formats.DateSeparator);
    formats.TimeSeparator = SeparatorOf(time, formats.TimeSeparator);
    formats.ShortDateFormat = DateFormatOf(date);
    formats.LongTimeFormat = TimeFormatOf(time);
    for (int month = 1; month <= 12; ++month) {
        const auto place = static_cast<std::size_t>(month - 1);
        formats.ShortMonthNames[place] = locale.standaloneMonthName(month, QLocale::ShortFormat).toStdString();
        formats.LongMonthNames[place] = locale.standaloneMonthName(month, QLocale::LongFormat).toStdString();
    }
    for (int day = 1; day <= 7; ++day) {
        const auto place = static_cast<std::size_t>(day % 7);  // the library's week begins on Sunday
        formats.ShortDayNames[place] = locale.standaloneDayName(day, QLocale::ShortFormat).toStdString();
        formats.LongDayNames[place] = locale.standaloneDayName(day, QLocale::LongFormat).toStdString();
    }
    return formats;
}

}  // namespace plotkit
