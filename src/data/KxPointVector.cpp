#include "data/KxPointVector.h"

#include <algorithm>
#include <limits>

#include "host/Errors.h"

namespace plotkit {

namespace {

[[noreturn]] void RaiseOutOfRange()
{
    throw ERangeError("Error during floating point number extraction");
}

int SumOf(int a, int b)
{
    return static_cast<int>(std::min<std::int64_t>(std::int64_t{a} + b, std::numeric_limits<int>::max()));
}

}  // namespace

template <class T>
TKxPlainVector<T>::TKxPlainVector(int initialSize)
    : FIncrement(initialSize < 1 ? 50 : initialSize), FCapacity(FIncrement)
{}

template <class T>
const T& TKxPlainVector<T>::GetValue(int i) const
{
    if (i < 0 || i >= FCount)
        RaiseOutOfRange();
    return FValues.Read()[i];
}

template <class T>
void TKxPlainVector<T>::GrowFor(int n)
{
    if (n >= FCapacity) {
        FCapacity = SumOf(FCapacity, FIncrement);
        if (n > FCapacity)
            FCapacity = SumOf(n, FIncrement);
    }
    if (n > 0 && FValues.Length() < static_cast<std::size_t>(n))
        FValues.Resize(static_cast<std::size_t>(n));
}

template <class T>
void TKxPlainVector<T>::CheckCount(int n)
{
    GrowFor(n);
    FCount = std::max(FCount, n);
}

template <class T>
void TKxPlainVector<T>::SetValue(int i, const T& value)
{
    if (i < 0 || i == std::numeric_limits<int>::max())
        RaiseOutOfRange();
    const T stored = value;
    CheckCount(i + 1);
    FValues.Write()[i] = stored;
}

template <class T>
void TKxPlainVector<T>::SetCount(int n)
{
    GrowFor(n);
    FCount = std::max(n, 0);
}

template <class T>
int TKxPlainVector<T>::Add(const T& value)
{
    SetValue(FCount, value);
    return FCount;
}

template class TKxPlainVector<TPoint>;
template class TKxPlainVector<std::int32_t>;

TPoint* TKxPointVector::GetPointer(int i)
{
    if (i < 0 || i >= GetCount())
        RaiseOutOfRange();
    return Storage() + i;
}

}  // namespace plotkit
