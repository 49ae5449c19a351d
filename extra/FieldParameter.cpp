// SPDX-License-Identifier: MIT
#include "extra/FieldParameter.h"

#include "extra/CharsetText.h"
#include "extra/EncodedWords.h"
#include "extra/HexDigit.h"
#include "extra/ParameterScanner.h"
#include "extra/ShortText.h"

#include <map>
#include <optional>
#include <string>

namespace tarvomime {

namespace {

std::string percentDecoded(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int byte = text[i] == '%' ? hexByte(text.substr(i + 1)) : -1;
        out += byte < 0 ? text[i] : static_cast<char>(byte);
        i += byte < 0 ? 0 : 2;
    }
    return out;
}

QByteArray toByteArray(std::string_view text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

// The forms in which one parameter can come.
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
        else if (form == "*")
            mSections.try_emplace(kWhole, Section{std::move(parameter.value), true});
        else if (form.size() > 1 && form[0] == '*')
            collectSection(form.substr(1), std::move(parameter.value));
    }

    QString decoded(const QByteArray& fallbackCharset) const
    {
        QString text = mSections.empty() ? QString() : decodedSections(fallbackCharset);
        if (text.isEmpty() && mPlain)
            text = decodedWords(toByteArray(*mPlain), fallbackCharset);
        return text;
    }

private:
    struct Section
    {
        std::string text;
        bool encoded;
    };

    // The unnumbered form stands before all numbered ones, and alone.
    static constexpr int kWhole = -1;

    void collectSection(std::string_view form, std::string&& value)
    {
        const bool encoded = form.back() == '*';
        if (encoded)
            form.remove_suffix(1);
        bool isNumber = !form.empty() && form[0] >= '0' && form[0] <= '9';
        const int number = isNumber ? toByteArray(form).toInt(&isNumber) : 0;
        if (isNumber)
            mSections.try_emplace(number, Section{std::move(value), encoded});
    }

    // Cuts charset'language' off the first section; a sender may have left a quote out.
    static QByteArray takeCharset(std::string_view& text)
    {
        const std::size_t charsetEnd = text.find('\'');
        if (charsetEnd == std::string_view::npos)
            return {};
        QByteArray charset = toByteArray(text.substr(0, charsetEnd));
        const std::size_t languageEnd = text.find('\'', charsetEnd + 1);
        const bool isComplete = languageEnd != std::string_view::npos;
        if (!isComplete && !isReadableCharset(charset))
            return {};
        text.remove_prefix((isComplete ? languageEnd : charsetEnd) + 1);
        return charset;
    }

    QString decodedSections(const QByteArray& fallbackCharset) const
    {
        QByteArray charset;
        std::string bytes;
        for (auto next = mSections.begin(); next != mSections.end(); ++next) {
            const auto& [number, section] = *next;
            std::string_view text = section.text;
            if (next == mSections.begin() && section.encoded)
                charset = takeCharset(text);
            bytes += section.encoded ? percentDecoded(text) : std::string(text);
            if (number == kWhole)
                break;
        }
        if (charset.isEmpty())
            return decodedWords(toByteArray(bytes), fallbackCharset);
        ShortTextReader reader(fallbackCharset);
        const QString text = reader.read(toByteArray(bytes), charset.toLower());
        return text.startsWith(QLatin1String("=?")) ? decodedWords(text.toUtf8(), fallbackCharset)
                                                    : text;
    }

    std::string_view mName;
    std::optional<std::string> mPlain;
    std::map<int, Section> mSections;
};

} // namespace

QString fieldParameter(const QCString& body, std::string_view name,
                       const QByteArray& fallbackCharset)
{
    Forms forms(name);
    ParameterScanner scanner(body.view());
    while (!scanner.atEnd())
        forms.collect(scanner.takeParameter());
    return forms.decoded(fallbackCharset);
}

} // namespace tarvomime
