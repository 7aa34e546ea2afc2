#include "host/Host.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "host/Errors.h"
#include "host/Metafile.h"
#include "host/StringList.h"

namespace plotkit {

namespace {

THost* HostInForce = nullptr;

/// The colours of codes 0x80000000, 0x80000001, ... on a plain light desktop, 0x00BBGGRR.
constexpr std::array<std::int32_t, 31> SystemColors{
    0xC8C8C8,  // scroll bar
    0x000000,  // background
    0xD1B499,  // active caption
    0xDBCDBF,  // inactive caption
    0xF0F0F0,  // menu
    0xFFFFFF,  // window
    0x646464,  // window frame
    0x000000,  // menu text
    0x000000,  // window text
    0x000000,  // caption text
    0xB4B4B4,  // active border
    0xFCF7F4,  // inactive border
    0xABABAB,  // workspace
    0xD77800,  // highlight
    0xFFFFFF,  // highlighted text
    0xF0F0F0,  // button face
    0xA0A0A0,  // button shadow
    0x6D6D6D,  // grayed text
    0x000000,  // button text
    0x000000,  // inactive caption text
    0xFFFFFF,  // button highlight
    0x696969,  // dark shadow
    0xE3E3E3,  // light edge
    0x000000,  // hint text
    0xE1FFFF,  // hint background
    0xB4B4B4,  // unused
    0xCC6600,  // hot item
    0xEAD1B9,  // active caption, far end
    0xF2E4D7,  // inactive caption, far end
    0xD77800,  // menu highlight
    0xF0F0F0,  // menu bar
};

/// Value of an environment variable that names a folder; relative ones do not count.
std::optional<std::string> FolderVariable(const char* name)
{
    const char* value = std::getenv(name);
    if (!value || *value != '/')
        return std::nullopt;
    std::string folder(value);
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
    return folder;
}

/// The documents folder of the desktop's list of user folders, whose lines are NAME="$HOME/..." or NAME="/...".
std::optional<std::string> ListedDocuments(const std::string& config, const std::string& home)
{
    constexpr std::string_view key = "XDG_DOCUMENTS_DIR=\"", homeName = "$HOME";
    TStringList lines;
    try {
        lines.LoadFromFile(config + "/user-dirs.dirs");
    } catch (const EFileError&) {
        return std::nullopt;
    }
    for (const std::string& line : lines.Lines()) {
        const std::size_t end = line.rfind('"');
        if (line.substr(0, key.size()) != key || end < key.size())
            continue;
        std::string folder = line.substr(key.size(), end - key.size());
        if (folder.substr(0, homeName.size()) == homeName)
            folder.replace(0, homeName.size(), home);
        while (folder.size() > 1 && folder.back() == '/')
            folder.pop_back();
        if (!folder.empty() && folder.front() == '/')
            return folder;
    }
    return std::nullopt;
}

}  // namespace

THost::THost() : FRandom(std::random_device()()) {}

THost::~THost() = default;

std::string THost::ExecutableName() const
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

std::optional<std::string> THost::AppDataFolder() const
{
    if (auto folder = FolderVariable("XDG_CONFIG_HOME"))
        return folder;
    if (const auto home = FolderVariable("HOME"))
        return *home + "/.config";
    return std::nullopt;
}

std::optional<std::string> THost::DocumentsFolder() const
{
    const auto home = FolderVariable("HOME");
    if (!home)
        return std::nullopt;
    if (auto listed = ListedDocuments(*AppDataFolder(), *home))
        return listed;
    return *home + "/Documents";
}

const TLocaleFormats& THost::Locale() const
{
    static const TLocaleFormats formats;
    return formats;
}

std::chrono::system_clock::time_point THost::Now() const
{
    return std::chrono::system_clock::now();
}

int THost::StartTimer(std::chrono::milliseconds, std::function<void()>)
{
    return ++FLastTimer;
}

void THost::StopTimer(int) {}

double THost::Random()
{
    return static_cast<double>(FRandom() >> 11) * 0x1p-53;
}

void THost::SetClipboardMarkup(const std::string& text, const std::string& markup)
{
    SetClipboardText(text);
    FMarkedText = text;
    FMarkup = markup;
}

void THost::SetClipboardText(const std::string& text)
{
    FClipboardText = text;
    FClipboardMetafile.reset();
}

void THost::SetClipboardMetafile(const TMetafile& metafile)
{
    FClipboardMetafile = std::make_unique<TMetafile>(metafile);
    FClipboardText.clear();
}

TColor THost::ResolveColor(TColor color) const
{
    if (!IsSystemColor(color))
        return IntToColor(ColorToInt(color) & 0xFFFFFF);
    const auto code = static_cast<std::uint32_t>(ColorToInt(color)) & 0x7FFFFFFFU;
    return code < SystemColors.size() ? IntToColor(SystemColors[code]) : clBlack;
}

const TTextMeasurer& THost::TextMeasurer() const
{
    return FMeasurer;
}

void THost::HandleError(const std::exception& error)
{
    std::cerr << "error: " << error.what() << '\n';
}

THost& Host()
{
    static THost headless;
    return HostInForce ? *HostInForce : headless;
}

THostGuard::THostGuard(THost& host) : FBefore(HostInForce)
{
    HostInForce = &host;
}

THostGuard::~THostGuard()
{
    HostInForce = FBefore;
}

}  // namespace plotkit
