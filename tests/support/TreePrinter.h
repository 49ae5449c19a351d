// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class EMAIL_Entity;

/// What the printed tree of a message shows of enclosed messages. Only a message in memory has
/// them parsed, and only in memory does a message-type body keep its outer line breaks.
enum class EnclosedMessages {
    Parsed,
    AsText,
};

/// The tree of a parsed message as lines of text: fields, kinds of body, parts. Control and 8-bit
/// bytes are escaped, and CR LF prints like LF, so that both forms of a message print alike.
/// `fileContent` is the file that bodies which are not in memory lie in.
QByteArray printTree(const EMAIL_Entity& message, EnclosedMessages enclosed,
                     const QByteArray& fileContent = QByteArray());

/// A text in double quotes, escaped as in the printed tree.
QByteArray printText(QByteArray text);
