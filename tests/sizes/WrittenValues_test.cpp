// SPDX-License-Identifier: MIT
// A typed field that would take more than 1,048,576 bytes to write is not built: one that was read
// keeps its text, one that an application has made so long makes the assembly fail. One that
// repeats values keeps its text as soon as they outgrow it.
#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_DispositionType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <functional>

namespace written_values_test {

namespace {

constexpr int kLongest = 1048576;

QByteArray bareNames(int count)
{
    QByteArray names;
    for (int i = 0; i < count; ++i)
        names += ';' + QByteArray::number(i).rightJustified(5, '0');
    return names;
}

// A value of `size` bytes when it is written, of which `frame` bytes stand around the filling.
QByteArray filling(int size, const char* frame)
{
    return QByteArray(size - int(qstrlen(frame)), 'x');
}

const QByteArray kLongValue(102 * 1024, 'x');
const char* const kTypeFrame = "text/plain;\r\n\ta=";
const char* const kDispositionFrame = "attachment; filename = ";

struct ReadRow
{
    const char* name;
    QByteArray field;
    // Empty where the field keeps the text that it was read from.
    QByteArray written;
};

void PrintTo(const ReadRow& row, std::ostream* out)
{
    *out << row.name;
}

class WrittenValue : public testing::TestWithParam<ReadRow>
{
};

} // namespace

TEST_P(WrittenValue, OfAFieldThatWasRead)
{
    const QByteArray line = GetParam().field + "\r\n";
    EMAIL_Message message(QCString(line + "\r\nbody"), nullptr);
    message.parse();
    message.mHeader->getContentType();
    message.mHeader->getContentDisposition();
    const QByteArray written = GetParam().written.isEmpty() ? line : GetParam().written + "\r\n";
    for (const char* round : {"first", "second"}) {
        RecordingFile file;
        ASSERT_EQ(message.assemble(nullptr), 0) << round;
        // Not compared by a matcher: the texts are too long to print.
        EXPECT_TRUE(message.getMessage() == written + "\r\nbody") << round;
        EXPECT_EQ(message.assemble(&file), 0) << round;
        EXPECT_TRUE(file.written() == written + "\r\nbody") << round;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrittenValue,
    testing::Values(
        ReadRow{"bare names that share a long value write the square of what was read",
                "Content-Type: text/plain; a=" + kLongValue + bareNames(21000), ""},
        ReadRow{"a header of 36 KB that would become 80 MB",
                "Content-Type: text/plain; a=" + QByteArray(18000, 'x') + bareNames(3000), ""},
        ReadRow{"bare names that repeat 64 bytes more than were read",
                "Content-Type: a/b;v=" + QByteArray(38, 'x') + ";w;x;y",
                "Content-Type: a/b" + QByteArray(";\r\n\tv=").append(38, 'x') +
                    QByteArray(";\r\n\tw=").append(38, 'x') +
                    QByteArray(";\r\n\tx=").append(38, 'x') +
                    QByteArray(";\r\n\ty=").append(38, 'x')},
        ReadRow{"bare names that repeat more",
                "Content-Type: a/b;v=" + QByteArray(39, 'x') + ";w;x;y", ""},
        ReadRow{"type of the longest value",
                "Content-Type: text/plain; A=" + filling(kLongest, kTypeFrame),
                "Content-Type: text/plain;\r\n\ta=" + filling(kLongest, kTypeFrame)},
        ReadRow{"type of one byte more",
                "Content-Type: text/plain; A=" + filling(kLongest + 1, kTypeFrame), ""},
        ReadRow{"disposition of the longest value",
                "Content-Disposition: attachment;n=" + filling(kLongest, kDispositionFrame),
                "Content-Disposition: attachment; filename = " +
                    filling(kLongest, kDispositionFrame)},
        ReadRow{"disposition of one byte more",
                "Content-Disposition: attachment;n=" + filling(kLongest + 1, kDispositionFrame),
                ""}));

namespace {

struct SetRow
{
    const char* name;
    std::function<void(EMAIL_Header&, const QCString&)> set;
    const char* frame;
};

void PrintTo(const SetRow& row, std::ostream* out)
{
    *out << row.name;
}

class SetValue : public testing::TestWithParam<SetRow>
{
};

const char* const kOldHeader =
    "Content-Type: text/plain\r\nContent-Disposition: inline; filename=a\r\nSubject: s\r\n\r\nbody";

} // namespace

TEST_P(SetValue, FailsTheAssemblyWhenItIsTooLong)
{
    EMAIL_Message message{QCString(kOldHeader), nullptr};
    message.parse();
    GetParam().set(*message.mHeader, filling(kLongest, GetParam().frame));
    EXPECT_EQ(message.assemble(nullptr), 0) << "the longest value";
    GetParam().set(*message.mHeader, filling(kLongest + 1, GetParam().frame));
    EXPECT_EQ(message.assemble(nullptr), -1) << "one byte more";
    RecordingFile file;
    EXPECT_EQ(message.assemble(&file), -1) << "one byte more, to a file";
    message.mHeader->assemble();
    EXPECT_TRUE(message.mHeader->getMessage().isEmpty());
    GetParam().set(*message.mHeader, "short");
    EXPECT_EQ(message.assemble(nullptr), 0) << "the failure does not stay";
}

INSTANTIATE_TEST_SUITE_P(Rows, SetValue,
                         testing::Values(SetRow{"parameter",
                                                [](EMAIL_Header& header, const QCString& value) {
                                                    header.contentType()->setParameter("a", value);
                                                },
                                                kTypeFrame},
                                         SetRow{"name",
                                                [](EMAIL_Header& header, const QCString& value) {
                                                    header.contentType()->setName(value);
                                                },
                                                "text/plain;\r\n\tname="},
                                         SetRow{"boundary",
                                                [](EMAIL_Header& header, const QCString& value) {
                                                    header.contentType()->setBoundary(value);
                                                },
                                                "text/plain;Boundary=\"\""},
                                         SetRow{"file name",
                                                [](EMAIL_Header& header, const QCString& value) {
                                                    header.contentDisposition()->setFileName(value);
                                                },
                                                "inline; filename = "}));

namespace {

using Change = std::function<void(EMAIL_ContentType&)>;

class ChangedType : public testing::TestWithParam<std::pair<const char*, Change>>
{
};

} // namespace

// What an application changes of a field that was kept as read must not be lost in silence.
TEST_P(ChangedType, IsNotPutAsideWithTheRest)
{
    const QByteArray line = "Content-Type: text/plain; a=" + kLongValue + bareNames(20) + "\r\n";
    EMAIL_Message message(QCString(line + "\r\nbody"), nullptr);
    message.parse();
    GetParam().second(*message.mHeader->contentType());
    EXPECT_EQ(message.assemble(nullptr), -1);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ChangedType,
    testing::Values(
        std::pair("type", Change([](EMAIL_ContentType& type) { type.setTypeStr("image"); })),
        std::pair("charset", Change([](EMAIL_ContentType& type) { type.setCharset("utf-8"); })),
        std::pair("parameter",
                  Change([](EMAIL_ContentType& type) { type.setParameter("b", "1"); })),
        std::pair("boundary", Change([](EMAIL_ContentType& type) { type.setBoundary("b"); })),
        std::pair("new boundary", Change([](EMAIL_ContentType& type) { type.createBoundary(); }))),
    [](const auto& row) {
        QByteArray name(row.param.first);
        return name.replace(' ', '_').toStdString();
    });

// Without a subtype the field is not assembled: its refusal must not stay as its line.
TEST(RefusedType, IsTheTextOfBeforeOnceItHasNoSubtype)
{
    EMAIL_Message message{QCString(kOldHeader), nullptr};
    message.parse();
    EMAIL_ContentType& type = *message.mHeader->contentType();
    type.setParameter("a", filling(kLongest + 1, kTypeFrame));
    ASSERT_EQ(message.assemble(nullptr), -1);
    type.setParameter("a", "short");
    type.setSubTypeStr("");
    EXPECT_EQ(message.assemble(nullptr), 0);
    EXPECT_EQ(type.getMessage(), "Content-Type: text/plain\r\n");
}

} // namespace written_values_test
