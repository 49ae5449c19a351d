// SPDX-License-Identifier: MIT
// Takes a message from elsewhere with care: limits before it is parsed, findings after, and no
// value into a header that would bring fields of its own.
#include <QFile>
#include <cstdio>
#include <extra/HeaderValue.h>
#include <extra/MessageFindings.h>
#include <extra/MessageMeasure.h>

namespace {

// Limits of this program's own.
constexpr int kDeepest = 100;
constexpr int kMostParts = 1000;

bool isWithinLimits(const QByteArray& bytes)
{
    const tarvomime::MessageMeasure measure = tarvomime::measureMessage(bytes);
    std::printf("parts %lld, depth %lld, longest line %lld bytes\n",
                static_cast<long long>(measure.parts), static_cast<long long>(measure.depth),
                static_cast<long long>(measure.longestLine));
    return measure.depth <= kDeepest && measure.parts <= kMostParts;
}

void printFindings(const QByteArray& bytes)
{
    for (const tarvomime::MessageFinding& finding : tarvomime::messageFindings(bytes)) {
        std::printf("%s at %s: %s\n", tarvomime::severityName(finding.severity).constData(),
                    finding.part.constData(), finding.text.toUtf8().constData());
        const QByteArray about = bytes.mid(int(finding.offset), int(finding.length));
        if (!about.isEmpty() && !about.contains('\n'))
            std::printf("    %s\n", about.constData());
    }
}

} // namespace

int main(int argc, char** argv)
{
    QFile file(argc == 2 ? QFile::decodeName(argv[1]) : QString());
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "usage: %s MESSAGE\n", argv[0]);
        return 2;
    }
    const QByteArray bytes = file.readAll();
    if (!isWithinLimits(bytes))
        return 1;
    printFindings(bytes);

    const QString subject = QStringLiteral("Hello\nBcc: everybody@b.example");
    const tarvomime::Result<void> storable = tarvomime::checkHeaderValue(subject);
    std::printf("as a subject: %s\n", storable ? "fine" : storable.reason().toUtf8().constData());
    return 0;
}
