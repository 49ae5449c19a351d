// SPDX-License-Identifier: MIT
#include "extra/HtmlTagGuard.h"

#include "extra/HtmlParser.h"
#include "extra/HtmlTokens.h"
#include "types/Ascii.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>

namespace tarvomime {

namespace {

constexpr std::size_t kMostNames = 1000;
constexpr std::string_view kNoElement = "x";
// The parser cuts longer ones in two.
constexpr std::size_t kLongestName = 100;
constexpr std::size_t kLongestEntity = 32;

// What the text of a document is made of besides the names of its elements.
constexpr std::array<std::string_view, 5> kReadAttributes = {"alt", "href", "hidden", "start",
                                                             "style"};

bool isLetter(char c)
{
    return asciiLower(c) >= 'a' && asciiLower(c) <= 'z';
}

bool isLetterOrDigit(char c)
{
    return isLetter(c) || isDigit(c);
}

const xmlChar* parserText(const std::string& text)
{
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

// The names of elements that the parser may see.
class ElementNames
{
public:
    explicit ElementNames(const HtmlParser& parser) : mParser(parser) {}

    // What to write instead of a name; valid as long as this object.
    std::string_view passing(std::string_view written)
    {
        if (written.size() > kLongestName || !isElementName(written))
            return kNoElement;
        std::string name(written);
        std::transform(name.begin(), name.end(), name.begin(), asciiLower);
        const auto seen = mSeen.find(name);
        if (seen != mSeen.end())
            return *seen;
        const bool mayPass =
            mSeen.size() < kMostNames || mParser.findElement(parserText(name)) != nullptr;
        return mayPass ? *mSeen.insert(name).first : kNoElement;
    }

private:
    static bool isElementName(std::string_view name)
    {
        return std::all_of(name.begin(), name.end(), [](char c) {
            return isLetterOrDigit(c) || c == ':' || c == '-' || c == '_' || c == '.';
        });
    }

    const HtmlParser& mParser;
    std::set<std::string> mSeen;
};

// Writes a document anew, token by token.
class TagGuard
{
public:
    TagGuard(std::string_view html, const HtmlParser& parser)
        : mHtml(html), mParser(parser), mNames(parser)
    {
        mOut.reserve(static_cast<int>(html.size()));
    }

    QByteArray run()
    {
        while (mAt < mHtml.size()) {
            const std::size_t tag = std::min(mHtml.find('<', mAt), mHtml.size());
            writeText(mHtml.substr(mAt, tag - mAt), [](char c) { return c == '&'; });
            mAt = tag;
            if (mAt < mHtml.size())
                writeMarkup();
        }
        return mOut;
    }

private:
    // What lies `distance` behind the '<'; NUL, of which there is none, behind the end.
    char peek(std::size_t distance) const
    {
        return mAt + distance < mHtml.size() ? mHtml[mAt + distance] : '\0';
    }

    void writeMarkup()
    {
        const char first = peek(1);
        const char second = peek(2);
        if (isLetter(first))
            writeStartTag();
        else if (first == '/' && isLetter(second))
            writeEndTag();
        else if (first == '!' || first == '?' || (first == '/' && second != '\0'))
            writeEmptyComment();
        else
            writeLess();
    }

    void writeStartTag()
    {
        HtmlTag tag(mHtml, mAt + 1);
        const std::string_view name = mNames.passing(tag.name());
        append("<");
        append(name);
        std::array<bool, kReadAttributes.size()> isWritten{};
        while (const auto attribute = tag.takeAttribute())
            writeAttribute(*attribute, isWritten);
        append(tag.isSelfClosed() ? "/>" : ">");
        mAt = tag.end();
        if (!tag.isSelfClosed() && (name == "script" || name == "style"))
            mAt = endOfRawText(mHtml, mAt, name);
    }

    // Of attributes with one name the first one counts.
    void writeAttribute(const HtmlAttribute& attribute,
                        std::array<bool, kReadAttributes.size()>& isWritten)
    {
        for (std::size_t i = 0; i < kReadAttributes.size(); ++i) {
            if (isWritten[i] || !equalIgnoringCase(attribute.name, kReadAttributes[i]))
                continue;
            isWritten[i] = true;
            append(" ");
            append(kReadAttributes[i]);
            if (attribute.hasValue)
                writeValue(attribute.value);
        }
    }

    void writeValue(std::string_view value)
    {
        append("=\"");
        writeText(value, [](char c) { return c == '&' || c == '<' || c == '"'; });
        append("\"");
    }

    void writeEndTag()
    {
        HtmlTag tag(mHtml, mAt + 2);
        append("</");
        append(mNames.passing(tag.name()));
        append(">");
        while (tag.takeAttribute())
            continue;
        mAt = tag.end();
    }

    // Without it, the halves of a number on both sides of a comment would become one.
    void writeEmptyComment()
    {
        append("<!---->");
        mAt = endOfUnseen(mHtml, mAt);
    }

    void writeLess()
    {
        append("&lt;");
        ++mAt;
    }

    template <class IsSpecial>
    void writeText(std::string_view text, IsSpecial isSpecial)
    {
        while (!text.empty()) {
            const auto* special = std::find_if(text.begin(), text.end(), isSpecial);
            const auto clean = static_cast<std::size_t>(special - text.begin());
            append(text.substr(0, clean));
            text.remove_prefix(clean);
            if (text.empty())
                return;
            append(reference(text));
            text.remove_prefix(1);
        }
    }

    // What stands for the first character of the text.
    std::string_view reference(std::string_view text)
    {
        if (text.front() == '<')
            return "&lt;";
        if (text.front() == '"')
            return "&quot;";
        return isKnownReference(text) ? "&" : "&amp;";
    }

    bool isKnownReference(std::string_view text)
    {
        if (text.substr(1, 1) == "#")
            return true;
        const std::string_view rest = text.substr(1, kLongestEntity);
        const auto* end = std::find_if_not(rest.begin(), rest.end(), isLetterOrDigit);
        if (end == rest.end() || *end != ';')
            return false;
        return isEntity(std::string(rest.begin(), end));
    }

    // The parser reads its list from the front each time; most documents have few entities.
    bool isEntity(const std::string& name)
    {
        if (mEntities.count(name) > 0)
            return true;
        if (mParser.findEntity(parserText(name)) == nullptr)
            return false;
        mEntities.insert(name);
        return true;
    }

    void append(std::string_view text) { mOut.append(text.data(), static_cast<int>(text.size())); }

    std::string_view mHtml;
    const HtmlParser& mParser;
    ElementNames mNames;
    std::set<std::string> mEntities;
    QByteArray mOut;
    std::size_t mAt = 0;
};

} // namespace

QByteArray guardedHtml(const QByteArray& html, const HtmlParser& parser)
{
    QByteArray whole = html;
    whole.replace('\0', "\xEF\xBF\xBD");
    const std::string_view view(whole.constData(), static_cast<std::size_t>(whole.size()));
    return TagGuard(view, parser).run();
}

} // namespace tarvomime
