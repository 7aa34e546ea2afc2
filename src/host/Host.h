// The job of Host is the one door to the platform: folders, locale, clock, timers, random numbers, beep, clipboard,
// cursor, screen, colours and text metrics. The base class is the headless default.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>

#include "host/Locale.h"
#include "host/TextMeasurer.h"
#include "host/Types.h"

namespace plotkit {

class TMetafile;

enum TCursor : std::uint8_t
{
    crDefault,
    crHourGlass,
    crSizeWestEast,
    crCross,
    crHand,
    crText
};

class THost
{
public:
    THost();
    THost(const THost&) = delete;
    THost& operator=(const THost&) = delete;
    virtual ~THost();

    /// Full path of the running program.
    virtual std::string ExecutableName() const;
    /// The user's configuration folder and documents folder, without trailing separator; nothing when unknown.
    virtual std::optional<std::string> AppDataFolder() const;
    virtual std::optional<std::string> DocumentsFolder() const;

    virtual const TLocaleFormats& Locale() const;
    virtual std::chrono::system_clock::time_point Now() const;

    /// Calls `onTimer` every `interval` on the thread of the user interface until the timer is stopped. The result,
    /// above 0 and never given twice, is for `StopTimer`, which does nothing for a timer that does not run. Without a
    /// user interface there is no loop that could call: the headless default hands out numbers and runs no timer.
    virtual int StartTimer(std::chrono::milliseconds interval, std::function<void()> onTimer);
    virtual void StopTimer(int timer);

    /// Uniform in [0, 1).
    virtual double Random();
    virtual void Beep() {}

    /// The clipboard holds one thing: a text or a metafile. The headless one is the program's own.
    virtual std::string ClipboardText() const { return FClipboardText; }
    virtual void SetClipboardText(const std::string& text);
    /// A text with its markup, which stays within the program: `ClipboardMarkup` is empty as soon as the clipboard
    /// holds any other text.
    void SetClipboardMarkup(const std::string& text, const std::string& markup);
    std::string ClipboardMarkup() const { return ClipboardText() == FMarkedText ? FMarkup : std::string(); }
    virtual void SetClipboardMetafile(const TMetafile& metafile);
    /// What `SetClipboardMetafile` of this class kept; nullptr when something else was put there since.
    const TMetafile* ClipboardMetafile() const { return FClipboardMetafile.get(); }

    /// The cursor of the whole program while something lasts.
    virtual TCursor ScreenCursor() const { return FCursor; }
    virtual void SetScreenCursor(TCursor cursor) { FCursor = cursor; }
    /// The usable part of the screen, pixels.
    virtual TRect ScreenRect() const { return {0, 0, 1920, 1080}; }
    /// 0x00BBGGRR of a colour; system-colour codes 0x80000000 to 0x8000001E resolved, black for others.
    virtual TColor ResolveColor(TColor color) const;
    virtual const TTextMeasurer& TextMeasurer() const;

    /// An error that nobody else takes, such as one raised while painting. The headless default writes it to the
    /// standard error output.
    virtual void HandleError(const std::exception& error);

protected:
    std::string FClipboardText;
    TCursor FCursor = crDefault;
    int FLastTimer = 0;

private:
    std::unique_ptr<TMetafile> FClipboardMetafile;
    std::string FMarkedText, FMarkup;
    TFixedTextMeasurer FMeasurer;
    std::mt19937_64 FRandom;
};

/// The host in force.
THost& Host();
/// Puts another host in force for its lifetime.
class THostGuard
{
public:
    explicit THostGuard(THost& host);
    THostGuard(const THostGuard&) = delete;
    THostGuard& operator=(const THostGuard&) = delete;
    ~THostGuard();

private:
    THost* FBefore;
};

/// A host whose clock stands until it is moved: timers run when `Advance` passes their time, in the order in which they
/// are due (the one started first before others of the same time), with `Now` at that time. A callback may start and
/// stop timers, its own too. Random numbers are the same in every run.
class TFakeHost : public THost
{
public:
    std::chrono::system_clock::time_point Now() const override { return FNow; }
    int StartTimer(std::chrono::milliseconds interval, std::function<void()> onTimer) override;
    void StopTimer(int timer) override;
    double Random() override;
    const TLocaleFormats& Locale() const override { return Formats; }
    std::string ExecutableName() const override { return Executable; }
    std::optional<std::string> AppDataFolder() const override { return AppData; }
    std::optional<std::string> DocumentsFolder() const override { return Documents; }
    void Beep() override { ++Beeps; }
    void HandleError(const std::exception& error) override { LastError = error.what(); }

    /// Not backwards: a negative step runs what is due and leaves the clock.
    void Advance(std::chrono::milliseconds by);

    TLocaleFormats Formats;
    std::string Executable = "/opt/chart/chart";
    std::optional<std::string> AppData = "/home/user/.config";
    std::optional<std::string> Documents = "/home/user/Documents";
    std::string LastError;
    int Beeps = 0;

private:
    struct TEntry
    {
        std::chrono::milliseconds Interval;
        std::chrono::system_clock::time_point Due;
        std::function<void()> OnTimer;
    };
    std::map<int, TEntry> FTimers;
    std::chrono::system_clock::time_point FNow{};
    std::uint64_t FSeed = 1;
};

}  // namespace plotkit
