// SPDX-License-Identifier: MIT
#include "bench/shapes/Shapes.h"

#include <array>

namespace {

std::string repeated(const std::string& text, int count)
{
    std::string all;
    all.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

std::string letters(int count, char letter)
{
    return std::string(static_cast<std::size_t>(count), letter);
}

std::string multipartHead(const std::string& boundary)
{
    return "MIME-Version: 1.0\r\nContent-Type: multipart/mixed; boundary=\"" + boundary +
           "\"\r\n\r\n";
}

std::string partFlood(int parts)
{
    return multipartHead("b") + repeated("--b\n\nx\n", parts) + "--b--\n";
}

std::string messageNest(int levels)
{
    return repeated("Content-Type: message/rfc822\r\n\r\n", levels) + "Subject: x\r\n\r\nx\r\n";
}

std::string boundaryOf(int level)
{
    const std::string number = std::to_string(level);
    return "level" + std::string(7 - number.size(), '0') + number;
}

std::string multipartNest(int levels)
{
    std::string text;
    for (int i = 0; i < levels; ++i)
        text += "Content-Type: multipart/mixed; boundary=\"" + boundaryOf(i) + "\"\r\n\r\n--" +
                boundaryOf(i) + "\r\n";
    text += "Subject: x\r\n\r\nx";
    for (int i = levels - 1; i >= 0; --i)
        text += "\r\n--" + boundaryOf(i) + "--";
    return text + "\r\n";
}

std::string nearMisses(int lines)
{
    const std::string shared = letters(69, 'x');
    const std::string boundary = shared + "y";
    return multipartHead(boundary) + "--" + boundary + "\r\n\r\n" +
           repeated("--" + shared + "z\r\n", lines) + "--" + boundary + "--\r\n";
}

std::string longBoundary(int bytes)
{
    const std::string boundary = letters(bytes, 'b');
    return multipartHead(boundary) + repeated("--" + boundary + "\r\n\r\nx\r\n", 4) + "--" +
           boundary + "--\r\n";
}

std::string addressFlood(int addresses)
{
    return "To: " + repeated("a@b.c,\r\n ", addresses - 1) + "a@b.c\r\n\r\nx\r\n";
}

std::string parameterFlood(int parameters)
{
    std::string text = "Content-Type: text/plain";
    for (int i = 0; i < parameters; ++i)
        text += ";\r\n p" + std::to_string(i) + "=v";
    return text + "\r\n\r\nx\r\n";
}

std::string headerFlood(int lines)
{
    return repeated("X-Y: z\r\n", lines) + "\r\nx\r\n";
}

std::string longField(int bytes)
{
    return "Subject: " + letters(bytes, 'a') + "\r\n\r\nx\r\n";
}

// Each bare name would take the value of the piece before it.
std::string bareNames(int names)
{
    std::string text = "Content-Type: text/plain; b=c; a=" + letters(5 * names, 'v');
    for (int i = 0; i < names; ++i)
        text += ';' + std::to_string(i);
    return text + "\r\n\r\nx\r\n";
}

std::string dateNumbers(int numbers)
{
    return "Date: " + repeated("1 ", numbers) + "\r\n\r\nx\r\n";
}

std::string parameterPieces(int pieces)
{
    return "Content-Type: text/plain; a=" + repeated("=b", pieces) + "\r\n\r\nx\r\n";
}

// As many header lines as parts, so that looking for a field once a part shows.
std::string linesAndParts(int count)
{
    return repeated("X-Y: z\r\n", count) + partFlood(count);
}

std::string oneLetterLines(int lines)
{
    return "Subject: x\r\n\r\n" + repeated("x\n", lines);
}

struct Shape
{
    const char* name;
    std::string (*text)(int size);
};

constexpr std::array shapes{
    Shape{"part-flood", partFlood},           Shape{"message-nest", messageNest},
    Shape{"multipart-nest", multipartNest},   Shape{"near-miss", nearMisses},
    Shape{"long-boundary", longBoundary},     Shape{"address-flood", addressFlood},
    Shape{"parameter-flood", parameterFlood}, Shape{"header-flood", headerFlood},
    Shape{"long-field", longField},           Shape{"bare-names", bareNames},
    Shape{"date-numbers", dateNumbers},       Shape{"parameter-pieces", parameterPieces},
    Shape{"lines-and-parts", linesAndParts},  Shape{"body-lines", oneLetterLines}};

} // namespace

std::string shapeText(const std::string& shape, int size)
{
    for (const Shape& each : shapes) {
        if (shape == each.name)
            return each.text(size);
    }
    return {};
}
