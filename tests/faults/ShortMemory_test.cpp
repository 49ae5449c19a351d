// SPDX-License-Identifier: MIT
// Where there is no memory for a result, the codecs give an empty one and throw nothing.
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"
#include "utility/EMAIL_Util.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <sys/resource.h>
#include <unistd.h>

namespace short_memory_test {

namespace {

constexpr int kLength = 64 << 20;

// From now on the process gets no more than a little memory.
void shortenMemory()
{
    long pages = 0;
    std::FILE* const status = std::fopen("/proc/self/statm", "r");
    const bool isKnown = status != nullptr && std::fscanf(status, "%ld", &pages) == 1;
    const auto inUse = static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    const rlim_t limit = inUse + kLength / 4;
    const rlimit shortened{limit, limit};
    if (!isKnown || setrlimit(RLIMIT_AS, &shortened) != 0)
        std::abort();
}

struct Row
{
    const char* name;
    std::function<bool(const QByteArray& bytes, const QString& text)> isEmptyAfter;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class ShortMemory : public testing::TestWithParam<Row>
{
};

Row encodeTransfer(const char* name, int cte)
{
    return {name, [cte](const QByteArray& bytes, const QString&) {
                QByteArray out("old");
                EMAIL_Util::encWithCTE(bytes, out, cte);
                return out.isEmpty();
            }};
}

Row decodeTransfer(const char* name, int cte)
{
    return {name, [cte](const QByteArray& bytes, const QString&) {
                QByteArray out("old");
                EMAIL_Util::decFromCTE(QCString::fromBytes(bytes), out, cte);
                return out.isEmpty();
            }};
}

Row decodeCharset(const char* name, int charset)
{
    return {name, [charset](const QByteArray& bytes, const QString&) {
                QString out(QStringLiteral("old"));
                EMAIL_Util::decFromCharset(bytes, out, charset);
                return out.isEmpty();
            }};
}

Row encodeCharset(const char* name, int charset)
{
    return {name, [charset](const QByteArray&, const QString& text) {
                QCString out("old");
                EMAIL_Util::encWithCharset(out, text, charset);
                return out.isEmpty() &&
                       (charset == CHARSET_UTF_8 || !EMAIL_Util::canEncodeByCharset(text, charset));
            }};
}

using Encoder = void (*)(QString const&, int, QCString&);

Row encodeWords(const char* name, Encoder encode)
{
    return {name, [encode](const QByteArray&, const QString& text) {
                QCString out("old");
                encode(text, CHARSET_UTF_8, out);
                return out.isEmpty();
            }};
}

// The body of a part is not lost in silence: no message that takes the part can be assembled.
Row setPartText(const char* name, int charset)
{
    return {name, [charset](const QByteArray&, const QString& text) {
                EMAIL_MultiPart part(nullptr);
                part.setCharset(charset);
                part.setBody(QByteArray("old"), true);
                part.setBody(text, true);
                EMAIL_MIME message;
                message.setType(TYPE_MULTIPART);
                message.addMultiPart(part, 0);
                return part.mBodyData.isEmpty() && message.mMessage->assemble(nullptr) == -1;
            }};
}

} // namespace

TEST_P(ShortMemory, GivesAnEmptyResult)
{
#ifdef TARVOMIME_EMULATED
    GTEST_SKIP()
        << "an emulator that kept the limit would run out of memory itself, so it does not";
#endif
    GTEST_FLAG_SET(death_test_style, "fast");
    const QByteArray bytes(kLength, 'a');
    const QString text(kLength / 2, QChar(0x0416));
    // The tables that live as long as the program.
    GetParam().isEmptyAfter("a", QStringLiteral("a"));
    EXPECT_EXIT(
        {
            shortenMemory();
            try {
                std::_Exit(GetParam().isEmptyAfter(bytes, text) ? 0 : 1);
            } catch (const std::exception&) {
                std::_Exit(2);
            }
        },
        testing::ExitedWithCode(0), "");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ShortMemory,
    testing::Values(
        encodeTransfer("copy", CTE_8BIT),
        encodeTransfer("to quoted-printable", CTE_QUOTED_PRINTABLE),
        encodeTransfer("to base64", CTE_BASE64), decodeTransfer("copy up to NUL", 0),
        decodeTransfer("from quoted-printable", CTE_QUOTED_PRINTABLE),
        decodeTransfer("from base64", CTE_BASE64),
        decodeCharset("from Latin-1", CHARSET_ISO_8859_1),
        decodeCharset("from UTF-7", CHARSET_UTF_7), decodeCharset("from UTF-8", CHARSET_UTF_8),
        decodeCharset("from GBK", CHARSET_GBK), encodeCharset("to Cyrillic", CHARSET_WINDOWS_1251),
        encodeCharset("to UTF-8", CHARSET_UTF_8), encodeCharset("to GBK", CHARSET_GBK),
        setPartText("part's text", CHARSET_UTF_8), setPartText("part's text in GBK", CHARSET_GBK),
        encodeWords("to words", EMAIL_Util::encode_2047_String),
        encodeWords("addresses", EMAIL_Util::encode_2047_Address)));

} // namespace short_memory_test
