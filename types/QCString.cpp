// SPDX-License-Identifier: MIT
#include "types/QCString.h"

#include "types/Ascii.h"

#include <QtGlobal>
#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>

namespace {

using namespace tarvomime;

std::string_view viewOf(const char* text)
{
    return text == nullptr ? std::string_view() : std::string_view(text);
}

int lengthUpToNul(const char* bytes, int length)
{
    const void* nul =
        length > 0 ? std::memchr(bytes, '\0', static_cast<std::size_t>(length)) : nullptr;
    return nul == nullptr ? length : static_cast<int>(static_cast<const char*>(nul) - bytes);
}

// An array that only refers to foreign memory has no capacity of its own. Its memory may end
// without a terminator and may go before the text does, so such bytes are copied.
QByteArray owned(const QByteArray& bytes)
{
    const bool foreign = bytes.capacity() == 0 && !bytes.isEmpty();
    return foreign ? QByteArray(bytes.constData(), bytes.size()) : bytes;
}

bool matchesAt(std::string_view text, std::size_t position, std::string_view pattern,
               bool caseSensitive)
{
    const std::string_view candidate = text.substr(position, pattern.size());
    return caseSensitive ? candidate == pattern : equalIgnoringCase(candidate, pattern);
}

int findForward(std::string_view text, std::string_view pattern, int from, bool caseSensitive)
{
    const int length = static_cast<int>(text.size());
    if (from < 0)
        from = std::max(0, from + length);
    if (from > length)
        return -1;
    const auto start = static_cast<std::size_t>(from);
    if (caseSensitive) {
        const std::size_t found = text.find(pattern, start);
        return found == std::string_view::npos ? -1 : static_cast<int>(found);
    }
    for (std::size_t i = start; i + pattern.size() <= text.size(); ++i) {
        if (matchesAt(text, i, pattern, false))
            return static_cast<int>(i);
    }
    return -1;
}

int findBackward(std::string_view text, std::string_view pattern, int from, bool caseSensitive)
{
    const int length = static_cast<int>(text.size());
    if (from < 0)
        from += length;
    int i = std::min(from, length - static_cast<int>(pattern.size()));
    for (; i >= 0; --i) {
        if (matchesAt(text, static_cast<std::size_t>(i), pattern, caseSensitive))
            return i;
    }
    return -1;
}

int countMatches(std::string_view text, std::string_view pattern, bool caseSensitive)
{
    int count = 0;
    for (int i = findForward(text, pattern, 0, caseSensitive); i >= 0;
         i = findForward(text, pattern, i + 1, caseSensitive))
        ++count;
    return count;
}

// The grammar of both number readers. The magnitude may be as large as `limit`.
struct Number
{
    bool negative = false;
    quint64 magnitude = 0;
};

std::optional<Number> readNumber(std::string_view text, bool signAllowed, quint64 positiveLimit)
{
    text = trimmed(text);
    Number number;
    if (!text.empty() && (text.front() == '+' || (signAllowed && text.front() == '-'))) {
        number.negative = text.front() == '-';
        text.remove_prefix(1);
    }
    if (text.empty())
        return std::nullopt;
    // In two's complement there is one negative number more than there are positive ones.
    const quint64 limit = positiveLimit + (number.negative ? 1 : 0);
    for (const char c : text) {
        if (c < '0' || c > '9')
            return std::nullopt;
        number.magnitude = number.magnitude * 10 + static_cast<quint64>(c - '0');
        if (number.magnitude > limit)
            return std::nullopt;
    }
    return number;
}

void report(bool* ok, bool value)
{
    if (ok != nullptr)
        *ok = value;
}

template <char (*convert)(char)>
QCString mapped(const QCString& text)
{
    const auto changes = [](char c) { return convert(c) != c; };
    if (std::none_of(text.begin(), text.end(), changes))
        return text;
    QByteArray result(text.begin(), text.length());
    std::transform(result.cbegin(), result.cend(), result.begin(), convert);
    return QCString::fromBytes(result);
}

} // namespace

// Taken over, not copied.
// cppcheck-suppress passedByValue
QCString::QCString(QByteArray buffer, int offset, int length) noexcept
    : mText(buffer.constData() + offset), mLength(length)
{
    // cppcheck-suppress useInitializationList ; the text's place is asked before the buffer goes
    mBytes = tarvomime::SharedBytes(std::move(buffer));
}

QCString::QCString(const char* text)
{
    // Measured before it is copied: a byte array would copy any length.
    const std::size_t length = viewOf(text).size();
    if (text != nullptr && length <= std::size_t{longestLength})
        *this = fromBytes(QByteArray(text, static_cast<int>(length)));
}

QCString::QCString(const char* text, int length)
{
    if (text == nullptr)
        return;
    const int used = lengthUpToNul(text, length);
    if (used <= longestLength)
        *this = fromBytes(used > 0 ? QByteArray(text, used) : QByteArray(""));
}

QCString::QCString(const QByteArray& bytes) : QCString(fromBytes(bytes))
{
    mLength = lengthUpToNul(begin(), mLength);
}

QCString QCString::fromBytes(const QByteArray& bytes)
{
    if (bytes.isNull() || bytes.size() > longestLength)
        return {};
    // What an empty array over foreign memory points to may be gone.
    if (bytes.isEmpty())
        return fromLiteral("");
    return {owned(bytes), 0, static_cast<int>(bytes.size())};
}

const char* QCString::data() const
{
    if (isNull())
        return "";
    if (!isTerminated()) {
        const QCString copy(QByteArray(mText, mLength), 0, mLength);
        mBytes = copy.mBytes;
        mText = copy.mText;
        mIsForeign = false;
    }
    return mText;
}

void QCString::detach()
{
    const bool livesForEver = !mIsForeign && mBytes.isNull();
    if (!isNull() && !livesForEver && !isWhole())
        *this = QCString(QByteArray(mText, mLength), 0, mLength);
}

QCString QCString::left(int count) const
{
    return mid(0, std::max(count, 0));
}

QCString QCString::right(int count) const
{
    const int kept = std::clamp(count, 0, mLength);
    return mid(mLength - kept, kept);
}

QCString QCString::mid(int index, int count) const
{
    if (isNull())
        return {};
    if (index < 0 || index > mLength)
        return fromLiteral("");
    const int rest = mLength - index;
    return cut(mText + index, count < 0 ? rest : std::min(count, rest));
}

QCString QCString::stripWhiteSpace() const
{
    return isNull() ? QCString() : slice(trimmed(view()));
}

int QCString::find(char c, int from, bool caseSensitive) const
{
    return findForward(view(), std::string_view(&c, 1), from, caseSensitive);
}

int QCString::find(const QCString& text, int from, bool caseSensitive) const
{
    return findForward(view(), text.view(), from, caseSensitive);
}

int QCString::findRev(char c, int from, bool caseSensitive) const
{
    return findBackward(view(), std::string_view(&c, 1), from, caseSensitive);
}

int QCString::findRev(const QCString& text, int from, bool caseSensitive) const
{
    return findBackward(view(), text.view(), from, caseSensitive);
}

int QCString::contains(char c, bool caseSensitive) const
{
    return countMatches(view(), std::string_view(&c, 1), caseSensitive);
}

int QCString::contains(const QCString& text, bool caseSensitive) const
{
    return countMatches(view(), text.view(), caseSensitive);
}

QCString QCString::lower() const
{
    return mapped<asciiLower>(*this);
}

QCString QCString::upper() const
{
    return mapped<asciiUpper>(*this);
}

QCString& QCString::append(const QCString& text)
{
    if (isNull()) {
        *this = text;
        return *this;
    }
    // The appended bytes may lie in this very buffer: a second reference keeps them in place.
    const QCString source = text;
    return appendBytes(source.begin(), source.length());
}

QCString& QCString::append(char c)
{
    return appendBytes(&c, 1);
}

QCString& QCString::appendBytes(const char* bytes, int count)
{
    if (count > longestLength - mLength)
        return *this = fromLiteral("");
    // Keep the buffer's spare room when this text is all of it; otherwise start one of its own. A
    // second share would keep the array from growing in place.
    QCString old = std::exchange(*this, QCString());
    QByteArray buffer = old.isWhole() ? old.mBytes.takeArray(old.mText, old.mLength)
                                      : QByteArray(old.begin(), old.mLength);
    buffer.append(bytes, count);
    *this = QCString(std::move(buffer), 0, old.mLength + count);
    return *this;
}

QCString& QCString::prepend(const QCString& text)
{
    QCString result = text;
    result.append(*this);
    *this = result;
    return *this;
}

void QCString::truncate(int length)
{
    if (length < mLength)
        *this = left(length);
}

int QCString::toInt(bool* ok) const
{
    const auto number = readNumber(view(), true, std::numeric_limits<qint32>::max());
    report(ok, number.has_value());
    if (!number)
        return 0;
    const auto magnitude = static_cast<qint64>(number->magnitude);
    return static_cast<int>(number->negative ? -magnitude : magnitude);
}

unsigned int QCString::toUInt(bool* ok) const
{
    const auto number = readNumber(view(), false, std::numeric_limits<quint32>::max());
    report(ok, number.has_value());
    return number ? static_cast<unsigned int>(number->magnitude) : 0;
}

QCString& QCString::setNum(long long number)
{
    return *this = fromBytes(QByteArray::number(number));
}

QCString& QCString::setNum(unsigned long long number)
{
    return *this = fromBytes(QByteArray::number(number));
}

QCString::operator QByteArray() const
{
    if (isNull())
        return {};
    return isWhole() ? tarvomime::SharedBytes(mBytes).takeArray(mText, mLength)
                     : QByteArray(mText, mLength);
}

bool operator==(const QCString& a, const char* b) noexcept
{
    return a.view() == viewOf(b);
}

bool operator<(const QCString& a, const char* b) noexcept
{
    return a.view() < viewOf(b);
}

bool operator<(const char* a, const QCString& b) noexcept
{
    return viewOf(a) < b.view();
}
