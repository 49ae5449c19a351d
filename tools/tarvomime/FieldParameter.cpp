// SPDX-License-Identifier: MIT
#include "tools/tarvomime/FieldParameter.h"

#include "utility/EMAIL_Util.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>

namespace tarvomime::tool {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes a quoted string, whose opening quote `rest` begins with. A backslash quotes only a quote
/// or another backslash: senders write "C:\mail\a.txt" as it stands.
std::string takeQuoted(std::string_view& rest)
{
    std::string value;
    rest.remove_prefix(1);
    while (!rest.empty() && rest.front() != '"') {
        const bool escape =
            rest.front() == '\\' && rest.size() > 1 && (rest[1] == '"' || rest[1] == '\\');
        if (escape)
            rest.remove_prefix(1);
        value += rest.front();
        rest.remove_prefix(1);
    }
    return value;
}

/// Moves behind the next ";" that stands outside quotes.
void skipToNext(std::string_view& rest)
{
    bool quoted = false;
    std::size_t i = 0;
    while (i < rest.size() && (quoted || rest[i] != ';')) {
        if (rest[i] == '"')
            quoted = !quoted;
        ++i;
    }
    rest.remove_prefix(std::min(i + 1, rest.size()));
}

struct Parameter
{
    std::string name;
    std::string value;
};

Parameter takeParameter(std::string_view& rest)
{
    const std::size_t end = rest.find_first_of("=;");
    if (end == std::string_view::npos || rest[end] == ';') {
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        return {};
    }
    Parameter parameter{std::string(trimmed(rest.substr(0, end))), {}};
    for (char& c : parameter.name)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    rest.remove_prefix(end + 1);
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (!rest.empty() && rest.front() == '"') {
        parameter.value = takeQuoted(rest);
        rest.remove_prefix(std::min<std::size_t>(1, rest.size()));
        skipToNext(rest);
    } else {
        const std::string_view token = rest.substr(0, rest.find(';'));
        parameter.value = trimmed(token);
        rest.remove_prefix(std::min(token.size() + 1, rest.size()));
    }
    return parameter;
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string percentDecoded(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? hexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? hexDigit(text[i + 2]) : -1;
        if (low < 0) {
            out += text[i];
            continue;
        }
        out += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return out;
}

QByteArray toByteArray(std::string_view text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

/// The forms in which one parameter can come.
class Forms
{
public:
    explicit Forms(std::string_view name) : mName(name) {}

    void collect(Parameter&& parameter)
    {
        std::string_view form = parameter.name;
        if (form.substr(0, mName.size()) != mName)
            return;
        form.remove_prefix(mName.size());
        if (form.empty() && !mPlain)
            mPlain = std::move(parameter.value);
        else if (form.size() > 1 && form[0] == '*' && hexDigit(form[1]) >= 0)
            collectSection(form.substr(1), std::move(parameter.value));
        else if (form == "*")
            mSections[-1] = {std::move(parameter.value), true};
    }

    QString decoded(int charset) const
    {
        QString out;
        if (!mSections.empty())
            return decodedSections(charset);
        if (mPlain)
            EMAIL_Util::decode_2047_String(QCString(toByteArray(*mPlain)), out, charset);
        return out;
    }

private:
    struct Section
    {
        std::string text;
        bool encoded;
    };

    void collectSection(std::string_view form, std::string&& value)
    {
        const bool encoded = form.back() == '*';
        if (encoded)
            form.remove_suffix(1);
        const QCString digits(form.data(), static_cast<int>(form.size()));
        bool isNumber = false;
        const int number = digits.toInt(&isNumber);
        if (isNumber && number >= 0)
            mSections.try_emplace(number, Section{std::move(value), encoded});
    }

    /// charset'language'text, the first two in the first section only.
    QString decodedSections(int charset) const
    {
        // The unnumbered form stands before all numbered ones, and alone.
        const bool whole = mSections.begin()->first == -1;
        std::string bytes;
        bool first = true;
        for (const auto& [number, section] : mSections) {
            std::string_view text = section.text;
            const std::size_t language = first && section.encoded ? text.find('\'') : text.npos;
            const std::size_t content =
                language == text.npos ? language : text.find('\'', language + 1);
            if (content != text.npos) {
                const QCString label(text.data(), static_cast<int>(language));
                const int declared = EMAIL_Util::charsetStrToEnum(label);
                charset = declared == CHARSET_UNKNOWN ? charset : declared;
                text.remove_prefix(content + 1);
            }
            bytes += section.encoded ? percentDecoded(text) : std::string(text);
            first = false;
            if (whole)
                break;
        }
        QString out;
        EMAIL_Util::decFromCharset(toByteArray(bytes), out, charset);
        return out;
    }

    std::string_view mName;
    std::optional<std::string> mPlain;
    std::map<int, Section> mSections;
};

} // namespace

QString fieldParameter(const QCString& body, std::string_view name, int charset)
{
    Forms forms(name);
    std::string_view rest = body.view();
    skipToNext(rest);
    while (!rest.empty())
        forms.collect(takeParameter(rest));
    return forms.decoded(charset);
}

} // namespace tarvomime::tool
