// SPDX-License-Identifier: MIT
#include "extra/TransferText.h"

#include "utility/EMAIL_Util.h"

#include <gtest/gtest.h>

namespace transfer_text_test {

using namespace tarvomime;

namespace {

struct TransferRow
{
    const char* name;
    QString text;
    QByteArray bytes;
    int charset = CHARSET_US_ASCII;
    int cte = CTE_7BIT;
    int wanted = CHARSET_UTF_8;
};

void PrintTo(const TransferRow& row, std::ostream* out)
{
    *out << row.name;
}

class TransferredText : public testing::TestWithParam<TransferRow>
{
};

QByteArray decoded(const TransferText& text)
{
    QByteArray bytes = text.bytes;
    if (text.cte != CTE_7BIT)
        EMAIL_Util::decFromCTE(QCString::fromBytes(text.bytes), bytes, text.cte);
    return bytes;
}

const QString kWide = QString::fromUtf8("Sehr viel Ärger über das Öl\n");

} // namespace

TEST_P(TransferredText, StandsAsTold)
{
    const TransferText written = transferText(GetParam().text, GetParam().wanted);
    EXPECT_EQ(written.bytes, GetParam().bytes);
    EXPECT_EQ(written.charset, GetParam().charset);
    EXPECT_EQ(written.cte, GetParam().cte);
}

INSTANTIATE_TEST_SUITE_P(
    Extra, TransferredText,
    testing::Values(
        TransferRow{"Empty", "", ""}, TransferRow{"Lines", "a b\n\nc", "a b\r\n\r\nc"},
        TransferRow{"LongestPlainLine", QString(998, 'a') + "\n", QByteArray(998, 'a') + "\r\n"},
        TransferRow{"LongerLine", QString(999, 'a'),
                    (QByteArray(75, 'a') + "=\r\n").repeated(13) + QByteArray(24, 'a'),
                    CHARSET_US_ASCII, CTE_QUOTED_PRINTABLE},
        TransferRow{"LineOf76NeedsNoBreak", QString(76, 'a') + kWide,
                    QByteArray(75, 'a') + "=\r\naSehr viel =C3=84rger =C3=BCber das =C3=96l\r\n",
                    CHARSET_UTF_8, CTE_QUOTED_PRINTABLE},
        TransferRow{"BlankAtTheEnd", QString::fromUtf8("ganz schön \nlang"),
                    "ganz sch=C3=B6n=20\r\nlang", CHARSET_UTF_8, CTE_QUOTED_PRINTABLE},
        TransferRow{"MisreadStarts", kWide + ".\nFrom a\nFromage",
                    "Sehr viel =C3=84rger =C3=BCber das =C3=96l\r\n=2E\r\n=46rom a\r\nFromage",
                    CHARSET_UTF_8, CTE_QUOTED_PRINTABLE},
        TransferRow{"CharsetAsWanted", kWide, "Sehr viel =C4rger =FCber das =D6l\r\n",
                    CHARSET_ISO_8859_1, CTE_QUOTED_PRINTABLE, CHARSET_ISO_8859_1},
        TransferRow{"CharsetThatCannot", kWide, "Sehr viel =C3=84rger =C3=BCber das =C3=96l\r\n",
                    CHARSET_UTF_8, CTE_QUOTED_PRINTABLE, CHARSET_ISO_8859_7},
        TransferRow{"CharsetThatIsNotWritten", kWide,
                    "Sehr viel =C3=84rger =C3=BCber das =C3=96l\r\n", CHARSET_UTF_8,
                    CTE_QUOTED_PRINTABLE, CHARSET_UTF_7},
        TransferRow{"MostlyEscapes", QString::fromUtf8("Привет"), "0J/RgNC40LLQtdGC\r\n",
                    CHARSET_UTF_8, CTE_BASE64},
        TransferRow{"CrOfItsOwn", "and\ror but not", "and=0Dor but not", CHARSET_US_ASCII,
                    CTE_QUOTED_PRINTABLE},
        TransferRow{"Nul", QString("a") + QChar(0) + "bcdefgh", "a=00bcdefgh", CHARSET_US_ASCII,
                    CTE_QUOTED_PRINTABLE}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(TransferText, ComesBackAtEveryLength)
{
    for (int length = 60; length < 90; ++length) {
        for (const char* end : {"x", " ", "ä", " \n", ".\n.", "ä\nFrom ", "\t"}) {
            const QString text = QString(length, 'a') + QString::fromUtf8(end) + kWide;
            const TransferText written = transferText(text);
            EXPECT_EQ(decoded(written), text.toUtf8().replace("\n", "\r\n"))
                << written.bytes.constData();
            for (const QByteArray& line : written.bytes.split('\n'))
                EXPECT_LE(line.size(), 77) << written.bytes.constData();
        }
    }
}

} // namespace transfer_text_test
