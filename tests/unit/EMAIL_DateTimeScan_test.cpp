// SPDX-License-Identifier: MIT
// The Date field against a literal version of its rules, over short and over random texts.
#include "tests/support/AllStrings.h"
#include "tests/support/RandomText.h"
#include "utility/EMAIL_DateTime.h"

namespace email_date_time_scan_test {

namespace {

// How the search for a character counts: the first one is examined, then all from the first on.
template <typename Predicate>
int literalCount(const QByteArray& text, Predicate wanted)
{
    const int length = static_cast<int>(text.size());
    int count = 0;
    char examined = text[0];
    while (!wanted(examined) && count < length)
        examined = text[count++];
    return count;
}

int indexIn(const char* threeLetterNames, const QByteArray& name)
{
    const QByteArrayList names = QByteArray(threeLetterNames).split(' ');
    return static_cast<int>(qMax(names.indexOf(name.toLower()), decltype(names.size())(0)));
}

int number(const QByteArray& text, int otherwise)
{
    bool ok = false;
    const QByteArray digits = text.trimmed();
    const int value = digits.toInt(&ok);
    return ok ? value : otherwise;
}

QByteArrayList literalSplit(char separator, const QByteArray& text)
{
    QByteArrayList pieces;
    const QByteArrayList cut = text.split(separator);
    for (int i = 0; i < cut.size(); ++i) {
        if (!cut[i].isEmpty())
            pieces.append(i == cut.size() - 1 ? cut[i].trimmed() : cut[i]);
    }
    return pieces;
}

int literalZone(const QByteArray& zone)
{
    const QByteArray name = zone.left(3);
    switch (zone[0]) {
    case '+':
    case '-': {
        const int weights[] = {600, 60, 10, 1};
        int minutes = 0;
        for (int i = 0; zone.size() > 2 && i < 4 && i + 1 < zone.size(); ++i) {
            if (zone[i + 1] < '0' || zone[i + 1] > '9')
                break;
            minutes += weights[i] * (zone[i + 1] - '0');
        }
        return zone[0] == '+' ? minutes : -minutes;
    }
    case 'c':
        return name == "cst" ? -360 : name == "cdt" ? -300 : -180;
    case 'e':
        return name == "edt" ? -240 : -300;
    case 'g':
        return name == "gmt" || zone == "g" ? 0 : -420;
    case 'm':
        return name == "mst" ? -420 : name == "mdt" ? -360 : -720;
    case 'p':
        return name == "pst" ? -480 : name == "pdt" ? -420 : 180;
    case 'u':
        return zone.size() > 1 && zone[1] == 't' ? 0 : 480;
    default:
        return 0;
    }
}

struct Literal
{
    int parsed = 0;
    struct tm time = {};
    int zone = 0;

    explicit Literal(const QByteArray& body)
    {
        if (body.isEmpty())
            return;
        const int length = static_cast<int>(body.size());
        const int count = literalCount(body, [](char c) { return c >= '0' && c <= '9'; });
        if (count > 3) {
            const int at = literalCount(
                body, [](char c) { return (c >= 'B' && c <= 'Y') || (c >= 'b' && c <= 'y'); });
            time.tm_wday = indexIn("sun mon tue wed thu fri sat", body.mid(at, 3));
        }
        const QByteArrayList tokens =
            literalSplit(' ', body.right(qMin(length - count + 1, length)));
        time.tm_mday = number(tokens.value(0), 1);
        time.tm_mon = indexIn("jan feb mar apr may jun jul aug sep oct nov dec", tokens.value(1));
        time.tm_year = number(tokens.value(2), 1970) - 1900;
        const QByteArrayList clock = literalSplit(':', tokens.value(3));
        time.tm_hour = number(clock.value(0), 12);
        time.tm_min = number(clock.value(1), 0);
        time.tm_sec = clock.size() == 3 ? number(clock.value(2), 0) : 0;
        if (tokens.size() > 4 && !tokens[4].isEmpty())
            zone = literalZone(tokens[4].toLower());
        parsed = 1;
    }
};

void expectLikeLiteral(const QByteArray& body, const Literal& expected)
{
    EMAIL_DateTime date;
    date.mBody = body;
    date.parse();
    const auto members = [](const struct tm& time, int zone, int flag) {
        return std::vector{time.tm_wday, time.tm_mday, time.tm_mon, time.tm_year, time.tm_hour,
                           time.tm_min,  time.tm_sec,  zone,        flag};
    };
    ASSERT_EQ(members(date.mTime, date.mZone, date.mParsed),
              members(expected.time, expected.zone, expected.parsed))
        << testing::PrintToString(body);
}

} // namespace

TEST(EMAIL_DateTimeScan, EveryShortTextFollowsTheRules)
{
    int texts = 0;
    int withDay = 0;
    int withWeekDay = 0;
    forAllStrings("TuEz 12", 5, [&](const QByteArray& body) {
        const Literal expected(body);
        ASSERT_NO_FATAL_FAILURE(expectLikeLiteral(body, expected));
        ++texts;
        withDay += expected.time.tm_mday > 1 ? 1 : 0;
        withWeekDay += expected.time.tm_wday > 0 ? 1 : 0;
    });
    EXPECT_EQ(texts, 19608);
    EXPECT_EQ(withDay, 3399);
    EXPECT_EQ(withWeekDay, 62);
}

TEST(EMAIL_DateTimeScan, EveryShortTimeFollowsTheRules)
{
    int withSeconds = 0;
    forAllStrings("9: -", 6, [&](const QByteArray& tail) {
        const QByteArray body = "5 Nov 2002 " + tail;
        const Literal expected(body);
        ASSERT_NO_FATAL_FAILURE(expectLikeLiteral(body, expected));
        withSeconds += expected.time.tm_sec != 0 ? 1 : 0;
    });
    EXPECT_EQ(withSeconds, 52);
}

TEST(EMAIL_DateTimeScan, EveryZoneOfThreeLettersFollowsTheRules)
{
    int utc = 0;
    int named = 0;
    forAllStrings("abcdefghijklmnopqrstuvwxyz", 3, [&](const QByteArray& zone) {
        const QByteArray body = "5 Nov 2002 09:07:03 " + zone;
        const Literal expected(body);
        ASSERT_NO_FATAL_FAILURE(expectLikeLiteral(body, expected));
        utc += expected.zone == 0 ? 1 : 0;
        named += 1;
    });
    EXPECT_EQ(named, 18279);
    EXPECT_EQ(utc, 14090);
}

TEST(EMAIL_DateTimeScan, EveryNumericZoneFollowsTheRules)
{
    int utc = 0;
    forAllStrings("+-01a", 5, [&](const QByteArray& zone) {
        const QByteArray body = "5 Nov 2002 09:07:03 +" + zone;
        const Literal expected(body);
        ASSERT_NO_FATAL_FAILURE(expectLikeLiteral(body, expected));
        utc += expected.zone == 0 ? 1 : 0;
    });
    EXPECT_EQ(utc, 2933);
}

TEST(EMAIL_DateTimeScan, RandomTextsFollowTheRules)
{
    constexpr unsigned int seed = 822;
    RandomText texts(seed, {" ", " ", " ", "Tue", ",", "12", "Nov", "feb", "2002", "10:00:00", ":",
                            "+0100", "-", "EST", "g", "\r\n", "\t", "99999999999", "\xe9"});
    for (int i = 0; i < 20000; ++i) {
        const QByteArray body = texts.next(16);
        ASSERT_NO_FATAL_FAILURE(expectLikeLiteral(body, Literal(body))) << "seed " << seed;
    }
}

} // namespace email_date_time_scan_test
