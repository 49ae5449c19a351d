// SPDX-License-Identifier: MIT
// Encoded words: a thousand mixed subjects in one iteration, and the cost per letter of long ones.

#include "bench/words/Subjects.h"
#include "utility/EMAIL_Util.h"

#include <benchmark/benchmark.h>
#ifdef TARVOMIME_BENCH_GMIME
#include <gmime/gmime.h>
#endif
#ifdef TARVOMIME_BENCH_KCODECS
#include <KCodecs>
#endif

namespace {

using Subjects = std::vector<Subject>;

// All of a thousand, or as many of UTF-8 and ASCII only: a rival may open a converter for each
// change of charset.
const Subjects& subjects(benchmark::State& state)
{
    static const Subjects mixed = mixedSubjects(1000);
    static const Subjects utf8 = [] {
        Subjects kept;
        for (const Subject& subject : mixedSubjects(1250)) {
            if (subject.charset == CHARSET_UTF_8)
                kept.push_back(subject);
        }
        return kept;
    }();
    return state.range(0) == 0 ? mixed : utf8;
}

// Prepares the inputs, then runs `job` over all of them in one iteration.
template <class Prepare, class Job>
void runOverSubjects(benchmark::State& state, Prepare prepare, Job job)
{
    std::vector<decltype(prepare(Subject()))> inputs;
    for (const Subject& subject : subjects(state))
        inputs.push_back(prepare(subject));
    for (auto _ : state) {
        for (const auto& input : inputs)
            job(input);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(inputs.size()));
}

QByteArray wireOf(const Subject& subject)
{
    return subject.wire;
}

Subject itself(const Subject& subject)
{
    return subject;
}

void decodeSubjects(benchmark::State& state)
{
    for (const Subject& subject : subjects(state)) {
        QString text;
        EMAIL_Util::decode_2047_String(subject.wire, text, CHARSET_UTF_8);
        if (text != subject.text)
            state.SkipWithError("a subject did not come back");
    }
    const auto bodyOf = [](const Subject& subject) { return QCString(subject.wire); };
    runOverSubjects(state, bodyOf, [](const QCString& body) {
        QString text;
        EMAIL_Util::decode_2047_String(body, text, CHARSET_UTF_8);
        benchmark::DoNotOptimize(text.constData());
    });
}
BENCHMARK(decodeSubjects)->ArgName("utf8Only")->Arg(0)->Arg(1);

void encodeSubjects(benchmark::State& state)
{
    runOverSubjects(state, itself, [](const Subject& subject) {
        QCString words;
        EMAIL_Util::encode_2047_String(subject.text, subject.charset, words);
        benchmark::DoNotOptimize(words.begin());
    });
}
BENCHMARK(encodeSubjects)->ArgName("utf8Only")->Arg(0)->Arg(1);

#ifdef TARVOMIME_BENCH_GMIME
void decodeSubjectsGMime(benchmark::State& state)
{
    g_mime_init();
    runOverSubjects(state, wireOf, [](const QByteArray& wire) {
        char* text = g_mime_utils_header_decode_text(nullptr, wire.constData());
        benchmark::DoNotOptimize(text);
        g_free(text);
    });
}
BENCHMARK(decodeSubjectsGMime)->ArgName("utf8Only")->Arg(0)->Arg(1);

void encodeSubjectsGMime(benchmark::State& state)
{
    g_mime_init();
    const auto utf8Of = [](const Subject& subject) { return subject.text.toUtf8(); };
    runOverSubjects(state, utf8Of, [](const QByteArray& text) {
        char* words = g_mime_utils_header_encode_text(nullptr, text.constData(), nullptr);
        benchmark::DoNotOptimize(words);
        g_free(words);
    });
}
BENCHMARK(encodeSubjectsGMime)->ArgName("utf8Only")->Arg(0)->Arg(1);
#endif

#ifdef TARVOMIME_BENCH_KCODECS
void decodeSubjectsKCodecs(benchmark::State& state)
{
    runOverSubjects(state, wireOf, [](const QByteArray& wire) {
        QByteArray charset;
        const QString text = KCodecs::decodeRFC2047String(wire, &charset);
        benchmark::DoNotOptimize(text.constData());
    });
}
BENCHMARK(decodeSubjectsKCodecs)->ArgName("utf8Only")->Arg(0)->Arg(1);

void encodeSubjectsKCodecs(benchmark::State& state)
{
    runOverSubjects(state, itself, [](const Subject& subject) {
        const QByteArray words = KCodecs::encodeRFC2047String(subject.text, subject.charsetName);
        benchmark::DoNotOptimize(words.constData());
    });
}
BENCHMARK(encodeSubjectsKCodecs)->ArgName("utf8Only")->Arg(0)->Arg(1);
#endif

// Items are letters here: their rate stays the same when the cost is linear.
void encodeLongSubject(benchmark::State& state)
{
    const QString text(static_cast<int>(state.range(0)), QChar(0x44F));
    for (auto _ : state) {
        QCString words;
        EMAIL_Util::encode_2047_String(text, static_cast<int>(state.range(1)), words);
        benchmark::DoNotOptimize(words.begin());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(encodeLongSubject)
    ->ArgNames({"letters", "charset"})
    ->ArgsProduct({{1000, 160000}, {CHARSET_UTF_8, CHARSET_KOI8_U, CHARSET_GBK}});

void decodeUnterminatedWords(benchmark::State& state)
{
    const QCString body = QByteArray("=?utf-8?Q?a ").repeated(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QString text;
        EMAIL_Util::decode_2047_String(body, text, CHARSET_UTF_8);
        benchmark::DoNotOptimize(text.constData());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(decodeUnterminatedWords)->ArgName("starts")->Arg(1000)->Arg(80000);

} // namespace
