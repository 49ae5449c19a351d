// SPDX-License-Identifier: MIT
// Nests and floods as a hostile sender makes them: no depth overflows a stack, and memory stays
// within a known multiple of the parts. Each runs in a process of its own, on a thread whose stack
// has the size under test.
#include "utility/EMAIL_Body.h"
#include "utility/EMAIL_BodyPart.h"
#include "utility/EMAIL_Field.h"
#include "utility/EMAIL_Header.h"
#include "utility/EMAIL_MIME.h"
#include "utility/EMAIL_Message.h"
#include "utility/EMAIL_MultiPart.h"

#include <malloc.h>
#include <pthread.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace scale_test {

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
constexpr bool isSanitized = __has_feature(address_sanitizer);
#else
constexpr bool isSanitized = false;
#endif

// Sanitizers multiply memory and stack frames: they run the same shapes a tenth as large.
constexpr int scaled(int count)
{
    return isSanitized ? count / 10 : count;
}

constexpr std::size_t kilobyte = 1024;
constexpr std::size_t smallStack = (isSanitized ? 1024 : 256) * kilobyte;
constexpr std::size_t usualStack = 8192 * kilobyte;

using Job = std::function<bool()>;

struct Outcome
{
    bool succeeded;
    double peakMegabytes;
};

void* runJob(void* job)
{
    _exit((*static_cast<const Job*>(job))() ? 0 : 1);
}

[[noreturn]] void runOnThread(std::size_t stackSize, Job job)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, stackSize);
    pthread_t thread;
    if (pthread_create(&thread, &attributes, runJob, &job) == 0)
        pthread_join(thread, nullptr);
    _exit(2);
}

Outcome inChild(std::size_t stackSize, const Job& job)
{
    const pid_t child = fork();
    if (child == 0)
        runOnThread(stackSize, job);
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    return {WIFEXITED(status) && WEXITSTATUS(status) == 0, double(usage.ru_maxrss) / 1000};
}

QByteArray nestedMessages(int levels)
{
    return QByteArray("Content-Type: message/rfc822\r\n\r\n").repeated(levels) + "A: 1\r\n\r\nx";
}

QByteArray boundaryOf(int level)
{
    return "level" + QByteArray::number(level).rightJustified(7, '0');
}

QByteArray nestedMultiparts(int levels)
{
    QByteArray text;
    for (int i = 0; i < levels; ++i)
        text += "Content-Type: multipart/mixed; boundary=" + boundaryOf(i) + "\n\n--" +
                boundaryOf(i) + '\n';
    text += "A: 1\n\nx";
    for (int i = levels - 1; i >= 0; --i)
        text += "\n--" + boundaryOf(i) + "--";
    return text;
}

// Multiparts and messages by turns; `levels` is even.
QByteArray nestedByTurns(int levels)
{
    QByteArray text;
    for (int i = 0; i < levels / 2; ++i)
        text += "Content-Type: multipart/mixed; boundary=" + boundaryOf(i) + "\n\n--" +
                boundaryOf(i) + "\nContent-Type: message/rfc822\n\n";
    text += "A: 1\n\nx";
    for (int i = levels / 2 - 1; i >= 0; --i)
        text += "\n--" + boundaryOf(i) + "--";
    return text;
}

// The levels below a message, down its first parts and enclosed messages.
int depthOf(const EMAIL_Entity& message)
{
    int depth = 0;
    const EMAIL_Entity* entity = &message;
    for (;;) {
        const EMAIL_Body& body = *entity->mBody;
        const EMAIL_Entity* inner = body.mMessage;
        if (inner == nullptr)
            inner = body.bodyPart(0);
        if (inner == nullptr)
            return depth;
        entity = inner;
        ++depth;
    }
}

bool parsesAndAssembles(const QByteArray& text, int depth)
{
    EMAIL_Message message(QCString::fromBytes(text), nullptr);
    message.parse();
    QFile sink(QStringLiteral("/dev/null"));
    return depthOf(message) == depth && message.assemble(nullptr) == 0 &&
           message.getMessage().length() >= int(text.size()) && sink.open(QIODevice::WriteOnly) &&
           message.assemble(&sink) == 0;
}

struct NestRow
{
    const char* name;
    QByteArray (*text)(int levels);
    int levels;
    std::size_t stack;
    double megabytes;
};

void PrintTo(const NestRow& row, std::ostream* out)
{
    *out << row.name;
}

class Nest : public testing::TestWithParam<NestRow>
{
};

constexpr double anyMemory = 1e9;

#if defined(__GLIBC__)
double allocatedBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}
#endif

} // namespace

TEST_P(Nest, ParsesAssemblesAndDies)
{
    const int levels = scaled(GetParam().levels);
    const Outcome outcome = inChild(
        GetParam().stack, [levels] { return parsesAndAssembles(GetParam().text(levels), levels); });
    EXPECT_TRUE(outcome.succeeded);
    if (!isSanitized) {
        EXPECT_LE(outcome.peakMegabytes, GetParam().megabytes);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Nest,
    testing::Values(
        NestRow{"messages on a small stack", nestedMessages, 100000, smallStack, 200},
        NestRow{"messages", nestedMessages, 1000000, usualStack, anyMemory},
        NestRow{"multiparts on a small stack", nestedMultiparts, 32000, smallStack, 100},
        NestRow{"multiparts", nestedMultiparts, 100000, usualStack, anyMemory},
        NestRow{"by turns on a small stack", nestedByTurns, 64000, smallStack, anyMemory}));

// A nest in a file has its parts there too; the enclosed messages stay text.
TEST(Scale, AFileOfManyMultiparts)
{
    const int levels = scaled(32000);
    const Outcome outcome = inChild(smallStack, [&] {
        const QByteArray text = nestedMultiparts(levels);
        EMAIL_Message message;
        message.parse(text.constData(), 0, int(text.size()), QStringLiteral("/a/file"));
        return depthOf(message) == levels;
    });
    EXPECT_TRUE(outcome.succeeded);
    if (!isSanitized) {
        EXPECT_LE(outcome.peakMegabytes, 100);
    }
}

// Parts are removed one by one as deep trees of their own.
TEST(Scale, RemovingADeepPart)
{
    EXPECT_TRUE(inChild(smallStack, [] {
                    const int levels = scaled(32000);
                    EMAIL_Message message(QCString::fromBytes(nestedMultiparts(levels)), nullptr);
                    message.parse();
                    return message.mBody->removeBodyPart(0) && message.mBody->numBodyParts() == 0;
                }).succeeded);
}

TEST(Scale, AParsedMessageHoldsItsBytesOnce)
{
    constexpr int megabytes = 64;
    const Outcome outcome = inChild(usualStack, [] {
        QByteArray text;
        text.reserve(megabytes * 1000000 + 1000);
        text += "Content-Type: multipart/mixed; boundary=b\n\n--b\n"
                "Content-Type: message/rfc822\n\nA: 1\n\n";
        text.resize(text.size() + megabytes * 1000000);
        std::fill_n(text.end() - megabytes * 1000000, megabytes * 1000000, 'x');
        text += "\n--b--\n";
        EMAIL_Message message(QCString::fromBytes(text), nullptr);
        message.parse();
        return message.mBody->bodyPart(0)->mBody->mMessage != nullptr;
    });
    EXPECT_TRUE(outcome.succeeded);
    if (!isSanitized) {
        EXPECT_LE(outcome.peakMegabytes, 2 * megabytes) << "half of it is for the program itself";
    }
}

#if defined(__GLIBC__)
namespace {

// Whether parsing `text` takes at most `limit` bytes for each of its `count` parts or fields.
bool costsAtMost(double limit, int count, const QByteArray& text)
{
    EMAIL_Message message(QCString::fromBytes(text), nullptr);
    const double before = allocatedBytes();
    message.parse();
    const double cost = (allocatedBytes() - before) / count;
    if (cost > limit)
        fprintf(stderr, "%.0f bytes each\n", cost);
    return cost <= limit &&
           message.mBody->numBodyParts() + message.mHeader->mFields.count() >= count;
}

} // namespace

TEST(Scale, CostOfAPart)
{
    if (isSanitized)
        GTEST_SKIP() << "sanitizers bring an allocator of their own";
    EXPECT_TRUE(inChild(usualStack, [] {
                    constexpr int parts = 100000;
                    return costsAtMost(430, parts,
                                       "Content-Type: multipart/mixed; boundary=bb\n\n" +
                                           QByteArray("--bb\nx\n").repeated(parts) + "--bb--\n");
                }).succeeded);
}

TEST(Scale, CostOfAField)
{
    if (isSanitized)
        GTEST_SKIP() << "sanitizers bring an allocator of their own";
    EXPECT_TRUE(inChild(usualStack, [] {
                    constexpr int fields = 100000;
                    return costsAtMost(150, fields, QByteArray("X-Y: z\r\n").repeated(fields));
                }).succeeded);
}
#endif

// Shapes that cost the square of their size wherever a search starts over.
namespace {

struct FloodRow
{
    const char* name;
    QByteArray (*text)();
    int parts;
};

void PrintTo(const FloodRow& row, std::ostream* out)
{
    *out << row.name;
}

class Flood : public testing::TestWithParam<FloodRow>
{
};

QByteArray typeOf(const QByteArray& boundary)
{
    return "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n";
}

QByteArray manyParts()
{
    return typeOf("bb") + QByteArray("--bb\nx\n").repeated(1000000);
}

QByteArray nearMisses()
{
    return typeOf(QByteArray(70, 'x')) + ("--" + QByteArray(69, 'x') + "y\n").repeated(40000);
}

QByteArray longBoundary()
{
    const QByteArray boundary(1000000, 'b');
    return typeOf(boundary) + ("--" + boundary + "\nA: 1\n\nx\n").repeated(4);
}

// Each level looks for a boundary that shares 60 bytes with all others.
QByteArray nearMissesInANest()
{
    const QByteArray shared(60, 'x');
    QByteArray text;
    for (int i = 0; i < 3000; ++i)
        text += typeOf(shared + boundaryOf(i)) + "--" + shared + boundaryOf(i) + '\n';
    text += "A: 1\n\n" + ("--" + shared + "y\n").repeated(40000);
    for (int i = 2999; i >= 0; --i)
        text += "\n--" + shared + boundaryOf(i) + "--";
    return text;
}

} // namespace

TEST_P(Flood, IsCut)
{
    EXPECT_TRUE(inChild(usualStack, [] {
                    EMAIL_Message message(QCString::fromBytes(GetParam().text()), nullptr);
                    message.parse();
                    return message.mBody->numBodyParts() == GetParam().parts;
                }).succeeded);
}

INSTANTIATE_TEST_SUITE_P(Rows, Flood,
                         testing::Values(FloodRow{"many parts", manyParts, 999999},
                                         FloodRow{"near misses", nearMisses, 0},
                                         FloodRow{"long boundary", longBoundary, 3},
                                         FloodRow{"near misses in a nest", nearMissesInANest, 1}));

// Loops over the parts, each of which asks for the message's type: the time limit is that of a
// program that has gone astray.
TEST(Scale, PartsBehindALongHeaderAreReadOneByOne)
{
    EXPECT_TRUE(inChild(usualStack, [] {
                    constexpr rlimit aMinute{60, 60};
                    setrlimit(RLIMIT_CPU, &aMinute);
                    const int count = scaled(200000);
                    const EMAIL_MIME message(QByteArray("X: y\n").repeated(count) + typeOf("bb") +
                                             QByteArray("--bb\nx\n").repeated(count) + "--bb--\n");
                    for (int i = 0; i < message.getMultiPartCount(); ++i) {
                        EMAIL_MultiPart part;
                        if (!message.getMultiPart(i, part))
                            return false;
                    }
                    return message.getMultiPartCount() == count && message.isCompleteMessage();
                }).succeeded);
}

} // namespace scale_test
