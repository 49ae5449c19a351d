// SPDX-License-Identifier: MIT
#include "extra/ParameterScanner.h"

#include "tests/support/RowNames.h"

namespace parameter_scanner_test {

using namespace tarvomime;

namespace {

std::string summary(std::string_view body)
{
    ParameterScanner scanner(body);
    std::string items;
    while (!scanner.atEnd()) {
        const Parameter parameter = scanner.takeParameter();
        items += '[' + parameter.name + '=' + parameter.value + ']';
    }
    return items;
}

struct ParametersRow
{
    const char* name;
    const char* body;
    const char* expected;
};

void PrintTo(const ParametersRow& row, std::ostream* out)
{
    *out << row.body;
}

class Parameters : public testing::TestWithParam<ParametersRow>
{
};

} // namespace

TEST_P(Parameters, AreCut)
{
    EXPECT_EQ(summary(GetParam().body), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, Parameters,
    testing::Values(ParametersRow{"None", "a/b", ""},
                    ParametersRow{"Two", "a; B=C ; d = e", "[b=C][d=e]"},
                    ParametersRow{"NameOnly", "a; b; c=d", "[=][c=d]"},
                    ParametersRow{"Empty", "a;;b=", "[=][b=]"},
                    ParametersRow{"SectionsStay", "a; b*0*=utf-8''%41", "[b*0*=utf-8''%41]"},
                    ParametersRow{"Quoted", "a; b=\"c; d\"; e=f", "[b=c; d][e=f]"},
                    ParametersRow{"Escapes", "a; b=\"\\\"\\\\\\x\"", "[b=\"\\\\x]"},
                    ParametersRow{"InnerQuotes", "a; b=\"c \"d\" e\"; f=g", "[b=c \"d\" e][f=g]"},
                    ParametersRow{"CommentBehind", "a; b=\"c\" (;); d=e", "[b=c][=][d=e]"},
                    ParametersRow{"ValueFolded", "a;\r\n\tb=\r\n c", "[b=c]"},
                    ParametersRow{"QuoteNotClosed", "a; b=\"c; d=e", "[b=c][d=e]"},
                    ParametersRow{"QuotedBeforeTheFirst", "\"a;b\"; c=d", "[c=d]"}),
    rowName<ParametersRow>);

} // namespace parameter_scanner_test
