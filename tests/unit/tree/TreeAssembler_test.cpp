// SPDX-License-Identifier: MIT
// What the assembly of a tree refuses, and whom it asks.
#include "utility/tree/TreeAssembler.h"

#include "tests/support/BodyOwner.h"
#include "tests/support/HugeBytes.h"
#include "tests/support/RecordingFile.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Field.h"

#include <functional>
#include <string>

namespace tree_assembler_test {

using namespace tarvomime;

namespace {

const QCString text("Subject: a\r\nContent-Type: multipart/mixed; boundary=b\r\n\r\n"
                    "--b\r\nA: 1\r\n\r\none\r\n--b--\r\n");
const QCString written("Subject: a\r\n"
                       "Content-Type: multipart/mixed;Boundary=\"b\"\r\n\r\n"
                       "--b\r\nA: 1\r\n\r\none\r\n--b--\r\n");

struct ParsedMessage : EMAIL_Message
{
    ParsedMessage() : EMAIL_Message(text, nullptr) { EMAIL_Message::parse(); }
    EMAIL_BodyPart& part() const { return *mBody->bodyPart(0); }
};

// All the bytes without a copy: no memory has room for one.
QCString hugeText(const HugeBytes& bytes)
{
    constexpr std::size_t length = std::size_t{QCString::longestLength} - 20;
    return QCString::fromLiteral(*reinterpret_cast<const char(*)[length + 1]>(bytes.data()));
}

} // namespace

TEST(TreeAssembler, LeavesATreeThatIsTooLongAlone)
{
    for (const int limit : {0, 5, 12, 60, written.length() - 1}) {
        ParsedMessage message;
        EXPECT_EQ(assembleEntity(message, nullptr, limit), -1) << limit;
        EXPECT_EQ(message.getMessage(), text) << limit;
        EXPECT_EQ(message.mBody->getMessage(), text.mid(text.find("--b")));
        EXPECT_EQ(message.part().getMessage(), "A: 1\r\n\r\none");
        EXPECT_EQ(assembleEntity(message, nullptr), 0);
        EXPECT_EQ(message.getMessage(), written);
    }
    ParsedMessage message;
    EXPECT_EQ(assembleEntity(message, nullptr, written.length()), 0);
    EXPECT_EQ(message.getMessage(), written);
}

TEST(TreeAssembler, WritesNothingOfAHeaderThatIsTooLong)
{
    const HugeBytes bytes;
    if (!bytes.isMapped())
        GTEST_SKIP() << "no address space";
    EMAIL_Message message;
    message.mBody->setMessage("body");
    message.mHeader->setSubject(hugeText(bytes));
    message.mHeader->field("X-Other")->mBody = "twenty characters ...";
    RecordingFile out;
    EXPECT_EQ(message.assemble(&out), -1);
    EXPECT_EQ(out.written(), "");
    EXPECT_EQ(message.assemble(nullptr), -1);
    EXPECT_TRUE(message.getMessage().isEmpty());
}

TEST(TreeAssembler, WritesNothingOfALineThatIsTooLong)
{
    const HugeBytes bytes;
    if (!bytes.isMapped())
        GTEST_SKIP() << "no address space";
    BodyOwner owner("multipart/mixed; boundary=b");
    auto* part = new EMAIL_BodyPart;
    part->mHeader->field("Twenty-One-Characters")->mBody = hugeText(bytes);
    owner.mBody->insertBodyPart(part, 0);
    RecordingFile out;
    EXPECT_EQ(owner.assemble(&out), -1);
    EXPECT_EQ(out.written(), "Content-Type: multipart/mixed; boundary=b\r\n\r\n--b\r\n");
    EXPECT_EQ(owner.assemble(nullptr), -1);
}

TEST(TreeAssembler, RefusesABodyThatIsTooLongInMemory)
{
    const HugeBytes bytes;
    if (!bytes.isMapped())
        GTEST_SKIP() << "no address space";
    EMAIL_Message message(QCString("old"), nullptr);
    message.mHeader->setSubject("twenty characters ...");
    message.mBody->setMessage(hugeText(bytes));
    EXPECT_EQ(message.assemble(nullptr), -1);
    EXPECT_EQ(message.getMessage(), "old");
    EXPECT_EQ(message.mBody->getMessage().length(), hugeText(bytes).length());
}

namespace {

EMAIL_Field* plainType(EMAIL_Header& header, const char* body)
{
    auto* plain = new EMAIL_Field;
    plain->mName = "Content-Type";
    plain->mBody = body;
    header.addField(plain);
    return plain;
}

} // namespace

TEST(TreeAssembler, LeavesAFieldOfTheApplicationInItsPlace)
{
    EMAIL_Message message;
    EMAIL_Field* plain = plainType(*message.mHeader, "multipart/mixed; boundary=b");
    message.mHeader->setSubject("s");
    message.mBody->insertBodyPart(new EMAIL_BodyPart(QCString(), nullptr), 0);
    message.mBody->bodyPart(0)->mBody->setMessage("one");
    const char* expected = "Subject: s\r\nContent-Type: multipart/mixed; boundary=b\r\n\r\n"
                           "--b\r\none\r\n--b--\r\n";
    for (const char* round : {"first", "second", "third"}) {
        EXPECT_EQ(message.assemble(nullptr), 0);
        EXPECT_EQ(message.getMessage(), expected) << round;
        EXPECT_EQ(message.mHeader->getField("Content-Type"), plain) << round;
        RecordingFile out;
        EXPECT_EQ(message.assemble(&out), 0);
        EXPECT_EQ(out.written(), expected) << round;
    }
}

TEST(TreeAssembler, ATypedFieldTakesTheTextOfAnother)
{
    EMAIL_Header header;
    plainType(header, "text/html; charset=utf-8");
    header.setSubject("s");
    EMAIL_ContentType* typed = header.contentType();
    EXPECT_EQ(header.mFields.at(0), typed) << "in its place";
    EXPECT_EQ(typed->mType + "/" + typed->mSubType, "text/html");
    EXPECT_EQ(typed->getCharset(), 13);
    header.assemble();
    EXPECT_EQ(header.getMessage(), "Subject: s\r\nContent-Type: text/html;\r\n\tcharset=utf-8\r\n");
}

namespace {

// Counts how often its own assemble() and parse() are called.
template <class Component>
struct Counting : Component
{
    using Component::Component;
    void assemble() override
    {
        ++assembled;
        Component::assemble();
    }
    void parse() override
    {
        ++parsed;
        Component::parse();
    }
    int assembled = 0;
    int parsed = 0;
};

template <class Component>
Counting<Component>* put(Component*& place, EMAIL_BaseComponent& parent)
{
    delete place;
    auto* counting = new Counting<Component>(QCString(), &parent);
    place = counting;
    return counting;
}

} // namespace

TEST(TreeAssembler, CallsWhatDerivedClassesOverride)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    owner.mHeader->contentType();
    auto* part = new Counting<EMAIL_BodyPart>;
    owner.mBody->insertBodyPart(part, 0);
    auto* inner = new EMAIL_BodyPart;
    owner.mBody->insertBodyPart(inner, 1);
    auto* header = put(inner->mHeader, *inner);
    auto* body = put(inner->mBody, *inner);
    body->setMessage("two");
    auto* field = new Counting<EMAIL_Field>;
    field->mName = "A";
    field->mBody = "1";
    header->addField(field);
    part->mBody->setMessage("one");
    const QCString expected("Content-Type: multipart/mixed;Boundary=\"b\"\r\n\r\n"
                            "--b\r\none\r\n--b\r\nA: 1\r\n\r\ntwo\r\n--b--\r\n");
    EXPECT_EQ(owner.assemble(nullptr), 0);
    EXPECT_EQ(owner.getMessage(), expected);
    EXPECT_EQ(part->assembled, 1);
    EXPECT_EQ(header->assembled, 1);
    EXPECT_EQ(body->assembled, 1);
    EXPECT_EQ(field->assembled, 1);
    RecordingFile out;
    EXPECT_EQ(owner.assemble(&out), 0);
    EXPECT_EQ(out.written(), expected);
    EXPECT_EQ(part->assembled, 1) << "no assemble() of its own could stream";
    EXPECT_EQ(body->assembled, 1);
    EXPECT_EQ(header->assembled, 2);
    EXPECT_EQ(field->assembled, 2);
}

namespace {

// A part that is what it says, whatever its header and body hold.
struct FixedPart : EMAIL_BodyPart
{
    void assemble() override { mString = "fixed"; }
};

} // namespace

TEST(TreeAssembler, TakesWhatAnOverrideMakes)
{
    BodyOwner owner("multipart/mixed; boundary=b");
    owner.mBody->insertBodyPart(new FixedPart, 0);
    owner.mBody->assemble();
    EXPECT_EQ(owner.mBody->getMessage(), "--b\r\nfixed\r\n--b--\r\n");
}

TEST(TreeAssembler, ParsesThroughWhatDerivedClassesOverride)
{
    EMAIL_Message message(text, nullptr);
    auto* header = put(message.mHeader, message);
    auto* body = put(message.mBody, message);
    message.parse();
    EXPECT_EQ(header->parsed, 1);
    EXPECT_EQ(body->parsed, 1);
    EXPECT_EQ(body->numBodyParts(), 1);
    EXPECT_EQ(body->bodyPart(0)->mBody->getMessage(), "one");
}

} // namespace tree_assembler_test
