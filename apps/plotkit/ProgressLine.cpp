#include "plotkit/ProgressLine.h"

#include <unistd.h>

#include <ostream>

namespace plotkit {

TProgressLine::TProgressLine(std::ostream& stream, bool isTerminal, std::string what)
    : FStream(stream), FWhat(std::move(what)), FStart(std::chrono::steady_clock::now()), FIsTerminal(isTerminal)
{}

TProgressLine::~TProgressLine()
{
    if (FShown > 0)
        FStream << '\r' << std::string(FShown, ' ') << '\r' << std::flush;
}

void TProgressLine::Show(std::uint64_t read, std::uint64_t total)
{
    constexpr std::uint64_t megabyte = 1'000'000;
    if (!FIsTerminal || std::chrono::steady_clock::now() - FStart < std::chrono::seconds(1))
        return;
    const std::string amount =
        total > 0 ? std::to_string(100 * read / total) + " %" : std::to_string(read / megabyte) + " MB";
    const std::string line = FWhat + ": " + amount;
    FStream << '\r' << line << std::flush;
    FShown = line.size();
}

bool IsErrorTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

}  // namespace plotkit
