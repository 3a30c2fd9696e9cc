// The strings of timers and clocks. Clocks are formatted here rather than
// through the C library's locale: the names must follow the interface's
// language even on a system that has no Korean locale installed.
#include <QCoreApplication>

#include <cstdlib>

#include "objects/tc_object.h"

namespace orv {

namespace {

struct UstClockFormat {
    const char* twelve;
    const char* twentyFour;
    bool trimZero;  // leading zeros go in the 12-hour form
};

constexpr std::array<UstClockFormat, TC_CLOCK_FORMATS> CLOCK_FORMATS = {{
    {"%I:%M", "%H:%M", true},
    {"%I:%M %p", "%H:%M %p", true},
    {"%I:%M %p", "%H:%M %p", false},
    {"%I:%M:%S %p", "%H:%M:%S %p", true},
    {"%I:%M:%S %p", "%H:%M:%S %p", false},
    {"%I:%M:%S", "%H:%M:%S", true},
    {"%m.%d(%A", "%m.%d(%A", false},
}};
constexpr int DATE_FORMAT = 6;
// A clock's string never grows past what the original buffer held.
constexpr int CLOCK_BUFFER = 128;

QString TwoDigits(int v) {
    return QString::asprintf("%02d", v);
}

// One conversion of the formats above; anything else stands as written.
QString Conversion(char c, const std::tm& t, const UstClockNames& names) {
    switch (c) {
        case 'H':
            return TwoDigits(t.tm_hour);
        case 'I':
            return TwoDigits(t.tm_hour % 12 == 0 ? 12 : t.tm_hour % 12);
        case 'M':
            return TwoDigits(t.tm_min);
        case 'S':
            return TwoDigits(t.tm_sec);
        case 'm':
            return TwoDigits(t.tm_mon + 1);
        case 'd':
            return TwoDigits(t.tm_mday);
        case 'p':
            return t.tm_hour < 12 ? names.am : names.pm;
        case 'A':
            return t.tm_wday >= 0 && t.tm_wday < 7 ? names.weekday[static_cast<size_t>(t.tm_wday)]
                                                   : QString();
        default:
            return QString(u'%') + QLatin1Char(c);
    }
}

QString Expand(const char* format, const std::tm& t, const UstClockNames& names) {
    QString out;
    for (const char* p = format; *p; ++p) {
        if (*p == '%' && p[1]) {
            out += Conversion(*++p, t, names);
        } else {
            out += QLatin1Char(*p);
        }
    }
    return out.size() < CLOCK_BUFFER ? out : QString();
}

QString CounterValue(int format, int seconds, int minutes, int hours) {
    switch (format) {
        case 0:
            return QString::asprintf("%d", seconds);
        case 1:
            return QString::asprintf("%02d", seconds);
        case 2:
            return QString::asprintf("%d:%02d", minutes, seconds);
        case 3:
            return QString::asprintf("%02d:%02d", minutes, seconds);
        case 4:
            return QString::asprintf("%d:%02d", hours, minutes);
        case 5:
            return QString::asprintf("%02d:%02d", hours, minutes);
        case 6:
            return QString::asprintf("%d:%02d:%02d", hours, minutes, seconds);
        case 7:
            return QString::asprintf("%02d:%02d:%02d", hours, minutes, seconds);
        default:
            return {};
    }
}

}  // namespace

UstClockNames InterfaceClockNames() {
    // The context is named out, so that the translation tools file the
    // names under it rather than under the namespace.
    static constexpr const char* WEEKDAYS[] = {QT_TRANSLATE_NOOP("CQRDObjectTC", "Sunday"),
                                               QT_TRANSLATE_NOOP("CQRDObjectTC", "Monday"),
                                               QT_TRANSLATE_NOOP("CQRDObjectTC", "Tuesday"),
                                               QT_TRANSLATE_NOOP("CQRDObjectTC", "Wednesday"),
                                               QT_TRANSLATE_NOOP("CQRDObjectTC", "Thursday"),
                                               QT_TRANSLATE_NOOP("CQRDObjectTC", "Friday"),
                                               QT_TRANSLATE_NOOP("CQRDObjectTC", "Saturday")};
    static constexpr const char* HALVES[] = {QT_TRANSLATE_NOOP("CQRDObjectTC", "AM"),
                                             QT_TRANSLATE_NOOP("CQRDObjectTC", "PM")};
    const auto translated = [](const char* text) {
        return QCoreApplication::translate("CQRDObjectTC", text);
    };
    UstClockNames names;
    for (size_t i = 0; i < names.weekday.size(); ++i)
        names.weekday[i] = translated(WEEKDAYS[i]);
    names.am = translated(HALVES[0]);
    names.pm = translated(HALVES[1]);
    return names;
}

QString FormatClock(const UstTCSetting& setting, const std::tm& local, const UstClockNames& names) {
    const int index = setting.nClockFormat;
    if (index < 0 || index >= TC_CLOCK_FORMATS) return {};
    const UstClockFormat& f = CLOCK_FORMATS[static_cast<size_t>(index)];
    const bool h24 = setting.b24Hour != 0;
    QString text = Expand(h24 ? f.twentyFour : f.twelve, local, names);
    if (f.trimZero && !h24)
        while (text.startsWith(u'0'))
            text.remove(0, 1);
    if (index == DATE_FORMAT) {
        // A Korean weekday keeps its first syllable: 토요일 reads 토.
        for (const char16_t tail : {u'\uC77C', u'\uC694'})
            while (text.endsWith(QChar(tail)))
                text.chop(1);
        text += u')';
    }
    return text;
}

QString FormatValue(const UstTCSetting& setting, int seconds, int minutes, int hours) {
    if (setting.nKind != 0) {
        const std::time_t now = std::time(nullptr);
        std::tm local{};
        if (!localtime_r(&now, &local)) return {};
        return FormatClock(setting, local, InterfaceClockNames());
    }
    return CounterValue(setting.nCountFormat, seconds, minutes, hours);
}

QString CounterString(const UstTCSetting& setting, int64_t value) {
    // Split the magnitude, so that -90 reads -1:30 rather than -1:-30; in
    // 64 bits the most negative start has a magnitude too.
    const int64_t v = value < 0 ? -value : value;
    const QString text = FormatValue(setting, static_cast<int>(v % 60),
                                     static_cast<int>(v / 60 % 60), static_cast<int>(v / 3600));
    return value < 0 && !text.isEmpty() ? u'-' + text : text;
}

}  // namespace orv
