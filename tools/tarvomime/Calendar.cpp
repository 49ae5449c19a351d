// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/Terminal.h"

#include <memory>

namespace tarvomime::tool {

namespace {

// The calendars of an invitation, or else all parts of the type of the first calendar.
QList<ContentPart> calendarParts(const MessageContent& content)
{
    QList<ContentPart> invitations;
    QList<ContentPart> attached;
    QByteArray type;
    for (const ShownMessage& message : content.messages) {
        if (type.isEmpty() && message.invitation >= 0)
            type = content.parts[message.invitation].type;
    }
    for (const ContentPart& part : content.parts) {
        if (part.role == PartRole::Invitation)
            invitations.append(part);
        else if (!type.isEmpty() && part.type == type)
            attached.append(part);
    }
    return invitations.isEmpty() ? attached : invitations;
}

// A terminal gets the text made harmless, everything else the bytes as they are.
void printCalendar(const QByteArray& calendar, Session& session)
{
    if (isOutputTerminal())
        session.print(printableText({calendar.constData(), std::size_t(calendar.size())}));
    else
        session.print(calendar);
}

void printCalendars(Mail& mail, Session& session)
{
    const QList<ContentPart> parts = calendarParts(mail.content());
    if (parts.isEmpty())
        session.complain(mail.name(), "has no calendar part");
    for (const ContentPart& part : parts) {
        const Result<QByteArray> calendar = partBytes(part);
        if (calendar)
            printCalendar(*calendar, session);
        else
            session.complain(mail.name(), calendar.reason().toStdString());
    }
}

} // namespace

void addCalendar(CLI::App& tool, Session& session)
{
    const auto inputs = std::make_shared<MailInputs>();
    Arguments arguments(tool, "calendar", "Print the calendars of meeting invitations",
                        "The decoded bytes of the calendar parts are printed, those of\n"
                        "an invitation or else every one that is attached.\n"
                        "\n"
                        "Example:\n"
                        "  tarvomime calendar invitation.eml > meeting.ics");
    addMailInputs(arguments, *inputs);
    arguments.run([inputs, &session] {
        MailSource source(*inputs, session);
        MailPlace place;
        while (source.next(place)) {
            Mail mail(place, inputs->charset);
            printCalendars(mail, session);
        }
    });
}

} // namespace tarvomime::tool
