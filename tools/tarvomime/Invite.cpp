// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Envelope.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Session.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <memory>

namespace tarvomime::tool {

namespace {

constexpr int kAlternative = 22;

struct InviteOptions
{
    Envelope envelope;
    std::string calendar;
    std::string method;
};

/// The METHOD line of the calendar (RFC 5546, section 1.4), "REQUEST" where it has none.
QByteArray methodOf(const InputFile& calendar)
{
    std::string_view rest = calendar.bytes();
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const QByteArray text = QByteArray(line.data(), static_cast<int>(line.size())).trimmed();
        if (text.left(7).toUpper() != "METHOD:")
            continue;
        QByteArray method = text.mid(7).trimmed();
        if (headerValueProblem(method.toStdString()).empty() && !method.contains(';'))
            return method;
    }
    return "REQUEST";
}

void invite(const InviteOptions& options, Session& session)
{
    const InputFile calendar(options.calendar);
    if (!calendar.isOpen()) {
        session.complain(options.calendar, calendar.problem());
        return;
    }
    std::string bytes;
    if (!readText(options.envelope, bytes, session))
        return;
    const QString text = QString::fromUtf8(bytes.c_str(), static_cast<int>(bytes.size()));
    const QString method = options.method.empty() ? QString::fromUtf8(methodOf(calendar))
                                                  : QString::fromUtf8(options.method.c_str());
    EMAIL_MIME message;
    message.setType(TYPE_MULTIPART);
    message.setSubType(kAlternative);
    applyEnvelope(options.envelope, message);
    EMAIL_MultiPart textPart;
    EMAIL_MultiPart calendarPart;
    const QString path = QFile::decodeName(options.calendar.c_str());
    if (EMAIL_MIME::getIcsPart(path, text, method, &textPart, &calendarPart) != 0) {
        session.complain(options.calendar, "cannot be read");
        return;
    }
    // Calendars are utf-8 unless they say otherwise (RFC 5545, section 3.1.4).
    calendarPart.setCharset(CHARSET_UTF_8);
    for (EMAIL_MultiPart* part : {&textPart, &calendarPart}) {
        part->setAttSize(-1);
        message.addMultiPart(*part, -1);
    }
    writeNewMessage(message, options.envelope.out, calendar.size(), session);
}

} // namespace

void addInvite(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<InviteOptions>();
    CLI::App* command = addCommand(
        tool, "invite", "Write a message that carries a meeting invitation",
        "The message holds the text and the calendar as alternatives. The method is the\n"
        "calendar's own, or REQUEST.\n"
        "\n"
        "Example:\n"
        "  tarvomime invite --from mira@a.example --to joern@b.example \\\n"
        "    --subject 'Treffen' --text 'Passt das?' --ics meeting.ics --out mail.eml");
    addEnvelope(*command, options->envelope);
    command->add_option("--ics", options->calendar, "The calendar file")
        ->required()
        ->type_name("FILE");
    command->add_option("--method", options->method, "REQUEST, REPLY, CANCEL, ...")
        ->type_name("NAME")
        ->check(headerValueProblem);
    command->callback([options, &session] { invite(*options, session); });
}

} // namespace tarvomime::tool
