// SPDX-License-Identifier: MIT
#include "extra/HtmlText.h"

#include "extra/HtmlLines.h"
#include "extra/HtmlParser.h"
#include "extra/HtmlTagGuard.h"
#include "types/Ascii.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <vector>

namespace tarvomime {

// The parser is libxml2's, driven by events:
//
// 1. No tree is built, so memory does not grow by the document's shape and nothing recurses when a
//    tree is freed. That is what decided against parsers that give out a tree.
// 2. It keeps a stack of open elements on the heap and searches it at each closing tag. Beyond
//    kDeepest the innermost element is taken off again, or a document of opening tags followed by
//    as many closing ones would take the square of its size.

namespace {

constexpr int kDeepest = 200;
constexpr qsizetype kLongestLinkText = 4096;

enum class Kind {
    Inline,
    Hidden,
    Block,
    Paragraph,
    Preformatted,
    Quote,
    List,
    NumberedList,
    Item,
    Definition,
    Row,
    Cell,
    Link,
    Image,
    Break,
    Rule
};

struct ElementKind
{
    std::string_view name;
    Kind kind;
};

// Sorted by name; elements that do not stand here are inline.
constexpr std::array<ElementKind, 62> kElementKinds = {{
    {"a", Kind::Link},           {"address", Kind::Block},    {"applet", Kind::Hidden},
    {"article", Kind::Block},    {"aside", Kind::Block},      {"audio", Kind::Hidden},
    {"blockquote", Kind::Quote}, {"br", Kind::Break},         {"canvas", Kind::Hidden},
    {"caption", Kind::Block},    {"center", Kind::Block},     {"datalist", Kind::Hidden},
    {"dd", Kind::Definition},    {"dir", Kind::List},         {"div", Kind::Block},
    {"dl", Kind::Paragraph},     {"dt", Kind::Block},         {"embed", Kind::Hidden},
    {"fieldset", Kind::Block},   {"figcaption", Kind::Block}, {"figure", Kind::Block},
    {"footer", Kind::Block},     {"form", Kind::Block},       {"frameset", Kind::Hidden},
    {"h1", Kind::Paragraph},     {"h2", Kind::Paragraph},     {"h3", Kind::Paragraph},
    {"h4", Kind::Paragraph},     {"h5", Kind::Paragraph},     {"h6", Kind::Paragraph},
    {"head", Kind::Hidden},      {"header", Kind::Block},     {"hr", Kind::Rule},
    {"iframe", Kind::Hidden},    {"img", Kind::Image},        {"legend", Kind::Block},
    {"li", Kind::Item},          {"main", Kind::Block},       {"map", Kind::Hidden},
    {"menu", Kind::List},        {"nav", Kind::Block},        {"noframes", Kind::Hidden},
    {"object", Kind::Hidden},    {"ol", Kind::NumberedList},  {"option", Kind::Hidden},
    {"p", Kind::Paragraph},      {"pre", Kind::Preformatted}, {"script", Kind::Hidden},
    {"section", Kind::Block},    {"select", Kind::Hidden},    {"style", Kind::Hidden},
    {"svg", Kind::Hidden},       {"table", Kind::Block},      {"td", Kind::Cell},
    {"template", Kind::Hidden},  {"textarea", Kind::Hidden},  {"th", Kind::Cell},
    {"title", Kind::Hidden},     {"tr", Kind::Row},           {"ul", Kind::List},
    {"video", Kind::Hidden},     {"xmp", Kind::Preformatted},
}};
static_assert(std::is_sorted(kElementKinds.begin(), kElementKinds.end(),
                             [](const ElementKind& a, const ElementKind& b) {
                                 return a.name < b.name;
                             }));

std::string_view viewOf(const xmlChar* text)
{
    return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

Kind kindOf(std::string_view name)
{
    const auto* row = std::lower_bound(
        kElementKinds.begin(), kElementKinds.end(), name,
        [](const ElementKind& element, std::string_view wanted) { return element.name < wanted; });
    return row != kElementKinds.end() && row->name == name ? row->kind : Kind::Inline;
}

// The attributes of one tag, in libxml2's form: names and values by turns, ended by a null.
class Attributes
{
public:
    explicit Attributes(const xmlChar** attributes) : mAttributes(attributes) {}

    bool has(std::string_view name) const { return find(name) != nullptr; }
    std::string_view value(std::string_view name) const
    {
        const xmlChar* const* found = find(name);
        return found == nullptr ? std::string_view() : viewOf(found[1]);
    }
    QString text(std::string_view name) const
    {
        const std::string_view found = value(name);
        return QString::fromUtf8(found.data(), static_cast<int>(found.size()));
    }

private:
    const xmlChar* const* find(std::string_view name) const
    {
        for (const xmlChar* const* at = mAttributes; at != nullptr && *at != nullptr; at += 2) {
            if (viewOf(*at) == name)
                return at;
        }
        return nullptr;
    }

    const xmlChar** mAttributes;
};

struct Declaration
{
    std::string_view property;
    std::string_view value;
};

constexpr std::array<Declaration, 4> kHidingDeclarations = {{
    {"display", "none"},
    {"mso-hide", "all"},
    {"opacity", "0"},
    {"visibility", "hidden"},
}};

bool isHiding(std::string_view declaration)
{
    const std::size_t colon = declaration.find(':');
    if (colon == declaration.npos)
        return false;
    const std::string_view property = trimmed(declaration.substr(0, colon));
    std::string_view value = declaration.substr(colon + 1);
    value = trimmed(value.substr(0, value.find('!')));
    return std::any_of(kHidingDeclarations.begin(), kHidingDeclarations.end(),
                       [&](const Declaration& hiding) {
                           return equalIgnoringCase(property, hiding.property) &&
                                  equalIgnoringCase(value, hiding.value);
                       });
}

bool isHiddenBy(const Attributes& attributes)
{
    if (attributes.has("hidden"))
        return true;
    std::string_view style = attributes.value("style");
    while (!style.empty()) {
        const std::size_t end = std::min(style.find(';'), style.size());
        if (isHiding(style.substr(0, end)))
            return true;
        style.remove_prefix(std::min(end + 1, style.size()));
    }
    return false;
}

// The address that a person can use; empty for one that leads nowhere outside the message.
QString usableAddress(const Attributes& attributes)
{
    QString address = attributes.text("href").simplified();
    for (const char* scheme : {"http:", "https:", "mailto:", "ftp:", "tel:", "news:"}) {
        if (address.startsWith(QLatin1String(scheme), Qt::CaseInsensitive))
            return address;
    }
    return {};
}

// Whether the text of a link says its address already.
bool says(QStringView text, const QString& address)
{
    QStringView bare = address;
    for (const char* prefix : {"http://", "https://", "mailto:", "tel:"}) {
        if (bare.startsWith(QLatin1String(prefix), Qt::CaseInsensitive))
            bare = bare.mid(qstrlen(prefix));
    }
    if (bare.endsWith(u'/'))
        bare.chop(1);
    return !bare.isEmpty() && text.indexOf(bare, 0, Qt::CaseInsensitive) >= 0;
}

// Receives the parser's events and writes lines.
class HtmlReader
{
public:
    explicit HtmlReader(const HtmlParser& functions) : mFunctions(functions) {}

    void start(xmlParserCtxtPtr parser, const xmlChar* name, const xmlChar** attributes)
    {
        const Attributes given(attributes);
        const Kind kind = isHiddenBy(given) ? Kind::Hidden : kindOf(viewOf(name));
        if (parser->nameNr > kDeepest) {
            mFunctions.popName(parser);
            // Its end will not be told from that of an outer element.
            mIsHiddenForGood = mIsHiddenForGood || mHidden > 0 || kind == Kind::Hidden;
            return;
        }
        mOpen.push_back({name, kind, 0, {}, 0, 0});
        if (kind == Kind::Hidden)
            ++mHidden;
        if (isShown())
            begin(mOpen.back(), given);
    }

    void end(const xmlChar* name)
    {
        // The parser's names are unique by address.
        const auto open = std::find_if(mOpen.rbegin(), mOpen.rend(), [name](const Open& element) {
            return element.name == name;
        });
        if (open == mOpen.rend())
            return;
        for (auto left = open - mOpen.rbegin(); left >= 0; --left)
            closeInnermost();
    }

    void text(const xmlChar* bytes, int length)
    {
        if (!isShown())
            return;
        const QString text = QString::fromUtf8(reinterpret_cast<const char*>(bytes), length);
        if (mPreformatted > 0)
            mLines.appendPreformatted(text);
        else
            mLines.append(text);
    }

    QString take()
    {
        while (!mOpen.empty())
            closeInnermost();
        return mLines.take();
    }

private:
    struct Open
    {
        const xmlChar* name;
        Kind kind;
        int prefixes;
        // Of a link: its address and where its text begins.
        QString address;
        qsizetype start;
        // Of a list: the number of the next item, 0 for a list without numbers.
        int number;
    };

    bool isShown() const { return mHidden == 0 && !mIsHiddenForGood; }

    void begin(Open& element, const Attributes& attributes)
    {
        switch (element.kind) {
        case Kind::Block:
        case Kind::Row:
            mLines.endLine();
            break;
        case Kind::Paragraph:
            mLines.endParagraph();
            break;
        case Kind::Preformatted:
            mLines.endParagraph();
            ++mPreformatted;
            break;
        case Kind::Quote:
            mLines.endParagraph();
            push(element, QStringLiteral("> "));
            break;
        case Kind::List:
        case Kind::NumberedList:
            beginList(element, attributes);
            break;
        case Kind::Item:
            beginItem(element);
            break;
        case Kind::Definition:
            mLines.endLine();
            push(element, QStringLiteral("  "));
            break;
        case Kind::Cell:
            mLines.separate(QStringLiteral(" | "));
            break;
        case Kind::Link:
            element.address = usableAddress(attributes);
            element.start = mLines.length();
            break;
        case Kind::Image:
            beginImage(attributes);
            break;
        case Kind::Break:
            mLines.breakLine();
            break;
        case Kind::Rule:
            mLines.endLine();
            mLines.append(u"----------");
            mLines.endLine();
            break;
        case Kind::Inline:
        case Kind::Hidden:
            break;
        }
    }

    void closeInnermost()
    {
        Open element = std::move(mOpen.back());
        mOpen.pop_back();
        if (isShown())
            finish(element);
        if (element.kind == Kind::Hidden)
            --mHidden;
    }

    void finish(const Open& element)
    {
        for (int i = 0; i < element.prefixes; ++i)
            mLines.popPrefix();
        switch (element.kind) {
        case Kind::Preformatted:
            --mPreformatted;
            mLines.endParagraph();
            break;
        case Kind::Paragraph:
        case Kind::Quote:
            mLines.endParagraph();
            break;
        case Kind::List:
        case Kind::NumberedList:
            --mLists;
            mLines.endLine();
            if (mLists == 0)
                mLines.endParagraph();
            break;
        case Kind::Block:
        case Kind::Row:
        case Kind::Item:
        case Kind::Definition:
            mLines.endLine();
            break;
        case Kind::Link:
            finishLink(element);
            break;
        default:
            break;
        }
    }

    void push(Open& element, const QString& prefix)
    {
        mLines.pushPrefix(prefix);
        ++element.prefixes;
    }

    void beginList(Open& element, const Attributes& attributes)
    {
        ++mLists;
        mLines.endLine();
        if (mLists == 1)
            mLines.endParagraph();
        if (element.kind == Kind::NumberedList) {
            bool isNumber = false;
            const int start = attributes.text("start").toInt(&isNumber);
            element.number = isNumber && start > 0 && start < 1000000 ? start : 1;
        }
    }

    void beginItem(Open& item)
    {
        mLines.endLine();
        const auto list = std::find_if(mOpen.rbegin(), mOpen.rend(), [](const Open& element) {
            return element.kind == Kind::List || element.kind == Kind::NumberedList;
        });
        QString marker = QStringLiteral("- ");
        if (list != mOpen.rend() && list->kind == Kind::NumberedList)
            marker = QString::number(list->number++) + QStringLiteral(". ");
        push(item, QString(marker.size(), u' '));
        mLines.setMarker(marker);
    }

    void beginImage(const Attributes& attributes)
    {
        const QString text = attributes.text("alt").simplified();
        if (!text.isEmpty())
            mLines.append(QString(u'[' + text + u']'));
    }

    void finishLink(const Open& link)
    {
        // Links inside links would otherwise be read as often as they are nested.
        const QStringView text =
            mLines.written(qMin(link.start, mLines.length())).left(kLongestLinkText);
        // A link around nothing that can be read is a button or a counter.
        if (link.address.isEmpty() || text.trimmed().isEmpty() || says(text, link.address))
            return;
        mLines.append(QString(QStringLiteral(" <") + link.address + u'>'));
    }

    const HtmlParser& mFunctions;
    HtmlLines mLines;
    std::vector<Open> mOpen;
    int mHidden = 0;
    int mPreformatted = 0;
    int mLists = 0;
    bool mIsHiddenForGood = false;
};

HtmlReader& readerOf(void* context)
{
    return *static_cast<HtmlReader*>(static_cast<xmlParserCtxtPtr>(context)->_private);
}

xmlSAXHandler readerEvents()
{
    xmlSAXHandler events{};
    events.startElement = [](void* context, const xmlChar* name, const xmlChar** attributes) {
        readerOf(context).start(static_cast<xmlParserCtxtPtr>(context), name, attributes);
    };
    events.endElement = [](void* context, const xmlChar* name) { readerOf(context).end(name); };
    events.characters = [](void* context, const xmlChar* text, int length) {
        readerOf(context).text(text, length);
    };
    events.ignorableWhitespace = events.characters;
    // Known entities only; the parser looks up those of HTML by itself.
    events.getEntity = [](void*, const xmlChar*) -> xmlEntityPtr { return nullptr; };
    return events;
}

} // namespace

QString textFromHtml(const QString& html)
{
    const HtmlParser* functions = htmlParser();
    if (functions == nullptr)
        return html;
    const QByteArray bytes = guardedHtml(html.toUtf8(), *functions);
    if (bytes.isEmpty())
        return {};
    const std::unique_ptr<xmlParserCtxt, decltype(functions->free)> parser(
        functions->create(bytes.constData(), static_cast<int>(bytes.size())), functions->free);
    if (!parser)
        return {};
    HtmlReader reader(*functions);
    xmlSAXHandler events = readerEvents();
    *parser->sax = events;
    parser->_private = &reader;
    // Labels inside the document are about bytes that were decoded long before.
    functions->useOptions(parser.get(), HTML_PARSE_RECOVER | HTML_PARSE_NOERROR |
                                            HTML_PARSE_NOWARNING | HTML_PARSE_NONET |
                                            HTML_PARSE_IGNORE_ENC);
    functions->switchEncoding(parser.get(), XML_CHAR_ENCODING_UTF8);
    functions->parse(parser.get());
    return reader.take();
}

} // namespace tarvomime
