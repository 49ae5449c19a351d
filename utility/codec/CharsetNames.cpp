// SPDX-License-Identifier: MIT
#include "utility/codec/CharsetNames.h"

#include "types/Ascii.h"
#include "utility/EMAIL_Numbers.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tarvomime {

namespace {

struct CharsetRow
{
    std::string_view mimeName;
    const char* codecName;
    // The codec writes and reads every character as one byte.
    bool singleByte;
};

// By charset number.
//
// 1. us-ascii goes through the Latin-1 codec: 8-bit bytes under that label are read, not lost.
// 2. UTF-7 has a decoder of its own and is never written; its codec only answers for plain text
//    beside it.
// 3. gb2312 goes through the codec of its superset GBK, tis620 through that of ISO 8859-11.
constexpr std::array<CharsetRow, kCharsetCount> kCharsetRows = {{
    {"us-ascii", "ISO 8859-1", true},
    {"us-ascii", "ISO 8859-1", true},
    {"iso-8859-1", "ISO 8859-1", true},
    {"iso-8859-2", "ISO 8859-2", true},
    {"iso-8859-4", "ISO 8859-4", true},
    {"iso-8859-6", "ISO 8859-6", true},
    {"iso-8859-7", "ISO 8859-7", true},
    {"iso-8859-8", "ISO 8859-8", true},
    {"iso-8859-9", "ISO 8859-9", true},
    {"iso-8859-13", "ISO 8859-13", true},
    {"koi8-u", "KOI8-U", true},
    {"windows-1251", "CP 1251", true},
    {"utf-7", "ISO 8859-1", true},
    {"utf-8", "UTF-8", false},
    {"gb2312", "GBK", false},
    {"gbk", "GBK", false},
    {"big5", "Big5", false},
    {"tis620", "ISO 8859-11", true},
    {"iso-8859-11", "ISO 8859-11", true},
    {"windows-874", "CP 874", true},
    {"iso-8859-5", "ISO 8859-5", true},
    {"iso-8859-3", "ISO 8859-3", true},
    {"iso-8859-10", "ISO 8859-10", true},
    {"iso-8859-15", "ISO 8859-15", true},
}};
static_assert(kCharsetRows[CHARSET_UTF_8].mimeName == "utf-8");

struct RecognisedName
{
    std::string_view key;
    int charset;
};

// A name is recognised by the first key it contains, so that decorated names ("x-iso-8859-2",
// "csbig5", a name in quotes) are known too.
//
// 1. The order decides: every longer ISO 8859 name stands before "iso-8859-1", which it contains.
// 2. "koi8" takes koi8-r for koi8-u: they differ in a few letters only.
constexpr std::array<RecognisedName, 23> kRecognisedNames = {{
    {"utf-8", CHARSET_UTF_8},
    {"utf-7", CHARSET_UTF_7},
    {"big5", CHARSET_BIG5},
    {"gb2312", CHARSET_GB2312},
    {"gbk", CHARSET_GBK},
    {"windows-874", CHARSET_WINDOWS_874},
    {"iso-8859-11", CHARSET_ISO_8859_11},
    {"tis620", CHARSET_TIS620},
    {"iso-8859-2", CHARSET_ISO_8859_2},
    {"iso-8859-3", CHARSET_ISO_8859_3},
    {"iso-8859-4", CHARSET_ISO_8859_4},
    {"iso-8859-5", CHARSET_ISO_8859_5},
    {"iso-8859-6", CHARSET_ISO_8859_6},
    {"iso-8859-7", CHARSET_ISO_8859_7},
    {"iso-8859-8", CHARSET_ISO_8859_8},
    {"iso-8859-9", CHARSET_ISO_8859_9},
    {"iso-8859-10", CHARSET_ISO_8859_10},
    {"iso-8859-13", CHARSET_ISO_8859_13},
    {"iso-8859-15", CHARSET_ISO_8859_15},
    {"iso-8859-1", CHARSET_ISO_8859_1},
    {"koi8", CHARSET_KOI8_U},
    {"windows-1251", CHARSET_WINDOWS_1251},
    {"us-ascii", CHARSET_US_ASCII},
}};
// Every charset but "unknown" is recognised by one key.
static_assert(kRecognisedNames.size() == kCharsetRows.size() - 1);

bool containsIgnoringCase(std::string_view name, std::string_view lowerKey)
{
    return std::search(name.begin(), name.end(), lowerKey.begin(), lowerKey.end(),
                       [](char c, char k) { return asciiLower(c) == k; }) != name.end();
}

const CharsetRow& rowOf(int charset)
{
    return kCharsetRows[static_cast<std::size_t>(knownCharset(charset))];
}

} // namespace

int charsetFromName(std::string_view name)
{
    for (const RecognisedName& row : kRecognisedNames) {
        if (containsIgnoringCase(name, row.key))
            return row.charset;
    }
    return CHARSET_UNKNOWN;
}

int charsetOfExactName(std::string_view name)
{
    // Names of one length differ in their last characters, most of them.
    const auto equals = [name](const RecognisedName& row) {
        return row.key.size() == name.size() && row.key.back() == asciiLower(name.back()) &&
               equalIgnoringCase(row.key, name);
    };
    const auto* row = std::find_if(kRecognisedNames.begin(), kRecognisedNames.end(), equals);
    return row == kRecognisedNames.end() ? int{CHARSET_UNKNOWN} : row->charset;
}

int writeCharsetName(int charset, QCString& name)
{
    const std::string_view mimeName = mimeCharsetName(charset);
    name = QCString(mimeName.data(), static_cast<int>(mimeName.size()));
    return 1;
}

std::string_view mimeCharsetName(int charset)
{
    return rowOf(charset).mimeName;
}

const char* codecName(int charset)
{
    return rowOf(charset).codecName;
}

bool isSingleByte(int charset)
{
    return rowOf(charset).singleByte;
}

} // namespace tarvomime
