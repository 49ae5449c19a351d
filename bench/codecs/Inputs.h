// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>

/// What the benchmarks work on. All of it is made here, the same in every run.
namespace bench {

enum class Kind { English, Russian, Binary };
inline constexpr std::array kKinds{Kind::English, Kind::Russian, Kind::Binary};
const char* kindName(Kind kind);

inline constexpr std::array<std::size_t, 3> kSizes{std::size_t(1) << 10, std::size_t(1) << 16,
                                                   std::size_t(1) << 24};

/// `size` bytes: prose in lines of about 70 characters (English, or Russian in UTF-8), or noise.
std::string makeInput(Kind kind, std::size_t size);

/// As mail programs write it today: lines of 76 characters, blanks inside a line left alone, CR LF
/// (of text) kept, everything outside ASCII escaped.
std::string asQuotedPrintable(const std::string& data, Kind kind);
/// Lines of 76 digits and CR LF, or one line without an end.
std::string asBase64(const std::string& data, bool breakLines);

} // namespace bench
