// SPDX-License-Identifier: MIT
// Any bytes under any label are read, and valid UTF-8 is proposed as nothing else.

#include "extra/CharsetText.h"
#include "fuzz/support/Fuzz.h"

using namespace tarvomime::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size)
{
    const QByteArray input = toArray(bytes, size);
    const int lineEnd = static_cast<int>(input.indexOf('\n'));
    const QByteArray content = input.mid(lineEnd + 1);
    const tarvomime::ReadText read =
        tarvomime::readText(content, input.left(qMax(lineEnd, 0)), "iso-8859-1");
    require(content.isEmpty() || !read.charset.name.isEmpty(), "a charset is named");

    const QByteArray utf8 = QString::fromUtf8(content).toUtf8();
    const tarvomime::ProposedCharset proposed = tarvomime::proposeCharset(utf8);
    const bool byRule = proposed.basis == tarvomime::CharsetBasis::Ascii ||
                        proposed.basis == tarvomime::CharsetBasis::Escapes ||
                        proposed.name == "utf-8";
    require(byRule, "valid UTF-8 is proposed as such");
    return 0;
}
