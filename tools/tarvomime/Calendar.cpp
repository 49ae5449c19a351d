// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/PartFacts.h"
#include "tools/tarvomime/PartTree.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"

#include <CLI/CLI.hpp>
#include <QTemporaryFile>
#include <memory>
#include <unistd.h>

namespace tarvomime::tool {

namespace {

/// The calendar parts that the library does not look for: those outside the shapes of an
/// invitation, such as one that was attached.
int writeAttachedCalendars(EMAIL_Message& message, const InputFile& file, QFile* out)
{
    const PartTree tree(message, file);
    for (const Part& part : tree.parts()) {
        const EMAIL_Body& body = *part.entity->mBody;
        if (PartFacts(*part.entity, CHARSET_UTF_8).type != QLatin1String("text/calendar"))
            continue;
        const int cte = part.entity->mHeader->getCte();
        const char* start = body.mInMemory ? body.mString.begin() : file.data() + body.mOffset;
        const int length = body.mInMemory ? body.mString.length() : body.mLength;
        if (EMAIL_Util::decFromCTE(start, length, out, cte) != 0)
            return -1;
    }
    return 0;
}

/// A terminal gets the text made harmless, everything else the bytes as they are.
void printCalendar(const QByteArray& calendar, Session& session)
{
    if (isatty(STDOUT_FILENO) == 1)
        session.print(printableText({calendar.constData(), std::size_t(calendar.size())}));
    else
        session.print(calendar);
}

void printCalendars(const std::string& path, Session& session)
{
    const InputFile file(path);
    if (!file.isOpen()) {
        session.complain(path, file.problem());
        return;
    }
    EMAIL_MIME message;
    parseStored(file, *message.mMessage);
    QTemporaryFile collected;
    int status = collected.open() ? message.getICalendar(&collected) : -1;
    if (status == 0 && collected.size() == 0)
        status = writeAttachedCalendars(*message.mMessage, file, &collected);
    if (status != 0)
        session.complain(path, "its calendar cannot be read");
    else if (collected.size() == 0)
        session.complain(path, "has no calendar part");
    else if (collected.seek(0))
        printCalendar(collected.readAll(), session);
}

} // namespace

void addCalendar(CLI::App& tool, Session& session)
{
    const auto file = std::make_shared<std::string>();
    CLI::App* command = addCommand(tool, "calendar", "Print the calendar of a meeting invitation",
                                   "The decoded bytes of the calendar parts are printed, those of\n"
                                   "an invitation or else every one that is attached.\n"
                                   "\n"
                                   "Example:\n"
                                   "  tarvomime calendar invitation.eml > meeting.ics");
    addFile(*command, *file);
    command->callback([file, &session] { printCalendars(*file, session); });
}

} // namespace tarvomime::tool
