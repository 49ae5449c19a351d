// SPDX-License-Identifier: MIT
#include "extra/SafeFileName.h"

#include <gtest/gtest.h>

namespace safe_file_name_test {

namespace {

struct SafeFileNameRow
{
    const char* name;
    QString wanted;
    QString expected;
};

class SafeFileName : public testing::TestWithParam<SafeFileNameRow>
{
};

QString letters(int count)
{
    return QString(count, 'a');
}

} // namespace

TEST_P(SafeFileName, IsMade)
{
    EXPECT_EQ(tarvomime::safeFileName(GetParam().wanted, "fallback"), GetParam().expected);
}

TEST_P(SafeFileName, IsSettled)
{
    const QString& expected = GetParam().expected;
    EXPECT_EQ(tarvomime::safeFileName(expected, "other"), expected);
}

TEST_P(SafeFileName, FitsIntoADirectory)
{
    const QString name = tarvomime::safeFileName(GetParam().wanted, GetParam().wanted);
    EXPECT_FALSE(name.isEmpty());
    EXPECT_LE(name.toUtf8().size(), 201);
    EXPECT_FALSE(name.contains('/'));
    EXPECT_FALSE(name.contains(QChar(0)));
}

INSTANTIATE_TEST_SUITE_P(
    Extra, SafeFileName,
    testing::Values(
        SafeFileNameRow{"Plain", "report.pdf", "report.pdf"},
        SafeFileNameRow{"Unicode", "Größe 日本 😀.txt", "Größe 日本 😀.txt"},
        SafeFileNameRow{"Empty", "", "fallback"}, SafeFileNameRow{"Dot", ".", "fallback"},
        SafeFileNameRow{"DotDot", "..", "fallback"}, SafeFileNameRow{"Dots", "....", "fallback"},
        SafeFileNameRow{"Blanks", "  ", "fallback"},
        SafeFileNameRow{"Absolute", "/etc/passwd", "passwd"},
        SafeFileNameRow{"Upwards", "../../.ssh/authorized_keys", "authorized_keys"},
        SafeFileNameRow{"FolderOnly", "a/b/", "fallback"},
        SafeFileNameRow{"UpwardsOnly", "../..", "fallback"},
        SafeFileNameRow{"Backslashes", "..\\..\\boot.ini", "boot.ini"},
        SafeFileNameRow{"MixedSeparators", "a\\b/c\\d", "d"},
        SafeFileNameRow{"Drive", "C:boot.ini", "C_boot.ini"},
        SafeFileNameRow{"Stream", "a.txt:hidden", "a.txt_hidden"},
        SafeFileNameRow{"Hidden", ".bashrc", "_bashrc"}, SafeFileNameRow{"Option", "-rf", "_rf"},
        SafeFileNameRow{"Wildcards", "a*b?.txt", "a_b_.txt"},
        SafeFileNameRow{"Pipes", "a|b<c>\"d\"", "a_b_c__d_"},
        SafeFileNameRow{"Controls", QString("a\x01\x1B\n\r\t\x7F") + QChar(0x9B) + "b", "ab"},
        SafeFileNameRow{"Nul", QString("a") + QChar(0) + ".txt", "a.txt"},
        SafeFileNameRow{"RightToLeftOverride", QString("a") + QChar(0x202E) + "fdp.exe",
                        "afdp.exe"},
        SafeFileNameRow{"RightToLeftMark", QString("a") + QChar(0x200F) + ".txt", "a.txt"},
        SafeFileNameRow{"Isolates", QString(QChar(0x2066)) + "a" + QChar(0x2069), "a"},
        SafeFileNameRow{"ZeroWidth", QString("a") + QChar(0x200B) + QChar(0xFEFF) + "b", "ab"},
        SafeFileNameRow{"LineSeparator", QString("a") + QChar(0x2028) + "b", "ab"},
        SafeFileNameRow{"Tags", QString("a") + QChar(0xDB40) + QChar(0xDC41) + "b", "ab"},
        SafeFileNameRow{"DotsBehindMarks", QString("..") + QChar(0x202E), "fallback"},
        SafeFileNameRow{"TrailingDot", "a.txt.", "a.txt"},
        SafeFileNameRow{"TrailingBlanks", "a.txt . ", "a.txt"},
        SafeFileNameRow{"LeadingBlanks", "  a.txt", "a.txt"},
        SafeFileNameRow{"Device", "CON", "_CON"}, SafeFileNameRow{"DeviceLower", "nul", "_nul"},
        SafeFileNameRow{"DeviceWithExtension", "aux.txt", "_aux.txt"},
        SafeFileNameRow{"DeviceBeforeBlank", "prn .txt", "_prn .txt"},
        SafeFileNameRow{"Port", "COM1.tar.gz", "_COM1.tar.gz"},
        SafeFileNameRow{"Printer", "lpt9", "_lpt9"},
        SafeFileNameRow{"SuperscriptPort", QString("COM") + QChar(0xB9),
                        QString("_COM") + QChar(0xB9)},
        SafeFileNameRow{"Console", "conin$", "_conin$"},
        SafeFileNameRow{"LikeADevice", "COMA", "COMA"},
        SafeFileNameRow{"LongerThanADevice", "console", "console"},
        SafeFileNameRow{"LongStem", letters(300) + ".txt", letters(196) + ".txt"},
        SafeFileNameRow{"LongWithoutExtension", letters(300), letters(200)},
        SafeFileNameRow{"LongExtension", "a." + letters(300), "a." + letters(198)},
        SafeFileNameRow{"LongUnicode", QString(150, QChar(0xE4)) + ".txt",
                        QString(98, QChar(0xE4)) + ".txt"},
        SafeFileNameRow{"CutInsideACharacter", "a" + QString(150, QChar(0xE4)) + ".txt",
                        "a" + QString(97, QChar(0xE4)) + ".txt"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SafeFileNameFallback, IsMadeSafeToo)
{
    EXPECT_EQ(tarvomime::safeFileName("", "../x"), "x");
    EXPECT_EQ(tarvomime::safeFileName("", ""), "part");
}

TEST(AttachableName, StaysInsideItsQuotes)
{
    using tarvomime::attachableName;
    EXPECT_EQ(attachableName("Re: a \"b\" (1).pdf"), "Re: a 'b' (1).pdf");
    EXPECT_EQ(attachableName("a\\"), "a_");
    EXPECT_EQ(attachableName(QString("a\r\nX: y\t") + QChar(0) + QChar(0x85) + "b"), "aX: yb");
    EXPECT_EQ(attachableName(QString("a") + QChar(0x2028) + "b"), "ab");
    EXPECT_EQ(attachableName(QString::fromUtf8("ä👩‍💻.txt")),
              QString::fromUtf8("ä👩‍💻.txt"));
    EXPECT_EQ(attachableName(""), "");
}

struct NumberedRow
{
    const char* name;
    int copy;
    const char* expected;
};

class NumberedFileName : public testing::TestWithParam<NumberedRow>
{
};

TEST_P(NumberedFileName, KeepsTheExtension)
{
    EXPECT_EQ(tarvomime::numberedFileName(GetParam().name, GetParam().copy).toStdString(),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Extra, NumberedFileName,
                         testing::Values(NumberedRow{"a.txt", 1, "a.txt"},
                                         NumberedRow{"a.txt", 2, "a (2).txt"},
                                         NumberedRow{"a", 3, "a (3)"},
                                         NumberedRow{"a.tar.gz", 2, "a.tar (2).gz"}));

} // namespace safe_file_name_test
