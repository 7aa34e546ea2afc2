// The job of ProgressLine is to say on a terminal how far a long reading is.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <string>

namespace plotkit {

/// One line that is written over and removed in the end; nothing within the first second, or where the stream is no
/// terminal.
class TProgressLine
{
public:
    TProgressLine(std::ostream& stream, bool isTerminal, std::string what);
    TProgressLine(const TProgressLine&) = delete;
    TProgressLine& operator=(const TProgressLine&) = delete;
    ~TProgressLine();

    /// `total` is 0 when nobody knows.
    void Show(std::uint64_t read, std::uint64_t total);

private:
    std::ostream& FStream;
    std::string FWhat;
    std::chrono::steady_clock::time_point FStart;
    std::size_t FShown = 0;
    bool FIsTerminal;
};

/// Whether the standard error output is one.
bool IsErrorTerminal();

}  // namespace plotkit
