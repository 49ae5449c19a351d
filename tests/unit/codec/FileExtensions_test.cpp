// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

namespace file_extensions_test {

namespace {

constexpr int untouched = -77;

struct FileNameRow
{
    const char* fileName;
    int type;
    int subtype;
};

const FileNameRow fileNameRows[] = {
    {"a.eml", 3, 27},
    {"a.vcf", 1, 10},
    {"a.vcs", 1, 9},
    {"a.gif", 5, 75},
    {"a.mng", 5, 0},
    {"a.bmp", 5, 79},
    {"a.jpg", 5, 74},
    {"a.jpeg", 5, 74},
    {"a.png", 5, 77},
    {"a.txt", 1, 1},
    {"a.mp3", 6, 91},
    {"a.wav", 6, 90},
    {"a.mid", 6, 86},
    {"a.imy", 6, 85},
    {"song.amr", 6, 0},
    {"a.mpeg", 7, 92},
    {"a.mpg", 7, 92},
    {"a.mp4", 7, 92},
    {"a.3gp", 7, 92},
    {"a.rm", 7, 92},
    {"a.ics", 1, 4},
    {"a.ifb", 1, 4},
    {"a.jar", 1, 98},
    {"a.jad", 1, 98},
    {"a.dcf", 4, 69},
    {"a.dm", 4, 68},
    {"a.odf", 4, 70},
    {"photo.JPG", 5, 74},
    {"a.b.Png", 5, 77},
    {".gif", 5, 75},
    {"blanks behind. Gif \t", 5, 75},
    {"\xD1\x84\xD0\xBE\xD1\x82\xD0\xBE.bmp", 5, 79},
    {"a.tar.gz", untouched, 0},
    {"a.iCal", untouched, 0},
    {"a.iFbf", untouched, 0},
    {"a.amr.", untouched, 0},
    {"a. ", untouched, 0},
    {"jpg", untouched, 0},
    {"jpg.", untouched, 0},
    {"a.xjpg", untouched, 0},
    {"a.jpg/b", untouched, 0},
    {"a.b/c.jpg", 5, 74},
    {"a.jpgx", untouched, 0},
    {"", untouched, 0},
};

struct SubtypeRow
{
    int subtype;
    const char* extension;
    int type;
};

const SubtypeRow subtypeRows[] = {
    {27, "eml", 3}, {10, "vcf", 1}, {9, "vcs", 1},  {4, "ics", 1},  {75, "gif", 5},
    {79, "bmp", 5}, {74, "jpg", 5}, {77, "png", 5}, {1, "txt", 1},  {91, "mp3", 6},
    {86, "mid", 6}, {85, "imy", 6}, {92, "mpg", 7}, {3, "html", 1},
};

} // namespace

TEST(FileExtensions, NameGivesTypeAndSubtype)
{
    for (const FileNameRow& row : fileNameRows) {
        int type = untouched;
        EXPECT_EQ(EMAIL_Util::getSubtypeByExtion(QString::fromUtf8(row.fileName), type),
                  row.subtype)
            << row.fileName;
        EXPECT_EQ(type, row.type) << row.fileName;
    }
    int type = untouched;
    EXPECT_EQ(EMAIL_Util::getSubtypeByExtion(QString(), type), 0);
    EXPECT_EQ(type, untouched);
}

TEST(FileExtensions, SubtypeGivesExtensionAndType)
{
    for (const SubtypeRow& row : subtypeRows) {
        QString extension("kept");
        EXPECT_EQ(EMAIL_Util::getExtionBySubType(row.subtype, extension), row.type) << row.subtype;
        EXPECT_EQ(extension, row.extension) << row.subtype;
    }
}

TEST(FileExtensions, EveryOtherSubtypeHasNoExtension)
{
    for (int subtype = -2; subtype < 200; ++subtype) {
        const auto listed = [subtype](const SubtypeRow& row) { return row.subtype == subtype; };
        if (std::any_of(std::begin(subtypeRows), std::end(subtypeRows), listed))
            continue;
        QString extension("kept");
        EXPECT_EQ(EMAIL_Util::getExtionBySubType(subtype, extension), 0) << subtype;
        EXPECT_EQ(extension, "kept") << subtype;
    }
}

TEST(FileExtensions, TypeGivesADefault)
{
    for (int type = -2; type < 12; ++type) {
        const char* expected = type == 5 ? "jpg" : type == 6 ? "mid" : type == 7 ? "mp4" : "";
        EXPECT_EQ(EMAIL_Util::getFirstExtByMimeType(type), expected) << type;
    }
}

} // namespace file_extensions_test
