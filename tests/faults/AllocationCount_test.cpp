// SPDX-License-Identifier: MIT
#include "tests/faults/CountingNew.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <QTemporaryFile>
#include <functional>
#include <memory>

namespace allocation_count_test {

namespace {

QCString headerOf(int fields, const char* line)
{
    QByteArray text;
    for (int i = 0; i < fields; ++i)
        text.append(line);
    return text;
}

long allocationsOfParsing(const QCString& text)
{
    EMAIL_Header header(text, nullptr);
    const long before = allocationCount();
    header.parse();
    return allocationCount() - before;
}

template <class Typed>
long allocationsOfParsingBody(const QCString& body)
{
    Typed field;
    field.mBody = body;
    const long before = allocationCount();
    field.parse();
    return allocationCount() - before;
}

long allocationsOf(const std::function<void()>& work)
{
    // What is made once for the whole program is not counted.
    work();
    const long before = allocationCount();
    work();
    return allocationCount() - before;
}

} // namespace

// One allocation a field, the field itself, and the growth of the list: 1024 doubles 11 times.
TEST(AllocationCount, OfParsingAHeader)
{
    for (const char* line : {"Subject: canonical\r\n", "X-Own-Name: 1\r\n", "X: a\r\n b\r\n"}) {
        allocationsOfParsing(headerOf(1, line));
        EXPECT_LE(allocationsOfParsing(headerOf(1024, line)), 1024 + 11) << line;
    }
}

TEST(AllocationCount, OfACanonicalName)
{
    EMAIL_Header header;
    const QCString name("content-transfer-encoding");
    delete header.createField(name);
    const long before = allocationCount();
    const std::unique_ptr<EMAIL_Field> field(header.createField(name));
    EXPECT_EQ(allocationCount() - before, 1) << "the field, not its name";
}

// Pieces are slices of the body, and no text is copied: a mailbox takes an entry, its list and, in
// Qt 5, a node of that list; a parameter takes a node of the map and, in Qt 5, one of the list of
// pieces. Lists of 1024 double 11 times.
TEST(AllocationCount, OfParsingTypedFields)
{
    const QByteArray addresses = QByteArray("someone@example.org, ").repeated(1023) + "a@x";
    EXPECT_LE(allocationsOfParsingBody<EMAIL_AddrList>(addresses), 3 * 1024 + 11);
    QByteArray parameters("text/plain");
    for (int i = 0; i < 1024; ++i)
        parameters += "; p" + QByteArray::number(i) + "=value";
    EXPECT_LE(allocationsOfParsingBody<EMAIL_ContentType>(parameters), 2 * 1024 + 2 * 11);
}

// The result, made in its place. (Qt 5 allocates anew for one of less than half the room it got:
// here most bytes stand for themselves.)
TEST(AllocationCount, OfACodecInMemory)
{
    const QByteArray data = QByteArray("some words, \xE9=").repeated(20000);
    const auto size = static_cast<unsigned long>(data.size());
    const QByteArray base64 = EMAIL_Util::encB64(data.constData(), size, 1);
    const QByteArray qp = EMAIL_Util::encQp(data.constData(), size, 1);
    unsigned long length = 0;
    EXPECT_EQ(allocationsOf([&] { EMAIL_Util::encB64(data.constData(), size, 1); }), 1);
    EXPECT_EQ(allocationsOf([&] { EMAIL_Util::encQp(data.constData(), size, 1); }), 1);
    EXPECT_EQ(allocationsOf([&] { EMAIL_Util::decB64(base64.constData(), &length); }), 1);
    EXPECT_EQ(allocationsOf([&] { EMAIL_Util::decQp(qp.constData(), &length); }), 1);
    QByteArray room(data.size(), Qt::Uninitialized);
    EXPECT_EQ(allocationsOf([&] {
                  EMAIL_Util::decB64To(base64.constData(), base64.size(), room.data(), room.size());
              }),
              0);
}

// Blocks are gathered on the stack; the file keeps one short block for itself.
TEST(AllocationCount, OfACodecToAFileDoesNotGrow)
{
    const QByteArray data = QByteArray("a=b \xE9").repeated(200000);
    const auto size = static_cast<unsigned long>(data.size());
    const QByteArray base64 = EMAIL_Util::encB64(data.constData(), size, 1);
    const auto textSize = static_cast<int>(base64.size());
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    constexpr long kOfTheFile = 4;
    EXPECT_LE(allocationsOf([&] { EMAIL_Util::encB64(data.constData(), size, &file, 1); }),
              kOfTheFile);
    EXPECT_LE(allocationsOf([&] { EMAIL_Util::encQp(data.constData(), size, &file, 1); }),
              kOfTheFile);
    EXPECT_LE(allocationsOf([&] { EMAIL_Util::decB64(base64.constData(), textSize, &file); }),
              kOfTheFile);
    EXPECT_LE(allocationsOf([&] { EMAIL_Util::decQp(base64.constData(), textSize, &file); }),
              kOfTheFile);
}

} // namespace allocation_count_test
