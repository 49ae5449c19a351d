// SPDX-License-Identifier: MIT
#include "bench/codecs/Inputs.h"

#include "utility/EMAIL_Util.h"

#include <random>
#include <vector>

namespace bench {

namespace {

const std::vector<std::string> kEnglishWords{
    "the",  "of",    "and",     "meeting", "to",      "a",       "in",       "please", "find",
    "that", "is",    "report",  "for",     "it",      "message", "was",      "on",     "with",
    "as",   "be",    "draft",   "at",      "by",      "we",      "received", "this",   "from",
    "your", "have",  "letter,", "or",      "which",   "one",     "answer.",  "all",    "would",
    "will", "there", "their",   "regards", "tomorrow"};

const std::vector<std::string> kRussianWords{
    "и",   "в",        "не",      "на",     "я",       "что",     "письмо",     "с",
    "это", "как",      "ответ,",  "по",     "для",     "встреча", "от",         "завтра",
    "мы",  "вложение", "к",       "за",     "просьба", "будет",   "сообщение.", "так",
    "все", "очень",    "спасибо", "привет", "или",     "отчёт"};

std::string makeProse(const std::vector<std::string>& words, std::size_t size)
{
    constexpr std::size_t kLineBytes = 70;
    std::mt19937 random(20);
    std::string text;
    std::size_t column = 0;
    while (text.size() < size) {
        const std::string& word = words[random() % words.size()];
        if (column > kLineBytes) {
            text += "\r\n";
            column = 0;
        }
        text += column == 0 ? word : " " + word;
        column += word.size() + 1;
    }
    text.resize(size);
    return text;
}

std::string makeNoise(std::size_t size)
{
    std::mt19937 random(21);
    std::string noise(size, '\0');
    for (char& byte : noise)
        byte = static_cast<char>(random());
    return noise;
}

bool isLiteral(unsigned char byte, Kind kind)
{
    if (kind != Kind::Binary && (byte == '\r' || byte == '\n'))
        return true;
    return byte >= ' ' && byte <= '~' && byte != '=';
}

} // namespace

const char* kindName(Kind kind)
{
    switch (kind) {
    case Kind::English:
        return "english";
    case Kind::Russian:
        return "russian";
    default:
        return "binary";
    }
}

std::string makeInput(Kind kind, std::size_t size)
{
    switch (kind) {
    case Kind::English:
        return makeProse(kEnglishWords, size);
    case Kind::Russian:
        return makeProse(kRussianWords, size);
    default:
        return makeNoise(size);
    }
}

std::string asQuotedPrintable(const std::string& data, Kind kind)
{
    constexpr std::size_t kLineLength = 76;
    constexpr char kHexDigits[] = "0123456789ABCDEF";
    std::string text;
    std::size_t column = 0;
    for (const char c : data) {
        const auto byte = static_cast<unsigned char>(c);
        const bool literal = isLiteral(byte, kind);
        if (column + (literal ? 1 : 3) > kLineLength - 1 && c != '\r' && c != '\n') {
            text += "=\r\n";
            column = 0;
        }
        if (literal)
            text += c;
        else
            text += {'=', kHexDigits[byte >> 4], kHexDigits[byte & 0x0F]};
        column = literal && c == '\n' ? 0 : column + (literal ? 1 : 3);
    }
    return text;
}

std::string asBase64(const std::string& data, bool breakLines)
{
    return EMAIL_Util::encB64(data.data(), data.size(), breakLines ? 1 : 0).toStdString();
}

} // namespace bench
