// SPDX-License-Identifier: MIT
#include "utility/codec/FileExtensions.h"

#include "utility/EMAIL_Numbers.h"

#include <QLatin1String>
#include <QStringView>
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
constexpr std::array<ExtensionRow, 27> kReadRows = {{
    {"eml", TYPE_MESSAGE, SUBTYPE_RFC822},
    {"vcf", TYPE_TEXT, SUBTYPE_VCARD},
    {"vcs", TYPE_TEXT, SUBTYPE_VCALENDAR},
    {"gif", TYPE_IMAGE, SUBTYPE_GIF},
    {"mng", TYPE_IMAGE, SUBTYPE_UNKNOWN},
    {"bmp", TYPE_IMAGE, SUBTYPE_BMP},
    {"jpg", TYPE_IMAGE, SUBTYPE_JPEG},
    {"jpeg", TYPE_IMAGE, SUBTYPE_JPEG},
    {"png", TYPE_IMAGE, SUBTYPE_PNG},
    {"txt", TYPE_TEXT, SUBTYPE_PLAIN},
    {"mp3", TYPE_AUDIO, SUBTYPE_MP3},
    {"wav", TYPE_AUDIO, SUBTYPE_X_WAV},
    {"mid", TYPE_AUDIO, SUBTYPE_MIDI},
    {"imy", TYPE_AUDIO, SUBTYPE_IMELODY},
    {"amr", TYPE_AUDIO, SUBTYPE_UNKNOWN},
    {"mpeg", TYPE_VIDEO, SUBTYPE_MPEG},
    {"mpg", TYPE_VIDEO, SUBTYPE_MPEG},
    {"mp4", TYPE_VIDEO, SUBTYPE_MPEG},
    {"3gp", TYPE_VIDEO, SUBTYPE_MPEG},
    {"rm", TYPE_VIDEO, SUBTYPE_MPEG},
    {"ics", TYPE_TEXT, SUBTYPE_CALENDAR},
    {"ifb", TYPE_TEXT, SUBTYPE_CALENDAR},
    {"jar", TYPE_TEXT, SUBTYPE_JAVA_ARCHIVE},
    {"jad", TYPE_TEXT, SUBTYPE_JAVA_ARCHIVE},
    {"dcf", TYPE_APPLICATION, SUBTYPE_OMA_DRM_CONTENT},
    {"dm", TYPE_APPLICATION, SUBTYPE_OMA_DRM_MESSAGE},
    {"odf", TYPE_APPLICATION, SUBTYPE_OMA_DRM_DCF},
}};

// What a part is called when it is saved.
constexpr std::array<ExtensionRow, 14> kWrittenRows = {{
    {"eml", TYPE_MESSAGE, SUBTYPE_RFC822},
    {"vcf", TYPE_TEXT, SUBTYPE_VCARD},
    {"vcs", TYPE_TEXT, SUBTYPE_VCALENDAR},
    {"ics", TYPE_TEXT, SUBTYPE_CALENDAR},
    {"gif", TYPE_IMAGE, SUBTYPE_GIF},
    {"bmp", TYPE_IMAGE, SUBTYPE_BMP},
    {"jpg", TYPE_IMAGE, SUBTYPE_JPEG},
    {"png", TYPE_IMAGE, SUBTYPE_PNG},
    {"txt", TYPE_TEXT, SUBTYPE_PLAIN},
    {"mp3", TYPE_AUDIO, SUBTYPE_MP3},
    {"mid", TYPE_AUDIO, SUBTYPE_MIDI},
    {"imy", TYPE_AUDIO, SUBTYPE_IMELODY},
    {"mpg", TYPE_VIDEO, SUBTYPE_MPEG},
    {"html", TYPE_TEXT, SUBTYPE_HTML},
}};

constexpr int kLongestExtension = 8;

QString lastExtension(const QString& fileName)
{
    const auto dot = fileName.lastIndexOf(QLatin1Char('.'));
    if (dot < 0)
        return {};
    // Blanks apart, of a text of any length no more is copied than could be known.
    const QStringView extension = QStringView(fileName).mid(dot + 1).trimmed();
    return extension.size() > kLongestExtension ? QString() : extension.toString().toLower();
}

} // namespace

int subtypeByExtension(const QString& fileName, int& type)
{
    const QString extension = lastExtension(fileName);
    for (const ExtensionRow& row : kReadRows) {
        if (extension == QLatin1String(row.extension)) {
            type = row.type;
            return row.subtype;
        }
    }
    return 0;
}

int extensionBySubtype(int subtype, QString& extension)
{
    for (const ExtensionRow& row : kWrittenRows) {
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
