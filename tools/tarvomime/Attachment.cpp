// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Attachment.h"

#include "extra/SafeFileName.h"
#include "extra/Utf8.h"
#include "tools/tarvomime/InputFile.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/EMAIL_Util.h"

#include <array>

namespace tarvomime::tool {

namespace {

struct TypeRow
{
    const char* extension;
    const char* type;
    const char* subtype;
};

// What people attach and the library's table, made for phones, does not know.
constexpr std::array<TypeRow, 14> kDesktopTypes = {{
    {"csv", "text", "csv"},
    {"doc", "application", "msword"},
    {"docx", "application", "vnd.openxmlformats-officedocument.wordprocessingml.document"},
    {"gz", "application", "gzip"},
    {"htm", "text", "html"},
    {"html", "text", "html"},
    {"json", "application", "json"},
    {"odt", "application", "vnd.oasis.opendocument.text"},
    {"pdf", "application", "pdf"},
    {"svg", "image", "svg+xml"},
    {"webp", "image", "webp"},
    {"xlsx", "application", "vnd.openxmlformats-officedocument.spreadsheetml.sheet"},
    {"xml", "text", "xml"},
    {"zip", "application", "zip"},
}};

void setTypeByName(const QString& fileName, EMAIL_MultiPart& part)
{
    int type = TYPE_UNKNOWN;
    const int subtype = EMAIL_Util::getSubtypeByExtion(fileName, type);
    QCString subtypeName;
    if (EMAIL_Util::subTypeEnumToStr(subtype, subtypeName) && !subtypeName.isEmpty()) {
        part.setType(type);
        part.setSubType(subtype);
        return;
    }
    const QString extension = fileName.section('.', -1).toLower();
    part.setTypeStr("application");
    part.setSubTypeStr("octet-stream");
    for (const TypeRow& row : kDesktopTypes) {
        if (extension == QLatin1String(row.extension)) {
            part.setTypeStr(row.type);
            part.setSubTypeStr(row.subtype);
        }
    }
}

QString baseName(const std::string& path)
{
    return QString::fromUtf8(path.substr(path.rfind('/') + 1).c_str());
}

} // namespace

void attachFile(const InputFile& file, EMAIL_MultiPart& part)
{
    const QString name = attachableName(baseName(file.path()));
    setTypeByName(name, part);
    part.setName(name);
    part.setDispFileName(name);
    part.setDispType(1);
    part.setAttSize(-1);
    // A message must stay readable as one (RFC 2046, section 5.2.1); base64 keeps all else as it
    // is.
    part.setCTE(part.getType() == TYPE_MESSAGE ? CTE_8BIT : CTE_BASE64);
    // Other encodings cannot be told apart: the receiver guesses as well as we could.
    if (part.getType() == TYPE_TEXT && isUtf8(file.bytes()))
        part.setCharset(CHARSET_UTF_8);
    const QString path = file.reopenPath();
    if (path.isEmpty())
        part.setBody(QByteArray(file.data(), file.size()), false);
    else
        part.setBodyInfo(path, 0, file.size(), false);
}

} // namespace tarvomime::tool
