// SPDX-License-Identifier: MIT
#include "bench/messages/Messages.h"

#include "bench/codecs/Inputs.h"

#include <random>

namespace bench {

namespace {

const std::string kBoundary = "boundary-of-this-message";

std::string delimiter(const std::string& boundary)
{
    return "--" + boundary + "\r\n";
}

std::string closing(const std::string& boundary)
{
    return "--" + boundary + "--\r\n";
}

std::string multipart(const std::string& subtype, const std::string& boundary)
{
    return "Content-Type: multipart/" + subtype + "; boundary=\"" + boundary + "\"\r\n\r\n";
}

// What a message carries once it is delivered, up to the fields that tell its content.
std::string envelope()
{
    return "Received: from mx1.example.org (mx1.example.org [192.0.2.17])\r\n"
           "\tby mail.example.com (Postfix) with ESMTPS id 4F2A91C03B7\r\n"
           "\tfor <anna@example.com>; Tue, 12 Nov 2024 10:00:04 +0100 (CET)\r\n"
           "Received: from desk.example.org (unknown [198.51.100.4])\r\n"
           "\tby mx1.example.org (Postfix) with ESMTPSA id 0C6D2440A1\r\n"
           "\tfor <anna@example.com>; Tue, 12 Nov 2024 09:00:02 +0000 (UTC)\r\n"
           "DKIM-Signature: v=1; a=rsa-sha256; c=relaxed/relaxed; d=example.org; s=mail;\r\n"
           "\th=from:to:subject:date:message-id:mime-version:content-type;\r\n"
           "\tbh=47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU=;\r\n"
           "\tb=dzdVyOfAKCdLXdJOc9G2q8LoXSlEniSbav+yuU4zGeeruD00lszZVoG4ZHRNiYzR\r\n"
           "From: =?utf-8?Q?J=C3=B6rg_M=C3=BCller?= <joerg@example.org>\r\n"
           "To: \"Weber, Anna\" <anna@example.com>,\r\n"
           "\t=?utf-8?B?0JjQstCw0L0=?= <ivan@example.net>\r\n"
           "Subject: Minutes of the meeting\r\n"
           "Date: Tue, 12 Nov 2024 10:00:00 +0100\r\n"
           "Message-ID: <20241112090000.4F2A91C03B7@example.org>\r\n"
           "In-Reply-To: <20241111170512.0C6D2440A1@example.com>\r\n"
           "User-Agent: Postbox 7.1\r\n"
           "MIME-Version: 1.0\r\n";
}

std::string plainText(std::size_t size)
{
    return "Content-Type: text/plain; charset=utf-8\r\n\r\n" + makeInput(Kind::English, size) +
           "\r\n";
}

std::string quotedText(const std::string& type, const std::string& text, std::size_t size)
{
    const std::string body = asQuotedPrintable(text, Kind::Russian).substr(0, size);
    return "Content-Type: text/" + type +
           "; charset=utf-8\r\nContent-Transfer-Encoding: quoted-printable\r\n\r\n" + body + "\r\n";
}

std::string attachmentFields(int number)
{
    const std::string name = "\"figures-" + std::to_string(number) + ".bin\"\r\n";
    return "Content-Type: application/octet-stream; name=" + name +
           "Content-Transfer-Encoding: base64\r\n"
           "Content-Disposition: attachment; filename=" +
           name + "\r\n";
}

std::string levelBoundary(int level)
{
    const std::string number = std::to_string(level);
    return "=_level_" + std::string(7 - number.size(), '0') + number;
}

} // namespace

std::string textMail()
{
    return envelope() + plainText(1700);
}

std::string alternativeMail(std::size_t size)
{
    const std::string prose = makeInput(Kind::Russian, size / 2);
    const std::string html = "<html><body><p>" + prose + "</p></body></html>";
    return envelope() + multipart("alternative", kBoundary) + delimiter(kBoundary) +
           quotedText("plain", prose, size / 2) + delimiter(kBoundary) +
           quotedText("html", html, size / 2) + closing(kBoundary);
}

std::string attachmentHead()
{
    return envelope() + multipart("mixed", kBoundary) + delimiter(kBoundary) + plainText(400) +
           delimiter(kBoundary) + attachmentFields(0);
}

std::string attachmentTail()
{
    return closing(kBoundary);
}

std::string attachmentLine()
{
    return asBase64(makeInput(Kind::Binary, 57), true);
}

std::string attachmentMail(int count, std::size_t size)
{
    const std::string body = asBase64(makeInput(Kind::Binary, size / 78 * 57), true);
    std::string text = attachmentHead() + body;
    for (int i = 1; i < count; ++i)
        text += delimiter(kBoundary) + attachmentFields(i) + body;
    return text + attachmentTail();
}

std::string digest(int count)
{
    std::mt19937 random(22);
    std::string text = envelope() + multipart("digest", kBoundary);
    for (int i = 0; i < count; ++i)
        text += delimiter(kBoundary) + "Content-Type: message/rfc822\r\n\r\n" + envelope() +
                plainText(400 + random() % 400);
    return text + closing(kBoundary);
}

std::string levels(int levels)
{
    std::string text = envelope();
    for (int i = 0; i < levels; ++i)
        text += multipart("mixed", levelBoundary(i)) + delimiter(levelBoundary(i)) +
                plainText(500) + delimiter(levelBoundary(i));
    text += plainText(500);
    for (int i = levels - 1; i >= 0; --i)
        text += closing(levelBoundary(i));
    return text;
}

std::string headerLines(int count)
{
    std::string text = envelope();
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        text += i % 2 == 0 ? "Received: from relay" + number +
                                 ".example.org by mx.example.com; Tue, 12 Nov 2024 10:00:00 +0100"
                           : "X-Header-" + number + ": the value of header " + number;
        text += "\r\n";
    }
    return text + plainText(100);
}

std::string nest(int levels)
{
    std::string text = envelope();
    for (int i = 0; i < levels; ++i)
        text += multipart("mixed", levelBoundary(i)) + delimiter(levelBoundary(i));
    text += plainText(20);
    for (int i = levels - 1; i >= 0; --i)
        text += closing(levelBoundary(i));
    return text;
}

std::string partFlood(int count)
{
    std::string text = envelope() + multipart("mixed", "parts");
    for (int i = 0; i < count; ++i)
        text += "--parts\r\nContent-Type: text/plain\r\n\r\na line of text\r\n";
    return text + "--parts--\r\n";
}

std::string almostMatches(std::size_t size)
{
    std::string text = envelope() + multipart("mixed", kBoundary) + delimiter(kBoundary) +
                       "Content-Type: text/plain\r\n\r\nx";
    while (text.size() < size)
        text += "\n--bou";
    return text + "\r\n" + closing(kBoundary);
}

std::string longLine(std::size_t size)
{
    return envelope() + "X-Long: " + std::string(size, 'a') + "\r\n" + plainText(100);
}

std::vector<std::string> mailbox(int count)
{
    std::mt19937 random(23);
    std::vector<std::string> mails;
    for (int i = 0; i < count; ++i) {
        if (i % 10 < 4)
            mails.push_back(textMail());
        else if (i % 10 < 7)
            mails.push_back(alternativeMail(10000 + random() % 30000));
        else
            mails.push_back(
                attachmentMail(1 + static_cast<int>(random() % 3), 5000 + random() % 95000));
    }
    return mails;
}

} // namespace bench
