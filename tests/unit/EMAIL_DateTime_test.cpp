// SPDX-License-Identifier: MIT
// Reading and writing the Date field's text. Its calendar times have a test of their own.
#include "utility/EMAIL_DateTime.h"

#include <climits>

namespace email_date_time_test {

namespace {

// Everything that parsing writes; the zone starts at 7 minutes, so that a kept zone shows.
constexpr int keptZone = 7;

struct Clock
{
    int weekDay, day, month, years, hour, minute, second, zone;

    bool operator==(const Clock&) const = default;
};

void PrintTo(const Clock& clock, std::ostream* out)
{
    *out << "week day " << clock.weekDay << ", day " << clock.day << ", month " << clock.month
         << ", years " << clock.years << ", " << clock.hour << ':' << clock.minute << ':'
         << clock.second << ", zone " << clock.zone;
}

Clock clockOf(const EMAIL_DateTime& date)
{
    const struct tm& time = date.mTime;
    return {time.tm_wday, time.tm_mday, time.tm_mon, time.tm_year,
            time.tm_hour, time.tm_min,  time.tm_sec, date.mZone};
}

struct Row
{
    const char* name;
    const char* body;
    Clock clock;
    QByteArray written;
};

void PrintTo(const Row& row, std::ostream* out)
{
    printEscaped(row.body, out);
}

const Row rows[] = {
    {"Complete",
     "Tue, 12 Nov 2002 10:00:00 +0100",
     {2, 12, 10, 102, 10, 0, 0, 60},
     "Tue, 12 Nov 2002 10:00:00 +0100"},
    {"OneDigitDay",
     "Tue, 5 Nov 2002 09:07:03 +0100",
     {2, 5, 10, 102, 9, 7, 3, 60},
     "Tue, 5 Nov 2002 09:07:03 +0100"},
    {"NoDayNameIsASunday",
     "5 Nov 2002 09:07:03 +0100",
     {0, 5, 10, 102, 9, 7, 3, 60},
     "Sun, 5 Nov 2002 09:07:03 +0100"},
    {"NamedZone",
     "12 Nov 2002 10:00:00 GMT",
     {0, 12, 10, 102, 10, 0, 0, 0},
     "Sun, 12 Nov 2002 10:00:00 +0000"},
    {"LeadingBlankHidesTheDayName",
     " Tue, 12 Nov 2002 10:00:00 EST",
     {0, 12, 10, 102, 10, 0, 0, -300},
     "Sun, 12 Nov 2002 10:00:00 -0500"},
    {"YearAsWrittenAndNoSeconds",
     "Tue, 12 Nov 97 10:00 EDT",
     {2, 12, 10, -1803, 10, 0, 0, -240},
     "Tue, 12 Nov   97 10:00:00 -0400"},
    {"TwoDigitYear",
     "Tue, 12 Nov 02 10:00:00 Z",
     {2, 12, 10, -1898, 10, 0, 0, 0},
     "Tue, 12 Nov    2 10:00:00 +0000"},
    {"DateAloneKeepsTheZone",
     "Tue, 12 Nov 2002",
     {2, 12, 10, 102, 12, 0, 0, keptZone},
     "Tue, 12 Nov 2002 12:00:00 +0007"},
    {"MinusZero",
     "Tue, 12 Nov 2002 10:00:00 -0000",
     {2, 12, 10, 102, 10, 0, 0, 0},
     "Tue, 12 Nov 2002 10:00:00 +0000"},
    {"LowerCaseNames",
     "tue, 12 nov 2002 10:00:00 pst",
     {2, 12, 10, 102, 10, 0, 0, -480},
     "Tue, 12 Nov 2002 10:00:00 -0800"},
    {"LongDayName",
     "Saturday, 9 Nov 2002 10:00:00 Z",
     {6, 9, 10, 102, 10, 0, 0, 0},
     "Sat, 9 Nov 2002 10:00:00 +0000"},
    {"UnknownDayNameIsASunday",
     "Xyz, 9 Nov 2002 10:00:00 Z",
     {0, 9, 10, 102, 10, 0, 0, 0},
     "Sun, 9 Nov 2002 10:00:00 +0000"},
    {"DayNameThatTouchesTheDay",
     "Tue12 Nov 2002 10:00:00 Z",
     {2, 12, 10, 102, 10, 0, 0, 0},
     "Tue, 12 Nov 2002 10:00:00 +0000"},
    {"DigitAtIndexTwoLeavesNoRoomForADayName",
     "Tu12 Nov 2002 10:00:00 Z",
     {0, 12, 10, 102, 10, 0, 0, 0},
     "Sun, 12 Nov 2002 10:00:00 +0000"},
    {"DayNameOneBehindTheFirstLetter",
     " bTue 12 Nov 2002 10:00:00 Z",
     {2, 12, 10, 102, 10, 0, 0, 0},
     "Tue, 12 Nov 2002 10:00:00 +0000"},
    {"LetterAIsSkippedWhereTheDayNameIsSought",
     "aTue 12 Nov 2002 10:00:00 Z",
     {0, 12, 10, 102, 10, 0, 0, 0},
     "Sun, 12 Nov 2002 10:00:00 +0000"},
    {"DayThatDoesNotConvert",
     "Tue, 12. Nov 2002 10:00:00 Z",
     {2, 1, 10, 102, 10, 0, 0, 0},
     "Tue, 1 Nov 2002 10:00:00 +0000"},
    {"DayOutOfRangeIsKept",
     "Tue, 99 Nov 2002 10:00:00 Z",
     {2, 99, 10, 102, 10, 0, 0, 0},
     "Tue, 99 Nov 2002 10:00:00 +0000"},
    {"UnknownMonthIsJanuary",
     "12 November 2002 10:00:00 Z",
     {0, 12, 0, 102, 10, 0, 0, 0},
     "Sun, 12 Jan 2002 10:00:00 +0000"},
    {"DayAlone", "12", {0, 12, 0, 70, 12, 0, 0, keptZone}, "Sun, 12 Jan 1970 12:00:00 +0007"},
    {"DayAndMonth",
     "12 Nov",
     {0, 12, 10, 70, 12, 0, 0, keptZone},
     "Sun, 12 Nov 1970 12:00:00 +0007"},
    {"NoDigitAtAll",
     "Tuesday",
     {2, 1, 0, 70, 12, 0, 0, keptZone},
     "Tue, 1 Jan 1970 12:00:00 +0007"},
    {"ShortTextWithoutDigitHasNoDayName",
     "Tue",
     {0, 1, 0, 70, 12, 0, 0, keptZone},
     "Sun, 1 Jan 1970 12:00:00 +0007"},
    {"OneCharacter", "T", {0, 1, 0, 70, 12, 0, 0, keptZone}, "Sun, 1 Jan 1970 12:00:00 +0007"},
    {"DigitAtTheVeryEnd",
     "Tue, 7",
     {2, 7, 0, 70, 12, 0, 0, keptZone},
     "Tue, 7 Jan 1970 12:00:00 +0007"},
    {"HourAlone",
     "12 Nov 2002 9",
     {0, 12, 10, 102, 9, 0, 0, keptZone},
     "Sun, 12 Nov 2002 09:00:00 +0007"},
    {"FourPiecesHaveNoSeconds",
     "12 Nov 2002 9:8:7:6 Z",
     {0, 12, 10, 102, 9, 8, 0, 0},
     "Sun, 12 Nov 2002 09:08:00 +0000"},
    {"EmptyPiecesOfTheTimeAreDropped",
     "12 Nov 2002 :9::8: Z",
     {0, 12, 10, 102, 9, 8, 0, 0},
     "Sun, 12 Nov 2002 09:08:00 +0000"},
    {"TimeThatDoesNotConvert",
     "12 Nov 2002 a:b:c Z",
     {0, 12, 10, 102, 12, 0, 0, 0},
     "Sun, 12 Nov 2002 12:00:00 +0000"},
    {"TimeOutOfRangeIsKept",
     "12 Nov 2002 99:-8:777 Z",
     {0, 12, 10, 102, 99, -8, 777, 0},
     "Sun, 12 Nov 2002 99:-8:777 +0000"},
    {"SeveralBlanksCountAsOne",
     "Tue,  12   Nov  2002  10:00:00  +0100",
     {2, 12, 10, 102, 10, 0, 0, 60},
     "Tue, 12 Nov 2002 10:00:00 +0100"},
    {"FoldWithABlank",
     "Tue, 12 Nov 2002\r\n 10:00:00 +0100",
     {2, 12, 10, 102, 10, 0, 0, 60},
     "Tue, 12 Nov 2002 10:00:00 +0100"},
    {"FoldWithATabJoinsYearAndTime",
     "Tue, 12 Nov 2002\r\n\t10:00:00 +0100",
     {2, 12, 10, 70, 100, 0, 0, keptZone},
     "Tue, 12 Nov 1970 100:00:00 +0007"},
    {"CommentBehindTheZone",
     "Tue, 12 Nov 2002 10:00:00 +0100 (CET)",
     {2, 12, 10, 102, 10, 0, 0, 60},
     "Tue, 12 Nov 2002 10:00:00 +0100"},
    {"BlankTailIsAnEmptyZone",
     "12 Nov 2002 10:00:00 \t",
     {0, 12, 10, 102, 10, 0, 0, keptZone},
     "Sun, 12 Nov 2002 10:00:00 +0007"},
    {"YearOfFiveDigits",
     "12 Nov 20020 10:00:00 Z",
     {0, 12, 10, 18120, 10, 0, 0, 0},
     "Sun, 12 Nov 20020 10:00:00 +0000"},
    {"YearBeforeChrist",
     "12 Nov -44 10:00:00 Z",
     {0, 12, 10, -1944, 10, 0, 0, 0},
     "Sun, 12 Nov  -44 10:00:00 +0000"},
    {"LargestYear",
     "12 Nov 2147483647 10:00:00 Z",
     {0, 12, 10, 2147481747, 10, 0, 0, 0},
     "Sun, 12 Nov 2147483647 10:00:00 +0000"},
    {"YearThatDoesNotFit",
     "12 Nov 2147483648 10:00:00 Z",
     {0, 12, 10, 70, 10, 0, 0, 0},
     "Sun, 12 Nov 1970 10:00:00 +0000"},
    {"SmallestYear",
     "12 Nov -2147481748 10:00:00 Z",
     {0, 12, 10, INT_MIN, 10, 0, 0, 0},
     "Sun, 12 Nov -2147481748 10:00:00 +0000"},
    {"YearWhoseDistanceFrom1900DoesNotFit",
     "12 Nov -2147481749 10:00:00 Z",
     {0, 12, 10, 70, 10, 0, 0, 0},
     "Sun, 12 Nov 1970 10:00:00 +0000"},
    {"NumbersThatDoNotFit",
     "99999999999 Nov 99999999999 99999999999:99999999999:99999999999 Z",
     {0, 1, 10, 70, 12, 0, 0, 0},
     "Sun, 1 Nov 1970 12:00:00 +0000"},
    {"LargestNumbers",
     "2147483647 Nov 2147483647 2147483647:2147483647:2147483647 -9999",
     {0, INT_MAX, 10, 2147481747, INT_MAX, INT_MAX, INT_MAX, -6039},
     "Sun, 2147483647 Nov 2147483647 2147483647:2147483647:2147483647 -0439"},
};

class EMAIL_DateTimeRow : public testing::TestWithParam<Row>
{
};

struct ZoneRow
{
    const char* zone;
    int minutes;
};

const ZoneRow zoneRows[] = {
    {"+0130", 90},  {"-0800", -480}, {"+1", 0},        {"-1", 0},      {"+", 0},
    {"-", 0},       {"+01", 60},     {"+1:30", 600},   {"+01:30", 60}, {"+013", 90},
    {"+01305", 90}, {"+9999", 6039}, {"-9999", -6039}, {"+a100", 0},   {"+01a0", 60},
    {"+010a", 60},  {"--100", 0},    {"CST", -360},    {"CDT", -300},  {"C", -180},
    {"cs", -180},   {"CET", -180},   {"CSTX", -360},   {"EDT", -240},  {"EST", -300},
    {"E", -300},    {"EET", -300},   {"GMT", 0},       {"G", 0},       {"GM", -420},
    {"GST", -420},  {"GMT+1", 0},    {"MST", -420},    {"MDT", -360},  {"M", -720},
    {"MSK", -720},  {"PST", -480},   {"PDT", -420},    {"P", 180},     {"PKT", 180},
    {"UT", 0},      {"UTC", 0},      {"U", 480},       {"US", 480},    {"Z", 0},
    {"ZZ", 0},      {"A", 0},        {"B", 0},         {"D", 0},       {"F", 0},
    {"K", 0},       {"L", 0},        {"N", 0},         {"Y", 0},       {"JST", 0},
    {"0100", 0},    {"(CST)", 0},    {"\"CST\"", 0},
};

} // namespace

TEST_P(EMAIL_DateTimeRow, ParsesAndAssembles)
{
    EMAIL_DateTime date;
    date.mName = "Date";
    date.mZone = keptZone;
    date.mBody = GetParam().body;
    date.parse();
    EXPECT_EQ(date.mParsed, 1);
    EXPECT_EQ(clockOf(date), GetParam().clock);
    date.assemble();
    EXPECT_EQ(date.mBody, GetParam().written);
    EXPECT_EQ(date.mString, "Date: " + GetParam().written + "\r\n");
}

INSTANTIATE_TEST_SUITE_P(Rows, EMAIL_DateTimeRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(EMAIL_DateTime, Zones)
{
    for (const ZoneRow& row : zoneRows) {
        EMAIL_DateTime date;
        date.mZone = keptZone;
        date.mBody = QByteArray("12 Nov 2002 10:00:00 ") + row.zone;
        date.parse();
        EXPECT_EQ(date.mZone, row.minutes) << row.zone;
    }
}

TEST(EMAIL_DateTime, StartsUnparsedAndAllZero)
{
    const EMAIL_DateTime date(QCString("raw"), nullptr);
    EXPECT_EQ(date.mString, "raw");
    EXPECT_EQ(date.mParsed, 0);
    EXPECT_EQ(clockOf(date), Clock{});
    EXPECT_EQ(date.mTime.tm_yday, 0);
    EXPECT_EQ(date.mTime.tm_isdst, 0);
    EXPECT_EQ(clockOf(EMAIL_DateTime()), Clock{});
}

TEST(EMAIL_DateTime, EmptyBodyChangesNothing)
{
    for (const QCString& body : {QCString(), QCString("")}) {
        EMAIL_DateTime date;
        date.mTime.tm_mday = 9;
        date.mBody = body;
        date.parse();
        EXPECT_EQ(date.mParsed, 0);
        EXPECT_EQ(date.mTime.tm_mday, 9);
        date.assemble();
        EXPECT_EQ(date.mString, "");
    }
}

TEST(EMAIL_DateTime, DayOfYearAndDaylightSavingAreLeftAlone)
{
    EMAIL_DateTime date;
    date.mTime.tm_yday = 77;
    date.mTime.tm_isdst = 1;
    date.mBody = "Tue, 12 Nov 2002 10:00:00 +0100";
    date.parse();
    EXPECT_EQ(date.mTime.tm_yday, 77);
    EXPECT_EQ(date.mTime.tm_isdst, 1);
}

TEST(EMAIL_DateTime, UnparsedBodyIsWrittenAsItStands)
{
    EMAIL_DateTime date;
    date.mName = "Date";
    date.mBody = "yesterday";
    date.assemble();
    EXPECT_EQ(date.mString, "Date: yesterday\r\n");
}

TEST(EMAIL_DateTime, EveryMemberHasSomethingToWrite)
{
    const struct
    {
        Clock clock;
        QByteArray written;
    } members[] = {
        {{0, 0, 0, 0, 0, 0, 0, 0}, "Sun, 0 Jan 1900 00:00:00 +0000"},
        {{7, 1, 12, 100, 0, 0, 0, 0}, "Sun, 1 Jan 2000 00:00:00 +0000"},
        {{-1, 1, -1, 100, 0, 0, 0, 0}, "Sat, 1 Dec 2000 00:00:00 +0000"},
        {{-7, 1, -12, 100, 0, 0, 0, 0}, "Sun, 1 Jan 2000 00:00:00 +0000"},
        {{INT_MAX, 1, INT_MAX, 100, 0, 0, 0, 0}, "Mon, 1 Aug 2000 00:00:00 +0000"},
        {{INT_MIN, 1, INT_MIN, 100, 0, 0, 0, 0}, "Fri, 1 May 2000 00:00:00 +0000"},
        {{0, 1, 0, 100, 0, 0, 0, 1440}, "Sun, 1 Jan 2000 00:00:00 +0000"},
        {{0, 1, 0, 100, 0, 0, 0, -1501}, "Sun, 1 Jan 2000 00:00:00 -0101"},
        {{0, 1, 0, 100, 0, 0, 0, INT_MAX}, "Sun, 1 Jan 2000 00:00:00 +0207"},
        {{0, 1, 0, 100, 0, 0, 0, INT_MIN}, "Sun, 1 Jan 2000 00:00:00 -0208"},
        {{0, 1, 0, INT_MAX, 0, 0, 0, 0}, "Sun, 1 Jan 2147485547 00:00:00 +0000"},
        {{0, INT_MIN, 0, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN},
         "Sun, -2147483648 Jan -2147481748 -2147483648:-2147483648:-2147483648 -0208"},
    };
    for (const auto& row : members) {
        EMAIL_DateTime date;
        date.mTime.tm_wday = row.clock.weekDay;
        date.mTime.tm_mday = row.clock.day;
        date.mTime.tm_mon = row.clock.month;
        date.mTime.tm_year = row.clock.years;
        date.mTime.tm_hour = row.clock.hour;
        date.mTime.tm_min = row.clock.minute;
        date.mTime.tm_sec = row.clock.second;
        date.mZone = row.clock.zone;
        date.mParsed = 1;
        date.assemble();
        EXPECT_EQ(date.mBody, row.written);
    }
}

} // namespace email_date_time_test
