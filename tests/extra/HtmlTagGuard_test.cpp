// SPDX-License-Identifier: MIT
#include "extra/HtmlTagGuard.h"

#include <gtest/gtest.h>

using tarvomime::guardedHtml;

namespace {

struct GuardRow
{
    const char* name;
    QByteArray html;
    QByteArray guarded;
};

void PrintTo(const GuardRow& row, std::ostream* out)
{
    *out << row.name << ", " << row.html.size() << " bytes";
}

class HtmlTagGuard : public testing::TestWithParam<GuardRow>
{
};

QByteArray attributes(int count)
{
    return QByteArray(" a=b").repeated(count);
}

} // namespace

TEST_P(HtmlTagGuard, LeavesOutWhatIsTooMuch)
{
    EXPECT_TRUE(guardedHtml(GetParam().html) == GetParam().guarded)
        << guardedHtml(GetParam().html).left(200).constData();
}

INSTANTIATE_TEST_SUITE_P(
    Extra, HtmlTagGuard,
    testing::Values(GuardRow{"Nothing", "", ""}, GuardRow{"Text", "a < b <", "a < b <"},
                    GuardRow{"Tags", "<p class=x>a</p><br/>", "<p class=x>a</p><br/>"},
                    GuardRow{"OpenTag", "<p class", "<p class"},
                    GuardRow{"OpenQuote", "<p class=\"x", "<p class=\"x"},
                    GuardRow{"QuotedSign", "<p title=\"a>b\">c", "<p title=\"a>b\">c"},
                    GuardRow{"Nul", QByteArray("a\0b", 3),
                             "a\xEF\xBF\xBD"
                             "b"},
                    GuardRow{"ManyAttributes", "<p" + attributes(1000) + ">x",
                             "<p" + attributes(1000) + ">x"},
                    GuardRow{"TooManyAttributes", "<p" + attributes(5000) + ">x",
                             "<p" + attributes(1000) + ">x"},
                    GuardRow{"TooManyInOneOfTwo", "<p" + attributes(5000) + "><b c=d>x",
                             "<p" + attributes(1000) + "><b c=d>x"}),
    [](const auto& row) { return std::string(row.param.name); });
