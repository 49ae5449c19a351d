// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Util.h"

namespace media_types_test {

namespace {

struct NameRow
{
    int value;
    const char* name;
};

const NameRow typeRows[] = {
    {1, "text"},  {2, "multipart"}, {3, "message"}, {4, "application"},
    {5, "image"}, {6, "audio"},     {7, "video"},
};

// Every subtype with a written name.
const NameRow subtypeRows[] = {
    {1, "plain"},
    {2, "richtext"},
    {3, "html"},
    {4, "calendar"},
    {5, "report"},
    {7, "x-hdml"},
    {8, "x-ttml"},
    {9, "x-vCalendar"},
    {10, "x-vCard"},
    {11, "vnd.wap.wml"},
    {12, "vnd.wap.wmlscript"},
    {13, "vnd.wap.wta-event"},
    {14, "vnd.wap.si"},
    {15, "vnd.wap.sl"},
    {16, "vnd.wap.co"},
    {17, "vnd.wap.connectivity-xml"},
    {18, "css"},
    {19, "x-wap-wta-wml"},
    {20, "vnd.wap.channel"},
    {21, "mixed"},
    {22, "alternative"},
    {23, "digest"},
    {24, "related"},
    {25, "form-data"},
    {26, "byterantes"},
    {27, "rfc822"},
    {28, "partial"},
    {29, "parallel"},
    {30, "external-body"},
    {33, "octet-stream"},
    {35, "x-www-form-urlencoded"},
    {36, "x-hdmlc"},
    {37, "vnd.wap.wmlc"},
    {38, "vnd.wap.wmlscriptc"},
    {39, "vnd.wap.wta-eventc"},
    {40, "vnd.wap.uaprof"},
    {41, "vnd.wap.wtls-ca-certificate"},
    {42, "vnd.wap.wtls-user-certificate"},
    {43, "x-x509-ca-cert"},
    {44, "x-x509-user-cert"},
    {45, "vnd.wap.multipart.form-data"},
    {46, "vnd.wap.multipart.byteranges"},
    {47, "vnd.wap.multipart.alternative"},
    {48, "vnd.wap.wbxml"},
    {49, "x-x968-cross-cert"},
    {50, "x-x968-ca-cert"},
    {51, "x-x968-user-cert"},
    {52, "vnd.wap.sic"},
    {53, "vnd.wap.slc"},
    {54, "vnd.wap.coc"},
    {55, "vnd.wap.sia"},
    {56, "vnd.wap.connectivity-wbxml"},
    {57, "pkcs7-mime"},
    {58, "vnd.wap.hashed-certificate"},
    {59, "vnd.wap.signed-certificate"},
    {60, "vnd.wap.cert-response"},
    {61, "xhtml+xml"},
    {62, "wml+xml"},
    {63, "vnd.wap.mms-message"},
    {64, "vnd.wap.rollover-certificate"},
    {65, "vnd.wap.wml+xml"},
    {66, "x-wap-wta-wmlc"},
    {67, "x-shockwave-flash"},
    {68, "vnd.oma.drm.message"},
    {69, "vnd.oma.drm.content"},
    {70, "vnd.oma.drm.dcf"},
    {71, "vnd.wap.multipart.related"},
    {72, "vnd.wap.multipart.mixed"},
    {73, "smil"},
    {74, "jpeg"},
    {75, "gif"},
    {76, "tiff"},
    {77, "png"},
    {78, "vnd.wap.wbmp"},
    {79, "bmp"},
    {80, "pjpeg"},
    {81, "svg+xml"},
    {82, "basic"},
    {83, "amr"},
    {84, "GSM-EFR"},
    {85, "imelody"},
    {86, "midi"},
    {87, "pcma"},
    {88, "pcmu"},
    {89, "x-ms-wma"},
    {90, "x-wav"},
    {91, "mp3"},
    {92, "mpeg"},
    {93, "rm"},
    {94, "mp4"},
    {95, "3gp"},
    {96, "h263"},
    {97, "x-ms-wmv"},
};

struct ReadRow
{
    const char* shows;
    QCString name;
    int value;
};

const ReadRow typeNameRows[] = {
    {"upper case", "IMAGE", 5},
    {"mixed case", "MultiPart", 2},
    {"longer than a name", "images", 0},
    {"shorter than a name", "imag", 0},
    {"blank behind", "image ", 0},
    {"unknown", "font", 0},
    {"empty", "", 0},
    {"null", QCString(), 0},
};

const ReadRow subtypeNameRows[] = {
    {"kept misspelling", "byterantes", 26},
    {"correct spelling stays unknown", "byteranges", 0},
    {"mixed case", "X-vCard", 10},
    {"lower case of a mixed name", "x-vcalendar", 9},
    {"second spelling of richtext", "enriched", 2},
    {"read but never written: xml", "XML", 6},
    {"read but never written: java-vm", "java-vm", 34},
    {"underscore form", "GSM_EFR", 84},
    {"written form is not read", "GSM-EFR", 0},
    {"its lower case neither", "gsm-efr", 0},
    {"longer than a name", "plainer", 0},
    {"shorter than a name", "plai", 0},
    {"unknown", "rtf", 0},
    {"empty", "", 0},
    {"null", QCString(), 0},
};

} // namespace

TEST(MediaTypes, EveryTypeIsWrittenAndRead)
{
    for (const NameRow& row : typeRows) {
        QCString name;
        EXPECT_TRUE(EMAIL_Util::typeEnumToStr(row.value, name)) << row.value;
        EXPECT_EQ(name, row.name);
        EXPECT_EQ(EMAIL_Util::typeStrToEnum(row.name), row.value) << row.name;
        EXPECT_EQ(EMAIL_Util::typeStrToEnum(QCString(row.name).upper()), row.value) << row.name;
    }
}

TEST(MediaTypes, TypeNamesAreComparedWhole)
{
    for (const ReadRow& row : typeNameRows)
        EXPECT_EQ(EMAIL_Util::typeStrToEnum(row.name), row.value) << row.shows;
}

TEST(MediaTypes, ValueWithoutATypeNameLeavesTheTextAlone)
{
    for (const int value : {-1, 0, 8, 98, 1000000, -1000000}) {
        QCString name("kept");
        EXPECT_FALSE(EMAIL_Util::typeEnumToStr(value, name)) << value;
        EXPECT_EQ(name, "kept") << value;
    }
}

TEST(MediaTypes, EverySubtypeIsWrittenAndRead)
{
    for (const NameRow& row : subtypeRows) {
        QCString name;
        EXPECT_TRUE(EMAIL_Util::subTypeEnumToStr(row.value, name)) << row.value;
        EXPECT_EQ(name, row.name);
        const int read = row.value == 84 ? 0 : row.value;
        EXPECT_EQ(EMAIL_Util::subTypeStrToEnum(row.name), read) << row.name;
        EXPECT_EQ(EMAIL_Util::subTypeStrToEnum(QCString(row.name).upper()), read) << row.name;
    }
}

TEST(MediaTypes, SubtypeNamesAreComparedWhole)
{
    for (const ReadRow& row : subtypeNameRows)
        EXPECT_EQ(EMAIL_Util::subTypeStrToEnum(row.name), row.value) << row.shows;
}

TEST(MediaTypes, ValueWithoutASubtypeNameLeavesTheTextAlone)
{
    for (const int value : {-1, 0, 6, 31, 32, 34, 98, 99, 1000000, -1000000}) {
        QCString name("kept");
        EXPECT_FALSE(EMAIL_Util::subTypeEnumToStr(value, name)) << value;
        EXPECT_EQ(name, "kept") << value;
    }
}

} // namespace media_types_test
