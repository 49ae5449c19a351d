// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace tarvomime::tool {

/// Runs jobs on several threads and gives their results to the one that hands them in, in order.
template <class Result>
class OrderedJobs
{
public:
    using Job = std::function<Result()>;
    using Taker = std::function<void(Result)>;

    OrderedJobs(int threads, Taker take)
        : mMostThreads(static_cast<std::size_t>(threads)), mTake(std::move(take))
    {
    }
    OrderedJobs(const OrderedJobs&) = delete;
    OrderedJobs& operator=(const OrderedJobs&) = delete;
    /// Drops the jobs that nobody began.
    ~OrderedJobs()
    {
        {
            const std::lock_guard lock(mMutex);
            mQueue.clear();
            mIsOver = true;
        }
        mWork.notify_all();
        for (std::thread& thread : mThreads)
            thread.join();
    }

    /// Hands a job in, and gives the first results where many wait.
    void add(Job job)
    {
        if (mMostThreads <= 1) {
            mTake(job());
            return;
        }
        if (mThreads.size() < mMostThreads)
            mThreads.emplace_back([this] { work(); });
        std::packaged_task<Result()> task(std::move(job));
        mResults.push_back(task.get_future());
        {
            const std::lock_guard lock(mMutex);
            mQueue.push_back(std::move(task));
        }
        mWork.notify_one();
        while (mResults.size() > kAhead * mMostThreads)
            takeFirst();
    }

    void finish()
    {
        while (!mResults.empty())
            takeFirst();
    }

private:
    // Jobs handed in before the results of earlier ones are taken, by thread.
    static constexpr std::size_t kAhead = 4;

    void takeFirst()
    {
        mTake(mResults.front().get());
        mResults.pop_front();
    }

    void work()
    {
        for (;;) {
            std::unique_lock lock(mMutex);
            mWork.wait(lock, [this] { return mIsOver || !mQueue.empty(); });
            if (mQueue.empty())
                return;
            std::packaged_task<Result()> task = std::move(mQueue.front());
            mQueue.pop_front();
            lock.unlock();
            task();
        }
    }

    const std::size_t mMostThreads;
    const Taker mTake;
    std::vector<std::thread> mThreads;
    std::deque<std::future<Result>> mResults;
    std::mutex mMutex;
    std::condition_variable mWork;
    // These two are the mutex's.
    std::deque<std::packaged_task<Result()>> mQueue;
    bool mIsOver = false;
};

} // namespace tarvomime::tool
