// SPDX-License-Identifier: MIT
// Reads the same bytes under several labels, and says what was believed.
#include <cstdio>
#include <extra/CharsetText.h>
#include <extra/HtmlText.h>

namespace {

void show(const QByteArray& bytes, const QByteArray& label)
{
    const tarvomime::ReadText read = tarvomime::readText(bytes, label);
    std::printf("%-12s %s (%s, %s)\n", label.constData(), read.text.toUtf8().constData(),
                read.charset.name.constData(),
                qPrintable(tarvomime::describeBasis(read.charset.basis)));
}

} // namespace

int main()
{
    const QByteArray quoted("\x93\xC4rger\x94 f\xFCr 5 \x80");
    show(quoted, "windows-1252");
    show(quoted, "iso-8859-1");
    const QByteArray utf8 = QString::fromUtf8("“Ärger” für 5 €").toUtf8();
    show(utf8, "us-ascii");
    show(utf8, "x-unknown");
    show("\x1B$B$3$s\x1B(B", "");

    const QString html = QString::fromUtf8("<p>Grüße</p><ul><li>eins<li>zwei</ul>"
                                           "<p style='display:none'>unseen</p>"
                                           "<a href='https://a.example/x'>mehr</a>");
    std::printf("%s", tarvomime::textFromHtml(html).toUtf8().constData());
    return 0;
}
