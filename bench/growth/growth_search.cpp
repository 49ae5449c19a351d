// SPDX-License-Identifier: MIT
// growth_search SECONDS SEED          looks for messages that cost much
// growth_search RECIPE SCALE library  does once what costs, for callgrind to count
// growth_search RECIPE SCALE show
//
// Messages are made at random, changed, and kept where they cost more than the worst so far: more
// time a byte, a steeper growth of time, more memory. A message is parsed, asked everything, taken
// apart, and assembled in memory and to a file; then the tool shows it.
#include "bench/growth/Recipe.h"
#include "bench/growth/Showing.h"
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
#include <QTemporaryFile>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <unistd.h>

namespace {

constexpr int smallScale = 1;
constexpr int largeScale = 8;
// Below this time the clock says more about itself than about the message.
constexpr double leastSeconds = 0.0005;
// One that is cut at its longest is made of other pieces than the small one, and says nothing of
// growth.
constexpr double leastGrowth = 6;
// What a message may cost beside what its length allows.
constexpr double freeBytes = 1 << 20;

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
    double seconds = 0;
    double memory = 0;
};

Cost libraryCost(const std::string& text)
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
    return {processorSeconds() - start, static_cast<double>(peakBytes() - objects)};
}

Cost showCost(const std::string& text)
{
    static Showing showing;
    QTemporaryFile file;
    if (!file.open() || file.write(text.data(), static_cast<qint64>(text.size())) < 0)
        std::abort();
    file.close();
    resetPeak();
    const double start = processorSeconds();
    showing.show(file.fileName().toStdString());
    return {processorSeconds() - start, static_cast<double>(peakBytes())};
}

Cost bestOf(Cost (*costOf)(const std::string&), const std::string& text, int runs)
{
    Cost best = costOf(text);
    for (int i = 1; i < runs; ++i)
        best.seconds = std::min(best.seconds, costOf(text).seconds);
    return best;
}

// The growth between the two sizes; 0 where they are too near or too quick for it.
double exponentOf(const Cost& small, const Cost& large, double bytesGrowth)
{
    if (small.seconds < leastSeconds || bytesGrowth < leastGrowth)
        return 0;
    return std::log(large.seconds / small.seconds) / std::log(bytesGrowth);
}

constexpr std::array titles{"library: nanoseconds a byte",
                            "library: exponent of time",
                            "library: share of the memory allowed",
                            "show: nanoseconds a byte",
                            "show: exponent of time",
                            "show: bytes of memory a byte"};
using Values = std::array<double, titles.size()>;

Values valuesOf(const Recipe& recipe, int runs)
{
    const std::string small = recipe.text(smallScale);
    const std::string large = recipe.text(largeScale);
    const double smallBytes = static_cast<double>(std::max<std::size_t>(small.size(), 1));
    const double bytes = static_cast<double>(std::max<std::size_t>(large.size(), 1));
    const Cost parsed = bestOf(libraryCost, large, runs);
    const Cost shown = bestOf(showCost, large, runs);
    // What a run costs at least says little about the bytes of a short message.
    const double counted = large.size() < 10'000 ? 0 : 1 / bytes;
    return {parsed.seconds * 1e9 * counted,
            exponentOf(bestOf(libraryCost, small, runs), parsed, bytes / smallBytes),
            // 8 times the text and 1 MiB beside the objects.
            parsed.memory / (8 * bytes + freeBytes), shown.seconds * 1e9 * counted,
            exponentOf(bestOf(showCost, small, runs), shown, bytes / smallBytes),
            // The tables that propose a charset take 2 MB once.
            large.size() < 500'000 ? 0 : shown.memory / bytes};
}

struct Worst
{
    double value;
    Recipe recipe;
};
using Worsts = std::array<Worst, titles.size()>;

Worsts firstWorsts(std::mt19937& random)
{
    const Recipe recipe = Recipe::random(random);
    Worsts worst{};
    worst.fill({0, recipe});
    return worst;
}

void keepIfWorse(Worsts& worst, const Recipe& recipe)
{
    Values values = valuesOf(recipe, 1);
    for (std::size_t i = 0; i < worst.size(); ++i) {
        // A slow moment of the machine is no finding: it must be as slow again and again.
        if (values[i] > worst[i].value)
            values = valuesOf(recipe, 4);
        if (values[i] > worst[i].value)
            worst[i] = {values[i], recipe};
    }
}

int search(double seconds, unsigned seed, std::FILE* out)
{
    std::mt19937 random(seed);
    Worsts worst = firstWorsts(random);
    long tried = 0;
    for (const double end = processorSeconds() + seconds; processorSeconds() < end; ++tried)
        keepIfWorse(worst, random() % 4 == 0
                               ? Recipe::random(random)
                               : worst[random() % worst.size()].recipe.mutated(random));
    std::fprintf(out, "%ld messages\n", tried);
    for (std::size_t i = 0; i < worst.size(); ++i)
        std::fprintf(out, "%s: %.2f, %zu bytes: %s: %s\n", titles[i], worst[i].value,
                     worst[i].recipe.text(largeScale).size(), worst[i].recipe.numbers().c_str(),
                     worst[i].recipe.description().c_str());
    return std::fclose(out);
}

int runOnce(const std::string& text, bool shows, std::FILE* out)
{
    const Cost cost = shows ? showCost(text) : libraryCost(text);
    std::fprintf(out, "%zu bytes, %.4f s, %.0f bytes of memory\n", text.size(), cost.seconds,
                 cost.memory);
    return std::fclose(out);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3 && argc != 4) {
        std::fprintf(stderr, "usage: %s SECONDS SEED | RECIPE SCALE library|show\n", argv[0]);
        return 2;
    }
    // The tool prints to where the result goes otherwise.
    std::FILE* const out = fdopen(dup(STDOUT_FILENO), "w");
    if (out == nullptr || std::freopen("/dev/null", "w", stdout) == nullptr)
        return 1;
    if (argc == 3)
        return search(std::atof(argv[1]), static_cast<unsigned>(std::atoi(argv[2])), out);
    return runOnce(Recipe::ofNumbers(argv[1]).text(std::atoi(argv[2])),
                   std::string_view(argv[3]) == "show", out);
}
