// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Json.h"
#include "tools/tarvomime/LintFindings.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StoredMessage.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_Util.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <algorithm>
#include <memory>

namespace tarvomime::tool {

namespace {

// Each level is read through once more: a nest of thousands would take its square.
constexpr int kDeepestExamined = 100;

struct LintOptions
{
    std::vector<std::string> files;
    bool json = false;
    int charset = CHARSET_UTF_8;
};

std::vector<std::string> sortedBoundaries(const PartTree& tree)
{
    std::vector<std::string> boundaries;
    for (const Part& part : tree.parts()) {
        const EMAIL_ContentType* type = part.entity->mHeader->getContentType();
        if (type != nullptr && !type->mBoundary.isEmpty())
            boundaries.emplace_back(type->mBoundary.view());
    }
    std::sort(boundaries.begin(), boundaries.end());
    return boundaries;
}

std::vector<Finding> examine(const InputFile& file, int charset)
{
    EMAIL_Message message;
    parseRanges(file, message);
    const PartTree tree(message, file);
    const std::vector<std::string> boundaries = sortedBoundaries(tree);
    std::vector<Finding> findings;
    bool tooDeep = false;
    int index = 0;
    for (const Part& part : tree.parts()) {
        const Examination examination{file, *part.entity, tree.numberOf(index++), charset,
                                      findings};
        examineFields(examination);
        tooDeep = tooDeep || part.depth > kDeepestExamined;
        if (part.depth > kDeepestExamined)
            continue;
        examineBoundaries(examination, boundaries);
        if (!part.hasParts)
            examineCharset(examination);
    }
    if (tooDeep)
        findings.push_back({"too-deep",
                            {},
                            QString("parts below level %1 were looked at by their headers only")
                                .arg(kDeepestExamined + 1)});
    return findings;
}

QByteArray lineFor(const std::string& path, const Finding& finding)
{
    QByteArray line = printableLine(path) + ": ";
    if (!finding.part.isEmpty())
        line += "part " + finding.part + ": ";
    line += printableLine(finding.explanation);
    if (finding.length > 0)
        line += " (" + QByteArray::number(finding.length) + " bytes at " +
                QByteArray::number(finding.offset) + ')';
    return line + " [" + finding.code + "]\n";
}

QByteArray jsonFor(const std::string& path, const std::vector<Finding>& findings)
{
    QJsonArray array;
    for (const Finding& finding : findings) {
        QJsonObject object{{"code", finding.code}, {"explanation", finding.explanation}};
        if (!finding.part.isEmpty())
            object.insert("part", QString::fromLatin1(finding.part));
        if (finding.length > 0) {
            object.insert("offset", finding.offset);
            object.insert("length", finding.length);
        }
        array.append(object);
    }
    return compactJson({{"file", jsonPath(path)}, {"findings", array}}) + '\n';
}

void lint(const LintOptions& options, Session& session)
{
    for (const std::string& path : options.files) {
        if (!session.isOutputOpen())
            return;
        const InputFile file(path);
        if (!file.isOpen()) {
            session.complain(path, file.problem());
            continue;
        }
        const std::vector<Finding> findings = examine(file, options.charset);
        if (options.json)
            session.print(jsonFor(path, findings));
        else
            for (const Finding& finding : findings)
                session.print(lineFor(path, finding));
    }
}

} // namespace

void addLint(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<LintOptions>();
    CLI::App* command =
        addCommand(tool, "lint", "Name what a careful reader of messages should know",
                   "Findings do not change the exit status. The word in brackets is one of:\n"
                   "  bytes-in-no-part      bytes that no reader of the parts ever sees\n"
                   "  no-boundary, no-delimiter, no-closing-delimiter\n"
                   "                        a container that is not built as it should be\n"
                   "  boundary-near-miss    a line that almost is a delimiter, or more than one\n"
                   "  duplicate-field       two Content-Type or Content-Disposition fields\n"
                   "  unsafe-name           a file name that tries to escape or to deceive\n"
                   "  encoded-line-break    an encoded word that holds a line break\n"
                   "  private-field         a field of the mail store on mail from elsewhere\n"
                   "  unknown-charset, wrong-charset\n"
                   "                        a charset label that is not known or does not fit\n"
                   "  too-deep              parts nested too deep to be looked at\n"
                   "\n"
                   "Example:\n"
                   "  tarvomime lint *.eml\n"
                   "  tarvomime lint --json mail.eml | jq '.findings[].code'");
    addFiles(*command, options->files);
    addJson(*command, options->json);
    addCharset(*command, options->charset);
    command->callback([options, &session] { lint(*options, session); });
}

} // namespace tarvomime::tool
