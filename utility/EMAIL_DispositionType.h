// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_Field.h"

/// The typed field "Content-Disposition" (RFC 2183), reduced to two facts: whether the part is an
/// attachment, and its file name.
///
/// While `mParsed` is 1 the members are authoritative and `assemble()` rewrites the body from them.
class TARVOMIME_EXPORT EMAIL_DispositionType : public EMAIL_Field
{
public:
    EMAIL_DispositionType();
    EMAIL_DispositionType(const QCString& text, EMAIL_BaseComponent* parent);

    ~EMAIL_DispositionType() override;
    /// Writes "attachment" or "inline", "; filename = " and the file name.
    ///
    /// 1. The blanks around "=" and the missing quotes, whatever the name holds, are the form that
    ///    receivers in the field were built for; `parse()` reads it back.
    /// 2. An empty file name becomes "tmp", and stays so in the field: a part that is saved needs a
    ///    name.
    /// 3. A value that would take more than 1,048,576 bytes is refused: the line becomes empty,
    ///    and the assembly of the header fails.
    void assemble() override;
    /// Reads both facts from the body; an empty one is inline.
    ///
    /// 1. Whatever contains "attachment", in any case, is an attachment; everything else is inline.
    /// 2. The first parameter's value is the file name, however the parameter is called, and it
    ///    runs to the end of the body: later parameters are part of it.
    /// 3. Without a parameter, or with one that has no "=", the file name keeps what it held.
    /// 4. A field that would take more than 1,048,576 bytes to write keeps the text that it was
    ///    read from: `mParsed` is then 2, until a setter changes the field.
    void parse() override;

    /// 1 (or any number but 0) for an attachment, 0 for inline.
    void setAttachment(int isAttachment);
    /// Sets the file name, kept as given.
    void setFileName(const QCString& fileName);
    /// The file name without double quotes at its ends. One or two characters come back as they
    /// are, even when they are quotes.
    QCString getFileName() const;

    /// 1 for an attachment, 0 for inline.
    int mIsAttachment = 0;
    /// The file name as stored.
    QCString mFileName;
};
