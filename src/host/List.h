// The job of List is a plain ordered list of references; it owns nothing.
#pragma once

#include <algorithm>
#include <vector>

namespace plotkit {

template <class T>
class TList
{
public:
    int Count() const { return static_cast<int>(FItems.size()); }
    T* operator[](int i) const { return FItems[static_cast<std::size_t>(i)]; }
    const std::vector<T*>& Items() const { return FItems; }
    void Add(T* item) { FItems.push_back(item); }
    /// The first occurrence; false when there is none.
    bool Remove(const T* item)
    {
        const auto found = std::find(FItems.begin(), FItems.end(), item);
        if (found == FItems.end())
            return false;
        FItems.erase(found);
        return true;
    }
    int IndexOf(const T* item) const
    {
        const auto found = std::find(FItems.begin(), FItems.end(), item);
        return found == FItems.end() ? -1 : static_cast<int>(found - FItems.begin());
    }
    void Clear() { FItems.clear(); }
    void Assign(std::vector<T*> items) { FItems = std::move(items); }
    auto begin() const { return FItems.begin(); }
    auto end() const { return FItems.end(); }

private:
    std::vector<T*> FItems;
};

}  // namespace plotkit
