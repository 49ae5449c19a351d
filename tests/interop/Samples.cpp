// SPDX-License-Identifier: MIT
#include "tests/interop/Samples.h"

#include "utility/EMAIL_MultiPart.h"

#include <QFile>
#include <QJsonArray>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// A part and its description, which are built side by side.
struct Node
{
    std::unique_ptr<EMAIL_MultiPart> part = std::make_unique<EMAIL_MultiPart>(nullptr);
    QJsonObject expected;
};

Node leafOf(const QString& type, const QString& subType)
{
    Node node;
    node.part->setTypeStr(type);
    node.part->setSubTypeStr(subType);
    node.part->setAttSize(-1);
    node.expected = {{"type", type + '/' + subType},
                     {"name", QString()},
                     {"file", QString()},
                     {"disposition", QString()}};
    return node;
}

void setContent(Node& node, const QByteArray& bytes)
{
    node.expected["bytes"] = QString::fromLatin1(bytes.toBase64());
}

Node textNode(const QString& subType, const QString& content, int charset, int cte)
{
    Node node = leafOf(text("text"), subType);
    node.part->setCharset(charset);
    node.part->setCTE(cte);
    node.part->setBody(content, true);
    QCString bytes;
    EMAIL_Util::encWithCharset(bytes, content, charset);
    // The quoted-printable encoder ends every text with a line break.
    const bool quoted = cte == CTE_QUOTED_PRINTABLE;
    setContent(node, QByteArray(bytes) + (quoted ? "\r\n" : ""));
    node.expected["text"] = content + (quoted ? text("\r\n") : QString());
    return node;
}

void setNames(Node& node, const QString& name)
{
    node.part->setName(name);
    node.part->setDispFileName(name);
    node.part->setDispType(1);
    node.expected["name"] = name;
    node.expected["file"] = name;
    node.expected["disposition"] = "attachment";
}

Node attachmentNode(const QString& name, const QByteArray& bytes, int cte)
{
    Node node = leafOf(text("application"), text("octet-stream"));
    // The names are encoded in the part's charset.
    node.part->setCharset(CHARSET_UTF_8);
    setNames(node, name);
    node.part->setCTE(cte);
    node.part->setBody(bytes, false);
    setContent(node, bytes + (cte == CTE_QUOTED_PRINTABLE ? "\r\n" : ""));
    return node;
}

template <class... Nodes>
Node containerNode(const QString& subType, Nodes... nodes)
{
    Node container;
    container.part->setTypeStr(text("multipart"));
    container.part->setSubTypeStr(subType);
    container.part->setAttSize(-1);
    QJsonArray parts;
    const auto add = [&](Node& node) {
        container.part->addSubMultiPart(node.part.release(), -1);
        parts.append(node.expected);
    };
    (add(nodes), ...);
    container.expected = {{"type", text("multipart/") + subType}, {"parts", parts}};
    return container;
}

QByteArray allBytes()
{
    QByteArray bytes;
    for (int value = 0; value < 256; ++value)
        bytes += static_cast<char>(value);
    return bytes.repeated(5);
}

Sample newSample(const QString& name)
{
    Sample sample{name, std::make_unique<EMAIL_MIME>(), {}};
    sample.message->setFrom(text("ann@example.org"));
    sample.message->setTo(text("bob@example.org"));
    sample.message->setSubject(name);
    sample.expected = {
        {"subject", name}, {"from", text("ann@example.org")}, {"to", text("bob@example.org")}};
    return sample;
}

// A message whose top-level parts are those of `top`, as an application adds them.
Sample sampleOf(const QString& name, Node top)
{
    Sample sample = newSample(name);
    sample.message->setTypeStr(text("multipart"));
    sample.message->setSubTypeStr(top.part->getSubTypeStr());
    sample.message->setDefaultFileds();
    for (int i = 0; i < top.part->getSubMultiPartCount(); ++i)
        sample.message->addMultiPart(*top.part->getSubMultiPart(i), -1);
    sample.expected["root"] = top.expected;
    return sample;
}

struct CharsetSample
{
    int charset;
    const char* name;
    const char* text;
};

// Every charset that is written; UTF-7 is not.
constexpr CharsetSample charsetSamples[] = {
    {CHARSET_ISO_8859_1, "iso-8859-1", "café"},
    {CHARSET_ISO_8859_2, "iso-8859-2", "žluť"},
    {CHARSET_ISO_8859_4, "iso-8859-4", "āēģ"},
    {CHARSET_ISO_8859_6, "iso-8859-6", "مرحبا"},
    {CHARSET_ISO_8859_7, "iso-8859-7", "αβγ"},
    {CHARSET_ISO_8859_8, "iso-8859-8", "שלום"},
    {CHARSET_ISO_8859_9, "iso-8859-9", "ığş"},
    {CHARSET_ISO_8859_13, "iso-8859-13", "ąčę"},
    {CHARSET_KOI8_U, "koi8-u", "Їжак"},
    {CHARSET_WINDOWS_1251, "windows-1251", "Привет"},
    {CHARSET_UTF_8, "utf-8", "日本 α € 😀"},
    {CHARSET_GB2312, "gb2312", "中文"},
    {CHARSET_GBK, "gbk", "中文"},
    {CHARSET_BIG5, "big5", "中文"},
    {CHARSET_TIS620, "tis620", "สวัสดี"},
    {CHARSET_ISO_8859_11, "iso-8859-11", "สวัสดี"},
    {CHARSET_WINDOWS_874, "windows-874", "สวัสดี"},
    {CHARSET_ISO_8859_5, "iso-8859-5", "Привет"},
    {CHARSET_ISO_8859_3, "iso-8859-3", "ĦĠĊ"},
    {CHARSET_ISO_8859_10, "iso-8859-10", "ŧŋĸ"},
    {CHARSET_ISO_8859_15, "iso-8859-15", "€Žœ"},
};

void addCharsets(std::vector<Sample>& samples)
{
    for (const CharsetSample& row : charsetSamples) {
        samples.push_back(
            sampleOf(text("charset ") + text(row.name),
                     containerNode(text("mixed"), textNode(text("plain"), text(row.text),
                                                           row.charset, CTE_BASE64))));
    }
}

void addTransferEncodings(std::vector<Sample>& samples)
{
    samples.push_back(
        sampleOf(text("transfer encodings"),
                 containerNode(
                     text("mixed"),
                     textNode(text("plain"), text("Two\r\nlines"), CHARSET_US_ASCII, CTE_7BIT),
                     textNode(text("plain"), text("Zwei\r\nZeilen für Ä"), CHARSET_UTF_8, CTE_8BIT),
                     textNode(text("plain"), text("=20 soft ") + text("é").repeated(100),
                              CHARSET_UTF_8, CTE_QUOTED_PRINTABLE),
                     textNode(text("html"), text("<p>é</p>"), CHARSET_ISO_8859_1, CTE_BASE64),
                     attachmentNode(text("all.bin"), allBytes(), CTE_BASE64),
                     attachmentNode(text("all.qp"), allBytes(), CTE_QUOTED_PRINTABLE),
                     attachmentNode(text("guess.bin"), allBytes(), CTE_UNKNOWN),
                     attachmentNode(text("raw.bin"), QByteArray("a\x80\xff z"), CTE_BINARY))));
}

void addNesting(std::vector<Sample>& samples)
{
    const auto plain = [] { return textNode(text("plain"), text("x"), CHARSET_UTF_8, CTE_7BIT); };
    const auto html = [] {
        return textNode(text("html"), text("<b>x</b>"), CHARSET_UTF_8, CTE_BASE64);
    };
    samples.push_back(sampleOf(
        text("nesting"),
        containerNode(
            text("mixed"),
            containerNode(
                text("related"),
                containerNode(text("alternative"), plain(),
                              containerNode(text("mixed"), containerNode(text("mixed"), html()))),
                attachmentNode(text("a.png"), allBytes(), CTE_BASE64)),
            plain(), attachmentNode(text("b.bin"), allBytes(), CTE_BASE64))));
}

void addNames(std::vector<Sample>& samples)
{
    samples.push_back(
        sampleOf(text("names"),
                 containerNode(text("mixed"), attachmentNode(text("report.pdf"), "x", CTE_BASE64),
                               attachmentNode(text("two words; a=b, c.txt"), "x", CTE_BASE64),
                               attachmentNode(text("Übersicht 2020.txt"), "x", CTE_BASE64),
                               attachmentNode(text("日本語のとても長いファイル名です.txt"), "x",
                                              CTE_BASE64))));
    Sample header = newSample(text("header"));
    const QString subject = text("Grüße ") + text("aus Köln und Umgebung ").repeated(8);
    const QString from = text("Jörg Müller <joerg@example.org>");
    const QString to = text("Ann <ann@example.org>,Zoë <zoe@example.org>");
    header.message->setSubject(subject);
    header.message->setFrom(from);
    header.message->setTo(to);
    header.message->setBody(text("Einfach"), true);
    header.expected["subject"] = subject;
    header.expected["from"] = from;
    header.expected["to"] = to;
    Node body = textNode(text("plain"), text("Einfach"), CHARSET_US_ASCII, CTE_7BIT);
    header.expected["root"] = body.expected;
    samples.push_back(std::move(header));
}

void addSingleParts(std::vector<Sample>& samples)
{
    Sample greek = newSample(text("single greek"));
    greek.message->setBody(text("αβγ"), true);
    Node expected = textNode(text("plain"), text("αβγ"), CHARSET_UTF_8, CTE_BASE64);
    greek.expected["root"] = expected.expected;
    samples.push_back(std::move(greek));

    Sample data = newSample(text("single data"));
    data.message->setBody(allBytes());
    Node bytes = leafOf(text("application"), text("octet-stream"));
    setContent(bytes, allBytes());
    data.expected["root"] = bytes.expected;
    samples.push_back(std::move(data));
}

QString makeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void addFileAttachments(std::vector<Sample>& samples, const QString& folder)
{
    const QByteArray content = allBytes().repeated(100);
    const QString path = makeFile(folder + text("/attachment.bin"), content);
    Node attachment = leafOf(text("image"), text("png"));
    setNames(attachment, text("photo.png"));
    attachment.part->setCTE(CTE_BASE64);
    attachment.part->setBodyInfo(path, 0, int(content.size()), false);
    setContent(attachment, content);
    samples.push_back(
        sampleOf(text("attachment in its file"),
                 containerNode(text("mixed"),
                               textNode(text("plain"), text("See it"), CHARSET_US_ASCII, CTE_7BIT),
                               std::move(attachment))));
}

void addInvitation(std::vector<Sample>& samples, const QString& folder)
{
    const QByteArray ics = "BEGIN:VCALENDAR\r\nMETHOD:REQUEST\r\nSUMMARY:Caf\xc3\xa9\r\n"
                           "END:VCALENDAR";
    Node textPart = leafOf(text("text"), text("plain"));
    Node calendar = leafOf(text("text"), text("calendar"));
    EMAIL_MIME::getIcsPart(makeFile(folder + text("/meeting.ics"), ics), text("Kommst du? Ä"),
                           text("REQUEST"), textPart.part.get(), calendar.part.get());
    setContent(textPart, text("Kommst du? Ä").toUtf8());
    textPart.expected["text"] = text("Kommst du? Ä");
    setContent(calendar, ics);
    calendar.expected["name"] = "meeting.ics";
    samples.push_back(
        sampleOf(text("invitation"),
                 containerNode(text("alternative"), std::move(textPart), std::move(calendar))));
}

void addForwarded(std::vector<Sample>& samples)
{
    EMAIL_MIME enclosed;
    enclosed.setSubject(text("Inner"));
    enclosed.setBody(text("Inner text"), true);
    Node forwarded = leafOf(text("message"), text("rfc822"));
    forwarded.part->setCTE(CTE_7BIT);
    forwarded.part->setBody(QByteArray(enclosed.assemble()), true);
    Node inner = textNode(text("plain"), text("Inner text"), CHARSET_US_ASCII, CTE_7BIT);
    forwarded.expected = {{"type", "message/rfc822"}, {"parts", QJsonArray{inner.expected}}};
    samples.push_back(
        sampleOf(text("forwarded"),
                 containerNode(text("mixed"),
                               textNode(text("plain"), text("FYI"), CHARSET_US_ASCII, CTE_7BIT),
                               std::move(forwarded))));
}

} // namespace

std::vector<Sample> makeSamples(const QString& folder)
{
    std::vector<Sample> samples;
    addTransferEncodings(samples);
    addCharsets(samples);
    addNesting(samples);
    addNames(samples);
    addSingleParts(samples);
    addFileAttachments(samples, folder);
    addInvitation(samples, folder);
    addForwarded(samples);
    return samples;
}
