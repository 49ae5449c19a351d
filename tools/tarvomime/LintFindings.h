// SPDX-License-Identifier: MIT
#pragma once

#include "tools/tarvomime/PartTree.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <string_view>
#include <vector>

namespace tarvomime::tool {

/// One thing that a careful reader of a message should know.
struct Finding
{
    /// What was found, for programs: one of the words that `lint --help` lists.
    const char* code;
    /// The part's number; empty for one that lies too deep for numbers.
    QByteArray part;
    /// The same for people, with the details.
    QString explanation;
    /// The bytes of the file that it is about; a length of 0 means none in particular.
    qint64 offset = 0;
    qint64 length = 0;
};

/// A part under examination and the list that its findings go to.
struct Examination
{
    const InputFile& file;
    const EMAIL_Entity& entity;
    QByteArray number;
    int charset;
    std::vector<Finding>& findings;

    void report(const char* code, const QString& explanation, qint64 offset = 0,
                qint64 length = 0) const
    {
        findings.push_back({code, number, explanation, offset, length});
    }
    /// The body as it stands in the file.
    std::string_view bodyBytes() const;
};

/// Header fields: duplicates, private fields, encoded words with line breaks in them, file names
/// that try to escape, labels of unknown charsets.
void examineFields(const Examination& part);

/// The declared charset of a text against its bytes.
void examineCharset(const Examination& part);

/// The delimiter lines of a container: bytes that belong to no part, a missing closing delimiter,
/// lines that almost match. `boundaries` are those of the whole message.
void examineBoundaries(const Examination& part, const std::vector<std::string>& boundaries);

} // namespace tarvomime::tool
