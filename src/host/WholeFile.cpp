#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "host/Errors.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

namespace fs = std::filesystem;

struct TFileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using TFile = std::unique_ptr<std::FILE, TFileCloser>;

[[noreturn]] void Raise(const char* action, const fs::path& file, const std::error_code& reason)
{
    const std::string why = reason ? reason.message() : "unknown reason";
    throw EFileError(std::string("Cannot ") + action + " \"" + file.string() + "\": " + why);
}

std::error_code LastError()
{
    return {errno, std::generic_category()};
}

/// Empty on success.
std::error_code Fill(TFile file, std::string_view content)
{
    errno = 0;
    const bool written = std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
    const std::error_code writing = LastError();
    // What is left in the buffer reaches the disk, or does not, when the file is closed.
    const bool closed = std::fclose(file.release()) == 0;
    if (written && closed)
        return {};
    const std::error_code reason = written ? LastError() : writing;
    return reason ? reason : std::make_error_code(std::errc::io_error);
}

/// A new file beside `file` and its name.
TFile CreateBeside(const fs::path& file, fs::path& name)
{
    constexpr int maxTries = 1000;
    for (int i = 0; i < maxTries; ++i) {
        name = file;
        name += ".~" + std::to_string(i);
        errno = 0;
        if (TFile created{std::fopen(name.string().c_str(), "wbx")})
            return created;
        if (errno != EEXIST)
            break;
    }
    return nullptr;
}

/// Removes the half-written file unless it got its name.
class TPending
{
public:
    explicit TPending(const fs::path& file) : FFile(file) {}
    TPending(const TPending&) = delete;
    TPending& operator=(const TPending&) = delete;
    ~TPending()
    {
        std::error_code ignored;
        if (!FDone)
            fs::remove(FFile, ignored);
    }
    void Done() { FDone = true; }

private:
    const fs::path& FFile;
    bool FDone = false;
};

void Replace(const fs::path& shownName, const fs::path& file, bool exists, std::string_view content)
{
    constexpr const char* action = "write";
    errno = 0;
    // A rename would also replace a file that its owner has protected against writing.
    if (exists && !TFile(std::fopen(file.string().c_str(), "r+b")))
        Raise(action, shownName, LastError());
    fs::path beside;
    TFile created = CreateBeside(file, beside);
    if (!created)
        Raise(action, shownName, LastError());
    TPending pending(beside);
    std::error_code error = Fill(std::move(created), content);
    if (!error && exists) {
        const fs::perms permissions = fs::status(file, error).permissions();
        if (!error)
            fs::permissions(beside, permissions, error);
    }
    if (!error)
        fs::rename(beside, file, error);
    if (error)
        Raise(action, shownName, error);
    pending.Done();
}

}  // namespace

std::string ReadWholeFile(const fs::path& file)
{
    constexpr const char* action = "read";
    constexpr std::size_t blockLength = 1 << 16;
    errno = 0;
    const TFile input(std::fopen(file.string().c_str(), "rb"));
    if (!input)
        Raise(action, file, LastError());
    std::string content;
    std::size_t length = 0, read = 0;
    do {
        content.resize(length + std::max(blockLength, length));
        read = std::fread(content.data() + length, 1, content.size() - length, input.get());
        length += read;
    } while (read > 0);
    if (std::ferror(input.get()))
        Raise(action, file, LastError());
    content.resize(length);
    return content;
}

void WriteWholeFile(const fs::path& file, std::string_view content)
{
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    const bool exists = fs::exists(status);
    if (exists && !fs::is_regular_file(status)) {
        errno = 0;
        TFile output(std::fopen(file.string().c_str(), "wb"));
        if (!output)
            Raise("write", file, LastError());
        if (const std::error_code reason = Fill(std::move(output), content))
            Raise("write", file, reason);
        return;
    }
    fs::path target = file;
    if (fs::is_symlink(fs::symlink_status(file, error))) {
        target = fs::weakly_canonical(file, error);
        if (error)
            Raise("write", file, error);
    }
    Replace(file, target, exists, content);
}

}  // namespace plotkit
