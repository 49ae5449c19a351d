// SPDX-License-Identifier: MIT
#include "utility/EMAIL_ContentType.h"

#include "tests/support/AllStrings.h"
#include "tests/support/RandomText.h"
#include "utility/EMAIL_Util.h"

#include <map>

namespace email_content_type_test {

namespace {

using Params = std::map<QByteArray, QByteArray>;

Params paramsOf(const EMAIL_ContentType& field)
{
    Params params;
    for (auto param = field.mParams.begin(); param != field.mParams.end(); ++param)
        params[param.key()] = param.value();
    return params;
}

struct Row
{
    const char* name;
    const char* body;
    QByteArray type;
    QByteArray subType;
    Params params;
    QByteArray written;
};

void PrintTo(const Row& row, std::ostream* out)
{
    printEscaped(row.body, out);
}

const Row rows[] = {
    {"Plain", "text/plain", "text", "plain", {}, "text/plain"},
    {"QuotedCharset",
     "TEXT/HTML ; CHARSET=\"UTF-8\"",
     "TEXT",
     "HTML",
     {{"charset", "\"UTF-8\""}},
     "TEXT/HTML;\r\n\tcharset=\"UTF-8\""},
    {"Boundary",
     "multipart/mixed; boundary=\"abc\"",
     "multipart",
     "mixed",
     {{"boundary", "\"abc\""}},
     "multipart/mixed;Boundary=\"abc\""},
    {"BoundaryBeforeTheOtherParameters",
     "multipart/mixed; charset=us-ascii; boundary=abc",
     "multipart",
     "mixed",
     {{"boundary", "abc"}, {"charset", "us-ascii"}},
     "multipart/mixed;Boundary=\"abc\";\r\n\tcharset=us-ascii"},
    {"BoundaryOfOneCharacter",
     "multipart/mixed; boundary=b",
     "multipart",
     "mixed",
     {{"boundary", "b"}},
     "multipart/mixed;Boundary=\"b\""},
    {"BoundaryOfTwoQuotesStays",
     "multipart/mixed; boundary=\"\"",
     "multipart",
     "mixed",
     {{"boundary", "\"\""}},
     "multipart/mixed;Boundary=\"\"\"\""},
    {"EmptyBoundaryIsNotWritten",
     "multipart/mixed; boundary=",
     "multipart",
     "mixed",
     {{"boundary", ""}},
     "multipart/mixed"},
    {"EmptyListKeepsItsSemicolon",
     "text/plain;",
     "text",
     "plain",
     {{"", ""}},
     "text/plain;\r\n\t="},
    {"BlankList", "text/plain; ", "text", "plain", {{"", ""}}, "text/plain;\r\n\t="},
    {"LastSlashCounts", "a/b/c; x=1", "a/b", "c", {{"x", "1"}}, "a/b/c;\r\n\tx=1"},
    {"SlashBehindTheSemicolonDoesNotCount",
     "text; x=a/b",
     "text",
     "plain",
     {{"text", ""}, {"x", "a/b"}},
     "text/plain;\r\n\ttext=;\r\n\tx=a/b"},
    {"LeadingSlash", "/plain", "text", "plain", {{"/plain", ""}}, "text/plain;\r\n\t/plain="},
    {"LeadingSlashAndParameter",
     "/html; x=1",
     "text",
     "plain",
     {{"/html", ""}, {"x", "1"}},
     "text/plain;\r\n\t/html=;\r\n\tx=1"},
    {"LeadingSlashAndAnother", "/a/b", "/a", "b", {}, "/a/b"},
    {"NoSlash", "plain", "text", "plain", {{"plain", ""}}, "text/plain;\r\n\tplain="},
    {"NoSlashAndParameter",
     "textplain; a=b",
     "text",
     "plain",
     {{"a", "b"}, {"textplain", ""}},
     "text/plain;\r\n\ta=b;\r\n\ttextplain="},
    {"NoSlashButValue", "a=b", "text", "plain", {{"a", "b"}}, "text/plain;\r\n\ta=b"},
    {"SemicolonFirst", ";x=1", "text", "plain", {{"x", "1"}}, "text/plain;\r\n\tx=1"},
    {"SemicolonAlone", ";", "text", "plain", {{"", ""}}, "text/plain;\r\n\t="},
    {"SemicolonFirstThenMediaType",
     ";text/html",
     "text",
     "plain",
     {{"text/html", ""}},
     "text/plain;\r\n\ttext/html="},
    {"NameWithoutValueTakesTheOneBefore",
     "text/plain; x=1; y",
     "text",
     "plain",
     {{"x", "1"}, {"y", "1"}},
     "text/plain;\r\n\tx=1;\r\n\ty=1"},
    {"FirstNameWithoutValueIsEmpty",
     "text/plain; y; x=1",
     "text",
     "plain",
     {{"x", "1"}, {"y", ""}},
     "text/plain;\r\n\tx=1;\r\n\ty="},
    {"ValueWithoutName", "text/plain; =v", "text", "plain", {{"", "v"}}, "text/plain;\r\n\t=v"},
    {"BlankPieceInTheMiddleHasNoName",
     "text/plain;x=1; ;y=2",
     "text",
     "plain",
     {{"", "1"}, {"x", "1"}, {"y", "2"}},
     "text/plain;\r\n\t=1;\r\n\tx=1;\r\n\ty=2"},
    {"BlankTailRepeatsTheLastPair",
     "text/plain;x=1; ",
     "text",
     "plain",
     {{"x", "1"}},
     "text/plain;\r\n\tx=1"},
    {"EmptyPiecesAreDropped",
     "text/plain;;x=1;;",
     "text",
     "plain",
     {{"x", "1"}},
     "text/plain;\r\n\tx=1"},
    {"LaterValueWins",
     "text/plain; x=1; X=2",
     "text",
     "plain",
     {{"x", "2"}},
     "text/plain;\r\n\tx=2"},
    {"OnlyTheFirstEqualsCuts",
     "text/plain; x=a=b",
     "text",
     "plain",
     {{"x", "a=b"}},
     "text/plain;\r\n\tx=a=b"},
    {"SemicolonInQuotesSplits",
     "text/plain; name=\"a;b\"",
     "text",
     "plain",
     {{"b\"", "\"a"}, {"name", "\"a"}},
     "text/plain;\r\n\tb\"=\"a;\r\n\tname=\"a"},
    {"WhiteSpaceAroundNamesAndValues",
     "text/plain;\r\n\tx = 1 ;\r\n y = 2 ",
     "text",
     "plain",
     {{"x", "1"}, {"y", "2"}},
     "text/plain;\r\n\tx=1;\r\n\ty=2"},
    {"ByteOrderOfNames",
     "text/plain; start=s; name=n; charset=c; \xe9=1",
     "text",
     "plain",
     {{"charset", "c"}, {"name", "n"}, {"start", "s"}, {"\xe9", "1"}},
     "text/plain;\r\n\tcharset=c;\r\n\tname=n;\r\n\tstart=s;\r\n\t\xe9=1"},
};

class EMAIL_ContentTypeRow : public testing::TestWithParam<Row>
{
};

EMAIL_ContentType* parsed(EMAIL_ContentType& field, const QCString& body)
{
    field.mName = "Content-Type";
    field.mBody = body;
    field.parse();
    return &field;
}

// The rules of the field, step by step, kept as plain as they can be told.
struct Literal
{
    QByteArray type = "text";
    QByteArray subType = "plain";
    Params params;
    QByteArray boundary;

    explicit Literal(const QByteArray& body)
    {
        if (body.isEmpty())
            return;
        int position = 0;
        int slash = -1;
        for (; position < body.size() && body[position] != ';'; ++position) {
            if (body[position] == '/')
                slash = position;
        }
        if (slash > 0) {
            type = body.left(slash).trimmed();
            subType = body.mid(slash + 1, position - slash - 1).trimmed();
        } else {
            position = 0;
        }
        const bool atSemicolon = position < body.size() && body[position] == ';';
        if (!atSemicolon && position != 0)
            return;
        readParameters(atSemicolon ? body.mid(position + 1) : body);
    }

    void readParameters(const QByteArray& text)
    {
        QByteArrayList pieces;
        const QByteArrayList cut = text.split(';');
        for (int i = 0; i < cut.size(); ++i) {
            if (!cut[i].isEmpty())
                pieces.append(i == cut.size() - 1 ? cut[i].trimmed() : cut[i]);
        }
        QByteArray name;
        QByteArray value;
        for (int i = 0; i <= pieces.size(); ++i) {
            const QByteArray piece = i < pieces.size() ? pieces[i] : QByteArray();
            if (!piece.isEmpty()) {
                const auto equals = piece.indexOf('=');
                name = (equals < 0 ? piece : piece.left(equals)).trimmed();
                if (equals >= 0)
                    value = piece.mid(equals + 1).trimmed();
            }
            params[name.toLower()] = value;
        }
        if (params.count("boundary") == 1)
            boundary = params["boundary"];
    }
};

void expectLikeLiteral(const QByteArray& body)
{
    EMAIL_ContentType field;
    parsed(field, body);
    const Literal expected(body);
    ASSERT_EQ(field.mType, expected.type) << testing::PrintToString(body);
    ASSERT_EQ(field.mSubType, expected.subType) << testing::PrintToString(body);
    ASSERT_EQ(paramsOf(field), expected.params) << testing::PrintToString(body);
    ASSERT_EQ(field.mBoundary, expected.boundary) << testing::PrintToString(body);
    ASSERT_EQ(field.mParsed, body.isEmpty() ? 0 : 1);
}

} // namespace

TEST_P(EMAIL_ContentTypeRow, ParsesAndAssembles)
{
    const Row& row = GetParam();
    EMAIL_ContentType field;
    parsed(field, row.body);
    EXPECT_EQ(field.mParsed, 1);
    EXPECT_EQ(field.mType, row.type);
    EXPECT_EQ(field.mSubType, row.subType);
    EXPECT_EQ(field.mTypeEnum, EMAIL_Util::typeStrToEnum(row.type));
    EXPECT_EQ(field.mSubTypeEnum, EMAIL_Util::subTypeStrToEnum(row.subType));
    EXPECT_EQ(paramsOf(field), row.params);
    field.assemble();
    EXPECT_EQ(field.mBody, row.written);
    EXPECT_EQ(field.mString, "Content-Type: " + row.written + "\r\n");
}

INSTANTIATE_TEST_SUITE_P(Rows, EMAIL_ContentTypeRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(EMAIL_ContentType, StartsAsTextPlain)
{
    EMAIL_ContentType field(QCString("raw"), nullptr);
    EXPECT_EQ(field.mString, "raw");
    EXPECT_EQ(field.mType, "text");
    EXPECT_EQ(field.mSubType, "plain");
    EXPECT_EQ(field.mTypeEnum, 1);
    EXPECT_EQ(field.mSubTypeEnum, 1);
    EXPECT_TRUE(field.mParams.isEmpty());
    EXPECT_TRUE(field.mBoundary.isEmpty());
    EXPECT_TRUE(field.mMethod.isEmpty());
    EXPECT_EQ(field.mParsed, 0);
}

TEST(EMAIL_ContentType, EmptyBodyChangesNothing)
{
    EMAIL_ContentType field;
    parsed(field, "");
    EXPECT_EQ(field.mParsed, 0);
    EXPECT_EQ(field.mType, "text");
    field.assemble();
    EXPECT_EQ(field.mString, "");
}

TEST(EMAIL_ContentType, UnparsedBodyIsWrittenAsItStands)
{
    EMAIL_ContentType field;
    field.mName = "Content-Type";
    field.mBody = "TEXT/Html;charset=x";
    field.assemble();
    EXPECT_EQ(field.mString, "Content-Type: TEXT/Html;charset=x\r\n");
}

TEST(EMAIL_ContentType, EmptyTypeOrSubTypeLeavesTheLineAlone)
{
    for (const char* body : {" /x; a=1", "x/ ; a=1"}) {
        EMAIL_ContentType field(QCString("raw line"), nullptr);
        parsed(field, body);
        field.assemble();
        EXPECT_EQ(field.mBody, body);
        EXPECT_EQ(field.mString, "raw line") << body;
    }
}

TEST(EMAIL_ContentType, ParsesAnewButKeepsWhatIsNotReplaced)
{
    EMAIL_ContentType field;
    parsed(field, "multipart/mixed; boundary=abc; x=1");
    parsed(field, "text/html; x=2");
    EXPECT_EQ(field.mSubType, "html");
    EXPECT_EQ(paramsOf(field), (Params{{"boundary", "abc"}, {"x", "2"}}));
    EXPECT_EQ(field.mBoundary, "abc");
}

TEST(EMAIL_ContentType, BodyWithoutParametersLeavesTheBoundaryAlone)
{
    EMAIL_ContentType field;
    parsed(field, "multipart/mixed; boundary=abc");
    field.setBoundary("own");
    parsed(field, "multipart/mixed");
    EXPECT_EQ(field.mBoundary, "own");
    parsed(field, "multipart/mixed; x=1");
    EXPECT_EQ(field.mBoundary, "abc");
}

TEST(EMAIL_ContentType, ParameterValuesShareTheBodysBytes)
{
    EMAIL_ContentType field;
    parsed(field, "text/plain; name=x");
    EXPECT_EQ(field.mParams.value("name").begin(), field.mBody.begin() + 17);
}

TEST(EMAIL_ContentType, EveryShortBodyFollowsTheRules)
{
    int bodies = 0;
    int parameters = 0;
    int plain = 0;
    forAllStrings("aB/;= ", 6, [&](const QByteArray& body) {
        ASSERT_NO_FATAL_FAILURE(expectLikeLiteral(body));
        const Literal expected(body);
        ++bodies;
        parameters += static_cast<int>(expected.params.size());
        plain += expected.type == "text" ? 1 : 0;
    });
    EXPECT_EQ(bodies, 55987);
    EXPECT_EQ(parameters, 61474);
    EXPECT_EQ(plain, 36072);
}

TEST(EMAIL_ContentType, RandomBodiesFollowTheRules)
{
    constexpr unsigned int seed = 1521;
    RandomText texts(seed, {"text", "/", "Multipart", ";", ";", "=", "=", " ", "\r\n\t", "boundary",
                            "Charset", "\xe9", "x"});
    for (int i = 0; i < 5000; ++i)
        ASSERT_NO_FATAL_FAILURE(expectLikeLiteral(texts.next(24))) << "seed " << seed;
}

} // namespace email_content_type_test
