// The job of KxQtHost is to be the door to the platform for programs that run on Qt.
#pragma once

#include <QObject>
#include <QPalette>
#include <functional>
#include <map>

#include "host/Host.h"
#include "qt/KxQtText.h"

class QTimer;

namespace plotkit {

Qt::CursorShape CursorShapeOf(TCursor cursor);

/// Needs a QApplication that is there before it and after it. Put in force with THostGuard.
class TQtHost : public THost
{
public:
    TQtHost();

    std::string ExecutableName() const override;
    std::optional<std::string> AppDataFolder() const override;
    std::optional<std::string> DocumentsFolder() const override;
    /// Taken from the system's locale when the host is made.
    const TLocaleFormats& Locale() const override { return FLocale; }

    int StartTimer(std::chrono::milliseconds interval, std::function<void()> onTimer) override;
    void StopTimer(int timer) override;
    void Beep() override;

    std::string ClipboardText() const override;
    void SetClipboardText(const std::string& text) override;
    /// Other programs get the metafile as a picture of its own size, in vector forms and as pixels.
    void SetClipboardMetafile(const TMetafile& metafile) override;

    void SetScreenCursor(TCursor cursor) override;
    TRect ScreenRect() const override;
    /// System colours come from the application's palette, or the one of a TQtPaletteScope; those it does not know from
    /// the headless default.
    TColor ResolveColor(TColor color) const override;
    const TTextMeasurer& TextMeasurer() const override { return FMeasurer; }

    /// Writes the message to the standard error output, the same message not twice in a row, and calls `OnError`.
    void HandleError(const std::exception& error) override;
    std::function<void(const std::exception&)> OnError;

private:
    friend class TQtPaletteScope;

    void ClipboardChanged();
    void Call(const std::function<void()>& callback);

    TQtTextMeasurer FMeasurer;
    TLocaleFormats FLocale;
    std::map<int, QTimer*> FTimers;
    QObject FContext;  ///< ends timers and connections with the host
    std::string FLastMessage;
    const QPalette* FPalette = nullptr;  ///< nullptr: the application's
};

/// System colours come from another palette for its lifetime, such as that of a dark widget in a light form.
class TQtPaletteScope
{
public:
    explicit TQtPaletteScope(const QPalette& palette);
    TQtPaletteScope(const TQtPaletteScope&) = delete;
    TQtPaletteScope& operator=(const TQtPaletteScope&) = delete;
    ~TQtPaletteScope();

private:
    QPalette FOwn;
    TQtHost* FHost;  ///< nullptr when another kind of host is in force
    const QPalette* FBefore = nullptr;
};

}  // namespace plotkit
