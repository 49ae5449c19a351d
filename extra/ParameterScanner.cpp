// SPDX-License-Identifier: MIT
#include "extra/ParameterScanner.h"

#include <algorithm>
#include <cstddef>

namespace tarvomime {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Whether what follows a quote lets it be a closing one: nothing, a ";" or a comment. A sender
// that does not escape writes `name="a "b".txt"`.
bool closesBefore(std::string_view rest)
{
    const std::size_t next = rest.find_first_not_of(kBlanks);
    return next == std::string_view::npos || rest[next] == ';' || rest[next] == '(';
}

// Whether an odd number of backslashes ends the text.
bool endsInEscape(std::string_view text)
{
    const std::size_t last = text.find_last_not_of('\\');
    const std::size_t count = text.size() - (last == std::string_view::npos ? 0 : last + 1);
    return count % 2 != 0;
}

// A backslash quotes only a quote or another backslash: senders write "C:\mail\a.txt" as it
// stands.
bool isEscape(std::string_view text)
{
    return text.size() > 1 && text[0] == '\\' && (text[1] == '"' || text[1] == '\\');
}

const char* lastClosingQuote(std::string_view body)
{
    std::size_t quote = body.rfind('"');
    while (quote != std::string_view::npos && quote > 0) {
        if (closesBefore(body.substr(quote + 1)) && !endsInEscape(body.substr(0, quote)))
            return body.data() + quote;
        quote = body.rfind('"', quote - 1);
    }
    return body.data();
}

std::string lowerCase(std::string_view text)
{
    std::string out(text);
    for (char& c : out)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return out;
}

} // namespace

ParameterScanner::ParameterScanner(std::string_view body)
    : mRest(body), mLastClosing(lastClosingQuote(body))
{
    skipToNext();
}

void ParameterScanner::skipBlanks()
{
    mRest.remove_prefix(std::min(mRest.find_first_not_of(kBlanks), mRest.size()));
}

// Moves behind the next ";" that stands outside quotes.
void ParameterScanner::skipToNext()
{
    bool quoted = false;
    std::size_t i = 0;
    while (i < mRest.size() && (quoted || mRest[i] != ';')) {
        if (mRest[i] == '"')
            quoted = !quoted;
        ++i;
    }
    mRest.remove_prefix(std::min(i + 1, mRest.size()));
}

// Takes a quoted string and its closing quote; the rest begins behind the opening one.
std::string ParameterScanner::takeQuoted()
{
    std::string value;
    while (!mRest.empty() && (mRest.front() != '"' || !closesBefore(mRest.substr(1)))) {
        if (isEscape(mRest))
            mRest.remove_prefix(1);
        value += mRest.front();
        mRest.remove_prefix(1);
    }
    mRest.remove_prefix(std::min<std::size_t>(1, mRest.size()));
    skipToNext();
    return value;
}

std::string ParameterScanner::takeValue()
{
    skipBlanks();
    const bool isQuoted = !mRest.empty() && mRest.front() == '"';
    if (isQuoted)
        mRest.remove_prefix(1);
    if (isQuoted && mayClose())
        return takeQuoted();
    const std::string_view token = mRest.substr(0, mRest.find(';'));
    mRest.remove_prefix(std::min(token.size() + 1, mRest.size()));
    return std::string(trimmed(token));
}

Parameter ParameterScanner::takeParameter()
{
    const std::size_t end = mRest.find_first_of("=;");
    if (end == std::string_view::npos || mRest[end] == ';') {
        mRest.remove_prefix(std::min(end, mRest.size() - 1) + 1);
        return {};
    }
    const std::string_view name = trimmed(mRest.substr(0, end));
    mRest.remove_prefix(end + 1);
    return {lowerCase(name), takeValue()};
}

} // namespace tarvomime
