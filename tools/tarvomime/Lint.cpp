// SPDX-License-Identifier: MIT
#include "extra/MessageFindings.h"
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/PlaceJson.h"
#include "tools/tarvomime/Printable.h"
#include "tools/tarvomime/Session.h"

#include <QJsonArray>
#include <algorithm>
#include <memory>

namespace tarvomime::tool {

namespace {

struct LintOptions
{
    MailInputs inputs;
    bool json = false;
    bool strict = false;
};

QByteArray lineFor(const std::string& name, const MessageFinding& finding)
{
    QByteArray line = printableLine(name) + ": " + severityName(finding.severity) + ": ";
    if (!finding.part.isEmpty())
        line += "part " + finding.part + ": ";
    line += printableLine(finding.text);
    if (finding.length > 0)
        line += " (" + QByteArray::number(finding.length) +
                (finding.length == 1 ? " byte at " : " bytes at ") +
                QByteArray::number(finding.offset) + ')';
    return line + " [" + findingName(finding.kind) + "]\n";
}

QJsonObject objectFor(const MessageFinding& finding)
{
    QJsonObject object{{"code", QString::fromLatin1(findingName(finding.kind))},
                       {"severity", QString::fromLatin1(severityName(finding.severity))},
                       {"explanation", finding.text}};
    if (!finding.part.isEmpty())
        object.insert("part", QString::fromLatin1(finding.part));
    if (finding.length > 0) {
        object.insert("offset", finding.offset);
        object.insert("length", finding.length);
    }
    return object;
}

QByteArray jsonFor(const MailPlace& place, const QList<MessageFinding>& findings)
{
    QJsonArray array;
    for (const MessageFinding& finding : findings)
        array.append(objectFor(finding));
    QJsonObject object = placeAsJson(place);
    object.insert("findings", array);
    return compactJson(object) + '\n';
}

void print(const MailPlace& place, const QList<MessageFinding>& findings, bool json,
           Session& session)
{
    if (json)
        session.print(jsonFor(place, findings));
    else
        for (const MessageFinding& finding : findings)
            session.print(lineFor(place.name(), finding));
}

bool isMoreThanNote(const MessageFinding& finding)
{
    return finding.severity != FindingSeverity::Note;
}

void lint(const LintOptions& options, Session& session)
{
    MailSource source(options.inputs, session);
    MailPlace place;
    while (source.next(place)) {
        const QList<MessageFinding> findings =
            messageFindings(bytesAt(place), fallbackCharset(options.inputs.charset));
        print(place, findings, options.json, session);
        if (options.strict && std::any_of(findings.begin(), findings.end(), isMoreThanNote))
            session.setFound();
    }
}

} // namespace

void addLint(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<LintOptions>();
    Arguments arguments(
        tool, "lint", "Name what a careful reader of messages should know",
        "A finding is an error (readers lose something, differ, or are deceived), a\n"
        "warning (a broken rule that readers cope with) or a note. Findings change the\n"
        "exit status only with --strict: 3 for errors and warnings. The word in brackets\n"
        "is one of:\n"
        "  bytes-in-no-part      bytes that no reader of the parts ever sees\n"
        "  no-boundary, no-delimiter, no-closing-delimiter\n"
        "                        a container that is not built as it should be\n"
        "  boundary-near-miss    a line that almost is a delimiter, or more than one\n"
        "  duplicate-field       a field that may stand once and stands again\n"
        "  unsafe-name           a file name that tries to escape or to deceive\n"
        "  encoded-line-break    an encoded word that holds a line break\n"
        "  private-field         a field of the mail store on mail from elsewhere\n"
        "  unknown-charset, wrong-charset\n"
        "                        a charset label that is not known or does not fit\n"
        "  unknown-encoding      a transfer encoding that is not known\n"
        "  cut-base64            base64 that ends inside a group of four\n"
        "  nul-byte, lone-cr, long-line\n"
        "                        a NUL, a CR without LF, a line above 998 bytes\n"
        "  mark-before-header    a byte order mark or an mbox's separator in front\n"
        "  unfinished-header     a header that no empty line ends\n"
        "  method-mismatch       a calendar whose METHOD its Content-Type contradicts\n"
        "  too-deep              parts nested too deep to be looked at\n"
        "\n"
        "Example:\n"
        "  tarvomime lint *.eml\n"
        "  tarvomime lint --strict mail.eml || echo 'do not send this'\n"
        "  tarvomime lint --json mail.eml | jq '.findings[].code'");
    addMailInputs(arguments, options->inputs);
    arguments.charset(options->inputs.charset);
    arguments.json(options->json);
    arguments.flag("--strict", options->strict,
                   "Exit with status 3 when there is an error or a warning");
    arguments.run([options, &session] { lint(*options, session); });
}

} // namespace tarvomime::tool
