// SPDX-License-Identifier: MIT
#include "utility/codec/FileExtensions.h"

#include "utility/EMAIL_Util.h"

#include <QLatin1String>
#include <array>

namespace tarvomime {

namespace {

struct ExtensionRow
{
    const char* extension;
    int type;
    int subtype;
};

// What an attached file is announced as.
//
// 1. "mng" and "amr" have a type but no subtype, although "amr" exists as a subtype: the message
//    builder then keeps the subtype that its caller gives.
// 2. Every video extension gives "mpeg", the one video subtype that all receivers play.
// 3. "jar" and "jad" are text with the nameless subtype 98, by which the installer knows them.
constexpr std::array<ExtensionRow, 27> readRows = {{
    {"eml", TYPE_MESSAGE, 27},     {"vcf", TYPE_TEXT, 10},       {"vcs", TYPE_TEXT, 9},
    {"gif", TYPE_IMAGE, 75},       {"mng", TYPE_IMAGE, 0},       {"bmp", TYPE_IMAGE, 79},
    {"jpg", TYPE_IMAGE, 74},       {"jpeg", TYPE_IMAGE, 74},     {"png", TYPE_IMAGE, 77},
    {"txt", TYPE_TEXT, 1},         {"mp3", TYPE_AUDIO, 91},      {"wav", TYPE_AUDIO, 90},
    {"mid", TYPE_AUDIO, 86},       {"imy", TYPE_AUDIO, 85},      {"amr", TYPE_AUDIO, 0},
    {"mpeg", TYPE_VIDEO, 92},      {"mpg", TYPE_VIDEO, 92},      {"mp4", TYPE_VIDEO, 92},
    {"3gp", TYPE_VIDEO, 92},       {"rm", TYPE_VIDEO, 92},       {"ics", TYPE_TEXT, 4},
    {"ifb", TYPE_TEXT, 4},         {"jar", TYPE_TEXT, 98},       {"jad", TYPE_TEXT, 98},
    {"dcf", TYPE_APPLICATION, 69}, {"dm", TYPE_APPLICATION, 68}, {"odf", TYPE_APPLICATION, 70},
}};

// What a part is called when it is saved.
constexpr std::array<ExtensionRow, 14> writtenRows = {{
    {"eml", TYPE_MESSAGE, 27},
    {"vcf", TYPE_TEXT, 10},
    {"vcs", TYPE_TEXT, 9},
    {"ics", TYPE_TEXT, 4},
    {"gif", TYPE_IMAGE, 75},
    {"bmp", TYPE_IMAGE, 79},
    {"jpg", TYPE_IMAGE, 74},
    {"png", TYPE_IMAGE, 77},
    {"txt", TYPE_TEXT, 1},
    {"mp3", TYPE_AUDIO, 91},
    {"mid", TYPE_AUDIO, 86},
    {"imy", TYPE_AUDIO, 85},
    {"mpg", TYPE_VIDEO, 92},
    {"html", TYPE_TEXT, 3},
}};

QString lastExtension(const QString& fileName)
{
    const auto dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : fileName.mid(dot + 1).toLower().trimmed();
}

} // namespace

int subtypeByExtension(const QString& fileName, int& type)
{
    const QString extension = lastExtension(fileName);
    for (const ExtensionRow& row : readRows) {
        if (extension == QLatin1String(row.extension)) {
            type = row.type;
            return row.subtype;
        }
    }
    return 0;
}

int extensionBySubtype(int subtype, QString& extension)
{
    for (const ExtensionRow& row : writtenRows) {
        if (row.subtype == subtype) {
            extension = QLatin1String(row.extension);
            return row.type;
        }
    }
    return TYPE_UNKNOWN;
}

QString firstExtensionOfType(int type)
{
    switch (type) {
    case TYPE_IMAGE:
        return QStringLiteral("jpg");
    case TYPE_AUDIO:
        return QStringLiteral("mid");
    case TYPE_VIDEO:
        return QStringLiteral("mp4");
    default:
        return {};
    }
}

} // namespace tarvomime
