// SPDX-License-Identifier: MIT
#pragma once

#include "utility/vectors/Stretch.h"

/// The vectorised side of base64: the clean stretch at the start of the input. Everything odd, and
/// the last few bytes, are left to the plain walk in Base64.cpp.
namespace tarvomime {

/// Groups of 3 bytes, without line ends.
TARVOMIME_STRETCH(encodeBase64Run);
/// Lines of 57 bytes, each with its CR LF.
TARVOMIME_STRETCH(encodeBase64Lines);
/// Digits, four by four, up to the first byte that is none (a pad, a line end).
TARVOMIME_STRETCH(decodeBase64Run);
/// Lines of 76 digits, all ended by CR LF or all by LF.
TARVOMIME_STRETCH(decodeBase64Lines);

} // namespace tarvomime
