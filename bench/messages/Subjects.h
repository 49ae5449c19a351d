// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace bench {

/// A subject as text and as other mail programs put it on the wire: words of 75 columns, B and Q by
/// turns, folded.
struct Subject
{
    std::string utf8;
    std::string wire;
};

enum class Language { Russian, German, Chinese };
/// The charset's name on the wire: utf-8, iso-8859-1, gb2312.
const char* charsetName(Language language);
/// `count` subjects of three to ten words.
std::vector<Subject> subjectsIn(Language language, int count);

} // namespace bench
