// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class EMAIL_MIME;

/// What an application shows of a message, as lines of text: the answers to a message list's
/// questions, the text and the calendar, then the parts with their types, names and decoded bodies.
/// Escaped as in the printed tree.
QByteArray printReaderView(const EMAIL_MIME& message);
