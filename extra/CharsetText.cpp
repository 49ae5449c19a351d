// SPDX-License-Identifier: MIT
#include "extra/CharsetText.h"

#include "extra/CharsetStatistics.h"
#include "extra/CodecNames.h"
#include "extra/Utf8.h"
#include "types/Ascii.h"
#include "utility/EMAIL_Util.h"

#include <QTextCodec>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace tarvomime {

namespace {

// Longer than any name that a codec answers to.
constexpr int kLongestName = 64;

struct NamedCodec
{
    std::string_view name;
    const char* codec;
};

// Names that mail uses and Qt's codecs do not answer to, and those that it uses most beside the
// numbered charsets. Qt's own codec of ISO-2022-JP stumbles where one piece of Japanese follows
// another, as it does in every folded subject: ICU's superset does not.
constexpr std::array<NamedCodec, 28> kNamedCodecs = {{
    {"437", "IBM437"},
    {"big5-hkscs", "big5-hkscs"},
    {"cp1251", "cp1251"},
    {"cp1252", "cp1252"},
    {"cp50220", "ISO-2022-JP-2"},
    {"cp50221", "ISO-2022-JP-2"},
    {"cp949", "windows-949"},
    {"euc-jp", "euc-jp"},
    {"euc-kr", "euc-kr"},
    {"gb18030", "gb18030"},
    {"gb2312", "GB18030"},
    {"gb_2312-80", "GB18030"},
    {"gbk", "GB18030"},
    {"iso-2022-jp", "ISO-2022-JP-2"},
    {"iso-2022-kr", "iso-2022-kr"},
    {"macintosh", "macintosh"},
    {"uhc", "windows-949"},
    {"unicode", "UTF-16"},
    {"windows-1250", "windows-1250"},
    {"windows-1251", "windows-1251"},
    {"windows-1252", "windows-1252"},
    {"windows-1253", "windows-1253"},
    {"windows-1254", "windows-1254"},
    {"windows-1255", "windows-1255"},
    {"windows-1256", "windows-1256"},
    {"windows-1257", "windows-1257"},
    {"windows-1258", "windows-1258"},
    {"x-gbk", "GB18030"},
}};

// Asked for once: for Qt to find a codec takes a hundred times as long as to read a name with it.
template <std::size_t Row>
QTextCodec* codecOfRow()
{
    static QTextCodec* const codec = QTextCodec::codecForName(kNamedCodecs[Row].codec);
    return codec;
}

using CodecGetter = QTextCodec* (*)();

template <std::size_t... Rows>
constexpr std::array<CodecGetter, sizeof...(Rows)> codecGetters(std::index_sequence<Rows...>)
{
    return {{&codecOfRow<Rows>...}};
}

constexpr auto kCodecGetters = codecGetters(std::make_index_sequence<kNamedCodecs.size()>());

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// Lower-case, without the quotes and blanks that senders leave around it.
QByteArray plainName(const QByteArray& name)
{
    QByteArray plain = name.left(kLongestName + 1).trimmed().toLower();
    while (plain.startsWith('"') || plain.startsWith('\''))
        plain.remove(0, 1);
    while (plain.endsWith('"') || plain.endsWith('\''))
        plain.chop(1);
    return plain;
}

// The number of the charset that is called exactly so, or 0: a longer name that only contains it
// may be another charset ("big5-hkscs").
int numberOfName(const QByteArray& plain)
{
    const int number = EMAIL_Util::charsetStrToEnum(QCString(plain));
    QCString name;
    EMAIL_Util::charsetEnumToStr(number, name);
    return viewOf(plain) == name.view() ? number : int(CHARSET_UNKNOWN);
}

QTextCodec* codecOfName(const QByteArray& plain)
{
    const auto isNameChar = [](char c) { return c > ' ' && c < '\x7F'; };
    if (plain.isEmpty() || plain.size() > kLongestName ||
        !std::all_of(plain.begin(), plain.end(), isNameChar))
        return nullptr;
    const auto* const row =
        std::find_if(kNamedCodecs.begin(), kNamedCodecs.end(),
                     [&](const NamedCodec& named) { return named.name == viewOf(plain); });
    const auto index = static_cast<std::size_t>(row - kNamedCodecs.begin());
    QTextCodec* codec = row == kNamedCodecs.end() ? nullptr : kCodecGetters[index]();
    return codec == nullptr && isCodecName(plain) ? QTextCodec::codecForName(plain) : codec;
}

// How a charset of some name is read: by a codec, or by the exact library's number.
struct Reader
{
    QTextCodec* codec = nullptr;
    int number = CHARSET_UNKNOWN;

    bool isKnown() const { return codec != nullptr || number != CHARSET_UNKNOWN; }
};

// Simplified Chinese is read by its superset, which the numbered charsets' codec is a part of.
bool isSimplifiedChinese(int number)
{
    return number == CHARSET_GB2312 || number == CHARSET_GBK;
}

Reader readerOf(const QByteArray& name)
{
    const QByteArray plain = plainName(name);
    const int exact = numberOfName(plain);
    if (exact != CHARSET_UNKNOWN && !isSimplifiedChinese(exact))
        return {nullptr, exact};
    const int contained = EMAIL_Util::charsetStrToEnum(QCString(plain));
    if (contained == CHARSET_UTF_7)
        return {nullptr, contained};
    if (QTextCodec* codec = codecOfName(plain))
        return {codec, CHARSET_UNKNOWN};
    return {nullptr, contained};
}

// Half a character is none: nothing that takes UTF-8 or JSON could hold it.
QString withoutHalves(QString text)
{
    if (text.isValidUtf16())
        return text;
    const int size = static_cast<int>(text.size());
    for (int i = 0; i < size; ++i) {
        const bool isWhole =
            text.at(i).isHighSurrogate() && i + 1 < size && text.at(i + 1).isLowSurrogate();
        if (isWhole)
            ++i;
        else if (text.at(i).isSurrogate())
            text[i] = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

QString readBy(const Reader& reader, const QByteArray& bytes)
{
    QString text;
    if (reader.codec != nullptr)
        text = reader.codec->toUnicode(bytes);
    else
        EMAIL_Util::decFromCharset(bytes, text, reader.number);
    return withoutHalves(text);
}

bool isAscii(const QByteArray& bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool holdsC1Bytes(const QByteArray& bytes)
{
    return std::any_of(bytes.begin(), bytes.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x80 && byte < 0xA0;
    });
}

struct Escape
{
    std::string_view sequence;
    const char* charset;
};

// The sequences that switch to a charset of two bytes a character, and those of Japanese that
// switch back to a Latin one (RFC 1468, RFC 1557, RFC 1922).
constexpr std::array<Escape, 6> kEscapes = {{
    {"\x1B$@", "iso-2022-jp"},
    {"\x1B$B", "iso-2022-jp"},
    {"\x1B$(D", "iso-2022-jp-1"},
    {"\x1B$)C", "iso-2022-kr"},
    {"\x1B$)A", "iso-2022-cn"},
    {"\x1B(J", "iso-2022-jp"},
}};

const char* charsetByEscape(std::string_view bytes)
{
    for (std::size_t at = bytes.find('\x1B'); at != bytes.npos; at = bytes.find('\x1B', at + 1)) {
        for (const Escape& escape : kEscapes) {
            if (bytes.compare(at, escape.sequence.size(), escape.sequence) == 0)
                return escape.charset;
        }
    }
    return nullptr;
}

// What a codec makes of bytes that mean nothing to it: the replacement character, or a character
// for private use.
bool isBroken(QChar c)
{
    return c == QChar::ReplacementCharacter || (c >= QChar(0xE000) && c <= QChar(0xF8FF));
}

// Whether so much of the text is whole that its label is right and some bytes are damaged: text of
// other charsets is UTF-8 in hardly any of its characters.
bool isMostlyWhole(const QString& text, const Reader& reader)
{
    const int share = reader.number == CHARSET_UTF_8 ? 2 : 10;
    qsizetype broken = 0;
    qsizetype foreign = 0;
    for (const QChar c : text) {
        broken += isBroken(c) ? 1 : 0;
        foreign += c.unicode() >= 0x80 ? 1 : 0;
    }
    return broken * share <= foreign;
}

bool isSingleByteLabel(const Reader& reader)
{
    switch (reader.number) {
    case CHARSET_UNKNOWN:
    case CHARSET_UTF_7:
    case CHARSET_UTF_8:
    case CHARSET_GB2312:
    case CHARSET_GBK:
    case CHARSET_BIG5:
        return false;
    default:
        return true;
    }
}

} // namespace

bool isReadableCharset(const QByteArray& name)
{
    return readerOf(name).isKnown();
}

Result<QString> textFromCharset(const QByteArray& bytes, const QByteArray& name)
{
    const Reader reader = readerOf(name);
    if (!reader.isKnown())
        return Failure{QStringLiteral("the charset \"%1\" is not known")
                           .arg(QString::fromLatin1(name.left(kLongestName)))};
    return readBy(reader, bytes);
}

ProposedCharset proposeCharset(const QByteArray& bytes, const QByteArray& fallback)
{
    if (isAscii(bytes)) {
        const char* escaped = charsetByEscape(viewOf(bytes));
        if (escaped != nullptr && isReadableCharset(escaped))
            return {escaped, CharsetBasis::Escapes};
        return {"us-ascii", CharsetBasis::Ascii};
    }
    if (isUtf8(viewOf(bytes)))
        return {"utf-8", CharsetBasis::ValidUtf8};
    const QByteArray guessed = charsetByStatistics(bytes);
    const Reader reader = readerOf(guessed);
    if (reader.isKnown() && isMostlyWhole(readBy(reader, bytes), reader))
        return {guessed, CharsetBasis::Statistics};
    return {fallback, CharsetBasis::Fallback};
}

Result<ReadText> readDeclaredText(const QByteArray& bytes, const QByteArray& declared)
{
    const Reader reader = readerOf(declared);
    const bool ascii = isAscii(bytes);
    if (reader.number == CHARSET_ISO_8859_1 && !ascii && holdsC1Bytes(bytes)) {
        const ProposedCharset windows{"windows-1252", CharsetBasis::Windows1252Letters};
        return ReadText{textFromCharset(bytes, windows.name).valueOr({}), windows};
    }
    const bool mayBe = reader.isKnown() && (ascii || reader.number != CHARSET_US_ASCII);
    if (mayBe) {
        const QString text = readBy(reader, bytes);
        if (isSingleByteLabel(reader) || isMostlyWhole(text, reader))
            return ReadText{text, {plainName(declared), CharsetBasis::Declared}};
    }
    return Failure{QStringLiteral("the text cannot be in the charset \"%1\"")
                       .arg(QString::fromLatin1(declared.left(kLongestName)))};
}

ReadText readText(const QByteArray& bytes, const QByteArray& declared, const QByteArray& fallback)
{
    if (const Result<ReadText> text = readDeclaredText(bytes, declared))
        return *text;
    const ProposedCharset proposed = proposeCharset(bytes, fallback);
    const Result<QString> text = textFromCharset(bytes, proposed.name);
    return {text ? *text : QString::fromLatin1(bytes), proposed};
}

QString describeBasis(CharsetBasis basis)
{
    switch (basis) {
    case CharsetBasis::Declared:
        return QStringLiteral("declared");
    case CharsetBasis::DeclaredInHtml:
        return QStringLiteral("declared in the HTML");
    case CharsetBasis::Ascii:
        return QStringLiteral("plain ASCII");
    case CharsetBasis::ValidUtf8:
        return QStringLiteral("valid UTF-8");
    case CharsetBasis::Escapes:
        return QStringLiteral("escape sequences");
    case CharsetBasis::Windows1252Letters:
        return QStringLiteral("letters in place of controls");
    case CharsetBasis::Statistics:
        return QStringLiteral("statistics of letters");
    case CharsetBasis::Fallback:
        break;
    }
    return QStringLiteral("nothing but the fallback");
}

} // namespace tarvomime
