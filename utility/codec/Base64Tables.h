// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace tarvomime {

constexpr std::string_view kBase64Digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kBase64Pad = '=';
constexpr unsigned char kBase64PadValue = 64;
/// Marks a byte that the decoder passes over.
constexpr unsigned char kBase64Skipped = 70;
/// The bytes from here on are not skipped: they are the digit "A".
constexpr int kBase64FirstZero = 0xEC;

constexpr std::array<unsigned char, 256> makeBase64Values()
{
    std::array<unsigned char, 256> values{};
    for (int byte = 0; byte < kBase64FirstZero; ++byte)
        values[byte] = kBase64Skipped;
    for (std::size_t value = 0; value < kBase64Digits.size(); ++value)
        values[static_cast<unsigned char>(kBase64Digits[value])] =
            static_cast<unsigned char>(value);
    values[static_cast<unsigned char>(kBase64Pad)] = kBase64PadValue;
    return values;
}

constexpr std::array<unsigned char, 256> kBase64Values = makeBase64Values();

static_assert(kBase64Digits.size() == 64);

} // namespace tarvomime
