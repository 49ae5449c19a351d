// SPDX-License-Identifier: MIT
// growth_search SECONDS SEED  looks for messages that cost much
//
// Messages are made at random, changed, and kept where they cost more than the worst so far: more
// time a byte, a steeper growth of time, more memory than what is allowed. A message is parsed,
// asked everything, taken apart, and assembled in memory and to a file.
#include "bench/growth/Recipe.h"
#include "tests/faults/CountingNew.h"
#include "utility/EMAIL_AddrList.h"
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_ContentType.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

constexpr int smallScale = 1;
constexpr int largeScale = 8;
// Below this time the clock says more about itself than about the message.
constexpr double leastSeconds = 0.0005;

double processorSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

void ask(const EMAIL_MIME& message)
{
    message.getFrom(CHARSET_UTF_8);
    message.getTo(CHARSET_UTF_8);
    message.getSubject(CHARSET_UTF_8);
    message.getDateStr();
    message.getFileName(CHARSET_UTF_8);
    message.getName(CHARSET_UTF_8);
    message.hasAttachment();
    message.getAttachNum();
    message.isCompleteMessage();
    QString text;
    message.getBody(text, CHARSET_UTF_8);
    message.getBodyPartId(text);
    message.getCalendarPartId(text);
    for (int i = 0; i < message.getMultiPartCount(); ++i) {
        EMAIL_MultiPart part;
        message.getMultiPart(i, part);
        part.getTextBody(text, CHARSET_UTF_8);
    }
}

// What the rules demand beside the text: parts, fields, entries of addresses and parameters.
long objectBytes(const EMAIL_Entity& top)
{
    long bytes = 0;
    std::vector<const EMAIL_Entity*> waiting{&top};
    while (!waiting.empty()) {
        const EMAIL_Entity& entity = *waiting.back();
        waiting.pop_back();
        bytes += 500 + 200L * static_cast<long>(entity.mHeader->mFields.count());
        if (const EMAIL_AddrList* to = entity.mHeader->getTo())
            bytes += 150L * to->mString.contains(',') + 150L * to->mBody.contains(',');
        if (const EMAIL_ContentType* type = entity.mHeader->getContentType())
            bytes += 150L * static_cast<long>(type->mParams.size());
        if (entity.mBody->mMessage != nullptr)
            waiting.push_back(entity.mBody->mMessage);
        for (const EMAIL_BodyPart* part : entity.mBody->mBodyParts)
            waiting.push_back(part);
    }
    return bytes;
}

struct Cost
{
    std::size_t bytes = 0;
    double seconds = 0;
    // Of what is allowed: 8 times the text and 1 MiB beside the objects.
    double memoryShare = 0;
};

Cost costOf(const std::string& text)
{
    const QByteArray bytes(text.data(), static_cast<int>(text.size()));
    resetPeak();
    const double start = processorSeconds();
    long objects = 0;
    {
        EMAIL_MIME message(bytes);
        ask(message);
        message.assemble();
        QFile nowhere(QStringLiteral("/dev/null"));
        if (nowhere.open(QIODevice::WriteOnly))
            message.assemble(&nowhere);
        objects = objectBytes(*message.mMessage);
    }
    const double seconds = processorSeconds() - start;
    const double allowed = 8.0 * static_cast<double>(text.size()) + (1 << 20);
    return {text.size(), seconds, static_cast<double>(peakBytes() - objects) / allowed};
}

Cost bestOf(const std::string& text, int runs)
{
    Cost best = costOf(text);
    for (int i = 1; i < runs; ++i) {
        const Cost cost = costOf(text);
        best.seconds = std::min(best.seconds, cost.seconds);
    }
    return best;
}

struct Worst
{
    const char* what;
    double value = 0;
    Recipe recipe;
    std::size_t bytes = 0;
};

// The growth between the two sizes; 0 where they are too near or too quick for it.
double exponentOf(const Cost& small, const Cost& large)
{
    if (small.seconds < leastSeconds || large.bytes < 2 * small.bytes)
        return 0;
    return std::log(large.seconds / small.seconds) /
           std::log(static_cast<double>(large.bytes) / static_cast<double>(small.bytes));
}

std::array<double, 3> valuesOf(const Recipe& recipe, int runs)
{
    const Cost small = bestOf(recipe.text(smallScale), runs);
    const Cost large = bestOf(recipe.text(largeScale), runs);
    const double nanoseconds = large.bytes < 10'000 ? 0 : large.seconds * 1e9;
    return {nanoseconds / static_cast<double>(std::max<std::size_t>(large.bytes, 1)),
            exponentOf(small, large), large.memoryShare};
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s SECONDS SEED\n", argv[0]);
        return 2;
    }
    std::mt19937 random(static_cast<unsigned>(std::atoi(argv[2])));
    std::array<Worst, 3> worst{Worst{"nanoseconds a byte", 0, Recipe::random(random)},
                               Worst{"exponent of time", 0, Recipe::random(random)},
                               Worst{"share of the memory allowed", 0, Recipe::random(random)}};
    long tried = 0;
    for (const double end = processorSeconds() + std::atof(argv[1]); processorSeconds() < end;
         ++tried) {
        const Recipe recipe = random() % 4 == 0
                                  ? Recipe::random(random)
                                  : worst[random() % worst.size()].recipe.mutated(random);
        std::array<double, 3> values = valuesOf(recipe, 1);
        for (std::size_t i = 0; i < worst.size(); ++i) {
            // A slow moment of the machine is no finding: it must be as slow again and again.
            if (values[i] > worst[i].value)
                values = valuesOf(recipe, 4);
            if (values[i] > worst[i].value)
                worst[i] = {worst[i].what, values[i], recipe, recipe.text(largeScale).size()};
        }
    }
    std::printf("%ld messages\n", tried);
    for (const Worst& each : worst)
        std::printf("%s: %.2f, %zu bytes: %s\n", each.what, each.value, each.bytes,
                    each.recipe.description().c_str());
    return 0;
}
