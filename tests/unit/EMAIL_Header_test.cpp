// SPDX-License-Identifier: MIT
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"

#include <vector>

namespace email_header_test {

namespace {

using Lines = std::vector<std::pair<QCString, QCString>>;

Lines linesOf(const EMAIL_Header& header)
{
    Lines lines;
    for (const EMAIL_Field* field : header.mFields)
        lines.emplace_back(field->mName, field->mBody);
    return lines;
}

struct ParseRow
{
    const char* name;
    QCString text;
    Lines fields;
};

void PrintTo(const ParseRow& row, std::ostream* out)
{
    *out << row.name << ": " << testing::PrintToString(row.text);
}

class HeaderParse : public testing::TestWithParam<ParseRow>
{
};

void parse(EMAIL_Header& header, const QCString& text)
{
    header.setMessage(text);
    header.parse();
}

QCString assembled(EMAIL_Header& header)
{
    header.assemble();
    return header.getMessage();
}

} // namespace

TEST_P(HeaderParse, CutsLines)
{
    EMAIL_Header header(GetParam().text, nullptr);
    header.parse();
    EXPECT_EQ(linesOf(header), GetParam().fields);
    for (const EMAIL_Field* field : header.mFields) {
        EXPECT_EQ(field->mParsed, 0) << "typed access parses later";
        EXPECT_EQ(field->mParent, &header);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, HeaderParse,
    testing::Values(
        ParseRow{"empty", "", {}}, ParseRow{"null", QCString(), {}},
        ParseRow{"canonical name", "subject: Hi\r\n", {{"Subject", "Hi"}}},
        ParseRow{"LF and CR LF", "A: 1\nB: 2\r\nC: 3", {{"A", "1"}, {"B", "2"}, {"C", "3"}}},
        ParseRow{"trimmed", " A \t:  1 \t\r\n", {{"A", "1"}}},
        ParseRow{"first colon splits", "A: b:c\n", {{"A", "b:c"}}},
        ParseRow{"no colon", "Plain text\nA: 1\n", {{"Plain text", ""}, {"A", "1"}}},
        ParseRow{"no value", "A:\nB: \n", {{"A", ""}, {"B", ""}}},
        ParseRow{"no name", ": 1\n", {{"", "1"}}},
        ParseRow{"fold stays inside",
                 "Subject: a\r\n b\r\nX: 1\r\n",
                 {{"Subject", "a\r\n b"}, {"X", "1"}}},
        ParseRow{"fold by tab and LF", "S: a\n\tb\n", {{"S", "a\n\tb"}}},
        ParseRow{"fold of white space only", "S: a\n \n b\n", {{"S", "a\n \n b"}}},
        ParseRow{"fold at the end", "S: a\n ", {{"S", "a"}}},
        ParseRow{"folded name", "S\n x: a\n", {{"S\n x", "a"}}},
        ParseRow{"lone CR is text", "A: 1\rB: 2\n", {{"A", "1\rB: 2"}}},
        ParseRow{"several CRs are cut off", "A: 1\r\r\nB: 2\n", {{"A", "1"}, {"B", "2"}}},
        ParseRow{
            "empty line is a nameless field", "A: 1\n\nB: 2\n", {{"A", "1"}, {"", ""}, {"B", "2"}}},
        ParseRow{"LF only", "\n", {{"", ""}}},
        ParseRow{
            "duplicates", "Received: a\nReceived: b\n", {{"Received", "a"}, {"Received", "b"}}},
        ParseRow{"8-bit", "S\xE9: \xE9\n", {{"S\xE9", "\xE9"}}}));

TEST(EMAIL_Header, FieldsKeepTheirWholeLine)
{
    EMAIL_Header header;
    parse(header, "Subject:  a\r\n b \r\nX: 1\r\n");
    EXPECT_EQ(header.mFields.at(0)->getMessage(), "Subject:  a\r\n b ");
    EXPECT_EQ(header.mFields.at(1)->getMessage(), "X: 1");
}

TEST(EMAIL_Header, ParsingAgainAppends)
{
    EMAIL_Header header;
    parse(header, "A: 1\n");
    parse(header, "A: 2\nB: 3\n");
    EXPECT_EQ(linesOf(header), (Lines{{"A", "1"}, {"A", "2"}, {"B", "3"}}));
    EXPECT_EQ(header.getField("a")->mBody, "1");
}

namespace {

struct RewriteRow
{
    const char* name;
    QCString text;
    QCString expected;
};

void PrintTo(const RewriteRow& row, std::ostream* out)
{
    *out << row.name << ": " << testing::PrintToString(row.text);
}

class HeaderAssemble : public testing::TestWithParam<RewriteRow>
{
};

} // namespace

TEST_P(HeaderAssemble, Writes)
{
    EMAIL_Header header(GetParam().text, nullptr);
    header.parse();
    EXPECT_EQ(assembled(header), GetParam().expected);
    EXPECT_EQ(assembled(header), GetParam().expected) << "again";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, HeaderAssemble,
    testing::Values(RewriteRow{"empty", "", ""},
                    RewriteRow{"canonical name", "subject: Hi\n", "Subject: Hi\r\n"},
                    RewriteRow{"leading order", "Subject: s\nDate: d\nX-A: 1\nTo: t\nFrom: f\n",
                               "From: f\r\nTo: t\r\nDate: d\r\nSubject: s\r\nX-A: 1\r\n"},
                    RewriteRow{"only the first of a name leads",
                               "X: 1\nSubject: a\nSubject: b\nTo: t\nTo: u\n",
                               "To: t\r\nSubject: a\r\nX: 1\r\nSubject: b\r\nTo: u\r\n"},
                    RewriteRow{"list order", "Received: a\nZ: 1\nReceived: b\nA: 2\n",
                               "Received: a\r\nZ: 1\r\nReceived: b\r\nA: 2\r\n"},
                    RewriteRow{"empty bodies vanish", "A:\nSubject:\nB: 1\nplain\n\n", "B: 1\r\n"},
                    RewriteRow{"folds stay", "Subject: a\r\n b\r\n", "Subject: a\r\n b\r\n"},
                    RewriteRow{"factory spellings",
                               "MIME-Version: 1.0\nCONTENT-ID: <x>\nmessage-id: <y>\n",
                               "Mime-Version: 1.0\r\nContent-Id: <x>\r\nMessage-ID: <y>\r\n"},
                    RewriteRow{"own spelling", "x-FOO: 1\n", "x-FOO: 1\r\n"}));

TEST(EMAIL_Header, LookupsIgnoreCaseAndTakeTheFirst)
{
    EMAIL_Header header;
    parse(header, "X-a: 1\nx-A: 2\n");
    EXPECT_EQ(header.getField("X-A")->mBody, "1");
    EXPECT_EQ(header.getField("x-b"), nullptr);
    EXPECT_EQ(header.getField(""), nullptr);
    header.removeField("X-A");
    EXPECT_EQ(header.getField("X-A")->mBody, "2");
    header.removeField("nothing");
    EXPECT_EQ(header.mFields.count(), 1);
}

TEST(EMAIL_Header, FieldCreatesWhatIsMissingAtTheEnd)
{
    EMAIL_Header header;
    parse(header, "A: 1\n");
    EMAIL_Field* created = header.field("subject");
    EXPECT_EQ(created->mName, "Subject");
    EXPECT_EQ(header.mFields.last(), created);
    EXPECT_EQ(header.field("SUBJECT"), created);
    EXPECT_EQ(header.mFields.count(), 2);
    EXPECT_EQ(header.field("")->mName, "") << "an empty name is accepted";
    EXPECT_EQ(header.field(""), header.mFields.last());
}

TEST(EMAIL_Header, AddFieldReplacesTheFirstOfItsNameAndMovesToTheEnd)
{
    EMAIL_Header header;
    parse(header, "X-A: 1\nB: 2\nX-A: 3\n");
    auto* field = new EMAIL_Field;
    field->mName = "x-a";
    field->mBody = "4";
    header.addField(field);
    EXPECT_EQ(linesOf(header), (Lines{{"B", "2"}, {"X-A", "3"}, {"x-a", "4"}}));
    EXPECT_EQ(field->mParent, &header);
    header.addField(nullptr);
    EXPECT_EQ(header.mFields.count(), 3);
}

TEST(EMAIL_Header, RemovesPrivateFieldsBeforeSending)
{
    const QCString stays("X-QRN-AS-Attn-Size: 1\r\nX-MESSAGE-PARTID: 2\r\n"
                         "Disposition-Notification-To: a\r\nReturn-Receipt-To: a\r\n"
                         "X-QRN-DSN: second\r\n");
    const QCString goes("X-QRN-Smart-Send-RefFolderID: 1\r\nX-QRN-Smart-Send-RefMessageID: 1\r\n"
                        "x-qrn-smart-send-data-length: 1\r\nX-QRN-Smart-Send-Type: 1\r\n"
                        "X-QRN-Message-Body-Size: 1\r\nX-QRN-Message-Body-Truncated: 1\r\n"
                        "X-QRN-AS-Attn-Undownload: 1\r\nX-QRN-AS-Attn-Name: n\r\n"
                        "X-QRN-DSN: first\r\n");
    const QCString bcc("Bcc: b\r\n");
    EMAIL_Header kept;
    parse(kept, goes + bcc + stays);
    kept.asSendable(false);
    EXPECT_EQ(assembled(kept), bcc + stays);
    EMAIL_Header removed;
    parse(removed, goes + bcc + stays);
    removed.asSendable(true);
    EXPECT_EQ(assembled(removed), stays);
}

namespace {

struct StripCfwsRow
{
    QCString in;
    QCString out;
};

void PrintTo(const StripCfwsRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.in);
}

class StripCFWS : public testing::TestWithParam<StripCfwsRow>
{
};

} // namespace

TEST_P(StripCFWS, CutsTheFrontOnly)
{
    QCString out("?");
    EMAIL_Header::stripCFWS(GetParam().in, out);
    EXPECT_EQ(out, GetParam().out);
    EXPECT_FALSE(out.isNull());
}

INSTANTIATE_TEST_SUITE_P(Rows, StripCFWS,
                         testing::Values(StripCfwsRow{"", "?"}, StripCfwsRow{QCString(), "?"},
                                         StripCfwsRow{"a", "a"}, StripCfwsRow{" \t\r\na b", "a b"},
                                         StripCfwsRow{"a \r\n\t ", "a \r\n\t "},
                                         StripCfwsRow{" a ", "a "}, StripCfwsRow{" \t\r\n", ""},
                                         StripCfwsRow{"\va", "\va"},
                                         StripCfwsRow{"(c) a", "(c) a"}));

TEST(EMAIL_Header, DeletesItsFields)
{
    static int alive = 0;
    struct Watched : EMAIL_Field
    {
        Watched() { ++alive; }
        ~Watched() override { --alive; }
    };
    {
        EMAIL_Header header;
        header.addField(new Watched);
        header.mFields.at(0)->mName = "A";
        auto* second = new Watched;
        second->mName = "a";
        header.addField(second);
        EXPECT_EQ(alive, 1) << "the replaced one is deleted";
    }
    EXPECT_EQ(alive, 0);
}

} // namespace email_header_test
