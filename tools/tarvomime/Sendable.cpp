// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_MIME.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace tarvomime::tool {

namespace {

struct SendableOptions
{
    std::string file;
    std::string out;
};

void makeSendable(const SendableOptions& options, Session& session)
{
    const InputFile file(options.file);
    if (!file.isOpen()) {
        session.complain(options.file, file.problem());
        return;
    }
    EMAIL_MIME message;
    parseStored(file, *message.mMessage);
    message.makeHeaderSendable();
    writeNewMessage(message, options.out, file.size(), session);
}

} // namespace

void addSendable(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<SendableOptions>();
    CLI::App* command = addCommand(
        tool, "sendable", "Strip a stored message of what must not be sent",
        "Bcc and the private fields of the mail store (download state, truncation, smart\n"
        "send) are removed from the message and from its parts.\n"
        "\n"
        "Example:\n"
        "  tarvomime sendable draft.eml --out outgoing.eml");
    addFile(*command, options->file);
    addOut(*command, options->out);
    command->callback([options, &session] { makeSendable(*options, session); });
}

} // namespace tarvomime::tool
