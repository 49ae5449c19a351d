// SPDX-License-Identifier: MIT
#include "utility/tree/DelimiterIndex.h"

#include "utility/tree/DelimiterSearch.h"

#include <QtEndian>
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <new>

namespace tarvomime {

namespace {

constexpr std::string_view kLineStart = "\n--";

// Up to this many lines of one boundary are looked through one by one.
constexpr int kFewLines = 8;

// The bytes behind the first `skipped` ones as a number that orders as they do; missing bytes count
// as NUL.
std::uint64_t keyOf(std::string_view text, std::size_t skipped)
{
    if (text.size() >= skipped + sizeof(std::uint64_t))
        return qFromBigEndian<quint64>(text.data() + skipped);
    std::uint64_t key = 0;
    for (std::size_t i = skipped; i < skipped + sizeof key; ++i)
        key = key << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    return key;
}

std::size_t commonLength(std::string_view a, std::string_view b)
{
    const auto end = std::min(a.size(), b.size());
    std::size_t length = 0;
    while (length < end && a[length] == b[length])
        ++length;
    return length;
}

} // namespace

bool DelimiterIndex::canHold(std::string_view boundary)
{
    return boundary.find(kLineStart) == std::string_view::npos;
}

void DelimiterIndex::build()
{
    if (std::exchange(mBuilt, true))
        return;
    std::size_t position = findDelimiterLine(mText, static_cast<std::size_t>(mStart), {});
    for (; position != std::string_view::npos;
         position = findDelimiterLine(mText, position + 1, {}))
        mStarts.push_back(static_cast<int>(position));
    measureShared();
    mOrder.reserve(mStarts.size());
    for (int number = 0; number < static_cast<int>(mStarts.size()); ++number)
        mOrder.push_back({keyOf(behindDashes(number), mShared.size()), number});
    putInOrder();
}

// Nested boundaries that a program numbers begin in one order and end in the opposite one: two runs
// to be merged.
void DelimiterIndex::putInOrder()
{
    const auto less = [this](const Line& a, const Line& b) { return isLess(a, b); };
    const auto turn = std::is_sorted_until(mOrder.begin(), mOrder.end(), less);
    if (std::is_sorted(mOrder.rbegin(), std::make_reverse_iterator(turn), less)) {
        std::reverse(turn, mOrder.end());
        std::inplace_merge(mOrder.begin(), turn, mOrder.end(), less);
    } else {
        std::sort(mOrder.begin(), mOrder.end(), less);
    }
}

void DelimiterIndex::measureShared()
{
    mShared = mStarts.empty() ? std::string_view() : behindDashes(0);
    for (int number = 1; number < static_cast<int>(mStarts.size()); ++number) {
        const std::string_view line = behindDashes(number);
        if (line.substr(0, mShared.size()) != mShared)
            mShared = mShared.substr(0, commonLength(mShared, line));
    }
}

bool DelimiterIndex::isLess(const Line& a, const Line& b) const
{
    return a.key != b.key ? a.key < b.key : behindDashes(a.number) < behindDashes(b.number);
}

std::string_view DelimiterIndex::behindDashes(int number) const
{
    const auto index = static_cast<std::size_t>(number);
    const std::size_t start = static_cast<std::size_t>(mStarts[index]) + kLineStart.size();
    if (index + 1 == mStarts.size())
        return mText.substr(start);
    // All but the last byte of the next line's start: a boundary that has no such start in it can
    // reach that far.
    const std::size_t end = static_cast<std::size_t>(mStarts[index + 1]) + kLineStart.size() - 1;
    return mText.substr(start, end - start);
}

// An index that could not be filled is of no more use: its finder searches the text, which costs
// time only.
DelimiterIndex::Matches DelimiterIndex::lookUp(std::string_view boundary)
{
    try {
        build();
        return linesOf(boundary);
    } catch (const std::bad_alloc&) {
        mUsable = false;
        return {};
    }
}

DelimiterIndex::Matches DelimiterIndex::linesOf(std::string_view boundary)
{
    // Either no line begins with the boundary, or all do where it is no longer than what they
    // share.
    if (boundary.substr(0, mShared.size()) != mShared.substr(0, boundary.size()))
        return {0, 0, true, nullptr};
    const std::uint64_t key = keyOf(boundary, mShared.size());
    const auto prefixOf = [&](const Line& line) {
        return behindDashes(line.number).substr(0, boundary.size());
    };
    const auto first = std::partition_point(mOrder.begin(), mOrder.end(), [&](const Line& line) {
        return line.key < key || (line.key == key && prefixOf(line) < boundary);
    });
    const auto isOfBoundary = [&](const Line& line) { return prefixOf(line) == boundary; };
    // A boundary mostly begins a few lines only.
    const auto few = first + std::min<std::ptrdiff_t>(kFewLines, mOrder.end() - first);
    auto last = std::find_if_not(first, few, isOfBoundary);
    if (last == few)
        last = std::partition_point(few, mOrder.end(), isOfBoundary);
    Matches matches{static_cast<int>(first - mOrder.begin()),
                    static_cast<int>(last - mOrder.begin()), true, nullptr};
    if (matches.last - matches.first > kFewLines)
        matches.positions = &positionsOf(matches);
    return matches;
}

const std::vector<int>& DelimiterIndex::positionsOf(const Matches& matches)
{
    const auto [entry, isNew] = mPositions.try_emplace({matches.first, matches.last});
    std::vector<int>& positions = entry->second;
    if (isNew) {
        for (int place = matches.first; place < matches.last; ++place)
            positions.push_back(positionOf(place));
        std::sort(positions.begin(), positions.end());
    }
    return positions;
}

int DelimiterIndex::find(const Matches& matches, int from) const
{
    if (matches.positions != nullptr) {
        const auto found =
            std::lower_bound(matches.positions->begin(), matches.positions->end(), from);
        return found == matches.positions->end() ? -1 : *found;
    }
    int nearest = -1;
    for (int place = matches.first; place < matches.last; ++place) {
        const int position = positionOf(place);
        if (position >= from && (nearest < 0 || position < nearest))
            nearest = position;
    }
    return nearest;
}

} // namespace tarvomime
