// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Json.h"
#include "tools/tarvomime/PartFacts.h"
#include "tools/tarvomime/PartTree.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "tools/tarvomime/TreeDrawing.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_Util.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace tarvomime::tool {

namespace {

struct TreeOptions
{
    std::vector<std::string> files;
    bool json = false;
    int charset = CHARSET_UTF_8;
};

QByteArray partAsJson(const PartTree& tree, int index, int charset)
{
    const Part& part = tree.parts()[static_cast<std::size_t>(index)];
    QJsonObject object = PartFacts(*part.entity, charset).toJson();
    const QByteArray number = tree.numberOf(index);
    if (!number.isEmpty())
        object.insert("number", QString::fromLatin1(number));
    object.insert("level", part.depth + 1);
    return compactJson(object);
}

/// The parts form a flat list: nested objects would be as deep as the message, and programs that
/// read JSON stop at some depth.
void printJson(const std::string& path, const PartTree& tree, int charset, Session& session)
{
    const QByteArray file = compactJson({{"file", jsonPath(path)}});
    session.print(file.left(file.size() - 1) + ",\"parts\":[");
    const int count = static_cast<int>(tree.parts().size());
    for (int index = 0; index < count && session.isOutputOpen(); ++index)
        session.print((index == 0 ? QByteArray() : ",") + partAsJson(tree, index, charset));
    session.print("]}\n");
}

void printTrees(const TreeOptions& options, Session& session)
{
    for (const std::string& path : options.files) {
        if (!session.isOutputOpen())
            return;
        const InputFile file(path);
        if (!file.isOpen()) {
            session.complain(path, file.problem());
            continue;
        }
        EMAIL_Message message;
        parseRanges(file, message);
        const PartTree tree(message, file);
        if (options.json)
            printJson(path, tree, options.charset, session);
        else
            session.print(printableLine(path) + '\n' + drawnTree(tree, options.charset));
    }
}

} // namespace

void addTree(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<TreeOptions>();
    CLI::App* command = addCommand(
        tool, "tree", "Print the part tree of messages",
        "A part's number says the way to it: the message itself is 1, the second below it 1.2,\n"
        "a message enclosed in that 1.2.1. Sizes are those after decoding, estimated for\n"
        "base64. With --json, a line of JSON a file; its parts come in reading order.\n"
        "\n"
        "Example:\n"
        "  tarvomime tree mail.eml\n"
        "  tarvomime tree --json *.eml | jq '.parts[].type'");
    addFiles(*command, options->files);
    addJson(*command, options->json);
    addCharset(*command, options->charset);
    command->callback([options, &session] { printTrees(*options, session); });
}

} // namespace tarvomime::tool
