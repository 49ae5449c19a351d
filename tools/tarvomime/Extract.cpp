// SPDX-License-Identifier: MIT
#include "extra/TargetFolder.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/OutputFile.h"
#include "tools/tarvomime/PartFacts.h"
#include "tools/tarvomime/PartTree.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace tarvomime::tool {

namespace {

struct ExtractOptions
{
    std::vector<std::string> files;
    std::string part;
    bool all = false;
    std::string out = ".";
    int charset = CHARSET_UTF_8;
};

/// Decodes the bodies of one message file into the target folder.
class Extraction
{
public:
    Extraction(const InputFile& file, const ExtractOptions& options, TargetFolder& folder,
               Session& session)
        : mFile(file), mOptions(options), mFolder(folder), mSession(session)
    {
        parseRanges(file, mMessage);
        file.release(file.size());
    }

    void run()
    {
        const PartTree tree(mMessage, mFile);
        if (!mOptions.part.empty())
            extractNumber(tree);
        else
            extractMany(tree);
    }

private:
    void extractNumber(const PartTree& tree)
    {
        const int index = tree.find(mOptions.part);
        if (index < 0)
            complain("has no part numbered " + mOptions.part);
        else if (holdsParts(tree, index))
            complain("part " + mOptions.part + " holds parts, no bytes of its own");
        else
            extractPart(tree, index);
    }

    void extractMany(const PartTree& tree)
    {
        // An enclosed message is written whole: its parts are in it.
        int enclosingDepth = -1;
        const int count = static_cast<int>(tree.parts().size());
        for (int index = 0; index < count && !wasInterrupted(); ++index) {
            const Part& part = tree.parts()[static_cast<std::size_t>(index)];
            const bool enclosed = enclosingDepth >= 0 && part.depth > enclosingDepth;
            if (enclosed || holdsParts(tree, index))
                continue;
            enclosingDepth = part.hasParts ? part.depth : -1;
            if (mOptions.all || isAttachment(PartFacts(*part.entity, mOptions.charset)))
                extractPart(tree, index);
        }
    }

    static bool holdsParts(const PartTree& tree, int index)
    {
        const Part& part = tree.parts()[static_cast<std::size_t>(index)];
        return part.entity->mBody->numBodyParts() > 0;
    }

    /// What a reader of mail shows in place is no attachment unless it has a name or says so.
    static bool isAttachment(const PartFacts& facts)
    {
        const bool shown = facts.type == QLatin1String("text/plain") ||
                           facts.type == QLatin1String("text/html") ||
                           facts.type.startsWith(QLatin1String("multipart/"));
        return !shown || facts.disposition == QLatin1String("attachment") ||
               !facts.fileName.isEmpty() || !facts.name.isEmpty();
    }

    static QString fallbackName(const QByteArray& number, const PartFacts& facts)
    {
        const QString name = number.isEmpty() ? "part" : "part-" + QString::fromLatin1(number);
        const QByteArray subtype = facts.type.section('/', 1).toLatin1();
        QString extension;
        EMAIL_Util::getExtionBySubType(EMAIL_Util::subTypeStrToEnum(subtype), extension);
        if (extension.isEmpty() && facts.type.startsWith(QLatin1String("text/")))
            extension = facts.type == QLatin1String("text/html") ? "html" : "txt";
        return extension.isEmpty() ? name : name + '.' + extension;
    }

    void extractPart(const PartTree& tree, int index)
    {
        const EMAIL_Entity& entity = *tree.parts()[static_cast<std::size_t>(index)].entity;
        const PartFacts facts(entity, mOptions.charset);
        const QByteArray number = tree.numberOf(index);
        if (!entity.mHeader->isAttDownloaded()) {
            complain("the part numbered " + number.toStdString() + " was left on the server");
            return;
        }
        const QString wanted = facts.fileName.isEmpty() ? facts.name : facts.fileName;
        WatchedFile target;
        const Result<QString> created = mFolder.create(wanted, target, fallbackName(number, facts));
        if (!created)
            mSession.complain(mOptions.out, created.reason().toStdString());
        else if (decode(entity, target, *created))
            mSession.print(number + "  " + printableLine(mOptions.out) + '/' +
                           printableLine(created->toStdString()) + '\n');
    }

    bool decode(const EMAIL_Entity& entity, WatchedFile& target, const QString& name)
    {
        const EMAIL_Body& body = *entity.mBody;
        ProgressBar bar(name.toStdString(), body.mLength);
        target.setBar(&bar);
        const char* start = mFile.data() + body.mOffset;
        // What was decoded is not needed again: a large attachment must not fill the memory. Every
        // encoding has at least as many bytes as what it stands for.
        qint64 released = 0;
        const auto proceed = [&] {
            if (bar.done() - released >= kReleaseStep) {
                released = bar.done();
                mFile.release(body.mOffset + released);
            }
            return stopWhenInterrupted();
        };
        const int cte = entity.mHeader->getCte();
        const bool whole =
            EMAIL_Util::decFromCTE(start, body.mLength, &target, cte, proceed) == 0 &&
            target.flush();
        if (whole)
            return true;
        (void)mFolder.remove(name); // what stopped the writing is what the user needs to know
        if (!wasInterrupted())
            mSession.complain(mOptions.out + '/' + name.toStdString(),
                              target.errorString().toStdString());
        return false;
    }

    void complain(const std::string& reason) { mSession.complain(mFile.path(), reason); }

    static constexpr qint64 kReleaseStep = 16 << 20;

    const InputFile& mFile;
    const ExtractOptions& mOptions;
    TargetFolder& mFolder;
    Session& mSession;
    EMAIL_Message mMessage;
};

void extract(const ExtractOptions& options, Session& session)
{
    const InterruptGuard guard;
    Result<TargetFolder> folder = TargetFolder::open(QByteArray(options.out.c_str()));
    if (!folder) {
        session.complain(options.out, folder.reason().toStdString());
        return;
    }
    for (const std::string& path : options.files) {
        if (wasInterrupted() || !session.isOutputOpen())
            break;
        const InputFile file(path);
        if (file.isOpen())
            Extraction(file, options, *folder, session).run();
        else
            session.complain(path, file.problem());
    }
    if (wasInterrupted())
        session.setInterrupted();
}

} // namespace

void addExtract(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ExtractOptions>();
    CLI::App* command = addCommand(
        tool, "extract", "Write the decoded bodies of parts into a folder",
        "Without --part and --all the attachments are written: what has a name, says that\n"
        "it is one, or is neither text nor HTML. Part numbers are those of 'tree'. Names\n"
        "that messages ask for are made safe, existing files are never overwritten, and\n"
        "nothing is written outside the folder. Each file written is printed.\n"
        "\n"
        "Example:\n"
        "  tarvomime extract mail.eml --out attachments\n"
        "  tarvomime extract mail.eml --part=1.2");
    addFiles(*command, options->files);
    CLI::Option* part =
        command->add_option("--part", options->part, "Write this part only")->type_name("NUMBER");
    command->add_flag("--all", options->all, "Write every part that holds bytes")->excludes(part);
    command->add_option("--out", options->out, "The folder to write into (default: this one)")
        ->type_name("DIR");
    addCharset(*command, options->charset);
    command->callback([options, &session] { extract(*options, session); });
}

} // namespace tarvomime::tool
