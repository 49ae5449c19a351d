// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Field.h"

#include <QMap>

/// The typed field "Content-Type" (RFC 2045, section 5): media type, subtype and parameters.
///
/// A new field is text/plain without parameters. While `mParsed` is 1 the members are authoritative
/// and `assemble()` rewrites the body from them; every setter sets it, but for those that say
/// otherwise. Parameter names are compared exactly; since the parser lower-cases them, the getters
/// find what was read in any spelling. Setters store values as given: quotes are the caller's.
class TARVOMIME_EXPORT EMAIL_ContentType : public EMAIL_Field
{
public:
    EMAIL_ContentType();
    EMAIL_ContentType(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_ContentType() override;
    /// Writes type, "/", subtype, the boundary and the parameters, sorted by name, each on its own
    /// continuation line behind one TAB. Values are written as stored.
    ///
    /// 1. An empty type or subtype leaves body and line untouched: there is nothing to write.
    /// 2. A value that would take more than 1,048,576 bytes is refused: the line becomes empty,
    ///    and the assembly of the header fails.
    /// 3. The boundary is always quoted, follows the subtype without white space and is spelled
    ///    "Boundary": receivers in the field know this form. It comes from `mBoundary`; a parameter
    ///    "boundary" is not written.
    void assemble() override;
    /// Reads the members from the body; an empty body changes nothing.
    ///
    /// 1. The last "/" before the first ";" parts type and subtype, so that "a/b/c" is the subtype
    ///    "c" of "a/b". Without a "/", or with one in front only, the field is text/plain.
    /// 2. A body without a usable "/" is read as a parameter list from its start, so that nothing
    ///    of it is lost.
    /// 3. Quotes protect nothing: a ";" inside a quoted value ends it. Values keep their quotes.
    /// 4. A parameter without "=" takes the value of the one before it, and a list that is empty
    ///    stores one parameter with an empty name: "text/plain;" keeps its ";".
    /// 5. Parameters of an earlier call stay unless they are replaced. The same holds for
    ///    `mBoundary`.
    /// 6. A field that would take more than 1,048,576 bytes to write, or would repeat values for
    ///    more bytes than were read (and 64), keeps the text that it was read from: `mParsed` is
    ///    then 2, until a setter changes the field. Short parameters may share one long value, and
    ///    what is written would grow with the square of what was read.
    void parse() override;

    /// Sets the media type by its number (`TYPE_TEXT`, ...); a number without a name stores an
    /// empty text, so that number and text stay in step.
    void setType(int type);
    /// Sets the subtype by its number; a number without a name stores an empty text.
    void setSubType(int subType);
    /// Sets the media type by its text, kept as given; an unknown one has the number 0.
    void setTypeStr(const QCString& name);
    /// Sets the subtype by its text, kept as given; an unknown one has the number 0.
    void setSubTypeStr(const QCString& name);
    /// Sets the boundary, without quotes. Touches neither `mParsed` nor the parameters.
    void setBoundary(const QCString& boundary);
    /// The method last set through `setMethod`; what was read stays among the parameters.
    QCString getMethod() const;
    /// Sets the method and the parameter "method".
    void setMethod(const QCString& method);
    /// The number of the parameter "charset" (`CHARSET_UTF_8`, ...), double quotes trimmed;
    /// `CHARSET_UNKNOWN` when it is absent or not known.
    int getCharset() const;
    /// Whether there is a parameter "charset", of whatever value.
    bool hasCharset() const;
    /// Sets the parameter "charset" by its number, to "us-ascii" for one that is not known. Returns
    /// 1: every number has a name.
    int setCharset(int charset);
    /// Sets the parameter "charset" by its text.
    void setCharset(const QCString& charset);
    /// Gives the parameter "name", double quotes trimmed; absent, it leaves `out` alone.
    void getName(QCString& out) const;
    /// Sets the parameter "name".
    void setName(const QCString& name);
    /// Gives the parameter "start" (RFC 2387), double quotes trimmed; absent, it leaves `out`
    /// alone.
    void getStart(QCString& out) const;
    /// Sets the parameter "start".
    void setStart(const QCString& start);
    /// Sets the parameter of that name, lower-cased. Does not touch `mParsed`.
    void setParameter(const QCString& name, const QCString& value);
    /// Makes a fresh boundary of 36 characters: 12 hyphens and 24 upper-case hexadecimal digits.
    /// Seeds the C library's random generator. Does not touch `mParsed`.
    void createBoundary();

    /// All parameters read or set, sorted bytewise by name; values with their quotes.
    QMap<QCString, QCString> mParams;
    /// The media type as read or set ("text", "multipart").
    QCString mType;
    /// The subtype as read or set ("plain", "mixed").
    QCString mSubType;
    /// `mType` as a number.
    int mTypeEnum;
    /// `mSubType` as a number.
    int mSubTypeEnum;
    /// The multipart boundary without quotes: the one that is written.
    QCString mBoundary;
    /// The calendar method as last set.
    QCString mMethod;

private:
    int parseMediaType();
    QCString writtenBody() const;
    void storeParameter(const QCString& key, const QCString& value);
};
