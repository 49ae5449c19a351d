// SPDX-License-Identifier: MIT
#include "types/QCString.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <limits>
#include <memory>
#include <type_traits>

namespace qcstring_test {

TEST(QCString, NullAndEmptyDifferButCompareEqual)
{
    const QCString null;
    const QCString empty("");
    EXPECT_TRUE(null.isNull());
    EXPECT_TRUE(null.isEmpty());
    EXPECT_FALSE(empty.isNull());
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_EQ(null, empty);
    EXPECT_EQ(null.size(), 0);
    EXPECT_EQ(empty.size(), 1);
    EXPECT_EQ(null.length(), 0);
    EXPECT_STREQ(null.data(), "");
    EXPECT_STREQ(empty.data(), "");
}

TEST(QCString, ComparesWithNull)
{
    const char* nothing = nullptr;
    EXPECT_TRUE(QCString() == nothing);
    EXPECT_TRUE(nothing == QCString(""));
    EXPECT_TRUE(QCString("a") != nothing);
    EXPECT_TRUE(nothing < QCString("a"));
    EXPECT_FALSE(QCString("a") < nothing);
    EXPECT_FALSE(QCString() < QCString(""));
    EXPECT_TRUE(QCString() < QCString("a"));
}

TEST(QCString, NullSources)
{
    EXPECT_TRUE(QCString(static_cast<const char*>(nullptr)).isNull());
    EXPECT_TRUE(QCString(nullptr, 5).isNull());
    EXPECT_TRUE(QCString(QByteArray()).isNull());
    EXPECT_TRUE(QCString::fromBytes(QByteArray()).isNull());
    EXPECT_FALSE(QCString(QByteArray("")).isNull());
    EXPECT_FALSE(QCString("abc", 0).isNull());
    EXPECT_FALSE(QCString("abc", -1).isNull());
    EXPECT_EQ(QCString("abc", -1).length(), 0);
}

TEST(QCString, ConstructorsEndAtTheFirstNul)
{
    const QByteArray bytes("ab\0cd", 5);
    EXPECT_EQ(QCString(bytes), "ab");
    EXPECT_EQ(QCString("ab\0cd", 5), "ab");
    EXPECT_EQ(QCString("abcd", 2), "ab");
    EXPECT_EQ(QCString("ab", 50), "ab");
    EXPECT_EQ(QCString("ab").length(), 2);
}

TEST(QCString, FromBytesKeepsEveryByte)
{
    const QByteArray bytes("ab\0cd\0", 6);
    const QCString text = QCString::fromBytes(bytes);
    EXPECT_EQ(text.length(), 6);
    EXPECT_EQ(text.at(2), '\0');
    EXPECT_EQ(static_cast<QByteArray>(text), bytes);
    EXPECT_EQ(text.mid(3, 2), "cd");
}

TEST(QCString, DataOfASliceEndsAtANul)
{
    const QCString text("Subject: Hello");
    EXPECT_STREQ(text.left(7).data(), "Subject");
    EXPECT_STREQ(text.mid(9, 3).data(), "Hel");
    EXPECT_STREQ(text.right(5).data(), "Hello");
    EXPECT_STREQ(text.data(), "Subject: Hello");
}

TEST(QCString, DataOfASliceThatEndsAtANulIsNotCopied)
{
    const QCString text("Subject: Hello");
    EXPECT_EQ(static_cast<const void*>(text.right(5).data()), text.data() + 9);
    const QCString bytes = QCString::fromBytes(QByteArray("ab\0cd", 5));
    EXPECT_EQ(static_cast<const void*>(bytes.left(2).data()), bytes.begin());
}

TEST(QCString, SlicesShareTheirBuffer)
{
    const QCString text("  abcdef ");
    EXPECT_EQ(static_cast<const void*>(text.left(4).begin()), text.begin());
    EXPECT_EQ(static_cast<const void*>(text.mid(3).begin()), text.begin() + 3);
    EXPECT_EQ(static_cast<const void*>(text.stripWhiteSpace().begin()), text.begin() + 2);
}

TEST(QCString, SlicesOutliveTheirText)
{
    QCString slice;
    {
        const QCString text(QByteArray(1000, 'x') + "tail");
        slice = text.right(4);
    }
    EXPECT_EQ(slice, "tail");
    EXPECT_STREQ(slice.data(), "tail");
}

TEST(QCString, BytesBorrowedFromElsewhereAreCopied)
{
    auto memory = std::make_unique<char[]>(3);
    memory[0] = 'a';
    memory[1] = 'b';
    memory[2] = 'c';
    const QCString text(QByteArray::fromRawData(memory.get(), 3));
    memory.reset();
    EXPECT_STREQ(text.data(), "abc");
}

TEST(QCString, BytesOfItsCallerAreNotCopied)
{
    const char memory[] = {'a', '\0', 'c', 'd'};
    const QCString text = QCString::fromRawData(memory, 4);
    EXPECT_EQ(static_cast<const void*>(text.begin()), memory);
    EXPECT_EQ(static_cast<const void*>(text.mid(1, 2).begin()), memory + 1);
    EXPECT_EQ(text.length(), 4);
    EXPECT_TRUE(QCString::fromRawData(nullptr, 4).isNull());
    EXPECT_TRUE(QCString::fromRawData(memory, -1).isNull());
    EXPECT_TRUE(QCString::fromRawData(memory, QCString::longestLength + 1).isNull());
    EXPECT_FALSE(QCString::fromRawData(memory, 0).isNull());
}

TEST(QCString, WhatIsTakenFromBytesOfItsCallerIsACopy)
{
    auto memory = std::make_unique<char[]>(3);
    memory[0] = 'a';
    memory[1] = 'b';
    memory[2] = 'c';
    QCString detached = QCString::fromRawData(memory.get(), 3);
    detached.detach();
    const QCString shown = QCString::fromRawData(memory.get(), 3);
    EXPECT_STREQ(shown.data(), "abc");
    QCString written = QCString::fromRawData(memory.get(), 3);
    written += 'd';
    const QByteArray array = QCString::fromRawData(memory.get(), 2);
    memory.reset();
    EXPECT_EQ(detached, "abc");
    EXPECT_EQ(shown, "abc");
    EXPECT_EQ(written, "abcd");
    EXPECT_EQ(array, "ab");
}

TEST(QCString, LetsGoOfTheBufferItWasCutFrom)
{
    const QCString text("Subject: Hello");
    QCString slice = text.right(5);
    slice.detach();
    EXPECT_EQ(slice, "Hello");
    EXPECT_NE(static_cast<const void*>(slice.begin()), text.begin() + 9);
    QCString whole = text;
    whole.detach();
    EXPECT_EQ(static_cast<const void*>(whole.begin()), text.begin());
    QCString null;
    null.detach();
    EXPECT_TRUE(null.isNull());
    QCString literal = QCString::fromLiteral("ever");
    const char* const start = literal.begin();
    literal.detach();
    EXPECT_EQ(static_cast<const void*>(literal.begin()), start) << "it lives for ever";
}

TEST(QCString, TheTextThatWasMovedFromIsNull)
{
    QCString text("abc");
    const QCString taken = std::move(text);
    EXPECT_EQ(taken, "abc");
    // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move): it is what is shown
    EXPECT_TRUE(text.isNull());
}

TEST(QCString, ChangingOneCopyLeavesTheOther)
{
    QCString first("abc");
    const QCString second = first;
    first += "def";
    EXPECT_EQ(first, "abcdef");
    EXPECT_EQ(second, "abc");
    first.truncate(1);
    EXPECT_EQ(first, "a");
    first.append(QCString("bc"));
    EXPECT_EQ(first, "abc");
    EXPECT_EQ(second, "abc");
}

TEST(QCString, TakesItselfAsArgument)
{
    QCString text("ab");
    const QCString& same = text;
    text = same;
    EXPECT_EQ(text, "ab");
    text.append(text);
    EXPECT_EQ(text, "abab");
    text.prepend(text.left(1));
    EXPECT_EQ(text, "aabab");
    text += text.mid(1, 2);
    EXPECT_EQ(text, "aababab");
    text = text.mid(3);
    EXPECT_EQ(text, "abab");
    text.append(text.data());
    EXPECT_EQ(text, "abababab");
}

TEST(QCString, AppendingToNull)
{
    QCString text;
    text += "a";
    EXPECT_EQ(text, "a");
    QCString still;
    still += QCString();
    EXPECT_TRUE(still.isNull());
    QCString empty;
    empty += "";
    EXPECT_FALSE(empty.isNull());
    QCString byte;
    byte += 'x';
    EXPECT_EQ(byte, "x");
}

TEST(QCString, TruncatesOnlyToShorter)
{
    QCString text("abc");
    text.truncate(5);
    EXPECT_EQ(text, "abc");
    text.truncate(-1);
    EXPECT_EQ(text, "");
    EXPECT_FALSE(text.isNull());
}

TEST(QCString, Joins)
{
    const QCString text("b");
    EXPECT_EQ(text + text, "bb");
    EXPECT_EQ(text + "c", "bc");
    EXPECT_EQ("a" + text, "ab");
    EXPECT_EQ(text + 'c', "bc");
    EXPECT_EQ('a' + text, "ab");
    EXPECT_EQ(text + QByteArray("c"), "bc");
    EXPECT_EQ(QByteArray("a") + text, "ab");
}

TEST(QCString, Orders)
{
    EXPECT_LT(QCString("a"), QCString("b"));
    EXPECT_LT(QCString("a"), QCString("ab"));
    EXPECT_LT(QCString("z"), QCString("\xE9")) << "bytes compare unsigned";
    EXPECT_FALSE(QCString("b") < QCString("a"));
    EXPECT_TRUE(QCString("a") < "b");
    EXPECT_TRUE("a" < QCString("b"));
}

TEST(QCString, OrdersInEveryDirection)
{
    const QCString a("a");
    EXPECT_TRUE(QCString("b") > a);
    EXPECT_FALSE(a > a);
    EXPECT_TRUE(a >= a);
    EXPECT_TRUE(a <= a);
    EXPECT_FALSE(QCString("b") <= a);
    EXPECT_FALSE(a >= "b");
    EXPECT_TRUE("b" > a);
    EXPECT_TRUE("a" <= a);
    EXPECT_TRUE(a < QByteArray("b"));
    EXPECT_FALSE(QByteArray("b") < a);
    EXPECT_TRUE(QByteArray("b") >= a);
}

TEST(QCString, TakesByteArraysAsTexts)
{
    const QByteArray bytes("bc\0d", 4);
    QCString text("abcabc");
    EXPECT_EQ(text.find(bytes), 1);
    EXPECT_EQ(text.find(bytes, 2), 4);
    EXPECT_EQ(text.findRev(bytes), 4);
    EXPECT_EQ(text.contains(bytes), 2);
    text += bytes;
    EXPECT_EQ(text, "abcabcbc");
    text.append(bytes).prepend(bytes);
    EXPECT_EQ(text, "bcabcabcbcbc");
}

TEST(QCString, GivesQtTheBytesWithoutTheirTerminator)
{
    const QCString text("\xC3\xA9t\xC3\xA9");
    EXPECT_EQ(QString(text), QStringLiteral("\u00E9t\u00E9"));
    EXPECT_EQ(QString::fromUtf8(text), QStringLiteral("\u00E9t\u00E9"));
    EXPECT_EQ(QString::fromUtf8(text.left(3)), QStringLiteral("\u00E9t"));
    EXPECT_EQ(QString::fromLatin1(text).length(), 5);
    EXPECT_EQ(QString::fromLocal8Bit(text.mid(2, 1)), QStringLiteral("t"));
    QByteArray bytes("<");
    bytes += text.mid(2, 1);
    bytes.append(text.mid(2, 1));
    bytes.prepend(text.mid(2, 1));
    EXPECT_EQ(bytes, QByteArray("t<tt"));
}

TEST(QCString, StandsInQtsContainers)
{
    const QCString key = QCString("subject: Hi").left(7);
    QMap<QCString, QCString> map;
    map[key] = "Hi";
    EXPECT_EQ(map.value("subject"), "Hi");
    EXPECT_EQ((QHash<QCString, int>{{key, 4}}).value("subject"), 4);
    EXPECT_TRUE(QSet<QCString>{key}.contains("subject"));
    EXPECT_TRUE(QList<QCString>{key}.contains("subject"));
}

TEST(QCString, ReadsBytesOutsideAsNul)
{
    const QCString text("ab");
    EXPECT_EQ(text[0], 'a');
    EXPECT_EQ(text.at(1), 'b');
    EXPECT_EQ(text[2], '\0');
    EXPECT_EQ(text[-1], '\0');
    EXPECT_EQ(QCString()[0], '\0');
}

TEST(QCString, ConvertsOnlyToAByteArray)
{
    const QCString text("abc");
    const QByteArray bytes = text;
    EXPECT_EQ(bytes, QByteArray("abc"));
    const QString unicode(text);
    EXPECT_EQ(unicode, QStringLiteral("abc"));
    EXPECT_TRUE(text == bytes);
    EXPECT_TRUE(bytes == text);
    EXPECT_TRUE(QByteArray(QCString()).isNull());
    EXPECT_FALSE((std::is_convertible_v<QCString, const char*>));
    EXPECT_FALSE((std::is_convertible_v<QCString, QString>));
    EXPECT_FALSE((std::is_convertible_v<QCString, bool>));
}

TEST(QCString, ChangesCaseByAsciiRulesOnly)
{
    EXPECT_EQ(QCString("MiXed-1\xC9").lower(), "mixed-1\xC9");
    EXPECT_EQ(QCString("MiXed-1{\xE9").upper(), "MIXED-1{\xE9");
    EXPECT_TRUE(QCString().lower().isNull());
    const QCString lower("abc");
    EXPECT_EQ(static_cast<const void*>(lower.lower().begin()), lower.begin());
}

namespace {

struct CutRow
{
    const char* name;
    QCString result;
    QCString expected;
};

std::ostream& operator<<(std::ostream& out, const CutRow& row)
{
    return out << row.name;
}

class QCStringCut : public testing::TestWithParam<CutRow>
{
};

const QCString abc("abc");

} // namespace

TEST_P(QCStringCut, Gives)
{
    EXPECT_EQ(GetParam().result, GetParam().expected);
    EXPECT_FALSE(GetParam().result.isNull());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, QCStringCut,
    testing::Values(
        CutRow{"left", abc.left(2), "ab"}, CutRow{"left beyond", abc.left(9), "abc"},
        CutRow{"left none", abc.left(0), ""}, CutRow{"left negative", abc.left(-3), ""},
        CutRow{"right", abc.right(2), "bc"}, CutRow{"right beyond", abc.right(9), "abc"},
        CutRow{"right negative", abc.right(-1), ""}, CutRow{"mid", abc.mid(1, 1), "b"},
        CutRow{"mid rest", abc.mid(1), "bc"}, CutRow{"mid beyond", abc.mid(1, 99), "bc"},
        CutRow{"mid huge", abc.mid(1, std::numeric_limits<int>::max()), "bc"},
        CutRow{"mid at the end", abc.mid(3), ""}, CutRow{"mid behind the end", abc.mid(4), ""},
        CutRow{"mid before the start", abc.mid(-1), ""},
        CutRow{"strip", QCString(" \t\r\n\v\fa b\f\v\n\r\t ").stripWhiteSpace(), "a b"},
        CutRow{"strip all", QCString(" \t ").stripWhiteSpace(), ""},
        CutRow{"strip none", abc.stripWhiteSpace(), "abc"}));

TEST(QCString, CutsOfNullAreNull)
{
    EXPECT_TRUE(QCString().left(1).isNull());
    EXPECT_TRUE(QCString().right(1).isNull());
    EXPECT_TRUE(QCString().mid(0).isNull());
    EXPECT_TRUE(QCString().stripWhiteSpace().isNull());
}

TEST(QCString, Finds)
{
    const QCString text("abcABCabc");
    EXPECT_EQ(text.find('c'), 2);
    EXPECT_EQ(text.find('c', 3), 8);
    EXPECT_EQ(text.find('x'), -1);
    EXPECT_EQ(text.find("bc"), 1);
    EXPECT_EQ(text.find("bc", 2), 7);
    EXPECT_EQ(text.find("bc", 2, false), 4);
    EXPECT_EQ(text.find('B', 0, false), 1);
    EXPECT_EQ(text.find("bc", -2), 7);
    EXPECT_EQ(text.find("abc", 7), -1);
    EXPECT_EQ(text.find("", 4), 4);
    EXPECT_EQ(text.find("", 9), 9);
    EXPECT_EQ(text.find("", 10), -1);
    EXPECT_EQ(QCString().find("a"), -1);
    EXPECT_EQ(text.left(3).find('A'), -1) << "a search ends with the slice, not with the buffer";
}

TEST(QCString, FindsBackwards)
{
    const QCString text("abcABCabc");
    EXPECT_EQ(text.findRev('a'), 6);
    EXPECT_EQ(text.findRev('a', 5), 0);
    EXPECT_EQ(text.findRev('A', -1, false), 6);
    EXPECT_EQ(text.findRev("abc"), 6);
    EXPECT_EQ(text.findRev("abc", 6), 6);
    EXPECT_EQ(text.findRev("abc", 5), 0);
    EXPECT_EQ(text.findRev("abc", 5, false), 3);
    EXPECT_EQ(text.findRev("x"), -1);
    EXPECT_EQ(text.findRev("abcABCabcd"), -1);
    EXPECT_EQ(text.findRev('c', -2), 2);
    EXPECT_EQ(QCString().findRev('a'), -1);
}

TEST(QCString, CountsOccurrences)
{
    EXPECT_EQ(QCString("aaaa").contains("aa"), 3);
    EXPECT_EQ(QCString("aXa").contains('a'), 2);
    EXPECT_EQ(QCString("aXa").contains('x', false), 1);
    EXPECT_EQ(QCString("aXa").contains('x'), 0);
}

namespace {

struct NumberRow
{
    const char* text;
    bool isInt;
    int asInt;
    bool isUInt;
    unsigned int asUInt;
};

std::ostream& operator<<(std::ostream& out, const NumberRow& row)
{
    return out << '"' << row.text << '"';
}

class QCStringNumber : public testing::TestWithParam<NumberRow>
{
};

} // namespace

TEST_P(QCStringNumber, Reads)
{
    const NumberRow& row = GetParam();
    bool ok = !row.isInt;
    EXPECT_EQ(QCString(row.text).toInt(&ok), row.asInt);
    EXPECT_EQ(ok, row.isInt);
    ok = !row.isUInt;
    EXPECT_EQ(QCString(row.text).toUInt(&ok), row.asUInt);
    EXPECT_EQ(ok, row.isUInt);
    EXPECT_EQ(QCString(row.text).toInt(), row.asInt) << "without a flag";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, QCStringNumber,
    testing::Values(NumberRow{"0", true, 0, true, 0}, NumberRow{"42", true, 42, true, 42},
                    NumberRow{"007", true, 7, true, 7}, NumberRow{"+5", true, 5, true, 5},
                    NumberRow{"-5", true, -5, false, 0}, NumberRow{"-0", true, 0, false, 0},
                    NumberRow{" \t\r\n5\v\f ", true, 5, true, 5},
                    NumberRow{"+ 5", false, 0, false, 0}, NumberRow{"++5", false, 0, false, 0},
                    NumberRow{"5 6", false, 0, false, 0}, NumberRow{"5x", false, 0, false, 0},
                    NumberRow{"0x5", false, 0, false, 0}, NumberRow{"5.0", false, 0, false, 0},
                    NumberRow{"", false, 0, false, 0}, NumberRow{" ", false, 0, false, 0},
                    NumberRow{"+", false, 0, false, 0}, NumberRow{"-", false, 0, false, 0},
                    NumberRow{"2147483647", true, 2147483647, true, 2147483647U},
                    NumberRow{"2147483648", false, 0, true, 2147483648U},
                    NumberRow{"-2147483648", true, std::numeric_limits<int>::min(), false, 0},
                    NumberRow{"-2147483649", false, 0, false, 0},
                    NumberRow{"4294967295", false, 0, true, 4294967295U},
                    NumberRow{"4294967296", false, 0, false, 0},
                    NumberRow{"00000000000000000000000000000000005", true, 5, true, 5},
                    NumberRow{"99999999999999999999999999999999999", false, 0, false, 0}));

TEST(QCString, WritesNumbers)
{
    QCString text("old");
    EXPECT_EQ(text.setNum(-7), "-7");
    EXPECT_EQ(text.setNum(4294967295U), "4294967295");
    EXPECT_EQ(text.setNum(std::numeric_limits<int>::min()), "-2147483648");
    EXPECT_EQ(text.setNum(0), "0");
    EXPECT_EQ(text.setNum(18446744073709551615UL), "18446744073709551615");
    EXPECT_EQ(text.setNum(std::numeric_limits<qint64>::min()), "-9223372036854775808");
    EXPECT_EQ(text.setNum(quint64(5)), "5");
    EXPECT_EQ(text.setNum(-6L), "-6");
}

} // namespace qcstring_test
