// SPDX-License-Identifier: MIT
#include "extra/CodecNames.h"

#include <QTextCodec>

namespace codec_names_test {

using tarvomime::isCodecName;

// A name that Qt answers to and this list lacks would be text that nobody can read.
TEST(CodecNames, AreThoseOfAllCodecs)
{
    const QList<QByteArray> names = QTextCodec::availableCodecs();
    ASSERT_FALSE(names.isEmpty());
    for (const QByteArray& name : names) {
        if (name != "System") {
            EXPECT_TRUE(isCodecName(name)) << name.data();
        }
    }
}

TEST(CodecNames, AreComparedByLettersAndDigits)
{
    for (const char* name : {"windows-1252", "WINDOWS_1252", "Windows 1252", "euc-kr", "KOI8-R"})
        EXPECT_TRUE(isCodecName(name)) << name;
}

TEST(CodecNames, AreFoundAtBothEndsOfTheList)
{
    for (const char* name : {"037", "1026", "x-windows-950", "x-windows-iso2022jp"})
        EXPECT_TRUE(isCodecName(name)) << name;
    for (const char* name : {"0", "036", "x-windows-iso2022jq", "zz"})
        EXPECT_FALSE(isCodecName(name)) << name;
}

TEST(CodecNames, AreWhole)
{
    for (const char* name : {"", "-", "windows", "indows1252", "windows12520", "utf8 utf16",
                             "x-none", "\xFF", "windows-1252\n125"})
        EXPECT_FALSE(isCodecName(name)) << name;
}

} // namespace codec_names_test
