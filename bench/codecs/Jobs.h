// SPDX-License-Identifier: MIT
#pragma once

#include "bench/codecs/Inputs.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <functional>
#include <string>

/// What can be measured. A rival's file adds each of its ways to do a job; the job runs it over
/// every size and input that the job has.
namespace bench {

enum class Job {
    EncodeBase64,
    EncodeBase64Unbroken,
    DecodeBase64,
    DecodeBase64Unbroken,
    /// Regular lines behind a short one.
    DecodeBase64ShortFirst,
    /// Lines of 40 digits and of 9 by turns, so that groups lie across their ends.
    DecodeBase64Ragged,
    EncodeQp,
    DecodeQp,
    /// The limit: the same number of raw bytes moved.
    Copy
};

/// Does the job once and returns the length of the result, which must be in memory by then.
using Work = std::function<std::size_t(const std::string& in)>;

/// Names the benchmark "job/kind/size/rival"; its rate is in raw (not encoded) bytes.
bool addWork(const char* rival, Job job, Work work);

} // namespace bench
