// SPDX-License-Identifier: MIT
#pragma once

#include "utility/EMAIL_BaseComponent.h"

#include <QString>

class EMAIL_Body;
class EMAIL_Header;
class QFile;

/// A header and a body: what a whole message and one part of a multipart body have in common
/// (RFC 2045, section 2.4).
///
/// An entity owns its header and its body for its whole life; neither pointer is ever null.
class TARVOMIME_EXPORT EMAIL_Entity : public EMAIL_BaseComponent
{
public:
    EMAIL_Entity();
    EMAIL_Entity(const QCString& text, EMAIL_BaseComponent* parent);

    /// Deletes the header, then the body with everything below it.
    ~EMAIL_Entity() override;
    /// Assembles header and body, all the way down, and joins them in `mString`, which becomes
    /// empty where that fails.
    void assemble() override;
    /// Splits `mString` into header and body and parses both, all the way down.
    void parse() override;

    /// Parses `length` bytes of `data` from `start` on.
    ///
    /// With a `path`, `data` is the content of that file and every body stays a range of it; only
    /// header text is copied, up to its first NUL. With an empty `path`, `data` is the text of
    /// `mString` and bodies are slices of it. Parsing never fails: any text gives a header and a
    /// body, each possibly empty.
    ///
    /// The header ends at the first empty line, or at the start of the first line that has no ":"
    /// and begins with neither SP nor HTAB. Line breaks in front of the header are skipped. A last
    /// line without a line end belongs to the header, whatever it holds.
    void parse(const char* data, int start, int length, const QString& path);

    /// Assembles like `assemble()`; with a `file` the text is written there and `mString` stays
    /// empty. Returns 0, or -1 when the file does not take the text, a body cannot be read, a
    /// header cannot be built, the text in memory would be longer than `QCString::longestLength`,
    /// or there is no memory. What was written before stays in the file; the texts in memory of
    /// entities and bodies stay as they were.
    ///
    /// In memory, header, body and parts are asked for their text through their own `assemble()`,
    /// so that derived classes may override it. To a file only headers and fields are: no
    /// `assemble()` of its own could stream.
    int assemble(QFile* file);

    EMAIL_Header* mHeader = nullptr;
    EMAIL_Body* mBody = nullptr;
};
