// SPDX-License-Identifier: MIT
#pragma once

namespace tarvomime {

/// What a NUL inside a text of known length means to a decoder. One that knows need not look for it
/// beforehand, in a pass of its own.
enum class NulByte { IsData, EndsText };

} // namespace tarvomime
