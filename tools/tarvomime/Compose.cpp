// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Attachment.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Envelope.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Session.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_MultiPart.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

namespace tarvomime::tool {

namespace {

constexpr int kPlain = 1;

struct ComposeOptions
{
    Envelope envelope;
    std::vector<std::string> attachments;
};

std::string attachmentNameProblem(const std::string& path)
{
    return headerValueProblem(path.substr(path.rfind('/') + 1));
}

bool isAscii(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

/// Plain text without attachments is the message's own body.
void composeText(const ComposeOptions& options, const QString& text, EMAIL_MIME& message)
{
    message.setType(TYPE_TEXT);
    message.setSubType(kPlain);
    message.setCharset(options.envelope.charset);
    applyEnvelope(options.envelope, message);
    message.setBody(text, true);
}

void addTextPart(const ComposeOptions& options, const QString& text, EMAIL_MIME& message)
{
    EMAIL_MultiPart part;
    part.setType(TYPE_TEXT);
    part.setSubType(kPlain);
    part.setAttSize(-1);
    const bool ascii = isAscii(text);
    part.setCharset(ascii ? int(CHARSET_US_ASCII) : options.envelope.charset);
    if (ascii)
        part.setCTE(CTE_7BIT);
    part.setBody(text, true);
    message.addMultiPart(part, -1);
}

/// The sum of the files' sizes in base64, or -1 after a complaint.
qint64 addAttachments(const ComposeOptions& options, EMAIL_MIME& message, Session& session)
{
    qint64 size = 0;
    for (const std::string& path : options.attachments) {
        const InputFile file(path, EmptyFile::Accepted);
        if (!file.isOpen()) {
            session.complain(path, file.problem());
            return -1;
        }
        EMAIL_MultiPart part;
        attachFile(file, part);
        message.addMultiPart(part, -1);
        size += file.size() * qint64(78) / 57;
    }
    return size;
}

void compose(const ComposeOptions& options, Session& session)
{
    std::string bytes;
    if (!readText(options.envelope, bytes, session))
        return;
    const QString text = QString::fromUtf8(bytes.c_str(), static_cast<int>(bytes.size()));
    EMAIL_MIME message;
    qint64 size = text.size();
    if (options.attachments.empty()) {
        composeText(options, text, message);
    } else {
        message.setType(TYPE_MULTIPART);
        message.setSubType(SUBTYPE_MIXED);
        applyEnvelope(options.envelope, message);
        addTextPart(options, text, message);
        size = addAttachments(options, message, session);
    }
    if (size >= 0)
        writeNewMessage(message, options.envelope.out, size, session);
}

} // namespace

void addCompose(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ComposeOptions>();
    CLI::App* command = addCommand(
        tool, "compose", "Write a new message",
        "Attachments stay in their files until the message is written. Values with line\n"
        "breaks are refused: they would bring header fields of their own.\n"
        "\n"
        "Example:\n"
        "  tarvomime compose --from 'Mira <mira@a.example>' --to joern@b.example \\\n"
        "    --subject 'Fotos' --text 'Anbei.' --attach 1.jpg 2.jpg --out mail.eml");
    addEnvelope(*command, options->envelope);
    command->add_option("--attach", options->attachments, "Files to attach")
        ->type_name("FILE")
        ->check(attachmentNameProblem);
    addCharset(*command, options->envelope.charset);
    command->callback([options, &session] { compose(*options, session); });
}

} // namespace tarvomime::tool
