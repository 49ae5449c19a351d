// SPDX-License-Identifier: MIT
#include "utility/text/Utf8.h"

#include <random>

namespace utf8_test {

using tarvomime::utf8Of;

namespace {

void expectAsTheStringWrites(const QString& text)
{
    const auto bytes = utf8Of(text);
    EXPECT_EQ(bytes.has_value(), text.isValidUtf16()) << text.toUtf8().toHex().constData();
    EXPECT_EQ(bytes.value_or(text.toUtf8()).toHex(), text.toUtf8().toHex());
}

} // namespace

// Beyond the alphabets one in 61: characters of one length are written alike.
TEST(Utf8, CharactersAloneAndInARow)
{
    for (char32_t code = 0; code < 0x110000 && !HasFailure(); code += code < 0x1000 ? 1 : 61) {
        const QString character = code >= 0xD800 && code < 0xE000
                                      ? QString(QChar(static_cast<ushort>(code)))
                                      : QString::fromUcs4(&code, 1);
        expectAsTheStringWrites(character);
        expectAsTheStringWrites("a" + character + character + QChar(0x7FF) + character);
    }
}

TEST(Utf8, RandomUnits)
{
    const unsigned seed = 2781;
    std::mt19937 random(seed);
    const ushort units[] = {'a', 0x7F, 0x80, 0x416, 0x7FF, 0x800, 0x4E00, 0xD83D, 0xDE00, 0xFFFF};
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        QString text;
        for (unsigned left = random() % 12; left > 0; --left)
            text += QChar(units[random() % std::size(units)]);
        expectAsTheStringWrites(text);
    }
}

} // namespace utf8_test
