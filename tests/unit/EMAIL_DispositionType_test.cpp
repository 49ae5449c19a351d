// SPDX-License-Identifier: MIT
#include "utility/EMAIL_DispositionType.h"

namespace email_disposition_type_test {

namespace {

struct Row
{
    const char* name;
    const char* body;
    int isAttachment;
    QByteArray fileName;
    QByteArray written;
};

void PrintTo(const Row& row, std::ostream* out)
{
    printEscaped(row.body, out);
}

const Row rows[] = {
    {"QuotedFileName", "attachment; filename=\"report.pdf\"", 1, "report.pdf",
     "attachment; filename = report.pdf"},
    {"AttachmentInAnyCase", "Attachment", 1, "", "attachment; filename = tmp"},
    {"AttachmentAnywhereInTheType", "x-attachment-like", 1, "", "attachment; filename = tmp"},
    {"Inline", "inline", 0, "", "inline; filename = tmp"},
    {"UnknownTypeIsInline", "form-data; name=a", 0, "a", "inline; filename = a"},
    {"AttachmentInAParameterDoesNotCount", "inline; filename=attachment", 0, "attachment",
     "inline; filename = attachment"},
    {"FirstParameterRunsToTheEnd", "attachment; size=100; filename=a.txt", 1, "100; filename=a.txt",
     "attachment; filename = 100; filename=a.txt"},
    {"FirstParameterOfAnyName", "attachment; size=100", 1, "100", "attachment; filename = 100"},
    {"OnlyTheFirstEqualsCuts", "attachment; filename=a=b", 1, "a=b", "attachment; filename = a=b"},
    {"OwnFormIsReadBack", "attachment; filename = a b;c", 1, "a b;c",
     "attachment; filename = a b;c"},
    {"BlanksInTheNameAreWrittenUnquoted", "attachment; filename=\"a b.txt\"", 1, "a b.txt",
     "attachment; filename = a b.txt"},
    {"SemicolonInTheNameIsWrittenUnquoted", "attachment; filename=\"a;b.txt\"", 1, "a;b.txt",
     "attachment; filename = a;b.txt"},
    {"ParameterWithoutEquals", "attachment; filename", 1, "", "attachment; filename = tmp"},
    {"EmptyParameter", "attachment;", 1, "", "attachment; filename = tmp"},
    {"EmptyValue", "attachment; filename=", 1, "", "attachment; filename = tmp"},
    {"TwoQuotesStay", "attachment; filename=\"\"", 1, "\"\"", "attachment; filename = \"\""},
    {"OneQuoteStays", "attachment; filename=\"", 1, "\"", "attachment; filename = \""},
    {"OneCharacter", "attachment; filename=x", 1, "x", "attachment; filename = x"},
    {"TwoCharacters", "attachment; filename=xy", 1, "xy", "attachment; filename = xy"},
    {"OneQuotedCharacter", "attachment; filename=\"x\"", 1, "x", "attachment; filename = x"},
    {"EveryQuoteAtTheEndsGoes", "attachment; filename=\"\"abc\"\"", 1, "abc",
     "attachment; filename = abc"},
    {"QuotesOnlyStay", "attachment; filename=\"\"\"", 1, "\"\"\"", "attachment; filename = \"\"\""},
    {"FoldedParameter", "attachment;\r\n\tfilename=\"a.txt\"", 1, "a.txt",
     "attachment; filename = a.txt"},
    {"NoType", "; filename=a.txt", 0, "a.txt", "inline; filename = a.txt"},
    {"TypeOfWhiteSpace", " ; filename=a.txt", 0, "a.txt", "inline; filename = a.txt"},
    {"Empty", "", 0, "", "inline; filename = tmp"},
};

class EMAIL_DispositionTypeRow : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(EMAIL_DispositionTypeRow, ParsesAndAssembles)
{
    EMAIL_DispositionType disposition;
    disposition.mName = "Content-Disposition";
    disposition.mBody = GetParam().body;
    disposition.parse();
    EXPECT_EQ(disposition.mParsed, 1);
    EXPECT_EQ(disposition.mIsAttachment, GetParam().isAttachment);
    EXPECT_EQ(disposition.mFileName, GetParam().fileName);
    disposition.assemble();
    EXPECT_EQ(disposition.mBody, GetParam().written);
    EXPECT_EQ(disposition.mString, "Content-Disposition: " + GetParam().written + "\r\n");
}

INSTANTIATE_TEST_SUITE_P(Rows, EMAIL_DispositionTypeRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(EMAIL_DispositionType, StartsInlineAndUnparsed)
{
    EMAIL_DispositionType disposition(QCString("raw"), nullptr);
    EXPECT_EQ(disposition.mString, "raw");
    EXPECT_EQ(disposition.mParsed, 0);
    EXPECT_EQ(disposition.mIsAttachment, 0);
    EXPECT_TRUE(disposition.mFileName.isEmpty());
}

TEST(EMAIL_DispositionType, FileNameAloneIsInline)
{
    EMAIL_DispositionType disposition;
    disposition.mName = "Content-Disposition";
    disposition.setFileName("a.txt");
    EXPECT_EQ(disposition.mParsed, 1);
    disposition.assemble();
    EXPECT_EQ(disposition.mString, "Content-Disposition: inline; filename = a.txt\r\n");
}

TEST(EMAIL_DispositionType, MissingFileNameStaysTmpOnceWritten)
{
    EMAIL_DispositionType disposition;
    disposition.setAttachment(1);
    EXPECT_EQ(disposition.mParsed, 1);
    disposition.assemble();
    EXPECT_EQ(disposition.mBody, "attachment; filename = tmp");
    EXPECT_EQ(disposition.getFileName(), "tmp");
}

TEST(EMAIL_DispositionType, AnyNumberButZeroIsAnAttachment)
{
    EMAIL_DispositionType disposition;
    disposition.setAttachment(-7);
    EXPECT_EQ(disposition.mIsAttachment, -7);
    disposition.assemble();
    EXPECT_EQ(disposition.mBody, "attachment; filename = tmp");
}

TEST(EMAIL_DispositionType, StoredQuotesAreTrimmedByTheGetterOnly)
{
    EMAIL_DispositionType disposition;
    disposition.setFileName("\"a.txt\"");
    EXPECT_EQ(disposition.mFileName, "\"a.txt\"");
    EXPECT_EQ(disposition.getFileName(), "a.txt");
    disposition.assemble();
    EXPECT_EQ(disposition.mBody, "inline; filename = \"a.txt\"");
    disposition.setFileName("\"\"");
    EXPECT_EQ(disposition.getFileName(), "\"\"");
    disposition.setFileName("");
    EXPECT_EQ(disposition.getFileName(), "");
}

TEST(EMAIL_DispositionType, ParsingWithoutAParameterKeepsTheFileName)
{
    EMAIL_DispositionType disposition;
    for (const char* body : {"attachment", "attachment; filename"}) {
        disposition.mFileName = "old.txt";
        disposition.mBody = body;
        disposition.parse();
        EXPECT_EQ(disposition.mFileName, "old.txt") << body;
    }
    disposition.mBody = "attachment; filename=";
    disposition.parse();
    EXPECT_EQ(disposition.mFileName, "");
}

TEST(EMAIL_DispositionType, ParsingReplacesTheKind)
{
    EMAIL_DispositionType disposition;
    disposition.setAttachment(1);
    disposition.mBody = "inline";
    disposition.parse();
    EXPECT_EQ(disposition.mIsAttachment, 0);
}

TEST(EMAIL_DispositionType, UnparsedBodyIsWrittenAsItStands)
{
    EMAIL_DispositionType disposition;
    disposition.mName = "Content-Disposition";
    disposition.mBody = "attachment; filename=\"a.txt\"";
    disposition.assemble();
    EXPECT_EQ(disposition.mString, "Content-Disposition: attachment; filename=\"a.txt\"\r\n");
    disposition.mBody = "";
    disposition.assemble();
    EXPECT_EQ(disposition.mString, "");
}

} // namespace email_disposition_type_test
