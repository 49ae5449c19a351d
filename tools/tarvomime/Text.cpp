// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/MessageText.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_MIME.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace tarvomime::tool {

namespace {

struct TextOptions
{
    std::string file;
    int charset = CHARSET_UTF_8;
};

void printText(const TextOptions& options, Session& session)
{
    const InputFile file(options.file);
    if (!file.isOpen()) {
        session.complain(options.file, file.problem());
        return;
    }
    EMAIL_MIME message;
    parseStored(file, *message.mMessage);
    QString text;
    if (!readMessageText(message, options.charset, text))
        session.complain(options.file, "its text cannot be read");
    else if (text.isEmpty())
        session.complain(options.file, "has no message text");
    else
        session.print(printableText(text) + (text.endsWith('\n') ? "" : "\n"));
}

} // namespace

void addText(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<TextOptions>();
    CLI::App* command = addCommand(tool, "text", "Print the text of a message",
                                   "The text is decoded, printed in utf-8 with plain line feeds,\n"
                                   "and control characters in it are shown as escapes.\n"
                                   "\n"
                                   "Example:\n"
                                   "  tarvomime text mail.eml --charset koi8-u");
    addFile(*command, options->file);
    addCharset(*command, options->charset);
    command->callback([options, &session] { printText(*options, session); });
}

} // namespace tarvomime::tool
