// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Message.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace tarvomime::tool {

namespace {

struct HeadersOptions
{
    std::vector<std::string> files;
    bool raw = false;
    bool unfold = false;
};

/// Without the line ends of folds; the white space behind them stays (RFC 5322, section 2.2.3).
QByteArray unfolded(const QCString& body)
{
    QByteArray out = body;
    return out.replace("\r", "").replace("\n", "");
}

void printFields(const EMAIL_Header& header, bool unfold, Session& session)
{
    for (const EMAIL_Field* field : header.mFields) {
        const QByteArray body = unfold ? unfolded(field->mBody) : QByteArray(field->mBody);
        session.print(printableLine(field->mName.view()) + ": " +
                      printableText({body.constData(), static_cast<std::size_t>(body.size())}) +
                      '\n');
    }
}

void printFile(const std::string& path, const HeadersOptions& options, Session& session)
{
    const InputFile file(path);
    if (!file.isOpen()) {
        session.complain(path, file.problem());
        return;
    }
    EMAIL_Message message;
    parseRanges(file, message);
    if (options.raw) {
        session.print(message.mHeader->mString);
        return;
    }
    if (options.files.size() > 1)
        session.print("==> " + printableLine(path) + " <==\n");
    printFields(*message.mHeader, options.unfold, session);
}

void printHeaders(const HeadersOptions& options, Session& session)
{
    for (const std::string& path : options.files) {
        if (!session.isOutputOpen())
            return;
        printFile(path, options, session);
    }
}

} // namespace

void addHeaders(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<HeadersOptions>();
    CLI::App* command =
        addCommand(tool, "headers", "Print the header fields of messages",
                   "Fields are printed as they are stored, folds included; control characters\n"
                   "are shown as escapes.\n"
                   "\n"
                   "Example:\n"
                   "  tarvomime headers --unfold mail.eml");
    addFiles(*command, options->files);
    CLI::Option* raw = command->add_flag("--raw", options->raw, "Print the header's bytes as is");
    command->add_flag("--unfold", options->unfold, "Print each field on one line")->excludes(raw);
    command->callback([options, &session] { printHeaders(*options, session); });
}

} // namespace tarvomime::tool
