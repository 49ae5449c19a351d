// SPDX-License-Identifier: MIT
#include "tools/tarvomime/FieldParameter.h"

#include "utility/EMAIL_Util.h"

#include <gtest/gtest.h>

namespace {

struct ParameterRow
{
    const char* name;
    const char* body;
    const char* expected;
};

class FieldParameter : public testing::TestWithParam<ParameterRow>
{
};

} // namespace

TEST_P(FieldParameter, IsRead)
{
    const QString value =
        tarvomime::tool::fieldParameter(GetParam().body, "filename", CHARSET_UTF_8);
    EXPECT_EQ(value.toUtf8(), GetParam().expected) << GetParam().body;
}

INSTANTIATE_TEST_SUITE_P(
    Tool, FieldParameter,
    testing::Values(
        ParameterRow{"None", "attachment", ""}, ParameterRow{"Empty", "", ""},
        ParameterRow{"Token", "attachment; filename=a.txt", "a.txt"},
        ParameterRow{"Blanks", "attachment ;\r\n\tFileName = a.txt ; x=y", "a.txt"},
        ParameterRow{"Quoted", "attachment; filename=\"a; b.txt\"; size=3", "a; b.txt"},
        ParameterRow{"NotTheFirst", "attachment; size=\"1;filename=x\"; filename=b", "b"},
        ParameterRow{"FirstOfTwo", "attachment; filename=a; filename=b", "a"},
        ParameterRow{"EscapedQuote", "x; filename=\"a\\\"b\"", "a\"b"},
        ParameterRow{"EscapedBackslash", "x; filename=\"a\\\\b\"", "a\\b"},
        ParameterRow{"WindowsPath", "x; filename=\"C:\\mail\\a.txt\"", "C:\\mail\\a.txt"},
        ParameterRow{"OpenQuote", "x; filename=\"a.txt", "a.txt"},
        ParameterRow{"LoneQuote", "x; filename=\"", ""},
        ParameterRow{"BackslashAtTheEnd", "x; filename=\"a\\", "a\\"},
        ParameterRow{"NoValue", "x; filename; y=z", ""},
        ParameterRow{"EmptyValue", "x; filename=", ""},
        ParameterRow{"OtherName", "x; afilename=a; filenames=b", ""},
        ParameterRow{"EncodedWord", "x; filename=\"=?utf-8?Q?=C3=A9.txt?=\"", "é.txt"},
        ParameterRow{"Extended", "x; filename*=utf-8'de'%C3%A9.txt; filename=e.txt", "é.txt"},
        ParameterRow{"ExtendedLatin1", "x; filename*=iso-8859-1''%e9", "é"},
        ParameterRow{"ExtendedUnknownCharset", "x; filename*=zz''%C3%A9", "é"},
        ParameterRow{"ExtendedWithoutQuotes", "x; filename*=%41", "A"},
        ParameterRow{"BrokenPercent", "x; filename*=utf-8''%4%zz%", "%4%zz%"},
        ParameterRow{"Sections", "x; filename*1=\"b c\"; filename*0=a; filename*2=.d", "ab c.d"},
        ParameterRow{"EncodedSections",
                     "x; filename*0*=utf-8''%C3; filename*1*=%A9; filename*2=%41", "é%41"},
        ParameterRow{"WholeBeforeSections", "x; filename*0=no; filename*=utf-8''yes", "yes"},
        ParameterRow{"HugeSection", "x; filename*99999999999=a; filename=b", "b"},
        ParameterRow{"LoneStars", "x; filename**=a; filename*0**=b", ""}),
    [](const auto& row) { return std::string(row.param.name); });
