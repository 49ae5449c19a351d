// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarvomime {

struct HtmlParser;

/// `html`, written anew so that the parser finds no tag that was not seen here, and nothing that
/// costs it more than its length: it compares each attribute of a tag with all before it, keeps all
/// names that it ever read in a table of a fixed size, and ends the document at a NUL.
///
/// Tags keep their name and the attributes that a reader of the text needs. The name is `x` where
/// it cannot be an element's, or where a thousand others came before it and HTML has none like it.
/// Comments, scripts and styles are empty. Each '<' begins what was written here, and each '&' a
/// character that the parser knows.
QByteArray guardedHtml(const QByteArray& html, const HtmlParser& parser);

} // namespace tarvomime
