// SPDX-License-Identifier: MIT
#include "tools/tarvomime/BodyOptions.h"

#include "extra/CharsetText.h"
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Attachment.h"
#include "tools/tarvomime/Envelope.h"
#include "tools/tarvomime/InputFile.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/StandardInput.h"

#include <algorithm>

namespace tarvomime::tool {

namespace {

std::string fileNameProblem(const std::string& path)
{
    return headerValueProblem(path.substr(path.rfind('/') + 1));
}

QString withLineFeeds(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

bool readHtmlOption(const BodyOptions& options, QString& html, Session& session)
{
    QByteArray bytes;
    if (options.html == "-") {
        if (!readStandardInput(bytes, session))
            return false;
    } else {
        const InputFile file(options.html);
        if (!file.isOpen()) {
            session.complain(options.html, file.problem());
            return false;
        }
        bytes = QByteArray(file.data(), file.size());
    }
    html = withLineFeeds(tarvomime::readText(bytes, QByteArray()).text);
    return true;
}

// The name by which HTML refers to a file: one that needs no escapes in "cid:NAME".
QString contentIdOf(const std::string& path)
{
    QString name = QString::fromUtf8(path.substr(path.rfind('/') + 1).c_str());
    for (QChar& c : name) {
        const bool isPlain = c.unicode() < 0x80 && (c.isLetterOrNumber() || c == '.' || c == '-');
        if (!isPlain)
            c = '_';
    }
    return '<' + name + '>';
}

bool addFile(const std::string& path, const QString& contentId, QList<EMAIL_MultiPart>& parts,
             Session& session)
{
    const InputFile file(path, Sizes::OrEmpty);
    if (!file.isOpen()) {
        session.complain(path, file.problem());
        return false;
    }
    EMAIL_MultiPart part;
    attachFile(file, part);
    if (!contentId.isEmpty()) {
        part.setDispType(0);
        part.setID(contentId);
    }
    parts.append(part);
    return true;
}

bool addInlineFiles(const BodyOptions& options, NewBody& body, Session& session)
{
    QStringList ids;
    for (const std::string& path : options.inlineFiles) {
        const QString id = contentIdOf(path);
        if (ids.contains(id)) {
            session.refuse("two inline files are called " + id.toStdString());
            return false;
        }
        ids.append(id);
        if (!addFile(path, id, body.inlineParts, session))
            return false;
    }
    return true;
}

} // namespace

void addTextOption(Arguments& arguments, BodyOptions& options)
{
    arguments.option("--text", options.text, "TEXT",
                     "The text; \"-\" reads it from standard input");
}

void addHtmlOptions(Arguments& arguments, BodyOptions& options)
{
    arguments.option("--html", options.html, "FILE", "The text as HTML, from a file or \"-\"");
    arguments.listOption("--inline", options.inlineFiles, "FILE",
                         "Files that the HTML refers to as \"cid:NAME\"", fileNameProblem);
    arguments.need("--inline", "--html");
}

void addAttachOption(Arguments& arguments, BodyOptions& options)
{
    arguments.listOption("--attach", options.attachments, "FILE", "Files to attach",
                         fileNameProblem);
}

bool readTextOption(const BodyOptions& options, QString& text, Session& session)
{
    QByteArray bytes = QByteArray::fromStdString(options.text);
    if (options.text == "-") {
        bytes.clear();
        if (!readStandardInput(bytes, session))
            return false;
    }
    text = withLineFeeds(QString::fromUtf8(bytes));
    return true;
}

bool readBody(const BodyOptions& options, NewBody& body, Session& session)
{
    if (options.text == "-" && options.html == "-") {
        session.refuse("--text and --html cannot both be read from standard input");
        return false;
    }
    const bool hasText = options.html.empty() || !options.text.empty();
    if ((hasText && !readTextOption(options, body.text, session)) ||
        (!options.html.empty() && !readHtmlOption(options, body.html, session)) ||
        !addInlineFiles(options, body, session))
        return false;
    return std::all_of(
        options.attachments.begin(), options.attachments.end(),
        [&](const std::string& path) { return addFile(path, {}, body.attachments, session); });
}

qint64 expectedSize(const NewBody& body)
{
    qint64 size = body.text.size() + body.html.size();
    for (const QList<EMAIL_MultiPart>& parts : {body.inlineParts, body.attachments}) {
        // Most of them are going to be base64: 78 characters for 57 bytes.
        for (const EMAIL_MultiPart& part : parts)
            size += part.mBodyLength * qint64(78) / 57;
    }
    return size;
}

} // namespace tarvomime::tool
