// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/StoredFile.h"
#include "tests/support/TreePrinter.h"
#include "utility/EMAIL_Message.h"

#include <QDir>
#include <gtest/gtest.h>

/// Messages NAME.eml in a folder, each beside what it prints as.
namespace golden {

inline QStringList sampleNames(const QString& folder)
{
    QStringList names;
    for (const QString& file : QDir(folder).entryList({QStringLiteral("*.eml")}, QDir::Files))
        names.append(file.chopped(4));
    return names;
}

inline QByteArray withCrLf(QByteArray text)
{
    return text.replace("\r\n", "\n").replace("\n", "\r\n");
}

/// The tree of a message in memory, `between`, then what assembling it gives, line by line.
inline QByteArray printedFromMemory(const QByteArray& text, const QByteArray& between = {})
{
    EMAIL_Message message(QCString::fromBytes(text), nullptr);
    message.parse();
    QByteArray printed = printTree(message, EnclosedMessages::Parsed) + between;
    message.assemble();
    printed += "assembled\n";
    QByteArray assembled = message.getMessage();
    assembled.replace("\r\n", "\n");
    for (const QByteArray& line : assembled.split('\n'))
        printed += "  " + printText(line) + '\n';
    return printed;
}

/// The tree of a message in a file.
inline QByteArray printedFromFile(const QByteArray& text)
{
    EMAIL_Message message;
    message.parse(text.constData(), 0, int(text.size()), QStringLiteral("/a/file"));
    return printTree(message, EnclosedMessages::Parsed, text);
}

/// Leaves what was printed instead of the expected text in the file `output`.
inline void compare(const QString& output, const QByteArray& expected, const QByteArray& printed)
{
    if (printed == expected)
        return;
    QFile file(output);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << output.toStdString();
    file.write(printed);
    ADD_FAILURE() << "the tree differs, see " << output.toStdString() << '\n'
                  << printed.toStdString();
}

} // namespace golden
