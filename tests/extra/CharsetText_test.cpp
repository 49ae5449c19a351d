// SPDX-License-Identifier: MIT
#include "extra/CharsetText.h"

#include "tests/support/Printers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace charset_text_test {

using namespace tarvomime;

namespace {

struct NameRow
{
    const char* name;
    QByteArray charset;
    QByteArray bytes;
    QString text;
};

class CharsetName : public testing::TestWithParam<NameRow>
{
};

} // namespace

TEST_P(CharsetName, IsRead)
{
    EXPECT_TRUE(isReadableCharset(GetParam().charset));
    const Result<QString> text = textFromCharset(GetParam().bytes, GetParam().charset);
    ASSERT_TRUE(text) << text.reason().toStdString();
    EXPECT_EQ(*text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, CharsetName,
    testing::Values(
        NameRow{"Numbered", "iso-8859-2", "\xB1", "ą"},
        NameRow{"NumberedInUpperCase", "UTF-8", "é", "é"},
        NameRow{"Windows1252", "windows-1252", "\x93\x80\x94", "“€”"},
        NameRow{"Windows1252ByNumber", "cp1252", "\x80", "€"},
        NameRow{"Quoted", "\"windows-1252\"", "\x80", "€"},
        NameRow{"Iso2022Jp", "ISO-2022-JP", "\x1B$B$3$s\x1B(B", "こん"},
        NameRow{"Iso2022JpInPieces", "iso-2022-jp", "\x1B$B$3\x1B(B\x1B$B$s\x1B(B", "こん"},
        NameRow{"Iso2022JpByNumber", "cp50220", "\x1B$B$3$s\x1B(B", "こん"},
        NameRow{"EucKr", "euc-kr", "\xC7\xD1", "한"},
        NameRow{"KoreanOfTheNineties", "ks_c_5601-1987", "\xC7\xD1", "한"},
        NameRow{"UnifiedHangul", "UHC", "\xC7\xD1", "한"},
        NameRow{"Gb18030", "gb18030", "\xC4\xE3", "你"},
        NameRow{"Gb18030OfFourBytes", "gb18030", QByteArray("\x81\x30\x8B\x35"), "ý"},
        NameRow{"Gb2312IsReadByItsSuperset", "gb2312", "\xC4\xE3", "你"},
        NameRow{"Macintosh", "macintosh", "\x8E", "é"},
        NameRow{"ShiftJis", "shift_jis", "\x82\xB1", "こ"},
        NameRow{"Koi8RIsItself", "koi8-r", "\xB4\xC1", "╢а"},
        NameRow{"DecoratedUtf7", "unicode-1-1-utf-7", "+AOk-", "é"},
        NameRow{"DecoratedLatin2", "x-iso-8859-2", "\xB1", "ą"},
        NameRow{"HalfOfACharacter", "utf-16be", QByteArray("\0a\xD8\0\0b", 6), "a\uFFFDb"},
        NameRow{"TheOtherHalf", "utf-16be", QByteArray("\xDC\0", 2), "\uFFFD"},
        NameRow{"HalfInUtf7", "utf-7", "+2AA-", "\uFFFD"},
        NameRow{"WholeCharacter", "utf-16be", "\xD8\x3D\xDE\x03", "😃"},
        NameRow{"Ibm437", "437", "\x82", "é"}),
    [](const auto& row) { return std::string(row.param.name); });

namespace {

struct UnknownRow
{
    const char* name;
    QByteArray charset;
};

class UnknownCharset : public testing::TestWithParam<UnknownRow>
{
};

int messagesOfQt = 0;

void countMessage(QtMsgType, const QMessageLogContext&, const QString&)
{
    ++messagesOfQt;
}

} // namespace

// Qt's codecs print a line for each name that they are asked for in vain.
TEST_P(UnknownCharset, IsNotAskedFor)
{
    messagesOfQt = 0;
    const QtMessageHandler before = qInstallMessageHandler(countMessage);
    EXPECT_FALSE(isReadableCharset(GetParam().charset));
    qInstallMessageHandler(before);
    EXPECT_EQ(messagesOfQt, 0);
}

TEST_P(UnknownCharset, SaysSo)
{
    EXPECT_FALSE(isReadableCharset(GetParam().charset));
    const Result<QString> text = textFromCharset("a", GetParam().charset);
    EXPECT_FALSE(text);
    EXPECT_THAT(text.reason().toStdString(), testing::EndsWith("is not known"));
}

INSTANTIATE_TEST_SUITE_P(Extra, UnknownCharset,
                         testing::Values(UnknownRow{"Empty", ""}, UnknownRow{"Invented", "x-none"},
                                         UnknownRow{"NotAscii", "windows-125\xB2"},
                                         UnknownRow{"WithNul", {"a\0b", 3}},
                                         UnknownRow{"Endless", QByteArray(100000, 'x')}),
                         [](const auto& row) { return std::string(row.param.name); });

namespace {

struct ProposalRow
{
    const char* name;
    QByteArray bytes;
    QByteArray charset;
    CharsetBasis basis;
};

class CharsetProposal : public testing::TestWithParam<ProposalRow>
{
};

const QByteArray kRussian =
    "\xF0\xD2\xC9\xD7\xC5\xD4, \xCB\xC1\xCB \xD4\xD7\xCF\xC9 \xC4\xC5\xCC\xC1? "
    "\xF1 \xDE\xC9\xD4\xC1\xCC \xD4\xD7\xCF\xC5 \xD0\xC9\xD3\xD8\xCD\xCF \xD7\xDE\xC5\xD2\xC1.";

} // namespace

TEST_P(CharsetProposal, IsMade)
{
    const ProposedCharset proposed = proposeCharset(GetParam().bytes);
    EXPECT_EQ(proposed.name.toLower(), GetParam().charset);
    EXPECT_EQ(int(proposed.basis), int(GetParam().basis));
    EXPECT_TRUE(isReadableCharset(proposed.name));
}

INSTANTIATE_TEST_SUITE_P(
    Extra, CharsetProposal,
    testing::Values(
        ProposalRow{"Nothing", "", "us-ascii", CharsetBasis::Ascii},
        ProposalRow{"Ascii", "Hello", "us-ascii", CharsetBasis::Ascii},
        ProposalRow{"Utf8", "é", "utf-8", CharsetBasis::ValidUtf8},
        ProposalRow{"Utf8OfFourBytes", "😀", "utf-8", CharsetBasis::ValidUtf8},
        ProposalRow{"Utf8BesideEscapes", "é\x1B$B", "utf-8", CharsetBasis::ValidUtf8},
        ProposalRow{"Japanese", "\x1B$B$3\x1B(B", "iso-2022-jp", CharsetBasis::Escapes},
        ProposalRow{"JapaneseOf1978", "a\x1B$@$3\x1B(B", "iso-2022-jp", CharsetBasis::Escapes},
        ProposalRow{"Korean", "\x1B$)C\x0EGQ\x0F", "iso-2022-kr", CharsetBasis::Escapes},
        ProposalRow{"Chinese", "\x1B$)A\x0EGQ\x0F", "iso-2022-cn", CharsetBasis::Escapes},
        ProposalRow{"ColoursOfATerminal", "\x1B[31mred\x1B[0m", "us-ascii", CharsetBasis::Ascii},
        ProposalRow{"EscapeAtTheEnd", "a\x1B", "us-ascii", CharsetBasis::Ascii},
        ProposalRow{"Russian", kRussian, "koi8-r", CharsetBasis::Statistics},
        ProposalRow{"NoText", "\x81\x8D\x8F\x90\x9D", "windows-1252", CharsetBasis::Fallback}),
    [](const auto& row) { return std::string(row.param.name); });

namespace {

struct ReadRow
{
    const char* name;
    QByteArray declared;
    QByteArray bytes;
    QString text;
    CharsetBasis basis;
};

class TextReading : public testing::TestWithParam<ReadRow>
{
};

} // namespace

TEST_P(TextReading, BelievesWhatCanBe)
{
    const ReadText read = readText(GetParam().bytes, GetParam().declared);
    EXPECT_EQ(read.text, GetParam().text);
    EXPECT_EQ(int(read.charset.basis), int(GetParam().basis));
    EXPECT_FALSE(describeBasis(read.charset.basis).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Extra, TextReading,
    testing::Values(
        ReadRow{"Declared", "iso-8859-2", "\xB1", "ą", CharsetBasis::Declared},
        ReadRow{"DeclaredByName", "windows-1252", "\x80", "€", CharsetBasis::Declared},
        ReadRow{"DeclaredAscii", "us-ascii", "a", "a", CharsetBasis::Declared},
        ReadRow{"Undeclared", "", "é", "é", CharsetBasis::ValidUtf8},
        ReadRow{"Unknown", "x-unknown", "é", "é", CharsetBasis::ValidUtf8},
        ReadRow{"AsciiThatIsNone", "us-ascii", "é", "é", CharsetBasis::ValidUtf8},
        ReadRow{"AsciiThatIsNoneByItsOtherName", "ascii", "é", "é", CharsetBasis::ValidUtf8},
        ReadRow{"Utf8ThatIsNone", "utf-8", kRussian,
                "Привет, как твои дела? Я читал твое письмо вчера.", CharsetBasis::Statistics},
        ReadRow{"Utf8WithDamage", "utf-8", QByteArray("ÄÖÜäöüßéèêç") + "\xE2",
                QString("ÄÖÜäöüßéèêç") + QChar(0xFFFD), CharsetBasis::Declared},
        ReadRow{"Utf8HalfDamaged", "utf-8", QByteArray("ÄÖ") + "\xE2\xE2",
                QString("ÄÖ") + QString(2, QChar(0xFFFD)), CharsetBasis::Declared},
        ReadRow{"Latin1WithQuotes", "iso-8859-1", "\x93\xE9\x94", "“é”",
                CharsetBasis::Windows1252Letters},
        ReadRow{"Latin1ThatCouldBeUtf8", "iso-8859-1", "\xC3\xA9", "Ã©", CharsetBasis::Declared},
        ReadRow{"KoreanThatIsNone", "euc-kr", "\xFF\xFF\xFF", "ÿÿÿ", CharsetBasis::Statistics}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace charset_text_test
