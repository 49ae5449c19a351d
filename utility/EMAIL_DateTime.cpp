// SPDX-License-Identifier: MIT
#include "utility/EMAIL_DateTime.h"

#include "types/Ascii.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/text/Tokens.h"
#include "utility/time/CurrentZone.h"
#include "utility/time/LocalTime.h"
#include "utility/time/ZoneOffset.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>

using namespace tarvomime;

namespace {

// The first `N` pieces of a text, as they come; what is missing is null, and what follows is not
// cut.
template <std::size_t N>
std::array<QCString, N> firstPieces(const QCString& separator, const QCString& text)
{
    std::array<QCString, N> pieces;
    PieceReader reader(separator, text, true);
    for (QCString& piece : pieces)
        piece = reader.take().value_or(QCString());
    return pieces;
}

constexpr std::array kDayNames{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array kMonthNames{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// Index of the name that equals `text` whatever the case, or 0: Sunday, January.
template <std::size_t N>
int indexOfName(const std::array<const char*, N>& names, const QCString& text)
{
    const auto equals = [&text](const char* name) { return equalIgnoringCase(name, text.view()); };
    const auto found = std::find_if(names.begin(), names.end(), equals);
    return found == names.end() ? 0 : static_cast<int>(found - names.begin());
}

// The name at `index`, counted round and round, backwards for negative numbers.
template <std::size_t N>
const char* nameAt(const std::array<const char*, N>& names, int index)
{
    constexpr int kCount = static_cast<int>(N);
    // The checker takes the array for one of numbers.
    // cppcheck-suppress CastIntegerToAddressAtReturn
    return names[static_cast<std::size_t>((index % kCount + kCount) % kCount)];
}

// Looks for the first character that `wanted` accepts and tells where the search stopped.
//
// 1. The first character is looked at twice before the search moves on, so that it stops one
//    position behind what it found unless that is the very first character. The day name counts on
//    it: it is recognised only where it begins the text.
// 2. Without such a character the search stops at the end.
template <typename Predicate>
int stopOfSearch(const QCString& text, Predicate wanted)
{
    const auto index =
        static_cast<int>(std::find_if(text.begin(), text.end(), wanted) - text.begin());
    return index == 0 || index == text.length() ? index : index + 1;
}

bool mayBeginDayName(char c)
{
    const char lower = asciiLower(c);
    return lower >= 'b' && lower <= 'y';
}

// `stop` is where the search for the first digit stopped. Only in front of a digit at index 3 or
// later is there room for a day name.
int dayOfWeek(const QCString& text, int stop)
{
    if (stop <= 3)
        return 0;
    return indexOfName(kDayNames, text.mid(stopOfSearch(text, mayBeginDayName), 3));
}

int numberOr(int fallback, const QCString& text)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    return ok ? number : fallback;
}

// A year so far back that its distance from 1900 is no `int` counts as one that does not convert.
int yearsSince1900(const QCString& text)
{
    constexpr int kEpochYears = 1970 - 1900;
    const int year = numberOr(1970, text);
    return year < std::numeric_limits<int>::min() + 1900 ? kEpochYears : year - 1900;
}

void readClock(const QCString& text, struct tm& time)
{
    const auto pieces = firstPieces<4>(QCString::fromLiteral(":"), text);
    time.tm_hour = numberOr(12, pieces[0]);
    time.tm_min = numberOr(0, pieces[1]);
    time.tm_sec = pieces[3].isNull() ? numberOr(0, pieces[2]) : 0;
}

} // namespace

EMAIL_DateTime::EMAIL_DateTime() = default;

EMAIL_DateTime::EMAIL_DateTime(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Field(text, parent)
{
    followZone();
}

EMAIL_DateTime::~EMAIL_DateTime() = default;

void EMAIL_DateTime::assemble()
{
    if (mParsed == 1) {
        const long long year = mTime.tm_year + 1900LL;
        const long long zone = std::llabs(mZone);
        // Five numbers of at most 11 characters, names, separators and the zone take 74.
        std::array<char, 128> text{};
        std::snprintf(text.data(), text.size(), "%s, %d %s %4lld %02d:%02d:%02d %c%02d%02d",
                      nameAt(kDayNames, mTime.tm_wday), mTime.tm_mday,
                      nameAt(kMonthNames, mTime.tm_mon), year, mTime.tm_hour, mTime.tm_min,
                      mTime.tm_sec, mZone < 0 ? '-' : '+', static_cast<int>(zone / 60 % 24),
                      static_cast<int>(zone % 60));
        mBody = QCString(text.data());
    }
    EMAIL_Field::assemble();
}

void EMAIL_DateTime::parse()
{
    if (mBody.isEmpty())
        return;
    // Never empty: without any digit it is the last character.
    const int stop = stopOfSearch(mBody, isDigit);
    const QCString date = mBody.right(mBody.length() - stop + 1);
    const auto tokens = firstPieces<5>(QCString::fromLiteral(" "), date);

    mTime.tm_mday = numberOr(1, tokens[0]);
    mTime.tm_mon = indexOfName(kMonthNames, tokens[1]);
    mTime.tm_year = yearsSince1900(tokens[2]);
    readClock(tokens[3], mTime);
    mTime.tm_wday = dayOfWeek(mBody, stop);
    const QCString zone = tokens[4].lower();
    if (!zone.isEmpty())
        mZone = zoneOffset(zone);
    mParsed = 1;
}

void EMAIL_DateTime::setTime(unsigned long t)
{
    constexpr unsigned long kHour = 3600;
    if (t == 0)
        t = static_cast<unsigned long>(std::time(nullptr));
    std::optional<std::tm> clock = localTime(t);
    if (clock && clock->tm_isdst > 0)
        clock = localTime(t - kHour);
    mTime = clock ? *clock : *localTime(0);
    mZone = static_cast<int>(standardZone());
    mParsed = 1;
}

unsigned long EMAIL_DateTime::getTime()
{
    const std::optional<std::time_t> local = calendarTime(mTime);
    if (!local)
        return 0;
    // Unsigned, since the number of seconds in an absurd zone may be no `long`.
    const unsigned long minutes =
        static_cast<unsigned long>(standardZone()) - static_cast<unsigned long>(mZone);
    return static_cast<unsigned long>(*local) + minutes * 60;
}

struct tm EMAIL_DateTime::getTmTime() const
{
    return mTime;
}
