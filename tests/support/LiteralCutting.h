// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <vector>

/// The rules for cutting a multipart body, written down step by step with no thought of speed: the
/// measure for the library's own search.
namespace literal {

struct Delimiter
{
    bool found = false;
    bool closing = false;
    int start = 0;
    int next = 0;
};

/// The next delimiter in the bytes of `text` from `position` up to `end`.
Delimiter findDelimiter(const QByteArray& text, int position, int end, const QByteArray& boundary);

struct Range
{
    int start = 0;
    int end = 0;
};

/// The parts of the body that runs from `start` up to `end`.
std::vector<Range> cut(const QByteArray& text, int start, int end, const QByteArray& boundary);

/// The tree of a message as `printTree` prints it with enclosed messages parsed.
QByteArray printedTree(const QByteArray& message);

} // namespace literal
