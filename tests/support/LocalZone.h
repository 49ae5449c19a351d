// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

/// Sets the C library's local zone for as long as the object lives. Zones are told as rules, so
/// that no zone files are needed ("EST5EDT,M3.2.0,M11.1.0"; POSIX counts west as positive).
class LocalZone
{
public:
    explicit LocalZone(const char* rule)
    {
        if (const char* before = std::getenv("TZ"))
            mBefore = before;
        setenv("TZ", rule, 1);
        tzset();
    }

    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;

    ~LocalZone()
    {
        if (mBefore)
            setenv("TZ", mBefore->c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

private:
    std::optional<std::string> mBefore;
};

namespace zone {

inline constexpr char utc[] = "UTC0";
inline constexpr char china[] = "CST-8";
inline constexpr char india[] = "IST-5:30";
inline constexpr char farEast[] = "<+14>-14";
inline constexpr char farWest[] = "<-12>12";
inline constexpr char newYork[] = "EST5EDT,M3.2.0,M11.1.0";
inline constexpr char auckland[] = "NZST-12NZDT,M9.5.0,M4.1.0/3";

inline constexpr const char* all[] = {utc, china, india, farEast, farWest, newYork, auckland};

} // namespace zone
