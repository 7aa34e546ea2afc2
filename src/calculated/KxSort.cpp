#include "calculated/KxSort.h"

#include <array>
#include <bit>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace plotkit {

namespace {

/// Below this many elements the exchanges cost less than the counting of digits.
constexpr std::size_t FewElements = 512;

using TSize = std::size_t;

/// The abscissae and what is carried with them, element for element.
template <TSize Columns>
using TColumns = std::array<double*, Columns>;

template <TSize Columns>
struct TRecord
{
    std::uint64_t Key;
    std::array<double, Columns - 1> Carried;
};

bool IsStrictlyAscending(std::span<const double> x)
{
    constexpr TSize block = 256;
    TSize i = 1;
    for (; i + block <= x.size(); i += block) {
        std::uint64_t disorder = 0;
        for (TSize k = 0; k < block; ++k)
            disorder |= x[i + k - 1] < x[i + k] ? std::uint64_t{0} : ~std::uint64_t{0};
        if (disorder != 0)
            return false;
    }
    for (; i < x.size(); ++i)
        if (!(x[i - 1] < x[i]))
            return false;
    return true;
}

// Unsigned keys in the order of the doubles. Both zeros get one key, since they compare equal.
std::uint64_t KeyOf(double value)
{
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);
    return bits & sign ? ~bits : bits | sign;
}

double ValueOf(std::uint64_t key)
{
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    return std::bit_cast<double>(key & sign ? key ^ sign : ~key);
}

/// Spans that wait for their turn; the shorter part is always done first, so that few can wait.
struct TWaiting
{
    struct TSpan
    {
        std::ptrdiff_t L, R;
    };
    std::array<TSpan, 64> Spans;
    TSize Count = 0;

    void Put(std::ptrdiff_t l, std::ptrdiff_t r)
    {
        if (l < r)
            Spans[Count++] = {l, r};
    }
    void PutBoth(std::ptrdiff_t l, std::ptrdiff_t j, std::ptrdiff_t i, std::ptrdiff_t r)
    {
        if (j - l > r - i) {
            Put(l, j);
            Put(i, r);
        } else {
            Put(i, r);
            Put(l, j);
        }
    }
    TSpan Take() { return Spans[--Count]; }
};

/// Exchanges until all is sorted, except in spans for which `isSettled` says that it has put them in order itself.
template <TSize Columns, class TIsSettled>
void Exchange(const TColumns<Columns>& columns, TSize count, TIsSettled isSettled)
{
    double* const x = columns[0];
    TWaiting waiting;
    waiting.Put(0, static_cast<std::ptrdiff_t>(count) - 1);
    while (waiting.Count > 0) {
        const auto [l, r] = waiting.Take();
        if (isSettled(l, r))
            continue;
        const double pivot = x[(l + r) / 2];
        std::ptrdiff_t i = l, j = r;
        do {
            while (x[i] < pivot)
                ++i;
            while (pivot < x[j])
                --j;
            if (i <= j) {
                for (double* const column : columns)
                    std::swap(column[i], column[j]);
                ++i;
                --j;
            }
        } while (i <= j);
        waiting.PutBoth(l, j, i, r);
    }
}

/// Sorts by digits of the keys, the lowest first; digits that all keys share are passed over.
template <class T>
void SortByDigits(std::vector<T>& records)
{
    constexpr int bits = 11, digits = 6;
    constexpr TSize values = TSize{1} << bits;
    std::vector<std::array<std::uint32_t, values>> starts(digits);
    for (const T& record : records)
        for (int d = 0; d < digits; ++d)
            ++starts[static_cast<TSize>(d)][record.Key >> (d * bits) & (values - 1)];
    std::vector<T> other(records.size());
    for (int d = 0; d < digits; ++d) {
        auto& start = starts[static_cast<TSize>(d)];
        if (start[records[0].Key >> (d * bits) & (values - 1)] == records.size())
            continue;
        std::uint32_t sum = 0;
        for (std::uint32_t& s : start)
            sum += std::exchange(s, sum);
        for (const T& record : records)
            other[start[record.Key >> (d * bits) & (values - 1)]++] = record;
        records.swap(other);
    }
}

/// False when a value is missing, which has no place among the keys.
template <TSize Columns>
bool Gather(const TColumns<Columns>& columns, std::vector<TRecord<Columns>>& records)
{
    for (TSize i = 0; i < records.size(); ++i) {
        if (std::isnan(columns[0][i]))
            return false;
        records[i].Key = KeyOf(columns[0][i]);
        for (TSize c = 1; c < Columns; ++c)
            records[i].Carried[c - 1] = columns[c][i];
    }
    return true;
}

template <TSize Columns>
void Scatter(std::span<const TRecord<Columns>> records, const TColumns<Columns>& columns, TSize first)
{
    for (TSize i = 0; i < records.size(); ++i) {
        columns[0][first + i] = ValueOf(records[i].Key);
        for (TSize c = 1; c < Columns; ++c)
            columns[c][first + i] = records[i].Carried[c - 1];
    }
}

template <TSize Columns>
void SortMany(const TColumns<Columns>& columns, TSize count)
{
    std::vector<TRecord<Columns>> records(count);
    if (!Gather<Columns>(columns, records))
        return Exchange(columns, count, [](auto, auto) { return false; });
    SortByDigits(records);
    // How many of the first i elements repeat their predecessor. The exchanges bring the elements of a span to just
    // these places, so a span without a repetition, at its ends too, is what stands there now. A zero counts as
    // repeated: its sign is not in the key.
    std::vector<std::uint32_t> repeated(count + 2);
    for (TSize i = 0; i < count; ++i) {
        const bool repeats = (i > 0 && records[i].Key == records[i - 1].Key) || ValueOf(records[i].Key) == 0;
        repeated[i + 1] = repeated[i] + repeats;
    }
    repeated[count + 1] = repeated[count];
    const std::span<const TRecord<Columns>> sorted = records;
    Exchange(columns, count, [&](std::ptrdiff_t l, std::ptrdiff_t r) {
        const auto first = static_cast<TSize>(l), end = static_cast<TSize>(r) + 1;
        if (repeated[end + 1] != repeated[first])
            return false;
        Scatter<Columns>(sorted.subspan(first, end - first), columns, first);
        return true;
    });
}

void CheckRange(int L, int R, std::span<TKxRealArray* const> arrays)
{
    for (const TKxRealArray* array : arrays)
        if (L < 0 || static_cast<TSize>(R) >= array->Length())
            throw ERangeError("QuickSort: elements " + std::to_string(L) + " to " + std::to_string(R) +
                              " are not within an array of " + std::to_string(array->Length()));
}

template <TSize Columns>
void Sort(int L, int R, const std::array<TKxRealArray*, Columns>& arrays)
{
    if (R <= L)
        return;
    CheckRange(L, R, arrays);
    const auto first = static_cast<TSize>(L), count = static_cast<TSize>(R - L) + 1;
    if (IsStrictlyAscending(arrays[0]->Span().subspan(first, count)))
        return;
    TColumns<Columns> columns;
    for (TSize c = 0; c < Columns; ++c)
        columns[c] = arrays[c]->Write() + first;
    if (count < FewElements)
        Exchange(columns, count, [](auto, auto) { return false; });
    else
        SortMany(columns, count);
}

}  // namespace

void QuickSortYtoX(int L, int R, TKxRealArray& X, TKxRealArray& Y)
{
    Sort<2>(L, R, {&X, &Y});
}

void QuickSortYWtoX(int L, int R, TKxRealArray& X, TKxRealArray& Y, TKxRealArray& W)
{
    Sort<3>(L, R, {&X, &Y, &W});
}

}  // namespace plotkit
