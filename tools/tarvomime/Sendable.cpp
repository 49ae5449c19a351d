// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_MIME.h"

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
    Arguments arguments(
        tool, "sendable", "Strip a stored message of what must not be sent",
        "Bcc and the private fields of the mail store (download state, truncation, smart\n"
        "send) are removed from the message and from its parts.\n"
        "\n"
        "Example:\n"
        "  tarvomime sendable draft.eml --out outgoing.eml");
    arguments.value("FILE", options->file, "Message file");
    arguments.out(options->out);
    arguments.run([options, &session] { makeSendable(*options, session); });
}

} // namespace tarvomime::tool
