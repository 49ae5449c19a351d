// SPDX-License-Identifier: MIT
#include "tools/tarvomime/SafeName.h"

#include <gtest/gtest.h>

namespace {

struct SafeNameRow
{
    const char* name;
    QString wanted;
    QString expected;
};

class SafeName : public testing::TestWithParam<SafeNameRow>
{
};

QString letters(int count)
{
    return QString(count, 'a');
}

} // namespace

TEST_P(SafeName, IsMade)
{
    EXPECT_EQ(tarvomime::tool::safeName(GetParam().wanted, "fallback"), GetParam().expected);
}

TEST_P(SafeName, IsSettled)
{
    const QString& expected = GetParam().expected;
    EXPECT_EQ(tarvomime::tool::safeName(expected, "other"), expected);
}

TEST_P(SafeName, FitsIntoADirectory)
{
    const QString name = tarvomime::tool::safeName(GetParam().wanted, GetParam().wanted);
    EXPECT_FALSE(name.isEmpty());
    EXPECT_LE(name.toUtf8().size(), 201);
    EXPECT_FALSE(name.contains('/'));
    EXPECT_FALSE(name.contains(QChar(0)));
}

INSTANTIATE_TEST_SUITE_P(
    Tool, SafeName,
    testing::Values(
        SafeNameRow{"Plain", "report.pdf", "report.pdf"},
        SafeNameRow{"Unicode", "Größe 日本 😀.txt", "Größe 日本 😀.txt"},
        SafeNameRow{"Empty", "", "fallback"}, SafeNameRow{"Dot", ".", "fallback"},
        SafeNameRow{"DotDot", "..", "fallback"}, SafeNameRow{"Dots", "....", "fallback"},
        SafeNameRow{"Blanks", "  ", "fallback"}, SafeNameRow{"Absolute", "/etc/passwd", "passwd"},
        SafeNameRow{"Upwards", "../../.ssh/authorized_keys", "authorized_keys"},
        SafeNameRow{"FolderOnly", "a/b/", "fallback"},
        SafeNameRow{"UpwardsOnly", "../..", "fallback"},
        SafeNameRow{"Backslashes", "..\\..\\boot.ini", "boot.ini"},
        SafeNameRow{"MixedSeparators", "a\\b/c\\d", "d"},
        SafeNameRow{"Drive", "C:boot.ini", "C_boot.ini"},
        SafeNameRow{"Stream", "a.txt:hidden", "a.txt_hidden"},
        SafeNameRow{"Hidden", ".bashrc", "_bashrc"}, SafeNameRow{"Option", "-rf", "_rf"},
        SafeNameRow{"Wildcards", "a*b?.txt", "a_b_.txt"},
        SafeNameRow{"Pipes", "a|b<c>\"d\"", "a_b_c__d_"},
        SafeNameRow{"Controls", QString("a\x01\x1B\n\r\t\x7F") + QChar(0x9B) + "b", "ab"},
        SafeNameRow{"Nul", QString("a") + QChar(0) + ".txt", "a.txt"},
        SafeNameRow{"RightToLeftOverride", QString("a") + QChar(0x202E) + "fdp.exe", "afdp.exe"},
        SafeNameRow{"RightToLeftMark", QString("a") + QChar(0x200F) + ".txt", "a.txt"},
        SafeNameRow{"Isolates", QString(QChar(0x2066)) + "a" + QChar(0x2069), "a"},
        SafeNameRow{"ZeroWidth", QString("a") + QChar(0x200B) + QChar(0xFEFF) + "b", "ab"},
        SafeNameRow{"LineSeparator", QString("a") + QChar(0x2028) + "b", "ab"},
        SafeNameRow{"Tags", QString("a") + QChar(0xDB40) + QChar(0xDC41) + "b", "ab"},
        SafeNameRow{"DotsBehindMarks", QString("..") + QChar(0x202E), "fallback"},
        SafeNameRow{"TrailingDot", "a.txt.", "a.txt"},
        SafeNameRow{"TrailingBlanks", "a.txt . ", "a.txt"},
        SafeNameRow{"LeadingBlanks", "  a.txt", "a.txt"}, SafeNameRow{"Device", "CON", "_CON"},
        SafeNameRow{"DeviceLower", "nul", "_nul"},
        SafeNameRow{"DeviceWithExtension", "aux.txt", "_aux.txt"},
        SafeNameRow{"DeviceBeforeBlank", "prn .txt", "_prn .txt"},
        SafeNameRow{"Port", "COM1.tar.gz", "_COM1.tar.gz"}, SafeNameRow{"Printer", "lpt9", "_lpt9"},
        SafeNameRow{"SuperscriptPort", QString("COM") + QChar(0xB9), QString("_COM") + QChar(0xB9)},
        SafeNameRow{"Console", "conin$", "_conin$"}, SafeNameRow{"LikeADevice", "COMA", "COMA"},
        SafeNameRow{"LongerThanADevice", "console", "console"},
        SafeNameRow{"LongStem", letters(300) + ".txt", letters(196) + ".txt"},
        SafeNameRow{"LongWithoutExtension", letters(300), letters(200)},
        SafeNameRow{"LongExtension", "a." + letters(300), "a." + letters(198)},
        SafeNameRow{"LongUnicode", QString(150, QChar(0xE4)) + ".txt",
                    QString(98, QChar(0xE4)) + ".txt"},
        SafeNameRow{"CutInsideACharacter", "a" + QString(150, QChar(0xE4)) + ".txt",
                    "a" + QString(97, QChar(0xE4)) + ".txt"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SafeNameFallback, IsMadeSafeToo)
{
    EXPECT_EQ(tarvomime::tool::safeName("", "../x"), "x");
    EXPECT_EQ(tarvomime::tool::safeName("", ""), "part");
}

struct NumberedRow
{
    const char* name;
    int copy;
    const char* expected;
};

class NumberedName : public testing::TestWithParam<NumberedRow>
{
};

TEST_P(NumberedName, KeepsTheExtension)
{
    EXPECT_EQ(tarvomime::tool::numberedName(GetParam().name, GetParam().copy).toStdString(),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Tool, NumberedName,
                         testing::Values(NumberedRow{"a.txt", 1, "a.txt"},
                                         NumberedRow{"a.txt", 2, "a (2).txt"},
                                         NumberedRow{"a", 3, "a (3)"},
                                         NumberedRow{"a.tar.gz", 2, "a.tar (2).gz"}));
