// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/MessageText.h"
#include "tools/tarvomime/PartTree.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "tools/tarvomime/TreeDrawing.h"
#include "utility/EMAIL_MIME.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace tarvomime::tool {

namespace {

struct ShowOptions
{
    std::vector<std::string> files;
    int charset = CHARSET_UTF_8;
};

QByteArray headerLine(const char* name, const QString& value)
{
    return value.isEmpty() ? QByteArray()
                           : QByteArray(name) + ": " + printableLine(value.simplified()) + '\n';
}

QByteArray addressLine(const char* name, const QString& addresses)
{
    return headerLine(name, readableAddresses(addresses));
}

/// The header fields that a reader wants to see, decoded.
QByteArray readerHeader(const EMAIL_MIME& message, int charset)
{
    return addressLine("From", message.getFrom(charset)) +
           addressLine("To", message.getTo(charset)) + addressLine("Cc", message.getCc(charset)) +
           addressLine("Reply-To", message.getReplyTo(charset)) +
           headerLine("Date", message.getRawDateStr()) +
           headerLine("Subject", message.getSubject(charset)) +
           (message.isCompleteMessage() ? "" : "Incomplete: a part of it was left on the server\n");
}

QByteArray shownText(EMAIL_MIME& message, const std::string& path, int charset, Session& session)
{
    QString text;
    if (!readMessageText(message, charset, text))
        session.complain(path, "its text cannot be read");
    if (text.isEmpty())
        return "(no message text)\n";
    return printableText(text) + (text.endsWith('\n') ? "" : "\n");
}

void showFile(const std::string& path, const ShowOptions& options, Session& session)
{
    const InputFile file(path);
    if (!file.isOpen()) {
        session.complain(path, file.problem());
        return;
    }
    EMAIL_MIME message;
    parseStored(file, *message.mMessage);
    if (options.files.size() > 1)
        session.print("==> " + printableLine(path) + " <==\n");
    session.print(readerHeader(message, options.charset) + '\n');
    session.print(drawnTree(PartTree(*message.mMessage, file), options.charset) + '\n');
    session.print(shownText(message, path, options.charset, session));
}

void show(const ShowOptions& options, Session& session)
{
    for (const std::string& path : options.files) {
        if (!session.isOutputOpen())
            return;
        showFile(path, options, session);
    }
}

} // namespace

void addShow(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ShowOptions>();
    CLI::App* command =
        addCommand(tool, "show", "Show messages: decoded header, part tree and text",
                   "Control characters in them are shown as escapes.\n"
                   "\n"
                   "Example:\n"
                   "  tarvomime show mail.eml");
    addFiles(*command, options->files);
    addCharset(*command, options->charset);
    command->callback([options, &session] { show(*options, session); });
}

} // namespace tarvomime::tool
