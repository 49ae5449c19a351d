// SPDX-License-Identifier: MIT
#include "utility/codec/EncodedWordEncoder.h"

#include "utility/EMAIL_Numbers.h"
#include "utility/codec/Base64.h"
#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"
#include "utility/codec/QuotedPrintable.h"
#include "utility/codec/WordChunks.h"
#include "utility/text/Joined.h"
#include "utility/text/Room.h"
#include "utility/text/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace tarvomime {

namespace {

// With "=?", "b?" and "?=" a word takes 72 of the 75 characters that RFC 2047 allows.
constexpr int kLongestLabelAndPayload = 66;
constexpr std::string_view kWordStart = "=?";
constexpr std::string_view kForm = "?b?";

QByteArray encodeBytes(std::string_view bytes, int form)
{
    return form == CTE_BASE64 ? encodeBase64(bytes.data(), bytes.size(), false)
                              : encodeQp(bytes.data(), bytes.size(), false);
}

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// 1. Charsets 20 to 23 joined later and were never given a label: their text is written as Latin-1.
int charsetOfWords(int charset)
{
    const bool labelled = (charset >= CHARSET_ISO_8859_2 && charset <= CHARSET_WINDOWS_1251) ||
                          (charset >= CHARSET_UTF_8 && charset <= CHARSET_WINDOWS_874);
    return labelled ? charset : CHARSET_ISO_8859_1;
}

// Bytes that a unit takes in a charset of one byte, and in one of two bytes beside ASCII.
constexpr auto kOneByte = [](QChar) { return 1; };
constexpr auto kTwoBytes = [](QChar unit) { return unit.unicode() < 0x80 ? 1 : 2; };

// Cuts a text into words of one charset, its bytes in which are given.
class WordWriter
{
public:
    WordWriter(const QString& text, int charset, const QByteArray& bytes, bool isWellFormedUtf8)
        : mText(text), mCharset(charset), mBytes(viewOf(bytes)),
          mIsWellFormedUtf8(isWellFormedUtf8), mName(mimeCharsetName(charset)),
          mLongestBytes((kLongestLabelAndPayload - static_cast<int>(mName.size()) - 1) / 4 * 3)
    {
    }

    // Nothing when the words could be too long for a text.
    std::optional<QByteArray> write()
    {
        if (!reserveForAll())
            return std::nullopt;
        if (fits(mBytes))
            writeWord(mBytes, static_cast<int>(mText.length()));
        else if (mIsWellFormedUtf8)
            cutBytes(kUtf8Length);
        else if (isSingleByte(mCharset) && eachUnitTakes(kOneByte))
            cutBytes(kOneByte);
        else if (mCharset != CHARSET_UTF_8 && eachUnitTakes(kTwoBytes))
            cutBytes(kTwoBytes);
        else
            cutThroughCodec();
        return mWords;
    }

private:
    bool fits(std::string_view bytes) const
    {
        return static_cast<int>(bytes.size()) <= mLongestBytes;
    }

    // In neither kind of charset a unit takes more than that, so that none takes less where the sum
    // is right.
    template <class BytesOf>
    bool eachUnitTakes(BytesOf bytesOf) const
    {
        const auto length = static_cast<int>(mText.length());
        return bytesOfUnits(mText, 0, length, bytesOf) == static_cast<int>(mBytes.size());
    }

    // Where each unit has its own bytes, one conversion serves all the words.
    template <class BytesOf>
    void cutBytes(BytesOf bytesOf)
    {
        std::string_view rest = mBytes;
        for (int position = 0; position < mText.length();) {
            std::string_view bytes = rest;
            int count = static_cast<int>(mText.length()) - position;
            if (!fits(rest)) {
                int size = 0;
                // No unit takes less than a byte: no more units than would fit are counted.
                count = chunkLength(mText, position, [&](int units) {
                    size = units > mLongestBytes ? units
                                                 : bytesOfUnits(mText, position, units, bytesOf);
                    return size <= mLongestBytes;
                });
                bytes = rest.substr(0, static_cast<std::size_t>(size));
            }
            position += count;
            writeWord(bytes, position);
            rest.remove_prefix(bytes.size());
        }
    }

    void cutThroughCodec()
    {
        // No charset here writes fewer bytes than there are characters, and no character is longer
        // than two units; what is certainly too long is not converted.
        const int certainlyTooLong = 2 * mLongestBytes + 2;
        for (int position = 0; position < mText.length();) {
            QByteArray bytes;
            position += chunkLength(mText, position, [&](int candidate) {
                if (candidate > certainlyTooLong)
                    return false;
                bytes =
                    bytesInCharset(mText.mid(position, candidate), mCharset).value_or(QByteArray());
                return fits(viewOf(bytes));
            });
            writeWord(viewOf(bytes), position);
        }
    }

    // Halving leaves words that are at least half full, but for the last one.
    bool reserveForAll()
    {
        const auto size = static_cast<qint64>(mBytes.size());
        const qint64 words = fits(mBytes) ? 1 : 2 * size / mLongestBytes + 1;
        const auto frame = static_cast<qint64>(mName.size()) + 12;
        const qint64 all = (size + 2) / 3 * 4 + words * frame;
        if (all > QCString::longestLength)
            return false;
        mWords.reserve(static_cast<int>(all));
        return true;
    }

    // `end` is where the word's text ends.
    void writeWord(std::string_view bytes, int end)
    {
        const std::string_view close = end < mText.length() ? "?=\r\n\t" : "?=";
        const std::size_t length = kWordStart.size() + mName.size() + kForm.size() +
                                   encodedBase64Length(bytes.size(), false) + close.size();
        const auto start = mWords.size();
        mWords.resize(start + static_cast<int>(length));
        char* next = put(kWordStart, mWords.data() + start);
        next = put(kForm, put(mName, next));
        put(close, encodeBase64To(bytes, next, false));
    }

    static char* put(std::string_view text, char* out)
    {
        return std::copy(text.begin(), text.end(), out);
    }

    const QString& mText;
    const int mCharset;
    const std::string_view mBytes;
    const bool mIsWellFormedUtf8;
    const std::string_view mName;
    const int mLongestBytes;
    QByteArray mWords;
};

// `text` as words; as it stands, up to a NUL, when it needs none.
std::optional<QCString> wordsOf(const QString& text, int charset)
{
    if (!needsWords(text))
        return QCString(text.toLatin1());
    // The bytes that tell whether the charset holds the text serve its words too.
    QByteArray held;
    const bool isHeld = charset != CHARSET_UTF_8 && encodeIfHeld(held, text, charset);
    const int used = charsetOfWords(isHeld ? charset : int{CHARSET_UTF_8});
    const auto utf8 = used == CHARSET_UTF_8 ? utf8Of(text) : std::nullopt;
    const auto bytes = utf8 ? utf8 : isHeld && used == charset ? held : bytesInCharset(text, used);
    const auto words =
        bytes ? WordWriter(text, used, *bytes, utf8.has_value()).write() : std::nullopt;
    return words ? std::optional(QCString::fromBytes(*words)) : std::nullopt;
}

// Behind the last "<" stands the address, which holds no words; an item without a name before it
// is taken as it is.
//
// 1. Name and address each end at a NUL, like every value of a header; a name in words holds it.
std::optional<QCString> encodedAddress(const QString& item, int charset)
{
    const int addressStart = std::max(0, static_cast<int>(item.lastIndexOf(QLatin1Char('<'))));
    const auto name = addressStart > 0 ? wordsOf(item.left(addressStart), charset) : QCString();
    const auto address = bytesInCharset(item.mid(addressStart), charset);
    if (!name || !address)
        return std::nullopt;
    return joined({name->view(), QCString(*address).view()});
}

// The items of `text`, empty ones left out, each as `encodedAddress` gives it; nothing without
// items.
std::optional<QCString> encodedList(const QString& text, int charset)
{
    QCString list;
    const auto length = static_cast<int>(text.size());
    for (int start = 0, end = 0; start < length; start = end + 1) {
        end = static_cast<int>(text.indexOf(QLatin1Char(','), start));
        end = end < 0 ? length : end;
        if (end == start)
            continue;
        const auto item = encodedAddress(text.mid(start, end - start), charset);
        // A sum that is too long would become an empty text, and what follows stand alone.
        if (!item || isRefused(*item) || item->length() >= QCString::longestLength - list.length())
            return std::nullopt;
        if (list.isNull())
            list = *item;
        else
            list.append(',').append(*item);
    }
    return list;
}

} // namespace

// 1. U+0080 needs no word, nor do the controls below: they pass as the bytes they are.
bool needsWords(const QString& text)
{
    return std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() > 0x80; });
}

// 1. The Q form follows the rules for bodies: a space becomes "=20", "?" and "_" stay as they are.
void encodePayload(const QString& text, int charset, int form, QCString& out)
{
    if (text.isEmpty())
        return;
    QCString bytes;
    encodeWithCharset(bytes, text, charset);
    out = QCString::fromBytes(encodeBytes(bytes.view(), form));
}

void encodeWords(const QString& text, int charset, QCString& out)
{
    std::optional<QCString> words;
    const bool isHeld = text.size() <= QCString::longestLength &&
                        hasMemoryFor([&] { words = wordsOf(text, charset); }) && words.has_value();
    if (!isHeld)
        out = QCString::fromLiteral("");
    else if (needsWords(text))
        out.append(*words);
    else
        out = *words;
}

void encodeAddresses(const QString& text, int charset, QCString& out)
{
    std::optional<QCString> list;
    const bool isHeld = text.size() <= QCString::longestLength &&
                        hasMemoryFor([&] { list = encodedList(text, charset); }) &&
                        list.has_value();
    if (!isHeld)
        out = QCString::fromLiteral("");
    else if (!list->isNull())
        out = *list;
}

} // namespace tarvomime
