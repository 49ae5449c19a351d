// SPDX-License-Identifier: MIT
#include "extra/EncodedWords.h"

#include "extra/HexDigit.h"
#include "extra/ShortText.h"
#include "extra/WordScanner.h"

#include <algorithm>

namespace tarvomime {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isBlank(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return isBlank(c); });
}

QByteArray unfolded(const QCString& value)
{
    QByteArray out(value.begin(), value.length());
    return out.replace('\r', "").replace('\n', "");
}

QByteArray decodedQ(std::string_view payload)
{
    QByteArray out;
    for (std::size_t i = 0; i < payload.size(); ++i) {
        const int byte = payload[i] == '=' ? hexByte(payload.substr(i + 1)) : -1;
        if (byte >= 0) {
            out += static_cast<char>(byte);
            i += 2;
        } else {
            out += payload[i] == '_' ? ' ' : payload[i];
        }
    }
    return out;
}

QByteArray decodedPayload(const EncodedWord& word)
{
    const QByteArray payload(word.payload.data(), static_cast<int>(word.payload.size()));
    return word.isBase64 ? QByteArray::fromBase64(payload) : decodedQ(word.payload);
}

// Gathers plain text and words, and decodes what belongs together at once.
class Gathering
{
public:
    explicit Gathering(const QByteArray& fallbackCharset) : mReader(fallbackCharset) {}

    void addPlain(std::string_view text)
    {
        // Between two words it vanishes; which it is shows at the next word or never.
        if (mHasWord && isBlank(text)) {
            mBlank = text;
            return;
        }
        flushWords();
        const QByteArray bytes(text.data(), static_cast<int>(text.size()));
        mText += mReader.read(bytes);
        mOnlyWords = mOnlyWords && isBlank(text);
    }

    void addWord(const EncodedWord& word)
    {
        mBlank = {};
        const QByteArray charset =
            QByteArray(word.charset.data(), static_cast<int>(word.charset.size())).toLower();
        if (mHasWord && charset != mCharset)
            flushWords();
        mCharset = charset;
        mBytes += decodedPayload(word);
        mHasWord = mSawWord = true;
    }

    QString finish()
    {
        flushWords();
        return mText;
    }

    bool isOnlyWords() const { return mSawWord && mOnlyWords; }

private:
    void flushWords()
    {
        if (mHasWord)
            mText += mReader.read(mBytes, mCharset);
        mText += QString::fromLatin1(mBlank.data(), static_cast<int>(mBlank.size()));
        mBlank = {};
        mBytes.clear();
        mHasWord = false;
    }

    ShortTextReader mReader;
    QString mText;
    QByteArray mCharset;
    QByteArray mBytes;
    std::string_view mBlank;
    bool mHasWord = false;
    bool mSawWord = false;
    bool mOnlyWords = true;
};

Gathering gathered(const QByteArray& value, const QByteArray& fallbackCharset)
{
    Gathering gathering(fallbackCharset);
    WordScanner scanner({value.constData(), static_cast<std::size_t>(value.size())});
    while (!scanner.atEnd()) {
        const std::string_view plain = scanner.takePlain();
        if (!plain.empty())
            gathering.addPlain(plain);
        if (!scanner.atEnd())
            gathering.addWord(scanner.takeWord());
    }
    return gathering;
}

// Whether a text is made of encoded words and blanks, nothing else.
bool isEncodedAgain(const QByteArray& text, const QByteArray& fallbackCharset)
{
    return text.contains("=?") && gathered(text, fallbackCharset).isOnlyWords();
}

} // namespace

QString decodedWords(const QCString& value, const QByteArray& fallbackCharset)
{
    QString text = gathered(unfolded(value), fallbackCharset).finish();
    const QByteArray again = text.toUtf8();
    if (value.contains(QCString("=?")) == 0 || !isEncodedAgain(again, fallbackCharset))
        return text;
    return gathered(again, fallbackCharset).finish();
}

} // namespace tarvomime
