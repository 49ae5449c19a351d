// SPDX-License-Identifier: MIT
// The tables beside the codec that they were read off.
#include "utility/codec/DoubleByteCharset.h"

#include "tests/support/HugeBytes.h"
#include "tests/support/RandomBytes.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/codec/Charset.h"

#include <QTextCodec>
#include <memory>

namespace double_byte_charset_test {

using namespace tarvomime;

namespace {

std::optional<QString> byTable(const DoubleByteCharset& charset, const QByteArray& bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    std::vector<ushort> units(size);
    const std::optional<int> count = charset.decode({bytes.constData(), size}, units.data());
    return count ? QString(reinterpret_cast<const QChar*>(units.data()), *count)
                 : std::optional<QString>();
}

QString byCodec(const QTextCodec& codec, const QByteArray& bytes)
{
    const std::unique_ptr<QTextDecoder> decoder(codec.makeDecoder());
    return decoder->toUnicode(bytes);
}

// Whether the tables knew the bytes; what they know must be what the codec says.
bool expectAsCodec(int charset, const QByteArray& bytes)
{
    const DoubleByteCharset& table = *DoubleByteCharset::of(charset);
    const QTextCodec& codec = *codecOf(charset);
    const std::optional<QString> text = byTable(table, bytes);
    if (!text)
        return false;
    EXPECT_EQ(*text, byCodec(codec, bytes)) << bytes.toHex().data();
    QByteArray written;
    if (table.encode(*text, written)) {
        EXPECT_EQ(written, codec.fromUnicode(*text)) << bytes.toHex().data();
    }
    return true;
}

} // namespace

TEST(DoubleByteCharset, OnlyGbkAndBig5HaveOne)
{
    for (int charset = -1; charset <= 24; ++charset)
        EXPECT_EQ(DoubleByteCharset::of(charset) != nullptr, charset >= 14 && charset <= 16)
            << charset;
}

TEST(DoubleByteCharset, IsReadOffNoCodecWithoutAscii)
{
    EXPECT_EQ(DoubleByteCharset::readOff(*QTextCodec::codecForName("UTF-16")), nullptr);
}

namespace {

// As strange as a table can bear: the first pair is half a character, the next two trade places
// with others when they are written, and behind them no line ends any more.
class StrangeCodec : public QTextCodec
{
public:
    QByteArray name() const override { return "x-strange"; }
    int mibEnum() const override { return -7000; }

protected:
    QString convertToUnicode(const char* bytes, int length, ConverterState*) const override
    {
        const auto end = QByteArray(bytes, length).indexOf("\x81\x43");
        const int shown = end < 0 ? length : static_cast<int>(end);
        QString text;
        for (int i = 0; i < shown; ++i) {
            if (static_cast<unsigned char>(bytes[i]) < 0x80)
                text.append(QLatin1Char(bytes[i]));
            else
                text.append(QChar(0xD800 + static_cast<unsigned char>(bytes[++i]) - 0x40));
        }
        return text.replace(QChar(0xD801), QChar(0x416)).replace(QChar(0xD802), QChar(0x417));
    }
    QByteArray convertFromUnicode(const QChar* text, int length, ConverterState*) const override
    {
        QString all = QString(text, length);
        const auto end = all.indexOf(QChar(0x417));
        if (end < 0)
            return all.toLatin1();
        return all.left(end).replace(QChar(0x416), QLatin1Char('?')).toLatin1() + "\x81\x41\n";
    }
};

} // namespace

TEST(DoubleByteCharset, KnowsNothingOfWhatIsNotReversible)
{
    // Qt's list of codecs owns it.
    const auto table = DoubleByteCharset::readOff(*new StrangeCodec);
    ASSERT_NE(table, nullptr);
    EXPECT_FALSE(byTable(*table, "\x81\x40")) << "half a character";
    EXPECT_EQ(byTable(*table, "\x81\x41"), QString(QChar(0x416)));
    EXPECT_EQ(byTable(*table, "\x81\x42"), QString(QChar(0x417)));
    EXPECT_FALSE(byTable(*table, "\x81\x43")) << "behind the last line";
    for (const int unit : {0x416, 0x417}) {
        QByteArray bytes;
        EXPECT_FALSE(table->encode(QString(QChar(unit)), bytes)) << unit;
    }
}

TEST(DoubleByteCharset, EveryPairIsWhatTheCodecSays)
{
    for (const int charset : {CHARSET_GBK, CHARSET_BIG5}) {
        int known = 0;
        for (int pair = 0x8000; pair < 0x10000 && !HasFailure(); ++pair) {
            const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
            known += expectAsCodec(charset, QByteArray(bytes, 2)) ? 1 : 0;
        }
        EXPECT_GT(known, 13000) << charset;
    }
}

TEST(DoubleByteCharset, EveryUnitThatItWritesIsWhatTheCodecWrites)
{
    for (const int charset : {CHARSET_GBK, CHARSET_BIG5}) {
        const QTextCodec& codec = *codecOf(charset);
        for (int unit = 0; unit <= 0xFFFF && !HasFailure(); ++unit) {
            const QString text = QString(QChar(unit)) + 'a';
            QByteArray bytes;
            if (DoubleByteCharset::of(charset)->encode(text, bytes)) {
                EXPECT_EQ(bytes, codec.fromUnicode(text)) << charset << ' ' << unit;
            }
        }
    }
}

// Nothing but what the tables hold: not one of these may be left to the codec.
TEST(DoubleByteCharset, TextsOfPairsAndAsciiAreKnown)
{
    std::mt19937 random(2312);
    for (int round = 0; round < 2000 && !HasFailure(); ++round) {
        const int charset = round % 2 == 0 ? CHARSET_GB2312 : CHARSET_BIG5;
        QByteArray bytes;
        for (auto left = random() % 40; left > 0; --left) {
            bytes += static_cast<char>(0xB0 + random() % 0x10);
            bytes += static_cast<char>(0xA1 + random() % 0x50);
            bytes += random() % 3 == 0 ? "ascii" : "";
        }
        EXPECT_TRUE(expectAsCodec(charset, bytes)) << bytes.toHex().data();
        QByteArray written;
        EXPECT_TRUE(
            DoubleByteCharset::of(charset)->encode(byCodec(*codecOf(charset), bytes), written));
        EXPECT_EQ(written, bytes);
    }
}

TEST(DoubleByteCharset, NoiseIsWhatTheCodecSaysOrNotKnown)
{
    int known = 0;
    for (unsigned seed = 0; seed < 20000 && !HasFailure(); ++seed)
        known += expectAsCodec(seed % 2 == 0 ? CHARSET_GBK : CHARSET_BIG5,
                               randomBytes(static_cast<int>(seed % 7), seed))
                     ? 1
                     : 0;
    EXPECT_GT(known, 1000);
}

TEST(DoubleByteCharset, WritesNoTextThatIsTooLong)
{
    const HugeBytes bytes;
    if (!bytes.isMapped() || HugeBytes::length == 0)
        GTEST_SKIP() << "no address space";
    const QString text =
        QString::fromRawData(reinterpret_cast<const QChar*>(bytes.data()), 1 << 30);
    QByteArray written("as it was");
    EXPECT_FALSE(DoubleByteCharset::of(CHARSET_GBK)->encode(text, written));
    EXPECT_EQ(written, "as it was");
}

TEST(DoubleByteCharset, HalfAPairAndWhatIsNoUnitAreNotKnown)
{
    const DoubleByteCharset& gbk = *DoubleByteCharset::of(CHARSET_GBK);
    EXPECT_FALSE(byTable(gbk, "a\xB0"));
    EXPECT_FALSE(byTable(gbk, "\xFF\xFF"));
    QByteArray bytes;
    EXPECT_FALSE(gbk.encode(QString::fromUtf8("😀"), bytes));
}

} // namespace double_byte_charset_test
