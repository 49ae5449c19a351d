// SPDX-License-Identifier: MIT
#pragma once

#include "extra/MessageContent.h"
#include "extra/MessageFindings.h"
#include "utility/EMAIL_Entity.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvomime {

/// A part under examination and the list that its findings go to. The message was parsed in memory,
/// so that its texts are slices of the bytes examined.
struct PartExamination
{
    std::string_view bytes;
    const MessageContent& content;
    int index;
    const QByteArray& fallbackCharset;
    QList<MessageFinding>& findings;

    const ContentPart& part() const { return content.parts[index]; }
    const EMAIL_Entity& entity() const { return *part().entity; }
    /// The body as it stands in the message.
    std::string_view body() const;

    /// Reports under the kind's own severity; `where` is a piece of the message, or empty.
    void report(FindingKind kind, const QString& text, std::string_view where = {}) const;
    void report(FindingKind kind, FindingSeverity severity, const QString& text,
                std::string_view where = {}) const;
};

/// Header fields: duplicates, private fields, encoded words, file names, where the header ends.
void examineHeader(const PartExamination& part);

/// What stands before the first field of the whole message.
void examineStart(const PartExamination& message);

/// Lines of header and body: NUL, lone CR, length.
void examineLines(const PartExamination& part);

/// The body of a part that holds no others: its transfer encoding, charset, METHOD.
void examineBody(const PartExamination& part);

/// The delimiter lines of a container: bytes that belong to no part, a missing closing delimiter,
/// lines that almost match. `boundaries` are those of the whole message, sorted.
void examineBoundaries(const PartExamination& part, const std::vector<std::string>& boundaries);

} // namespace tarvomime
