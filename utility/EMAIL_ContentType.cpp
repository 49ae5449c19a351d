// SPDX-License-Identifier: MIT
#include "utility/EMAIL_ContentType.h"

#include "types/Ascii.h"
#include "utility/EMAIL_Numbers.h"
#include "utility/codec/CharsetNames.h"
#include "utility/codec/MediaTypes.h"
#include "utility/header/BoundaryForm.h"
#include "utility/header/TypedField.h"
#include "utility/text/Joined.h"
#include "utility/text/Tokens.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace {

using namespace tarvomime;

constexpr char kBoundaryKey[] = "boundary";
constexpr char kCharsetKey[] = "charset";
constexpr char kMethodKey[] = "method";
constexpr char kNameKey[] = "name";
constexpr char kStartKey[] = "start";

// Many short fields may each repeat a value of their own as often as they like: a few bytes beyond
// what was read are an honest sender's.
constexpr qint64 kFewRepeated = 64;

// Hands every piece of the written value to `take`, in order.
template <class Take>
void forEachPiece(const EMAIL_ContentType& field, Take take)
{
    take(field.mType.view());
    take("/");
    take(field.mSubType.view());
    if (!field.mBoundary.isEmpty()) {
        take(";Boundary=\"");
        take(field.mBoundary.view());
        take("\"");
    }
    for (auto param = field.mParams.constBegin(); param != field.mParams.constEnd(); ++param) {
        if (param.key().view() == kBoundaryKey)
            continue;
        take(";\r\n\t");
        take(param.key().view());
        take("=");
        take(param.value().view());
    }
}

qint64 writtenSize(const EMAIL_ContentType& field)
{
    qint64 size = 0;
    forEachPiece(field,
                 [&size](std::string_view piece) { size += static_cast<qint64>(piece.size()); });
    return size;
}

// A change that an application makes is never put aside.
void noteChange(EMAIL_ContentType& field)
{
    if (field.mParsed == Kept)
        field.mParsed = Rewritten;
}

// Reads "name=value;name=value" into `params`; earlier values of a name are replaced.
//
// 1. A value lives on from piece to piece: a piece without "=" is stored with the value of the
//    piece before it.
// 2. An empty name is stored when there are no pieces at all: "text/plain;" keeps its ";".
// 3. Quotes protect nothing: a ";" inside a quoted value ends it.
// 4. White space alone is a piece before a ";", but none at the text's end.
//
// Gives the bytes of values that were stored again.
qint64 readParameters(const QCString& text, QMap<QCString, QCString>& params)
{
    qint64 repeated = 0;
    QCString value = QCString::fromLiteral("");
    std::string_view rest = text.view();
    bool hasPieces = false;
    for (bool more = true; more;) {
        const Sides sides = sidesOfFirst(";", rest, false);
        more = sides.right.has_value();
        rest = sides.right.value_or(std::string_view());
        if (more ? sides.left.empty() : trimmed(sides.left).empty())
            continue;
        const Sides pair = sidesOfFirst("=", sides.left, true);
        if (pair.right)
            value = text.slice(*pair.right);
        else
            repeated += value.length();
        params.insert(text.slice(pair.left).lower(), value);
        hasPieces = true;
    }
    if (!hasPieces)
        params.insert(QCString::fromLiteral(""), value);
    return repeated;
}

template <std::size_t N>
void readQuoted(const QMap<QCString, QCString>& params, const char (&key)[N], QCString& out)
{
    const auto found = params.constFind(QCString::fromLiteral(key));
    if (found != params.constEnd())
        out = withoutQuotes(found.value());
}

// The counter keeps two boundaries of one second apart, also those of two threads.
unsigned int nextSeed()
{
    static std::atomic<unsigned int> counter = 0;
    return static_cast<unsigned int>(std::time(nullptr)) + ++counter;
}

} // namespace

EMAIL_ContentType::EMAIL_ContentType() : EMAIL_ContentType(QCString(), nullptr) {}

EMAIL_ContentType::EMAIL_ContentType(const QCString& text, EMAIL_BaseComponent* parent)
    : EMAIL_Field(text, parent), mType(QCString::fromLiteral("text")),
      mSubType(QCString::fromLiteral("plain")), mTypeEnum(TYPE_TEXT), mSubTypeEnum(SUBTYPE_PLAIN)
{
}

EMAIL_ContentType::~EMAIL_ContentType() = default;

void EMAIL_ContentType::assemble()
{
    if (mType.isEmpty() || mSubType.isEmpty()) {
        // A refusal is no line that could stay: the body that it kept from being rewritten does.
        if (isRefused(mString))
            EMAIL_Field::assemble();
        return;
    }
    if (mParsed == Rewritten) {
        if (writtenSize(*this) > kLongestWrittenValue) {
            mString = refusedText();
            return;
        }
        mBody = writtenBody();
    }
    EMAIL_Field::assemble();
}

QCString EMAIL_ContentType::writtenBody() const
{
    QByteArray body;
    body.reserve(static_cast<int>(writtenSize(*this)));
    forEachPiece(*this, [&body](std::string_view piece) {
        body.append(piece.data(), static_cast<int>(piece.size()));
    });
    return QCString::fromBytes(body);
}

void EMAIL_ContentType::parse()
{
    if (mBody.isEmpty())
        return;
    const int before = mParsed;
    const int position = parseMediaType();
    // Until all is read, the text is what counts.
    mParsed = Unparsed;
    const bool isFollowed = mBody.at(position) == ';';
    qint64 repeated = 0;
    if (isFollowed)
        repeated = readParameters(mBody.mid(position + 1), mParams);
    else if (position == 0)
        repeated = readParameters(mBody, mParams);
    if (isFollowed || position == 0)
        readQuoted(mParams, kBoundaryKey, mBoundary);
    const bool isBlownUp = repeated > mBody.length() + kFewRepeated;
    mParsed = parsedState(before, isBlownUp || writtenSize(*this) > kLongestWrittenValue);
}

int EMAIL_ContentType::parseMediaType()
{
    const std::string_view body = mBody.view();
    const std::string_view mediaType = body.substr(0, body.find(';'));
    const std::size_t slash = mediaType.rfind('/');
    if (slash == std::string_view::npos || slash == 0) {
        setTypeStr(QCString::fromLiteral("text"));
        setSubTypeStr(QCString::fromLiteral("plain"));
        return 0;
    }
    mType = mBody.slice(trimmed(mediaType.substr(0, slash)));
    mTypeEnum = tarvomime::mediaTypeFromName(mType);
    mSubType = mBody.slice(trimmed(mediaType.substr(slash + 1)));
    mSubTypeEnum = tarvomime::subtypeFromName(mSubType);
    return static_cast<int>(mediaType.size());
}

void EMAIL_ContentType::setType(int type)
{
    mTypeEnum = type;
    mType = QCString::fromLiteral("");
    tarvomime::writeMediaTypeName(type, mType);
    mParsed = 1;
}

void EMAIL_ContentType::setSubType(int subType)
{
    mSubTypeEnum = subType;
    mSubType = QCString::fromLiteral("");
    tarvomime::writeSubtypeName(subType, mSubType);
    mParsed = 1;
}

void EMAIL_ContentType::setTypeStr(const QCString& name)
{
    mType = name;
    mTypeEnum = tarvomime::mediaTypeFromName(name);
    mParsed = 1;
}

void EMAIL_ContentType::setSubTypeStr(const QCString& name)
{
    mSubType = name;
    mSubTypeEnum = tarvomime::subtypeFromName(name);
    mParsed = 1;
}

void EMAIL_ContentType::setBoundary(const QCString& boundary)
{
    mBoundary = boundary;
    noteChange(*this);
}

QCString EMAIL_ContentType::getMethod() const
{
    return mMethod;
}

void EMAIL_ContentType::setMethod(const QCString& method)
{
    mMethod = method;
    storeParameter(QCString::fromLiteral(kMethodKey), method);
}

int EMAIL_ContentType::getCharset() const
{
    QCString charset;
    readQuoted(mParams, kCharsetKey, charset);
    return tarvomime::charsetFromName(charset.view());
}

bool EMAIL_ContentType::hasCharset() const
{
    return mParams.contains(QCString::fromLiteral(kCharsetKey));
}

int EMAIL_ContentType::setCharset(int charset)
{
    QCString name;
    const int written = tarvomime::writeCharsetName(charset, name);
    storeParameter(QCString::fromLiteral(kCharsetKey), name);
    return written;
}

void EMAIL_ContentType::setCharset(const QCString& charset)
{
    storeParameter(QCString::fromLiteral(kCharsetKey), charset);
}

void EMAIL_ContentType::getName(QCString& out) const
{
    readQuoted(mParams, kNameKey, out);
}

void EMAIL_ContentType::setName(const QCString& name)
{
    storeParameter(QCString::fromLiteral(kNameKey), name);
}

void EMAIL_ContentType::getStart(QCString& out) const
{
    readQuoted(mParams, kStartKey, out);
}

void EMAIL_ContentType::setStart(const QCString& start)
{
    storeParameter(QCString::fromLiteral(kStartKey), start);
}

void EMAIL_ContentType::setParameter(const QCString& name, const QCString& value)
{
    mParams.insert(name.lower(), value);
    noteChange(*this);
}

void EMAIL_ContentType::storeParameter(const QCString& key, const QCString& value)
{
    mParams.insert(key, value);
    mParsed = 1;
}

void EMAIL_ContentType::createBoundary()
{
    QByteArray boundary(kBoundaryHyphens, '-');
    std::srand(nextSeed());
    for (int i = 0; i < kBoundaryDigits; ++i)
        boundary.append(kBoundaryDigitSet[static_cast<std::size_t>(std::rand() % 16)]);
    setBoundary(QCString::fromBytes(boundary));
}
