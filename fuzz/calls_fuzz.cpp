// SPDX-License-Identifier: MIT
// Calls in any order on a message, its header, its body and a part leave a tree that can be
// written, and that is written alike twice.
//
// The first assembly may still settle the tree: a typed field that nobody asked for is parsed when
// the body is written.

#include "fuzz/support/Cursor.h"
#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

using namespace tarvomime::fuzz;

namespace {

struct State
{
    EMAIL_MIME message;
    EMAIL_MultiPart part;
    Cursor input;

    EMAIL_Header& header() const { return *message.mMessage->mHeader; }
    EMAIL_Body& body() const { return *message.mMessage->mBody; }

    EMAIL_MultiPart readPart()
    {
        EMAIL_MultiPart read;
        message.getMultiPart(input.takeNumber(), read);
        return read;
    }
};

void parseAgain(EMAIL_BaseComponent& component, Cursor& input)
{
    component.setMessage(input.takeText());
    component.parse();
}

void addPartOf(State& s)
{
    auto* part = new EMAIL_BodyPart(s.input.takeText(), nullptr);
    part->parse();
    s.body().insertBodyPart(part, s.input.takeNumber());
}

void addSubPart(State& s)
{
    const auto* part = new EMAIL_MultiPart(s.readPart());
    s.part.addSubMultiPart(part, s.input.takeNumber());
}

void assignToSelf(State& s)
{
    const EMAIL_MultiPart& same = s.part;
    s.part = same;
}

void writeField(State& s)
{
    EMAIL_Field* field = s.header().field(s.input.takeText());
    field->mBody = s.input.takeText();
}

void moveField(State& s)
{
    EMAIL_Field* field = s.header().createField(s.input.takeText());
    field->mBody = s.input.takeText();
    s.header().addField(field);
}

void assembleTwice(State& s)
{
    s.message.assemble();
    const QCString once = s.message.assemble();
    require(s.message.assemble() == once, "a tree is written alike twice");
}

using Call = void (*)(State&);
constexpr Call calls[] = {
    // The message.
    [](State& s) { parseAgain(*s.message.mMessage, s.input); },
    [](State& s) { s.message.setHeader(s.input.takeText()); },
    [](State& s) { s.message.setSubject(s.input.takeString()); },
    [](State& s) { s.message.setFrom(s.input.takeString()); },
    [](State& s) { s.message.setReplyTo(s.input.takeString()); },
    [](State& s) { s.message.setDate(static_cast<unsigned long>(s.input.takeByte()) << 24); },
    [](State& s) { s.message.setType(s.input.takeNumber()); },
    [](State& s) { s.message.setSubType(s.input.takeByte()); },
    [](State& s) { s.message.setTypeStr(s.input.takeString()); },
    [](State& s) { s.message.setCharset(s.input.takeNumber()); },
    [](State& s) { s.message.setCTE(s.input.takeNumber()); },
    [](State& s) { s.message.setMethod(s.input.takeString()); },
    [](State& s) { s.message.setBody(s.input.takeString(), true); },
    [](State& s) { s.message.setBody(s.input.takeString(), false); },
    [](State& s) { s.message.setBody(s.input.takeBytes()); },
    [](State& s) { s.message.setDefaultFileds(); },
    [](State& s) { s.message.makeHeaderSendable(); },
    [](State& s) { s.message.getSubject(s.input.takeNumber()); },
    [](State& s) { s.message.getBody(s.input.takeNumber()); },
    [](State& s) { s.message.isCompleteMessage(); },
    assembleTwice,
    // The header.
    [](State& s) { parseAgain(s.header(), s.input); },
    writeField,
    [](State& s) { s.header().removeField(s.input.takeText()); },
    moveField,
    [](State& s) { s.header().setTo(s.input.takeText()); },
    [](State& s) { s.header().setXPriority(s.input.takeText()); },
    [](State& s) { s.header().getDate(); },
    [](State& s) { s.header().getContentDisposition(); },
    [](State& s) { s.header().contentType()->setBoundary(s.input.takeText()); },
    [](State& s) { s.header().contentType()->setParameter("Charset", s.input.takeText()); },
    [](State& s) { s.header().contentType()->parse(); },
    [](State& s) { s.header().asSendable(s.input.takeByte() % 2 == 0); },
    [](State& s) { s.header().assemble(); },
    // The body.
    [](State& s) { parseAgain(s.body(), s.input); },
    [](State& s) { s.body().setBodyInfo("/nowhere", 0, s.input.takeNumber(), false); },
    addPartOf,
    [](State& s) { s.body().removeBodyPart(s.input.takeNumber()); },
    [](State& s) { s.body().removeBodyPart(s.body().numBodyParts()); },
    [](State& s) { s.body().insertBodyPart(new EMAIL_BodyPart, s.body().numBodyParts()); },
    [](State& s) { s.body().assemble(); },
    // The part.
    [](State& s) { s.part = s.readPart(); },
    assignToSelf,
    [](State& s) { s.part.setType(s.input.takeNumber()); },
    [](State& s) { s.part.setSubType(s.input.takeByte()); },
    [](State& s) { s.part.setCharset(s.input.takeNumber()); },
    [](State& s) { s.part.setCTE(s.input.takeNumber()); },
    [](State& s) { s.part.setName(s.input.takeString()); },
    [](State& s) { s.part.setDispFileName(s.input.takeString()); },
    [](State& s) { s.part.setBody(s.input.takeString(), true); },
    [](State& s) { s.part.setBody(s.input.takeBytes(), false); },
    addSubPart,
    [](State& s) { s.part.removeSubPart(s.input.takeNumber()); },
    [](State& s) { s.part.makeHeaderSendable(); },
    [](State& s) { s.message.addMultiPart(s.part, s.input.takeNumber()); },
    [](State& s) { s.message.setMultiPart(s.part, s.input.takeNumber(), true); },
    [](State& s) { s.message.removeMultiPart(s.input.takeNumber()); },
};
constexpr int mostCalls = 64;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    State state{EMAIL_MIME(), EMAIL_MultiPart(), Cursor(bytes, size)};
    for (int i = 0; i < mostCalls && !state.input.isAtEnd(); ++i)
        calls[static_cast<size_t>(state.input.takeByte()) % std::size(calls)](state);
    assembleTwice(state);
    return 0;
}
