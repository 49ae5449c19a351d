// SPDX-License-Identifier: MIT
#include "bench/messages/Subjects.h"

#include "bench/codecs/Inputs.h"

#include <cstdio>
#include <memory>
#include <random>

#include <iconv.h>

namespace bench {

namespace {

using Words = std::vector<std::string>;

const Words kRussian{"Отчёт", "о",  "встрече", "завтра", "в",  "офисе",  "и",      "новые",
                     "планы", "на", "квартал", "счёт",   "за", "январь", "письмо", "клиента"};
const Words kGerman{"Übersicht",  "für",       "die",   "Änderungen", "der", "Öffnungszeiten",
                    "nächste",    "Woche",     "über",  "Grüße",      "aus", "München",
                    "Bestellung", "bestätigt", "große", "Straße"};
const Words kChinese{"会议", "通知", "关于", "明天", "报告", "项目", "计划", "客户",
                     "问题", "合同", "发票", "更新", "重要", "文件", "请",   "查收"};

const Words& wordsOf(Language language)
{
    switch (language) {
    case Language::Russian:
        return kRussian;
    case Language::German:
        return kGerman;
    default:
        return kChinese;
    }
}

std::string converted(const std::string& utf8, const char* charset)
{
    iconv_t converter = iconv_open(charset, "UTF-8");
    std::string bytes(utf8.size(), '\0');
    char* in = const_cast<char*>(utf8.data());
    char* out = bytes.data();
    std::size_t inLeft = utf8.size();
    std::size_t outLeft = bytes.size();
    iconv(converter, &in, &inLeft, &out, &outLeft);
    iconv_close(converter);
    bytes.resize(bytes.size() - outLeft);
    return bytes;
}

std::string quoted(const std::string& bytes)
{
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == ' ') {
            text += '_';
        } else if (byte < 0x80 && c != '=' && c != '?' && c != '_') {
            text += c;
        } else {
            char escape[4];
            std::snprintf(escape, sizeof escape, "=%02X", byte);
            text += escape;
        }
    }
    return text;
}

std::size_t characterLength(char lead)
{
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

std::string wireOf(const std::string& utf8, const char* charset, bool isBase64)
{
    constexpr std::size_t kLongestWord = 75;
    const std::string start = std::string("=?") + charset + (isBase64 ? "?B?" : "?Q?");
    const auto wordOf = [&](const std::string& text) {
        const std::string bytes = converted(text, charset);
        return start + (isBase64 ? asBase64(bytes, false) : quoted(bytes)) + "?=";
    };
    std::string wire;
    std::string chunk;
    for (std::size_t i = 0; i < utf8.size();) {
        const std::string character = utf8.substr(i, characterLength(utf8[i]));
        if (wordOf(chunk + character).size() > kLongestWord) {
            wire += wordOf(chunk) + "\r\n ";
            chunk.clear();
        }
        chunk += character;
        i += character.size();
    }
    return wire + wordOf(chunk);
}

} // namespace

const char* charsetName(Language language)
{
    switch (language) {
    case Language::Russian:
        return "utf-8";
    case Language::German:
        return "iso-8859-1";
    default:
        return "gb2312";
    }
}

std::vector<Subject> subjectsIn(Language language, int count)
{
    std::mt19937 random(24);
    const Words& words = wordsOf(language);
    std::vector<Subject> subjects;
    for (int i = 0; i < count; ++i) {
        // The first word is outside ASCII in every language, so that all are encoded.
        std::string text = words.front();
        for (std::size_t left = 2 + random() % 8; left > 0; --left)
            text += ' ' + words[random() % words.size()];
        subjects.push_back({text, wireOf(text, charsetName(language), i % 2 == 0)});
    }
    return subjects;
}

} // namespace bench
