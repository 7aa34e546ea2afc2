// The job of BenchData is the data that all sides of a benchmark share: made once, the same in every process.
#pragma once

#include <cstddef>
#include <map>
#include <random>
#include <vector>

namespace bench {

/// `make(count)`, kept for the life of the process: repetitions find it ready.
template <class TMake>
const std::vector<double>& Kept(std::size_t count, TMake make)
{
    static std::map<std::size_t, std::vector<double>> kept;
    std::vector<double>& values = kept[count];
    if (values.empty())
        values = make(count);
    return values;
}

/// 0, 1, 2, ...
inline const std::vector<double>& Ramp(std::size_t count)
{
    return Kept(count, [](std::size_t n) {
        std::vector<double> values(n);
        for (std::size_t i = 0; i < n; ++i)
            values[i] = static_cast<double>(i);
        return values;
    });
}

/// Evenly from 0 to below 1.
inline const std::vector<double>& Unit(std::size_t count)
{
    return Kept(count, [](std::size_t n) {
        std::vector<double> values(n);
        for (std::size_t i = 0; i < n; ++i)
            values[i] = static_cast<double>(i) / static_cast<double>(n);
        return values;
    });
}

/// Normally distributed, independent of each other.
inline const std::vector<double>& Noise(std::size_t count)
{
    return Kept(count, [](std::size_t n) {
        std::mt19937_64 random(7);
        std::normal_distribution<double> one;
        std::vector<double> values(n);
        for (double& value : values)
            value = one(random);
        return values;
    });
}

/// A random walk.
inline const std::vector<double>& Walk(std::size_t count)
{
    return Kept(count, [](std::size_t n) {
        std::vector<double> values = Noise(n);
        double at = 0;
        for (double& value : values)
            value = at += value;
        return values;
    });
}

/// From 0.5 to 1.5.
inline const std::vector<double>& Weights(std::size_t count)
{
    return Kept(count, [](std::size_t n) {
        std::mt19937_64 random(11);
        std::uniform_real_distribution<double> one(0.5, 1.5);
        std::vector<double> values(n);
        for (double& value : values)
            value = one(random);
        return values;
    });
}

}  // namespace bench
