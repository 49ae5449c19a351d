// SPDX-License-Identifier: MIT
#pragma once

/// The media subtypes that the library itself treats specially, by their numbers in the table of
/// subtypes.
namespace tarvomime {

constexpr int SUBTYPE_PLAIN = 1;
constexpr int SUBTYPE_CALENDAR = 4;
constexpr int SUBTYPE_REPORT = 5;
constexpr int SUBTYPE_ALTERNATIVE = 22;
constexpr int SUBTYPE_RELATED = 24;
constexpr int SUBTYPE_OCTET_STREAM = 33;

} // namespace tarvomime
