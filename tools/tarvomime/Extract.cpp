// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Extraction.h"
#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/Session.h"

#include <memory>

namespace tarvomime::tool {

namespace {

void extractAll(const ExtractOptions& options, TargetFolder* folder, Session& session)
{
    MailSource source(options.inputs, session);
    MailPlace place;
    while (source.next(place)) {
        Mail mail(place, options.inputs.charset);
        Extraction(mail, options, folder, session).run();
    }
}

void extract(const ExtractOptions& options, Session& session)
{
    const InterruptGuard guard;
    if (options.out == "-" && options.part.empty()) {
        session.refuse("standard output takes one part: --part says which");
    } else if (options.out == "-") {
        extractAll(options, nullptr, session);
    } else {
        Result<TargetFolder> folder = TargetFolder::open(QByteArray(options.out.c_str()));
        if (folder)
            extractAll(options, &*folder, session);
        else
            session.complain(options.out, folder.reason().toStdString());
    }
    if (wasInterrupted())
        session.setInterrupted();
}

} // namespace

void addExtract(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ExtractOptions>();
    Arguments arguments(
        tool, "extract", "Write the decoded bodies of parts into a folder",
        "Without --part and --all everything is written that is no text to show, no other\n"
        "form of it and no signature: the attachments, and the images of HTML. Part numbers\n"
        "are those of 'tree'. Names that messages ask for are made safe, existing files are\n"
        "never overwritten, and nothing is written outside the folder. Each file written is\n"
        "printed.\n"
        "\n"
        "Example:\n"
        "  tarvomime extract mail.eml --out attachments\n"
        "  tarvomime extract mail.eml --part=1.2\n"
        "  tarvomime extract mail.eml --part=1.2 --out - | file -");
    addMailInputs(arguments, options->inputs);
    arguments.charset(options->inputs.charset);
    arguments.option("--part", options->part, "NUMBER", "Write this part only");
    arguments.flag("--all", options->all, "Write every part that holds bytes");
    arguments.exclude("--all", "--part");
    arguments.option("--out", options->out, "DIR",
                     "The folder to write into (default: this one); \"-\" writes the part to "
                     "standard output");
    arguments.run([options, &session] { extract(*options, session); });
}

} // namespace tarvomime::tool
