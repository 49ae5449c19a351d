// SPDX-License-Identifier: MIT
// Which field is the Content-Type of a message is remembered for long headers. Applications change
// the tree as they please between two questions: each answer is that of a walk from the start.
#include "tests/support/RowNames.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <functional>

namespace content_type_of_amessage_test {

namespace {

constexpr char kType[] = "Content-Type";

EMAIL_Field* newType(EMAIL_Header& header, int type)
{
    auto* field = static_cast<EMAIL_ContentType*>(header.createField(kType));
    field->setType(type);
    return field;
}

int positionOf(const EMAIL_Header& header)
{
    int position = 0;
    while (header.mFields.at(position) != header.getField(kType))
        ++position;
    return position;
}

struct ChangeRow
{
    const char* name;
    std::function<void(EMAIL_MIME&)> change;
};

void PrintTo(const ChangeRow& row, std::ostream* out)
{
    *out << row.name;
}

class ContentTypeOfAMessage : public testing::TestWithParam<std::tuple<int, ChangeRow>>
{
protected:
    // Two types with some lines between them.
    static QByteArray text(int lines)
    {
        const QByteArray line("X-Line: 1\r\n");
        return line.repeated(lines) + "Content-Type: multipart/mixed; boundary=b\r\n" +
               line.repeated(3) +
               "Content-Type: message/rfc822\r\n\r\n--b\r\nA: 1\r\n\r\nx\r\n--b--\r\n";
    }

    static void expectAsFromTheStart(const EMAIL_MIME& mime)
    {
        const EMAIL_ContentType* expected = mime.getHeader()->getContentType();
        EXPECT_EQ(mime.getType(), expected == nullptr ? 0 : expected->mTypeEnum);
        EMAIL_MultiPart part(nullptr);
        EXPECT_EQ(mime.getMultiPart(0, part),
                  expected != nullptr && expected->mTypeEnum == TYPE_MULTIPART);
    }
};

} // namespace

TEST_P(ContentTypeOfAMessage, IsTheFirstAfterEveryChange)
{
    const auto& [lines, row] = GetParam();
    EMAIL_MIME mime(text(lines));
    expectAsFromTheStart(mime);
    row.change(mime);
    expectAsFromTheStart(mime);
    expectAsFromTheStart(mime);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ContentTypeOfAMessage,
    testing::Combine(
        testing::Values(0, 1, 255, 256, 257, 2000),
        testing::Values(
            ChangeRow{"nothing", [](EMAIL_MIME&) {}},
            ChangeRow{"another type", [](EMAIL_MIME& mime) { mime.setType(TYPE_TEXT); }},
            ChangeRow{"field removed",
                      [](EMAIL_MIME& mime) { mime.getHeader()->removeField(kType); }},
            ChangeRow{"both removed",
                      [](EMAIL_MIME& mime) {
                          mime.getHeader()->removeField(kType);
                          mime.getHeader()->removeField(kType);
                      }},
            ChangeRow{"field replaced",
                      [](EMAIL_MIME& mime) {
                          mime.getHeader()->addField(newType(*mime.getHeader(), TYPE_IMAGE));
                      }},
            ChangeRow{"field renamed",
                      [](EMAIL_MIME& mime) { mime.getHeader()->getField(kType)->mName = "X"; }},
            ChangeRow{"a line removed in front",
                      [](EMAIL_MIME& mime) { mime.getHeader()->removeField("X-Line"); }},
            ChangeRow{"as many lines removed as there are "
                      "between the two",
                      [](EMAIL_MIME& mime) {
                          for (int i = 0; i < 4; ++i)
                              mime.getHeader()->removeField("X-Line");
                      }},
            ChangeRow{"a type inserted at the front",
                      [](EMAIL_MIME& mime) {
                          EMAIL_Header& header = *mime.getHeader();
                          header.mFields.prepend(newType(header, TYPE_TEXT));
                      }},
            ChangeRow{"a line exchanged for a type "
                      "at the front",
                      [](EMAIL_MIME& mime) {
                          EMAIL_Header& header = *mime.getHeader();
                          header.mFields.remove(0);
                          header.mFields.prepend(newType(header, TYPE_TEXT));
                      }},
            ChangeRow{"a line exchanged for a type "
                      "just before",
                      [](EMAIL_MIME& mime) {
                          EMAIL_Header& header = *mime.getHeader();
                          const int position = positionOf(header);
                          header.mFields.insert(position, newType(header, TYPE_TEXT));
                          if (position > 0)
                              header.mFields.remove(position - 1);
                      }},
            ChangeRow{"all fields removed",
                      [](EMAIL_MIME& mime) { mime.getHeader()->mFields.clear(); }},
            ChangeRow{"another message",
                      [](EMAIL_MIME& mime) {
                          delete mime.mMessage;
                          mime.mMessage = new EMAIL_Message("Content-Type: "
                                                            "text/plain\r\n\r\nx",
                                                            nullptr);
                          mime.mMessage->parse();
                      }})),
    [](const auto& row) {
        const testing::TestParamInfo<ChangeRow> change(std::get<1>(row.param), row.index);
        return std::to_string(std::get<0>(row.param)) + "_lines_in_front_" + rowName(change);
    });

} // namespace content_type_of_amessage_test
