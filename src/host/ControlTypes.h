// The job of ControlTypes is to name what controls say about their place and hear from mouse and keys.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "host/Event.h"
#include "host/Host.h"

namespace plotkit {

enum TAlign : std::uint8_t
{
    alNone,
    alTop,
    alBottom,
    alLeft,
    alRight,
    alClient
};
inline constexpr std::array<std::string_view, 6> AlignNames{"alNone", "alTop",   "alBottom",
                                                            "alLeft", "alRight", "alClient"};
constexpr std::span<const std::string_view> ValueNames(TAlign)
{
    return AlignNames;
}

inline constexpr std::array<std::string_view, 6> CursorNames{"crDefault", "crHourGlass", "crSizeWestEast",
                                                             "crCross",   "crHand",      "crText"};
constexpr std::span<const std::string_view> ValueNames(TCursor)
{
    return CursorNames;
}

enum TMouseButton : std::uint8_t
{
    mbLeft,
    mbRight,
    mbMiddle
};

/// What is held down while a key or button acts.
struct TShiftState
{
    bool Shift = false;
    bool Ctrl = false;
    bool Alt = false;
    bool Left = false;
    bool Right = false;
    bool Middle = false;
    bool Double = false;
};

/// The sender is the control the event belongs to; positions are its own pixels.
using TMouseEvent = TEvent<TMouseButton, TShiftState, int, int>;
using TMouseMoveEvent = TEvent<TShiftState, int, int>;
/// Wheel: positive delta turns away from the user; 120 is one notch.
using TWheelEvent = TEvent<TShiftState, int, int, int>;

using TKeyEvent = TEvent<int, TShiftState>;

/// Codes of keys that are no characters.
enum TKey : int
{
    kyFirst = 0x1100000,
    kyEscape = kyFirst,
    kyEnter,
    kyTab,
    kyBackspace,
    kyDelete,
    kyInsert,
    kyHome,
    kyEnd,
    kyPageUp,
    kyPageDown,
    kyLeft,
    kyRight,
    kyUp,
    kyDown,
};

}  // namespace plotkit
