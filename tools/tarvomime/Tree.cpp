// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Json.h"
#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/PartSummary.h"
#include "tools/tarvomime/PlaceJson.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/Style.h"
#include "tools/tarvomime/TreeDrawing.h"

#include <memory>

namespace tarvomime::tool {

namespace {

struct TreeOptions
{
    MailInputs inputs;
    bool json = false;
    std::string color;
};

// The parts form a flat list: nested objects would be as deep as the message, and programs that
// read JSON stop at some depth.
void printJson(Mail& mail, Session& session)
{
    const MessageContent& content = mail.content();
    const std::vector<int> levels = levelsOfParts(content);
    const QByteArray place = compactJson(placeAsJson(mail.place()));
    session.print(place.left(place.size() - 1) + ",\"parts\":[");
    for (int index = 0; index < content.parts.size() && session.isOutputOpen(); ++index) {
        QJsonObject part = PartSummary(content, index, mail.fallback()).toJson();
        part.insert("level", levels[static_cast<std::size_t>(index)] + 1);
        session.print((index == 0 ? QByteArray() : ",") + compactJson(part));
    }
    session.print("]}\n");
}

void printTrees(const TreeOptions& options, Session& session)
{
    const Style style(options.color);
    MailSource source(options.inputs, session);
    MailPlace place;
    while (source.next(place)) {
        Mail mail(place, options.inputs.charset);
        if (options.json)
            printJson(mail, session);
        else
            session.print(style.heading(printableLine(mail.name())) + '\n' +
                          drawnTree(mail.content(), mail.fallback(), style));
    }
}

} // namespace

void addTree(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<TreeOptions>();
    Arguments arguments(
        tool, "tree", "Print the part tree of messages",
        "A part's number says the way to it: the message itself is 1, the second below it 1.2,\n"
        "a message enclosed in that 1.2.1. Sizes are those after decoding, estimated for\n"
        "base64. With --json, a line of JSON a message; its parts come in reading order.\n"
        "\n"
        "Example:\n"
        "  tarvomime tree mail.eml\n"
        "  tarvomime tree archive.mbox --message 3\n"
        "  tarvomime tree --json *.eml | jq '.parts[].type'");
    addMailInputs(arguments, options->inputs);
    arguments.charset(options->inputs.charset);
    arguments.json(options->json);
    addColor(arguments, options->color);
    arguments.run([options, &session] { printTrees(*options, session); });
}

} // namespace tarvomime::tool
