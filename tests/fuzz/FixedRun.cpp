// FOLDER ROUNDS: a reader gets every input of the corpus, then ROUNDS mutations of them, the same ones in every run.
// The input that stops it is written to "crash" in the working folder. A file instead of a folder: that input alone.
#include <sanitizer/common_interface_defs.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <random>
#include <vector>

#include "Require.h"
#include "host/StringList.h"

namespace {

std::string Present;

void KeepPresent()
{
    std::ofstream("crash", std::ios::binary) << Present;
}

void Run(const std::string& input)
{
    Present = input;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(Present.data()), Present.size());
}

std::string Mutated(std::string text, const std::string& other, std::minstd_rand& random)
{
    const auto below = [&](std::size_t n) { return random() % std::max<std::size_t>(n, 1); };
    for (std::size_t count = 1 + below(6); count > 0; --count) {
        const std::size_t at = below(text.size() + 1);
        const auto act = below(5);
        if (act == 0)
            text.erase(at, 1 + below(12));
        else if (act == 1 && at < text.size())
            text[at] = static_cast<char>(random());
        else if (act == 2)
            text.insert(at, 1 + below(3), "()[]=;:.,\"\\\n\r-9e\xFF"[below(17)]);
        else {
            const std::string& source = act == 3 ? text : other;
            text.insert(at, source.substr(below(source.size()), 1 + below(60)));
        }
    }
    return text;
}

}  // namespace

/// Undefined behaviour is told by a runtime of its own, which knows this name.
extern "C" void __ubsan_on_report();
extern "C" void __ubsan_on_report()
{
    KeepPresent();
}

int main(int argc, char** argv)
{
    if (argc < 2)
        return 2;
    __sanitizer_set_death_callback(KeepPresent);
    std::signal(SIGABRT, [](int) { KeepPresent(); });

    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(argv[1]))
        for (const auto& entry : std::filesystem::directory_iterator(argv[1]))
            files.push_back(entry.path());
    else
        files.emplace_back(argv[1]);
    std::ranges::sort(files);
    std::vector<std::string> corpus;
    for (const auto& file : files)
        corpus.push_back(plotkit::ReadWholeFile(file));
    plotkit::Require(!corpus.empty(), "there is a corpus");
    std::ranges::for_each(corpus, Run);

    std::minstd_rand random(20261121);
    const auto any = [&]() -> const std::string& { return corpus[random() % corpus.size()]; };
    for (int round = argc < 3 ? 0 : std::atoi(argv[2]); round > 0; --round) {
        const std::string& text = any();
        Run(Mutated(text, any(), random));
    }
    return 0;
}
