// SPDX-License-Identifier: MIT
// Every query has an answer for any message, in memory and in a file, and the answers agree with
// one another. The questions of a message list add no field to the header.

#include "fuzz/support/Fuzz.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"

using namespace tarvomime::fuzz;

namespace {

void askForValues(const EMAIL_BasicMsg& message)
{
    for (const int charset : {CHARSET_UNKNOWN, CHARSET_UTF_8}) {
        for (const auto get :
             {&EMAIL_BasicMsg::getFrom, &EMAIL_BasicMsg::getTo, &EMAIL_BasicMsg::getCc,
              &EMAIL_BasicMsg::getBcc, &EMAIL_BasicMsg::getReplyTo, &EMAIL_BasicMsg::getSubject,
              &EMAIL_BasicMsg::getFileName, &EMAIL_BasicMsg::getName})
            (message.*get)(charset);
    }
    for (const auto get :
         {&EMAIL_BasicMsg::getSender, &EMAIL_BasicMsg::getXMailer, &EMAIL_BasicMsg::getMimeVersion,
          &EMAIL_BasicMsg::getRawDateStr, &EMAIL_BasicMsg::getDateStr, &EMAIL_BasicMsg::getMethod,
          &EMAIL_BasicMsg::headerAsString})
        (message.*get)();
    const int priority = message.getXPriority();
    require(priority == 1 || priority == 3 || priority == 5, "a priority is one of three");
    QCString receipt;
    message.needReadReceipt(receipt);
    message.getOperation();
    message.getBodySize();
}

void askForParts(const EMAIL_MIME& message)
{
    const int count = message.getMultiPartCount();
    require(message.getAttachNum() <= qMax(count, 1), "no more attachments than parts");
    message.hasAttachment();
    message.isCompleteMessage();
    QString id;
    message.getBodyPartId(id);
    message.getCalendarPartId(id);
    ScratchFile file;
    require(message.getICalendar(file.file()) == 0, "a calendar is written");
    require(message.EMAIL_MIME::getBody(file.file()) == 0, "a body is written");
}

void askAll(EMAIL_MIME& message)
{
    const auto fields = message.getHeader()->mFields.count();
    askForParts(message);
    require(message.getHeader()->mFields.count() == fields, "a question adds no field");
    askForValues(message);
    QString text;
    require(message.getBody(text, CHARSET_UNKNOWN) == 0, "the text is read");
    EMAIL_MultiPart part;
    require(!message.getMultiPart(-1, part), "there is no part before the first");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    EMAIL_MIME inMemory(toArray(bytes, size));
    askAll(inMemory);
    ScratchFile file;
    file.write(bytes, size);
    EMAIL_MIME inFile;
    if (inFile.parse(file.path()) == 0)
        askAll(inFile);
    return 0;
}
