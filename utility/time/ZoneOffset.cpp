// SPDX-License-Identifier: MIT
#include "utility/time/ZoneOffset.h"

#include "types/Ascii.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvomime {

namespace {

struct NamedZone
{
    std::string_view prefix;
    int minutes;
};

// The first row whose prefix begins the token decides, so a single letter stands behind the names
// that begin with it.
//
// 1. The single letters are the military zones with the signs that RFC 822 gave them, which later
//    texts call a mistake; the letters that are missing count as UTC.
// 2. Three characters decide: "cstx" is "cst", "gmt+1" is "gmt".
// 3. A name that is not known counts as the military letter it begins with: "est" needs no row.
constexpr std::array kNamedZones{
    NamedZone{"cst", -360}, NamedZone{"cdt", -300}, NamedZone{"c", -180},   NamedZone{"edt", -240},
    NamedZone{"e", -300},   NamedZone{"gmt", 0},    NamedZone{"g", -420},   NamedZone{"mst", -420},
    NamedZone{"mdt", -360}, NamedZone{"m", -720},   NamedZone{"pst", -480}, NamedZone{"pdt", -420},
    NamedZone{"p", 180},    NamedZone{"ut", 0},     NamedZone{"u", 480},
};

// "+hhmm" or "-hhmm". Digits count as far as they go: "+01" is one hour, "+1:30" ten hours.
//
// 1. A sign with a single character behind it is no zone: "+1" counts as UTC.
int numericOffset(const QCString& token)
{
    if (token.length() <= 2)
        return 0;
    constexpr std::array kWeights{600, 60, 10, 1};
    int minutes = 0;
    int position = 1;
    for (const int weight : kWeights) {
        const char digit = token[position++];
        if (!isDigit(digit))
            break;
        minutes += weight * (digit - '0');
    }
    return token[0] == '-' ? -minutes : minutes;
}

} // namespace

int zoneOffset(const QCString& token)
{
    if (token[0] == '+' || token[0] == '-')
        return numericOffset(token);
    // 4. "g" alone is not the seventh hour but a short "gmt".
    if (token == "g")
        return 0;
    const auto begins = [&token](const NamedZone& zone) {
        return token.view().substr(0, zone.prefix.size()) == zone.prefix;
    };
    const auto* found = std::find_if(kNamedZones.begin(), kNamedZones.end(), begins);
    return found == kNamedZones.end() ? 0 : found->minutes;
}

} // namespace tarvomime
