// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>
#include <utility>

/// What applications ask beyond the exact interface: names, people, text, replies, stores.
namespace tarvomime {

/// Why something did not work, as a sentence for a person: without full stop, ready to stand
/// behind a file name and a colon. Returned where a `Result` is wanted.
struct Failure
{
    QString reason;
};

/// A value, or the reason why there is none.
///
///     const Result<QString> name = ...;
///     if (!name)
///         return show(name.reason());
///     use(*name);
template <class T>
class [[nodiscard]] Result
{
public:
    Result(T value) : mValue(std::move(value)) {}
    // Taken over, not copied.
    // cppcheck-suppress passedByValue
    Result(Failure failure) : mReason(std::move(failure.reason)) {}

    explicit operator bool() const { return mValue.has_value(); }

    /// Only where there is a value.
    const T& operator*() const& { return *mValue; }
    T& operator*() & { return *mValue; }
    T&& operator*() && { return *std::move(mValue); }
    const T* operator->() const { return &*mValue; }
    T* operator->() { return &*mValue; }

    /// The value, or `fallback` where there is none.
    T valueOr(T fallback) const { return mValue ? *mValue : std::move(fallback); }

    /// Empty where there is a value.
    const QString& reason() const { return mReason; }
    /// The failure itself, to hand it on as a result of another type.
    Failure failure() const { return {mReason}; }

private:
    std::optional<T> mValue;
    QString mReason;
};

/// That something worked, or the reason why it did not.
template <>
class [[nodiscard]] Result<void>
{
public:
    Result() = default;
    // cppcheck-suppress passedByValue
    Result(Failure failure) : mReason(std::move(failure.reason)), mWorked(false) {}

    explicit operator bool() const { return mWorked; }
    const QString& reason() const { return mReason; }
    Failure failure() const { return {mReason}; }

private:
    QString mReason;
    bool mWorked = true;
};

} // namespace tarvomime
