// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/BodyOptions.h"
#include "tools/tarvomime/CalendarFile.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Envelope.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Session.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"

#include <QFile>
#include <memory>

namespace tarvomime::tool {

namespace {

struct InviteOptions
{
    Envelope envelope;
    BodyOptions body;
    std::string calendar;
    std::string method;
};

std::string methodProblem(const std::string& method)
{
    std::string problem = headerValueProblem(method);
    if (!problem.empty())
        return problem;
    return isCalendarMethod(method) ? "" : "a method is one word, such as REQUEST";
}

// The method to write, or an empty text after a complaint. Programs that see two of them follow
// the one or the other (RFC 6047, section 2.4).
QByteArray methodFor(const InviteOptions& options, const InputFile& file, Session& session)
{
    const CalendarFile calendar = readCalendar(file.bytes());
    if (!calendar.problem.empty()) {
        session.complain(options.calendar, calendar.problem);
        return {};
    }
    const QByteArray wanted = QByteArray::fromStdString(options.method);
    if (calendar.method.isEmpty())
        return wanted.isEmpty() ? "REQUEST" : wanted;
    if (!wanted.isEmpty() && wanted.toUpper() != calendar.method.toUpper()) {
        session.complain(options.calendar, "its METHOD is " + calendar.method.toStdString() +
                                               ", not " + options.method);
        return {};
    }
    return calendar.method;
}

void invite(const InviteOptions& options, Session& session)
{
    requireRecipient(options.envelope);
    const InputFile calendar(options.calendar);
    if (!calendar.isOpen()) {
        session.complain(options.calendar, calendar.problem());
        return;
    }
    const QByteArray method = methodFor(options, calendar, session);
    NewBody body;
    if (method.isEmpty() || !readBody(options.body, body, session))
        return;
    EMAIL_MultiPart unused;
    EMAIL_MultiPart part;
    const QString path = QFile::decodeName(options.calendar.c_str());
    if (EMAIL_MIME::getIcsPart(path, {}, QString::fromLatin1(method), &unused, &part) != 0) {
        session.complain(options.calendar, "cannot be read");
        return;
    }
    // Calendars are utf-8 unless they say otherwise (RFC 5545, section 3.1.4).
    part.setCharset(CHARSET_UTF_8);
    part.setAttSize(-1);
    body.alternatives.append(part);
    EMAIL_MIME message;
    setNewBody(body, message);
    applyEnvelope(options.envelope, message);
    writeNewMessage(message, options.envelope.out, calendar.size(), session);
}

} // namespace

void addInvite(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<InviteOptions>();
    Arguments arguments(
        tool, "invite", "Write a message that carries a meeting invitation",
        "The message holds the text and the calendar as alternatives. The method is the\n"
        "calendar's own, or REQUEST where it names none; another one is refused, and so is\n"
        "a file that is no calendar.\n"
        "\n"
        "Example:\n"
        "  tarvomime invite --from mira@a.example --to joern@b.example \\\n"
        "    --subject 'Treffen' --text 'Passt das?' --ics meeting.ics --out mail.eml");
    addEnvelope(arguments, options->envelope);
    addRecipients(arguments, options->envelope);
    addInReplyTo(arguments, options->envelope);
    addTextOption(arguments, options->body);
    arguments.requiredOption("--ics", options->calendar, "FILE", "The calendar file");
    arguments.option("--method", options->method, "NAME", "REQUEST, REPLY, CANCEL, ...",
                     methodProblem);
    arguments.run([options, &session] { invite(*options, session); });
}

} // namespace tarvomime::tool
