// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Field.h"

#include <QMap>

/// The typed field "Content-Type" (RFC 2045, section 5): media type, subtype and parameters.
///
/// While `mParsed` is 1 the members are authoritative and `assemble()` rewrites the body from them.
class TARVOMIME_EXPORT EMAIL_ContentType : public EMAIL_Field
{
public:
    EMAIL_ContentType();
    EMAIL_ContentType(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_ContentType() override;
    void assemble() override;
    void parse() override;

    void setType(int type);
    void setSubType(int subType);
    void setTypeStr(const QCString& name);
    void setSubTypeStr(const QCString& name);
    void setBoundary(const QCString& boundary);
    QCString getMethod() const;
    void setMethod(const QCString& method);
    int getCharset() const;
    bool hasCharset() const;
    int setCharset(int charset);
    void setCharset(const QCString& charset);
    void getName(QCString& out) const;
    void setName(const QCString& name);
    void getStart(QCString& out) const;
    void setStart(const QCString& start);
    void setParameter(const QCString& name, const QCString& value);
    void createBoundary();

    QMap<QCString, QCString> mParams;
    QCString mType;
    QCString mSubType;
    int mTypeEnum;
    int mSubTypeEnum;
    QCString mBoundary;
    QCString mMethod;
};
