// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Field.h"

/// The typed field "Content-Disposition" (RFC 2183), reduced to two facts: whether the part is an
/// attachment, and its file name.
class TARVOMIME_EXPORT EMAIL_DispositionType : public EMAIL_Field
{
public:
    EMAIL_DispositionType();
    EMAIL_DispositionType(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_DispositionType() override;
    void assemble() override;
    void parse() override;

    void setAttachment(int isAttachment);
    void setFileName(const QCString& fileName);
    QCString getFileName() const;

    /// 1 for an attachment, 0 for inline.
    int mIsAttachment = 0;
    /// The file name as stored.
    QCString mFileName;
};
