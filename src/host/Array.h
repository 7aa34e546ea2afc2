// The job of Array is the growable array whose copies share their elements until one of them is written.
#pragma once

#include <algorithm>
#include <cassert>
#include <initializer_list>
#include <memory>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace plotkit {

/// Zero-based; an empty array holds no memory. Copying is one reference; `Write` separates a shared array first.
template <class T>
class TArray
{
    // std::vector<bool> has no elements to point at, a byte each does.
    struct TCell
    {
        T Value{};
    };
    using TStore = std::vector<std::conditional_t<std::is_same_v<T, bool>, TCell, T>>;

public:
    TArray() = default;
    explicit TArray(std::size_t length) { Resize(length); }
    TArray(std::initializer_list<T> values) : TArray(values.size()) { std::copy(values.begin(), values.end(), Write()); }
    /// Takes over the caller's elements without copying them.
    explicit TArray(std::vector<T> values)
        requires(!std::is_same_v<T, bool>)
    {
        if (!values.empty())
            FStore = std::make_shared<TStore>(std::move(values));
    }

    std::size_t Length() const { return FStore ? FStore->size() : 0; }
    bool IsEmpty() const { return Length() == 0; }
    const T* Read() const { return FStore ? reinterpret_cast<const T*>(FStore->data()) : nullptr; }
    /// The elements for writing, no longer shared.
    T* Write()
    {
        Separate();
        return FStore ? reinterpret_cast<T*>(FStore->data()) : nullptr;
    }
    const T& operator[](std::size_t i) const
    {
        assert(i < Length());
        return Read()[i];
    }
    std::span<const T> Span() const { return {Read(), Length()}; }
    bool IsSharedWith(const TArray& other) const { return FStore && FStore == other.FStore; }

    /// New elements are zero. Memory grows geometrically, so growing by small steps costs little.
    void Resize(std::size_t length)
    {
        if (length == Length())
            return;
        if (length == 0) {
            FStore.reset();
            return;
        }
        if (!FStore)
            FStore = std::make_shared<TStore>();
        Separate();
        if (length > FStore->capacity())
            FStore->reserve(std::max(length, FStore->capacity() * 2));
        FStore->resize(length);
    }

    friend bool operator==(const TArray& a, const TArray& b)
    {
        return a.FStore == b.FStore || (a.Length() == b.Length() && std::equal(a.Read(), a.Read() + a.Length(), b.Read()));
    }

private:
    void Separate()
    {
        if (FStore && FStore.use_count() > 1)
            FStore = std::make_shared<TStore>(*FStore);
    }

    std::shared_ptr<TStore> FStore;
};

}  // namespace plotkit
