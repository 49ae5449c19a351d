// SPDX-License-Identifier: MIT
#include "bench/growth/Recipe.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace {

constexpr std::size_t longestText = 1U << 22;
constexpr std::size_t mostSteps = 14;

// What a parser turns at: ends, delimiters, quotes, comments, encodings, numbers.
constexpr std::array<std::string_view, 56> pieces{
    "Content-Type: multipart/mixed; boundary=b\r\n\r\n",
    "Content-Type: multipart/alternative; boundary=b%\r\n\r\n--b%\r\n",
    "Content-Type: message/rfc822\r\n\r\n",
    "Content-Type: text/plain",
    "Content-Type: text/plain; charset=utf-7; name=\"%\"\r\n",
    "Content-Type: text/calendar; method=REQUEST\r\n",
    "Content-Disposition: attachment; filename=",
    "Content-Transfer-Encoding: base64\r\n",
    "Content-Transfer-Encoding: quoted-printable\r\n",
    "Content-Id: <%>\r\n",
    "To: ",
    "Date: ",
    "Subject: ",
    "X-%: y\r\n",
    "--b\r\n",
    "--b--\r\n",
    "--b%--\r\n",
    "--bb\r\n",
    "--",
    "\r\n",
    "\n",
    "\r",
    "\r\n ",
    ";",
    ";%",
    ";a%=b",
    ";a=b",
    "; a=\"",
    "\"",
    "\\",
    "\\\"",
    "(",
    ")",
    "<",
    ">",
    "@",
    ",",
    ":",
    "a",
    "a@b,",
    "\"a\" <a@b>,",
    "g: a@b; ",
    "=",
    "=?utf-8?B?YQ==?= ",
    "=?utf-8?Q?=C3?=",
    "=?",
    "?=",
    "=3D",
    "=\r\n",
    "YWJj\r\n",
    " ",
    "\t",
    "1 ",
    "Jan ",
    "+0100 ",
    "\xC3\xBC",
};

std::size_t below(std::mt19937& random, std::size_t limit)
{
    return random() % limit;
}

int someCount(std::mt19937& random)
{
    constexpr std::array counts{0, 1, 1, 10, 100, 1000, 4000};
    return counts[below(random, counts.size())];
}

void append(std::string& text, std::string_view piece, int number)
{
    for (const char c : piece) {
        if (c == '%')
            text += std::to_string(number);
        else
            text += c;
    }
}

} // namespace

Recipe Recipe::random(std::mt19937& random)
{
    Recipe recipe;
    for (std::size_t i = 1 + below(random, mostSteps - 1); i > 0; --i)
        recipe.mSteps.push_back({below(random, pieces.size()), someCount(random)});
    return recipe;
}

Recipe Recipe::mutated(std::mt19937& random) const
{
    Recipe other = *this;
    const std::size_t at = below(random, mSteps.size());
    const Step step{below(random, pieces.size()), someCount(random)};
    switch (below(random, 4)) {
    case 0:
        if (mSteps.size() < mostSteps)
            other.mSteps.insert(other.mSteps.begin() + static_cast<std::ptrdiff_t>(at), step);
        break;
    case 1:
        if (mSteps.size() > 1)
            other.mSteps.erase(other.mSteps.begin() + static_cast<std::ptrdiff_t>(at));
        break;
    case 2:
        other.mSteps[at] = step;
        break;
    default:
        other.mSteps[at].count = step.count;
        std::swap(other.mSteps[below(random, mSteps.size())], other.mSteps[at]);
    }
    return other;
}

// A count of 0 stands for one piece that does not grow.
std::string Recipe::text(int scale) const
{
    std::string text;
    for (const Step& step : mSteps) {
        const int count = step.count == 0 ? 1 : step.count * scale;
        for (int i = 0; i < count && text.size() < longestText; ++i)
            append(text, pieces[step.piece], i);
    }
    return text;
}

std::string Recipe::description() const
{
    std::string text;
    for (const Step& step : mSteps) {
        text += std::to_string(step.count) + " x '";
        for (const char c : pieces[step.piece])
            text += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
        text += "'  ";
    }
    return text;
}

std::string Recipe::numbers() const
{
    std::ostringstream text;
    const char* separator = "";
    for (const Step& step : mSteps) {
        text << separator << step.piece << 'x' << step.count;
        separator = ",";
    }
    return text.str();
}

Recipe Recipe::ofNumbers(const std::string& numbers)
{
    Recipe recipe;
    std::istringstream in(numbers);
    Step step{};
    char between = 0;
    while (in >> step.piece >> between >> step.count) {
        recipe.mSteps.push_back({step.piece % pieces.size(), step.count});
        in >> between;
    }
    return recipe;
}
