// SPDX-License-Identifier: MIT
#include "utility/codec/MediaTypes.h"

#include "types/Ascii.h"
#include "utility/EMAIL_Numbers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace tarvomime {

namespace {

struct NumberedName
{
    int number;
    std::string_view name;
};

// Numbers are looked up by their place.
template <std::size_t Size>
constexpr bool standsInOrder(const std::array<NumberedName, Size>& rows)
{
    for (std::size_t place = 0; place < Size; ++place) {
        if (rows[place].number != static_cast<int>(place))
            return false;
    }
    return true;
}

constexpr std::array<NumberedName, 8> kTypeNames = {{
    {TYPE_UNKNOWN, ""},
    {TYPE_TEXT, "text"},
    {TYPE_MULTIPART, "multipart"},
    {TYPE_MESSAGE, "message"},
    {TYPE_APPLICATION, "application"},
    {TYPE_IMAGE, "image"},
    {TYPE_AUDIO, "audio"},
    {TYPE_VIDEO, "video"},
}};
static_assert(standsInOrder(kTypeNames));

// The written name of each subtype. An empty name is never written.
//
// 1. "byterantes" is how this system has always written and read multipart/byteranges; its messages
//    are in mail stores, and the correct spelling stays unknown.
// 2. "x-vCalendar", "x-vCard" and "GSM-EFR" are written in mixed case, as their users expect them.
// 3. "GSM-EFR" is not read back: reading lower-cases the name, and "gsm-efr" is in neither table.
// 4. 98 (Java archives and descriptors) comes from file extensions only and has no name.
constexpr std::array<NumberedName, 98> kSubtypeNames = {{
    {SUBTYPE_UNKNOWN, ""},
    {SUBTYPE_PLAIN, "plain"},
    {SUBTYPE_RICHTEXT, "richtext"},
    {SUBTYPE_HTML, "html"},
    {SUBTYPE_CALENDAR, "calendar"},
    {SUBTYPE_REPORT, "report"},
    {SUBTYPE_XML, ""},
    {SUBTYPE_X_HDML, "x-hdml"},
    {SUBTYPE_X_TTML, "x-ttml"},
    {SUBTYPE_VCALENDAR, "x-vCalendar"},
    {SUBTYPE_VCARD, "x-vCard"},
    {SUBTYPE_WAP_WML, "vnd.wap.wml"},
    {SUBTYPE_WAP_WMLSCRIPT, "vnd.wap.wmlscript"},
    {SUBTYPE_WAP_WTA_EVENT, "vnd.wap.wta-event"},
    {SUBTYPE_WAP_SI, "vnd.wap.si"},
    {SUBTYPE_WAP_SL, "vnd.wap.sl"},
    {SUBTYPE_WAP_CO, "vnd.wap.co"},
    {SUBTYPE_WAP_CONNECTIVITY_XML, "vnd.wap.connectivity-xml"},
    {SUBTYPE_CSS, "css"},
    {SUBTYPE_X_WAP_WTA_WML, "x-wap-wta-wml"},
    {SUBTYPE_WAP_CHANNEL, "vnd.wap.channel"},
    {SUBTYPE_MIXED, "mixed"},
    {SUBTYPE_ALTERNATIVE, "alternative"},
    {SUBTYPE_DIGEST, "digest"},
    {SUBTYPE_RELATED, "related"},
    {SUBTYPE_FORM_DATA, "form-data"},
    {SUBTYPE_BYTERANGES, "byterantes"},
    {SUBTYPE_RFC822, "rfc822"},
    {SUBTYPE_PARTIAL, "partial"},
    {SUBTYPE_PARALLEL, "parallel"},
    {SUBTYPE_EXTERNAL_BODY, "external-body"},
    {31, ""},
    {32, ""},
    {SUBTYPE_OCTET_STREAM, "octet-stream"},
    {SUBTYPE_JAVA_VM, ""},
    {SUBTYPE_X_WWW_FORM_URLENCODED, "x-www-form-urlencoded"},
    {SUBTYPE_X_HDMLC, "x-hdmlc"},
    {SUBTYPE_WAP_WMLC, "vnd.wap.wmlc"},
    {SUBTYPE_WAP_WMLSCRIPTC, "vnd.wap.wmlscriptc"},
    {SUBTYPE_WAP_WTA_EVENTC, "vnd.wap.wta-eventc"},
    {SUBTYPE_WAP_UAPROF, "vnd.wap.uaprof"},
    {SUBTYPE_WAP_WTLS_CA_CERTIFICATE, "vnd.wap.wtls-ca-certificate"},
    {SUBTYPE_WAP_WTLS_USER_CERTIFICATE, "vnd.wap.wtls-user-certificate"},
    {SUBTYPE_X_X509_CA_CERT, "x-x509-ca-cert"},
    {SUBTYPE_X_X509_USER_CERT, "x-x509-user-cert"},
    {SUBTYPE_WAP_MULTIPART_FORM_DATA, "vnd.wap.multipart.form-data"},
    {SUBTYPE_WAP_MULTIPART_BYTERANGES, "vnd.wap.multipart.byteranges"},
    {SUBTYPE_WAP_MULTIPART_ALTERNATIVE, "vnd.wap.multipart.alternative"},
    {SUBTYPE_WAP_WBXML, "vnd.wap.wbxml"},
    {SUBTYPE_X_X968_CROSS_CERT, "x-x968-cross-cert"},
    {SUBTYPE_X_X968_CA_CERT, "x-x968-ca-cert"},
    {SUBTYPE_X_X968_USER_CERT, "x-x968-user-cert"},
    {SUBTYPE_WAP_SIC, "vnd.wap.sic"},
    {SUBTYPE_WAP_SLC, "vnd.wap.slc"},
    {SUBTYPE_WAP_COC, "vnd.wap.coc"},
    {SUBTYPE_WAP_SIA, "vnd.wap.sia"},
    {SUBTYPE_WAP_CONNECTIVITY_WBXML, "vnd.wap.connectivity-wbxml"},
    {SUBTYPE_PKCS7_MIME, "pkcs7-mime"},
    {SUBTYPE_WAP_HASHED_CERTIFICATE, "vnd.wap.hashed-certificate"},
    {SUBTYPE_WAP_SIGNED_CERTIFICATE, "vnd.wap.signed-certificate"},
    {SUBTYPE_WAP_CERT_RESPONSE, "vnd.wap.cert-response"},
    {SUBTYPE_XHTML_XML, "xhtml+xml"},
    {SUBTYPE_WML_XML, "wml+xml"},
    {SUBTYPE_WAP_MMS_MESSAGE, "vnd.wap.mms-message"},
    {SUBTYPE_WAP_ROLLOVER_CERTIFICATE, "vnd.wap.rollover-certificate"},
    {SUBTYPE_WAP_WML_XML, "vnd.wap.wml+xml"},
    {SUBTYPE_X_WAP_WTA_WMLC, "x-wap-wta-wmlc"},
    {SUBTYPE_X_SHOCKWAVE_FLASH, "x-shockwave-flash"},
    {SUBTYPE_OMA_DRM_MESSAGE, "vnd.oma.drm.message"},
    {SUBTYPE_OMA_DRM_CONTENT, "vnd.oma.drm.content"},
    {SUBTYPE_OMA_DRM_DCF, "vnd.oma.drm.dcf"},
    {SUBTYPE_WAP_MULTIPART_RELATED, "vnd.wap.multipart.related"},
    {SUBTYPE_WAP_MULTIPART_MIXED, "vnd.wap.multipart.mixed"},
    {SUBTYPE_SMIL, "smil"},
    {SUBTYPE_JPEG, "jpeg"},
    {SUBTYPE_GIF, "gif"},
    {SUBTYPE_TIFF, "tiff"},
    {SUBTYPE_PNG, "png"},
    {SUBTYPE_WAP_WBMP, "vnd.wap.wbmp"},
    {SUBTYPE_BMP, "bmp"},
    {SUBTYPE_PJPEG, "pjpeg"},
    {SUBTYPE_SVG_XML, "svg+xml"},
    {SUBTYPE_BASIC, "basic"},
    {SUBTYPE_AMR, "amr"},
    {SUBTYPE_GSM_EFR, "GSM-EFR"},
    {SUBTYPE_IMELODY, "imelody"},
    {SUBTYPE_MIDI, "midi"},
    {SUBTYPE_PCMA, "pcma"},
    {SUBTYPE_PCMU, "pcmu"},
    {SUBTYPE_X_MS_WMA, "x-ms-wma"},
    {SUBTYPE_X_WAV, "x-wav"},
    {SUBTYPE_MP3, "mp3"},
    {SUBTYPE_MPEG, "mpeg"},
    {SUBTYPE_RM, "rm"},
    {SUBTYPE_MP4, "mp4"},
    {SUBTYPE_3GP, "3gp"},
    {SUBTYPE_H263, "h263"},
    {SUBTYPE_X_MS_WMV, "x-ms-wmv"},
}};
static_assert(standsInOrder(kSubtypeNames));

// What is read beside the written names' lower-case forms.
constexpr std::array<NumberedName, 6> kReadOnlySpellings = {{
    {SUBTYPE_VCALENDAR, "x-vcalendar"},
    {SUBTYPE_VCARD, "x-vcard"},
    {SUBTYPE_RICHTEXT, "enriched"},
    {SUBTYPE_XML, "xml"},
    {SUBTYPE_JAVA_VM, "java-vm"},
    {SUBTYPE_GSM_EFR, "gsm_efr"},
}};

// The number of the first row with that name; 0 without one.
template <std::size_t Size>
int numberOf(std::string_view name, const std::array<NumberedName, Size>& rows)
{
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [name](const NumberedName& row) { return row.name == name; });
    return found == rows.end() ? 0 : found->number;
}

template <std::size_t Size>
bool writeName(int number, const std::array<NumberedName, Size>& rows, QCString& name)
{
    if (number < 0 || number >= static_cast<int>(Size))
        return false;
    const std::string_view found = rows[static_cast<std::size_t>(number)].name;
    if (found.empty())
        return false;
    name = QCString(found.data(), static_cast<int>(found.size()));
    return true;
}

constexpr std::size_t kLongestName = 32;

template <std::size_t Size>
constexpr bool isRoomFor(const std::array<NumberedName, Size>& rows)
{
    return std::all_of(rows.begin(), rows.end(),
                       [](const NumberedName& row) { return row.name.size() <= kLongestName; });
}
static_assert(isRoomFor(kTypeNames) && isRoomFor(kSubtypeNames) && isRoomFor(kReadOnlySpellings));

using NameRoom = std::array<char, kLongestName>;

// The name in lower case; nothing of one that is longer than all that are known.
std::string_view lowered(const QCString& name, NameRoom& room)
{
    if (name.length() > static_cast<int>(room.size()))
        return {};
    char* end = std::transform(name.begin(), name.end(), room.data(), asciiLower);
    return {room.data(), static_cast<std::size_t>(end - room.data())};
}

} // namespace

int mediaTypeFromName(const QCString& name)
{
    NameRoom room;
    return numberOf(lowered(name, room), kTypeNames);
}

bool writeMediaTypeName(int type, QCString& name)
{
    return writeName(type, kTypeNames, name);
}

int subtypeFromName(const QCString& name)
{
    NameRoom room;
    const std::string_view lower = lowered(name, room);
    const int readOnly = numberOf(lower, kReadOnlySpellings);
    return readOnly != SUBTYPE_UNKNOWN ? readOnly : numberOf(lower, kSubtypeNames);
}

bool writeSubtypeName(int subtype, QCString& name)
{
    return writeName(subtype, kSubtypeNames, name);
}

} // namespace tarvomime
