// SPDX-License-Identifier: MIT
// The getters and setters of the Content-Type field.
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Util.h"

#include <cstdlib>
#include <ctime>
#include <set>

namespace email_content_type_access_test {

namespace {

// A field with its name, as the header makes it.
EMAIL_ContentType& named(EMAIL_ContentType& field)
{
    field.mName = "Content-Type";
    return field;
}

QCString bodyOf(EMAIL_ContentType& field)
{
    field.assemble();
    return field.mBody;
}

struct NumberRow
{
    const char* name;
    int number;
    const char* text;
};

const NumberRow typeRows[] = {
    {"Text", TYPE_TEXT, "text"},    {"Multipart", TYPE_MULTIPART, "multipart"},
    {"Video", TYPE_VIDEO, "video"}, {"UnknownHasNoName", TYPE_UNKNOWN, ""},
    {"BeyondTheTable", 8, ""},      {"Negative", -1, ""},
};

const NumberRow subTypeRows[] = {
    {"Plain", 1, "plain"},           {"Mixed", 21, "mixed"}, {"MisspelledRanges", 26, "byterantes"},
    {"ReadButNeverWritten", 34, ""}, {"Java", 98, ""},       {"UnknownHasNoName", 0, ""},
};

QByteArray boundaryOfSeed(unsigned int seed)
{
    QByteArray boundary(12, '-');
    std::srand(seed);
    for (int i = 0; i < 24; ++i)
        boundary.append("0123456789ABCDEF"[std::rand() % 16]);
    return boundary;
}

} // namespace

TEST(EMAIL_ContentTypeAccess, TypeByNumber)
{
    for (const NumberRow& row : typeRows) {
        EMAIL_ContentType field;
        field.setType(row.number);
        EXPECT_EQ(field.mTypeEnum, row.number) << row.name;
        EXPECT_EQ(field.mType, row.text) << row.name;
        EXPECT_EQ(field.mParsed, 1) << row.name;
    }
}

TEST(EMAIL_ContentTypeAccess, SubTypeByNumber)
{
    for (const NumberRow& row : subTypeRows) {
        EMAIL_ContentType field;
        field.setSubType(row.number);
        EXPECT_EQ(field.mSubTypeEnum, row.number) << row.name;
        EXPECT_EQ(field.mSubType, row.text) << row.name;
        EXPECT_EQ(field.mParsed, 1) << row.name;
    }
}

TEST(EMAIL_ContentTypeAccess, NamelessTypeIsNotWritten)
{
    EMAIL_ContentType field;
    named(field).mBody = "image/gif";
    field.setType(99);
    EXPECT_EQ(bodyOf(field), "image/gif");
    EXPECT_EQ(field.mString, "");
}

TEST(EMAIL_ContentTypeAccess, TypeAndSubTypeByText)
{
    EMAIL_ContentType field;
    named(field).setTypeStr("IMAGE");
    field.setSubTypeStr("X-Unknown");
    EXPECT_EQ(field.mType, "IMAGE");
    EXPECT_EQ(field.mTypeEnum, TYPE_IMAGE);
    EXPECT_EQ(field.mSubType, "X-Unknown");
    EXPECT_EQ(field.mSubTypeEnum, 0);
    EXPECT_EQ(field.mParsed, 1);
    EXPECT_EQ(bodyOf(field), "IMAGE/X-Unknown");
}

TEST(EMAIL_ContentTypeAccess, BoundaryDoesNotMakeTheFieldAuthoritative)
{
    EMAIL_ContentType field;
    named(field).setBoundary("abc");
    EXPECT_EQ(field.mBoundary, "abc");
    EXPECT_EQ(field.mParsed, 0);
    EXPECT_TRUE(field.mParams.isEmpty());
    EXPECT_EQ(bodyOf(field), "");
    field.setType(TYPE_MULTIPART);
    field.setSubTypeStr("mixed");
    EXPECT_EQ(bodyOf(field), "multipart/mixed;Boundary=\"abc\"");
    field.setBoundary("");
    EXPECT_EQ(bodyOf(field), "multipart/mixed");
}

TEST(EMAIL_ContentTypeAccess, MethodIsKeptApartFromTheParameterThatWasRead)
{
    EMAIL_ContentType field;
    named(field).mBody = "text/calendar; method=REQUEST";
    field.parse();
    EXPECT_EQ(field.getMethod(), "");
    EXPECT_EQ(field.mParams.value("method"), "REQUEST");
    field.setMethod("CANCEL");
    EXPECT_EQ(field.getMethod(), "CANCEL");
    EXPECT_EQ(bodyOf(field), "text/calendar;\r\n\tmethod=CANCEL");
}

TEST(EMAIL_ContentTypeAccess, CharsetOfWhatWasRead)
{
    const struct
    {
        const char* body;
        bool present;
        int charset;
    } rows[] = {
        {"text/plain", false, CHARSET_UNKNOWN},
        {"text/plain; charset", true, CHARSET_UNKNOWN},
        {"text/plain; charset=\"\"", true, CHARSET_UNKNOWN},
        {"text/plain; charset=\"UTF-8\"", true, CHARSET_UTF_8},
        {"text/plain; CharSet=iso-8859-15", true, CHARSET_ISO_8859_15},
        {"text/plain; charset=windows-1252", true, CHARSET_UNKNOWN},
    };
    for (const auto& row : rows) {
        EMAIL_ContentType field;
        field.mBody = row.body;
        field.parse();
        EXPECT_EQ(field.hasCharset(), row.present) << row.body;
        EXPECT_EQ(field.getCharset(), row.charset) << row.body;
    }
}

TEST(EMAIL_ContentTypeAccess, CharsetByNumber)
{
    EMAIL_ContentType field;
    EXPECT_EQ(named(field).setCharset(CHARSET_KOI8_U), 1);
    EXPECT_EQ(field.mParsed, 1);
    EXPECT_EQ(bodyOf(field), "text/plain;\r\n\tcharset=koi8-u");
    EXPECT_EQ(field.setCharset(99), 1);
    EXPECT_EQ(bodyOf(field), "text/plain;\r\n\tcharset=us-ascii");
}

TEST(EMAIL_ContentTypeAccess, CharsetByTextIsKeptAsGiven)
{
    EMAIL_ContentType field;
    named(field).setCharset(QCString("\"X-Own\""));
    EXPECT_EQ(field.mParsed, 1);
    EXPECT_TRUE(field.hasCharset());
    EXPECT_EQ(bodyOf(field), "text/plain;\r\n\tcharset=\"X-Own\"");
}

TEST(EMAIL_ContentTypeAccess, NameAndStartLoseTheirQuotes)
{
    EMAIL_ContentType field;
    field.mBody = "image/gif; name=\"a b.gif\"; start=\"<1@x>\"";
    field.parse();
    QCString out;
    field.getName(out);
    EXPECT_EQ(out, "a b.gif");
    field.getStart(out);
    EXPECT_EQ(out, "<1@x>");
}

TEST(EMAIL_ContentTypeAccess, MissingNameAndStartLeaveTheOutputAlone)
{
    const EMAIL_ContentType field;
    QCString out("before");
    field.getName(out);
    field.getStart(out);
    EXPECT_EQ(out, "before");
}

TEST(EMAIL_ContentTypeAccess, ShortValuesAreTakenAsTheyAre)
{
    for (const char* value : {"x", "xy", "\"", "\"\"", "", "\"x"}) {
        EMAIL_ContentType field;
        field.setName(value);
        QCString out("before");
        field.getName(out);
        EXPECT_EQ(out, value);
    }
}

TEST(EMAIL_ContentTypeAccess, SettersStoreValuesAsGiven)
{
    EMAIL_ContentType field;
    named(field).setName("\"a b\"");
    EXPECT_EQ(field.mParsed, 1);
    field.setStart("<1@x>");
    field.setMethod("REQUEST");
    EXPECT_EQ(bodyOf(field),
              "text/plain;\r\n\tmethod=REQUEST;\r\n\tname=\"a b\";\r\n\tstart=<1@x>");
    field.setName("c");
    field.setStart("d");
    EXPECT_EQ(bodyOf(field), "text/plain;\r\n\tmethod=REQUEST;\r\n\tname=c;\r\n\tstart=d");
}

TEST(EMAIL_ContentTypeAccess, ParameterLowersItsNameAndLeavesTheFlag)
{
    EMAIL_ContentType field;
    named(field).setParameter("Report-Type", "Delivery-Status");
    field.setParameter("REPORT-TYPE", "x");
    EXPECT_EQ(field.mParsed, 0);
    EXPECT_EQ(bodyOf(field), "");
    field.mParsed = 1;
    EXPECT_EQ(bodyOf(field), "text/plain;\r\n\treport-type=x");
}

TEST(EMAIL_ContentTypeAccess, ParameterBoundaryIsNotTheBoundary)
{
    EMAIL_ContentType field;
    named(field).setParameter("Boundary", "abc");
    field.mParsed = 1;
    EXPECT_EQ(field.mBoundary, "");
    EXPECT_EQ(bodyOf(field), "text/plain");
}

TEST(EMAIL_ContentTypeAccess, NameStoredInAnotherCaseIsNotFound)
{
    EMAIL_ContentType field;
    field.mParams.insert("Charset", "utf-8");
    EXPECT_FALSE(field.hasCharset());
    EXPECT_EQ(field.getCharset(), CHARSET_UNKNOWN);
}

TEST(EMAIL_ContentTypeAccess, FreshBoundariesDiffer)
{
    EMAIL_ContentType field;
    std::set<QByteArray> boundaries;
    for (int i = 0; i < 100; ++i) {
        field.createBoundary();
        const QByteArray boundary = field.mBoundary;
        boundaries.insert(boundary);
        EXPECT_EQ(boundary.size(), 36);
        EXPECT_EQ(boundary.left(12), "------------");
        for (const char c : boundary.mid(12))
            EXPECT_TRUE((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F')) << boundary.constData();
    }
    EXPECT_EQ(boundaries.size(), 100u);
    EXPECT_EQ(field.mParsed, 0);
    EXPECT_TRUE(field.mParams.isEmpty());
}

// The seed is the time plus a counter, which has come as far as the tests before have driven it.
TEST(EMAIL_ContentTypeAccess, BoundariesComeFromTheTimeAndACounter)
{
    constexpr unsigned int mostBoundariesBefore = 100000;
    EMAIL_ContentType field;
    const auto start = static_cast<unsigned int>(std::time(nullptr));
    field.createBoundary();
    const QByteArray first = field.mBoundary;
    field.createBoundary();
    const QByteArray second = field.mBoundary;
    const auto elapsed = static_cast<unsigned int>(std::time(nullptr)) - start;
    unsigned int seed = start + 1;
    while (seed < start + mostBoundariesBefore && boundaryOfSeed(seed) != first)
        ++seed;
    ASSERT_EQ(boundaryOfSeed(seed), first);
    bool isNext = false;
    for (unsigned int later = 0; later <= elapsed; ++later)
        isNext = isNext || boundaryOfSeed(seed + 1 + later) == second;
    EXPECT_TRUE(isNext) << first.constData() << ' ' << second.constData();
}

} // namespace email_content_type_access_test
