// SPDX-License-Identifier: MIT
#include "utility/codec/MediaTypes.h"

#include "utility/EMAIL_Util.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tarvomime {

namespace {

constexpr std::array<std::string_view, 8> typeNames = {
    "", "text", "multipart", "message", "application", "image", "audio", "video"};
static_assert(typeNames[TYPE_VIDEO] == "video");

// The written name of each subtype; the number is the place. An empty name is never written.
//
// 1. "byterantes" is how this system has always written and read multipart/byteranges; its messages
//    are in mail stores, and the correct spelling stays unknown.
// 2. "x-vCalendar", "x-vCard" and "GSM-EFR" are written in mixed case, as their users expect them.
// 3. "GSM-EFR" is not read back: reading lower-cases the name, and "gsm-efr" is in neither table.
// 4. 98 (Java archives and descriptors) comes from file extensions only and has no name.
constexpr std::array<std::string_view, 98> subtypeNames = {
    "",
    "plain",
    "richtext",
    "html",
    "calendar",
    "report",
    "",
    "x-hdml",
    "x-ttml",
    "x-vCalendar",
    "x-vCard",
    "vnd.wap.wml",
    "vnd.wap.wmlscript",
    "vnd.wap.wta-event",
    "vnd.wap.si",
    "vnd.wap.sl",
    "vnd.wap.co",
    "vnd.wap.connectivity-xml",
    "css",
    "x-wap-wta-wml",
    "vnd.wap.channel",
    "mixed",
    "alternative",
    "digest",
    "related",
    "form-data",
    "byterantes",
    "rfc822",
    "partial",
    "parallel",
    "external-body",
    "",
    "",
    "octet-stream",
    "",
    "x-www-form-urlencoded",
    "x-hdmlc",
    "vnd.wap.wmlc",
    "vnd.wap.wmlscriptc",
    "vnd.wap.wta-eventc",
    "vnd.wap.uaprof",
    "vnd.wap.wtls-ca-certificate",
    "vnd.wap.wtls-user-certificate",
    "x-x509-ca-cert",
    "x-x509-user-cert",
    "vnd.wap.multipart.form-data",
    "vnd.wap.multipart.byteranges",
    "vnd.wap.multipart.alternative",
    "vnd.wap.wbxml",
    "x-x968-cross-cert",
    "x-x968-ca-cert",
    "x-x968-user-cert",
    "vnd.wap.sic",
    "vnd.wap.slc",
    "vnd.wap.coc",
    "vnd.wap.sia",
    "vnd.wap.connectivity-wbxml",
    "pkcs7-mime",
    "vnd.wap.hashed-certificate",
    "vnd.wap.signed-certificate",
    "vnd.wap.cert-response",
    "xhtml+xml",
    "wml+xml",
    "vnd.wap.mms-message",
    "vnd.wap.rollover-certificate",
    "vnd.wap.wml+xml",
    "x-wap-wta-wmlc",
    "x-shockwave-flash",
    "vnd.oma.drm.message",
    "vnd.oma.drm.content",
    "vnd.oma.drm.dcf",
    "vnd.wap.multipart.related",
    "vnd.wap.multipart.mixed",
    "smil",
    "jpeg",
    "gif",
    "tiff",
    "png",
    "vnd.wap.wbmp",
    "bmp",
    "pjpeg",
    "svg+xml",
    "basic",
    "amr",
    "GSM-EFR",
    "imelody",
    "midi",
    "pcma",
    "pcmu",
    "x-ms-wma",
    "x-wav",
    "mp3",
    "mpeg",
    "rm",
    "mp4",
    "3gp",
    "h263",
    "x-ms-wmv",
};
static_assert(subtypeNames[33] == "octet-stream" && subtypeNames[72] == "vnd.wap.multipart.mixed" &&
              subtypeNames[97] == "x-ms-wmv");

struct Spelling
{
    std::string_view name;
    int subtype;
};

// What is read beside the written names' lower-case forms. 6 and 34 are read but never written.
constexpr std::array<Spelling, 6> readOnlySpellings = {{
    {"x-vcalendar", 9},
    {"x-vcard", 10},
    {"enriched", 2},
    {"xml", 6},
    {"java-vm", 34},
    {"gsm_efr", 84},
}};

template <std::size_t Size>
int placeOf(std::string_view name, const std::array<std::string_view, Size>& names)
{
    for (std::size_t place = 1; place < Size; ++place) {
        if (names[place] == name)
            return static_cast<int>(place);
    }
    return 0;
}

template <std::size_t Size>
bool writeNameAt(int place, const std::array<std::string_view, Size>& names, QCString& name)
{
    if (place < 0 || place >= static_cast<int>(Size))
        return false;
    const std::string_view found = names[static_cast<std::size_t>(place)];
    if (found.empty())
        return false;
    name = QCString(found.data(), static_cast<int>(found.size()));
    return true;
}

} // namespace

int mediaTypeFromName(const QCString& name)
{
    return name.isEmpty() ? TYPE_UNKNOWN : placeOf(name.lower().view(), typeNames);
}

bool writeMediaTypeName(int type, QCString& name)
{
    return writeNameAt(type, typeNames, name);
}

int subtypeFromName(const QCString& name)
{
    if (name.isEmpty())
        return 0;
    const QCString lower = name.lower();
    for (const Spelling& spelling : readOnlySpellings) {
        if (spelling.name == lower.view())
            return spelling.subtype;
    }
    return placeOf(lower.view(), subtypeNames);
}

bool writeSubtypeName(int subtype, QCString& name)
{
    return writeNameAt(subtype, subtypeNames, name);
}

} // namespace tarvomime
