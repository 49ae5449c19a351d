// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/MessageWriter.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_Message.h"

#include <memory>

namespace tarvomime::tool {

namespace {

struct ReassembleOptions
{
    std::string file;
    std::string out;
};

void reassemble(const ReassembleOptions& options, Session& session)
{
    const InputFile file(options.file);
    if (!file.isOpen()) {
        session.complain(options.file, file.problem());
        return;
    }
    EMAIL_Message message;
    // In memory no line end is added to a body, so that the result stays what it is when it is
    // reassembled again.
    parseInMemory(file, message);
    writeMessage(message, options.out, file.size(), session);
}

} // namespace

void addReassemble(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ReassembleOptions>();
    Arguments arguments(
        tool, "reassemble", "Parse a message, assemble it again and write it",
        "The message is written as the library assembles it: From, To, Date and Subject\n"
        "first, then the other fields; text outside the parts is dropped.\n"
        "\n"
        "Example:\n"
        "  tarvomime reassemble mail.eml --out again.eml");
    arguments.value("FILE", options->file, "Message file");
    arguments.out(options->out);
    arguments.run([options, &session] { reassemble(*options, session); });
}

} // namespace tarvomime::tool
