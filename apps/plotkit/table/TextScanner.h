// The job of TextScanner is to take pieces off the front of a text.
#pragma once

#include <optional>
#include <string_view>

namespace plotkit {

class TTextScanner
{
public:
    explicit TTextScanner(std::string_view text) : FRest(text) {}

    bool AtEnd() const { return FRest.empty(); }
    char Next() const { return FRest.empty() ? '\0' : FRest.front(); }
    std::string_view Rest() const { return FRest; }
    bool Take(char c)
    {
        if (Next() != c || FRest.empty())
            return false;
        FRest.remove_prefix(1);
        return true;
    }
    void Skip(std::size_t count) { FRest.remove_prefix(count); }
    std::size_t CountDigits() const
    {
        std::size_t count = 0;
        while (count < FRest.size() && FRest[count] >= '0' && FRest[count] <= '9')
            ++count;
        return count;
    }
    /// A run of `fewest` to `most` digits; nothing, and nothing taken, when there are fewer or more.
    std::optional<int> Digits(std::size_t fewest, std::size_t most)
    {
        const std::size_t count = CountDigits();
        if (count < fewest || count > most)
            return std::nullopt;
        return First(count);
    }
    /// The first `count` of the digits at the front; nothing when there are fewer.
    std::optional<int> First(std::size_t count)
    {
        if (CountDigits() < count)
            return std::nullopt;
        int value = 0;
        for (std::size_t i = 0; i < count; ++i)
            value = value * 10 + (FRest[i] - '0');
        FRest.remove_prefix(count);
        return value;
    }

private:
    std::string_view FRest;
};

}  // namespace plotkit
