// SPDX-License-Identifier: MIT
#include "bench/codecs/Jobs.h"

#include <map>
#include <utility>
#include <vector>

namespace bench {

namespace {

const char* jobName(Job job)
{
    switch (job) {
    case Job::EncodeBase64:
        return "encode-base64";
    case Job::EncodeBase64Unbroken:
        return "encode-base64-unbroken";
    case Job::DecodeBase64:
        return "decode-base64";
    case Job::DecodeBase64Unbroken:
        return "decode-base64-unbroken";
    case Job::DecodeBase64ShortFirst:
        return "decode-base64-short-first";
    case Job::DecodeBase64Ragged:
        return "decode-base64-ragged";
    case Job::EncodeQp:
        return "encode-qp";
    case Job::DecodeQp:
        return "decode-qp";
    default:
        return "copy";
    }
}

// Base64 does not look at what it encodes.
bool dependsOnKind(Job job)
{
    return job == Job::EncodeQp || job == Job::DecodeQp;
}

std::string withRaggedLines(const std::string& digits)
{
    std::string text;
    std::size_t start = 0;
    for (std::size_t length = 40; start < digits.size(); length = 49 - length) {
        text += digits.substr(start, length) + "\r\n";
        start += length;
    }
    return text;
}

std::string makeJobInput(Job job, Kind kind, std::size_t size)
{
    std::string raw = makeInput(kind, size);
    switch (job) {
    case Job::DecodeBase64:
        return asBase64(raw, true);
    case Job::DecodeBase64Unbroken:
        return asBase64(raw, false);
    case Job::DecodeBase64ShortFirst:
        return asBase64(raw.substr(0, 45), true) + asBase64(raw.substr(45), true);
    case Job::DecodeBase64Ragged:
        return withRaggedLines(asBase64(raw, false));
    case Job::DecodeQp:
        return asQuotedPrintable(raw, kind);
    default:
        return raw;
    }
}

const std::string& jobInput(Job job, Kind kind, std::size_t size)
{
    static std::map<std::tuple<Job, Kind, std::size_t>, std::string> inputs;
    const auto [entry, isNew] = inputs.try_emplace({job, kind, size});
    if (isNew)
        entry->second = makeJobInput(job, kind, size);
    return entry->second;
}

std::string sizeName(std::size_t size)
{
    return size < (1U << 20) ? std::to_string(size >> 10) + "KiB"
                             : std::to_string(size >> 20) + "MiB";
}

void measure(benchmark::State& state, const Work& work, Job job, Kind kind, std::size_t size)
{
    const std::string& in = jobInput(job, kind, size);
    std::size_t produced = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(produced = work(in));
    if (produced == 0)
        state.SkipWithError("nothing was produced");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

} // namespace

bool addWork(const char* rival, Job job, Work work)
{
    for (const Kind kind : kKinds) {
        if (kind != Kind::Binary && !dependsOnKind(job))
            continue;
        for (const std::size_t size : kSizes) {
            const std::string name = std::string(jobName(job)) + '/' + kindName(kind) + '/' +
                                     sizeName(size) + '/' + rival;
            benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
                measure(state, work, job, kind, size);
            });
        }
    }
    return true;
}

} // namespace bench
