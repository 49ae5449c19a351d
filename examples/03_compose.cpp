// SPDX-License-Identifier: MIT
// Composes a message with attachments. They stay in their files until the message is written, and
// are then encoded block by block: a large one never has to fit into memory.
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <utility/EMAIL_MIME.h>
#include <utility/EMAIL_MultiPart.h>

namespace {

EMAIL_MultiPart textPart(const QString& text)
{
    EMAIL_MultiPart part;
    part.setTypeStr("text");
    part.setSubTypeStr("plain");
    part.setCharset(CHARSET_UTF_8);
    part.setAttSize(-1); // announces nothing: only the mail client's own store needs it
    part.setBody(text, true);
    return part;
}

EMAIL_MultiPart attachment(const QFileInfo& file)
{
    int type = TYPE_UNKNOWN;
    const int subType = EMAIL_Util::getSubtypeByExtion(file.fileName(), type);
    EMAIL_MultiPart part;
    part.setTypeStr("application");
    part.setSubTypeStr("octet-stream");
    if (subType != 0) {
        part.setType(type);
        part.setSubType(subType);
    }
    part.setCharset(CHARSET_UTF_8); // of the name
    part.setName(file.fileName());
    part.setDispFileName(file.fileName());
    part.setDispType(1);
    part.setAttSize(-1);
    part.setCTE(CTE_BASE64);
    part.setBodyInfo(file.filePath(), 0, int(file.size()), false);
    return part;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s MESSAGE ATTACHMENT...\n", argv[0]);
        return 2;
    }
    EMAIL_MIME message;
    message.setTypeStr("multipart");
    message.setSubTypeStr("mixed");
    message.setDefaultFileds(); // also makes the boundary
    message.setFrom(QString::fromUtf8("Jörn Aßmann <joern@garten.example>"));
    message.setTo("mira@garten.example");
    message.setSubject(QString::fromUtf8("Lageplan fürs Gewächshaus"));
    message.setDate(0); // now
    message.addMultiPart(textPart(QString::fromUtf8("Der Plan hängt an.")), -1);
    for (int i = 2; i < argc; ++i)
        message.addMultiPart(attachment(QFileInfo(QFile::decodeName(argv[i]))), -1);

    QFile file(QFile::decodeName(argv[1]));
    if (!file.open(QIODevice::WriteOnly) || message.assemble(&file) != 0) {
        std::fprintf(stderr, "cannot write %s\n", argv[1]);
        return 1;
    }
    std::printf("%d parts\n", message.getMultiPartCount());
    return 0;
}
