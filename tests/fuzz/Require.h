// The job of Require is to stop a program that reads hostile input where a law does not hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace plotkit {

inline void Require(bool holds, std::string_view law, std::string_view seen = {})
{
    if (holds)
        return;
    std::fprintf(stderr, "Violated: %s\n%s\n", std::string(law).c_str(), std::string(seen).c_str());
    std::abort();
}

inline std::string_view AsText(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace plotkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
