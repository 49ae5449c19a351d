// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/Json.h"
#include "tools/tarvomime/MailFiles.h"
#include "tools/tarvomime/Mbox.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/ProgressBar.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_MIME.h"

#include <CLI/CLI.hpp>
#include <QDateTime>
#include <memory>

namespace tarvomime::tool {

namespace {

struct ListOptions
{
    std::vector<std::string> paths;
    bool json = false;
    int charset = CHARSET_UTF_8;
};

/// Where a message lies: the file, and the bytes in it.
struct Place
{
    const InputFile& file;
    int offset;
    int length;
    bool isInMbox;
};

QString column(const QString& text, int width)
{
    if (text.size() > width)
        return text.left(width - 1) + QChar(0x2026);
    return text.leftJustified(width);
}

/// "@2" for two attachments, "!" for a message that was not downloaded completely.
QString marks(const EMAIL_MIME& message)
{
    const QString attachments =
        message.hasAttachment() ? '@' + QString::number(message.getAttachNum()) : QString();
    return message.isCompleteMessage() ? attachments : attachments + '!';
}

QByteArray lineFor(const EMAIL_MIME& message, int charset)
{
    const QString from = readableAddresses(message.getFrom(charset));
    const QString line = column(message.getDateStr(), 15) + "  " + column(from, 30) + "  " +
                         column(marks(message), 5) + "  " +
                         message.getSubject(charset).simplified();
    return printableLine(line);
}

QByteArray jsonFor(const EMAIL_MIME& message, const Place& place, int charset)
{
    QJsonObject object{{"file", jsonPath(place.file.path())},
                       {"size", place.length},
                       {"displayDate", message.getDateStr()},
                       {"from", readableAddresses(message.getFrom(charset))},
                       {"to", readableAddresses(message.getTo(charset))},
                       {"subject", message.getSubject(charset)},
                       {"hasAttachment", message.hasAttachment()},
                       {"attachments", message.getAttachNum()},
                       {"complete", message.isCompleteMessage()}};
    if (place.isInMbox)
        object.insert("offset", place.offset);
    const unsigned long date = message.getDate();
    if (date != 0) {
        const QDateTime moment = QDateTime::fromSecsSinceEpoch(qint64(date), Qt::UTC);
        object.insert("date", moment.toString(Qt::ISODate));
    }
    return compactJson(object);
}

void listMessage(const Place& place, const ListOptions& options, Session& session)
{
    EMAIL_MIME message;
    parseRange(place.file, place.offset, place.length, *message.mMessage);
    session.print((options.json ? jsonFor(message, place, options.charset)
                                : lineFor(message, options.charset)) +
                  '\n');
}

void listFile(const MailFile& found, const ListOptions& options, ProgressBar& bar, Session& session)
{
    const InputFile file(found.path);
    if (!file.isOpen()) {
        session.complain(found.path, file.problem());
        bar.advance(found.size);
        return;
    }
    MboxReader messages(file.bytes());
    std::string_view message;
    while (session.isOutputOpen() && !wasInterrupted() && messages.next(message)) {
        const int offset = static_cast<int>(message.data() - file.data());
        const int length = static_cast<int>(message.size());
        listMessage({file, offset, length, messages.isMbox()}, options, session);
        bar.advance(length);
    }
}

void list(const ListOptions& options, Session& session)
{
    const InterruptGuard guard;
    const std::vector<MailFile> files = findMailFiles(options.paths, session);
    qint64 total = 0;
    for (const MailFile& file : files)
        total += file.size;
    ProgressBar bar("Reading", total);
    for (const MailFile& file : files) {
        if (!session.isOutputOpen() || wasInterrupted())
            break;
        listFile(file, options, bar, session);
    }
    if (wasInterrupted())
        session.setInterrupted();
}

} // namespace

void addList(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ListOptions>();
    CLI::App* command = addCommand(
        tool, "list", "Print a line for each message of files, folders, Maildirs and mboxes",
        "A line holds date, sender, marks and subject: \"@2\" marks two attachments, \"!\" a\n"
        "message that is not complete. With --json it is one object, so that any tool that\n"
        "splits work can spread a large mail store over many processes.\n"
        "\n"
        "Example:\n"
        "  tarvomime list ~/Maildir\n"
        "  tarvomime list --json archive.mbox | jq -r 'select(.attachments > 3) | .subject'");
    command->add_option("PATH", options->paths, "Files, folders, Maildirs and mboxes")
        ->required()
        ->type_name("");
    addJson(*command, options->json);
    addCharset(*command, options->charset);
    command->callback([options, &session] { list(*options, session); });
}

} // namespace tarvomime::tool
