// SPDX-License-Identifier: MIT
#include "extra/Utf8.h"

namespace tarvomime {

namespace {

using Byte = unsigned char;

std::size_t lengthByLead(Byte lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool isScalarOfLength(char32_t codePoint, std::size_t length)
{
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    return codePoint >= kSmallest[length] && codePoint <= 0x10FFFF && !surrogate;
}

} // namespace

Utf8Character firstUtf8Character(std::string_view text)
{
    const auto lead = static_cast<Byte>(text.front());
    const std::size_t length = lengthByLead(lead);
    const Utf8Character lone{lead, 1, false};
    if (length == 1)
        return {lead, 1, true};
    if (length == 0 || length > text.size())
        return lone;
    char32_t codePoint = lead & (0x7Fu >> length);
    for (const char c : text.substr(1, length - 1)) {
        const auto byte = static_cast<Byte>(c);
        if ((byte & 0xC0) != 0x80)
            return lone;
        codePoint = codePoint << 6 | (byte & 0x3Fu);
    }
    return isScalarOfLength(codePoint, length) ? Utf8Character{codePoint, length, true} : lone;
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const Utf8Character character = firstUtf8Character(text);
        if (!character.valid)
            return false;
        text.remove_prefix(character.length);
    }
    return true;
}

} // namespace tarvomime
