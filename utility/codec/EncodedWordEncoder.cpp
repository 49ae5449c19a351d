// SPDX-License-Identifier: MIT
#include "utility/codec/EncodedWordEncoder.h"

#include "utility/EMAIL_Util.h"
#include "utility/codec/Base64.h"
#include "utility/codec/Charset.h"
#include "utility/codec/CharsetNames.h"
#include "utility/codec/QuotedPrintable.h"
#include "utility/codec/SingleByteCharset.h"
#include "utility/codec/WordChunks.h"

#include <QStringList>
#include <algorithm>
#include <cstddef>

namespace tarvomime {

namespace {

// With "=?", "b?" and "?=" a word takes 72 of the 75 characters that RFC 2047 allows.
constexpr int longestLabelAndPayload = 66;

QByteArray encodeBytes(std::string_view bytes, int form)
{
    return form == CTE_BASE64 ? encodeBase64(bytes.data(), bytes.size(), false)
                              : encodeQp(bytes.data(), bytes.size(), false);
}

// 1. Charsets 20 to 23 joined later and were never given a label: their text is written as Latin-1.
int charsetOfWords(int charset)
{
    const bool labelled = (charset >= CHARSET_ISO_8859_2 && charset <= CHARSET_WINDOWS_1251) ||
                          (charset >= CHARSET_UTF_8 && charset <= CHARSET_WINDOWS_874);
    return labelled ? charset : CHARSET_ISO_8859_1;
}

/// Cuts a text into words of one charset.
class WordWriter
{
public:
    WordWriter(const QString& text, int charset)
        : mText(text), mCharset(charset), mName(mimeCharsetName(charset)),
          mLongestPayload(longestLabelAndPayload - static_cast<int>(mName.size()) - 1)
    {
    }

    QByteArray write()
    {
        const SingleByteCharset* table = SingleByteCharset::of(mCharset);
        QByteArray bytes;
        if (mCharset == CHARSET_UTF_8 && mText.isValidUtf16())
            writeBytes(mText.toUtf8(), utf8Length);
        else if (table != nullptr && table->encode(mText, bytes))
            writeBytes(bytes, [](QChar) { return 1; });
        else
            writeThroughCodec();
        return mWords;
    }

private:
    int longestBytes() const { return mLongestPayload / 4 * 3; }

    // Where each unit has its own bytes, one conversion serves all the words.
    template <class BytesOf>
    void writeBytes(const QByteArray& bytes, BytesOf bytesOf)
    {
        reserveFor(static_cast<int>(bytes.size()));
        const char* next = bytes.constData();
        const char* const end = next + bytes.size();
        for (int position = 0; position < mText.length();) {
            auto size = static_cast<int>(end - next);
            int count = static_cast<int>(mText.length()) - position;
            if (size > longestBytes()) {
                const int reach = unitsWithin(longestBytes(), mText, position, bytesOf);
                count = chunkLength(mText, position, [reach](int units) { return units <= reach; });
                size = bytesOfUnits(mText, position, count, bytesOf);
            }
            position += count;
            beginWord();
            appendBase64(mWords, {next, static_cast<std::size_t>(size)});
            endWord(position);
            next += size;
        }
    }

    void writeThroughCodec()
    {
        // No charset here writes fewer bytes than there are characters, and no character is longer
        // than two units; what is certainly too long is not converted.
        const int certainlyTooLong = 2 * longestBytes() + 2;
        for (int position = 0; position < mText.length();) {
            QCString payload;
            const int count = chunkLength(mText, position, [&](int candidate) {
                if (candidate > certainlyTooLong)
                    return false;
                encodePayload(mText.mid(position, candidate), mCharset, CTE_BASE64, payload);
                return payload.length() <= mLongestPayload;
            });
            position += count;
            beginWord();
            mWords.append(payload.begin(), payload.length());
            endWord(position);
        }
    }

    // Halving leaves words that are at least half full, but for the last one.
    void reserveFor(int bytes)
    {
        const int words = bytes <= longestBytes() ? 1 : 2 * bytes / longestBytes() + 1;
        const int frame = static_cast<int>(mName.size()) + 10;
        mWords.reserve((bytes + 2) / 3 * 4 + words * (frame + 2));
    }

    void beginWord()
    {
        mWords.append("=?", 2);
        mWords.append(mName.data(), static_cast<int>(mName.size()));
        mWords.append("?b?", 3);
    }

    void endWord(int end) { mWords.append(end < mText.length() ? "?=\r\n\t" : "?="); }

    const QString& mText;
    const int mCharset;
    const std::string_view mName;
    const int mLongestPayload;
    QByteArray mWords;
};

// Behind the last "<" stands the address, which holds no words; an item without a name before it
// is taken as it is.
QCString encodeAddress(const QString& item, int charset)
{
    const int addressStart = std::max(0, static_cast<int>(item.lastIndexOf(QLatin1Char('<'))));
    QCString result;
    if (addressStart > 0)
        encodeWords(item.left(addressStart), charset, result);
    return result.append(bytesInCharset(item.mid(addressStart), charset));
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
    if (!needsWords(text)) {
        out = QCString(text.toLatin1());
        return;
    }
    const int used = canEncodeByCharset(text, charset) ? charset : CHARSET_UTF_8;
    out.append(QCString::fromBytes(WordWriter(text, charsetOfWords(used)).write()));
}

void encodeAddresses(const QString& text, int charset, QCString& out)
{
    const QStringList items = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
    if (items.isEmpty())
        return;
    QCString list = encodeAddress(items.first(), charset);
    for (int i = 1; i < items.size(); ++i) {
        list.append(',');
        list.append(encodeAddress(items.at(i), charset));
    }
    out = list;
}

} // namespace tarvomime
