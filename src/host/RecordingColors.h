// The job of RecordingColors is to say a picture in other colours: on light ground, or without exclusive-or.
#pragma once

#include "host/Recording.h"

namespace plotkit {

/// Perceived lightness from 0, black, to 1, white (L of Oklab, B. Ottosson, 2020); system colours as the host in force
/// has them.
double LightnessOf(TColor color);
/// With `dark` as ground turned into white: the lightness of a colour between them mirrored, so that what was white is
/// black, its hue kept. Vivid colours get no darker than their hue can be told.
TColor LightColor(TColor color, TColor dark);

/// The colour that most of the picture stands on: of the last filling that covers half of it, otherwise `ground`.
TColor GroundOf(const TRecording& picture, TSize size, TColor ground);

/// The picture with LightColor for each colour when it stands on dark ground, otherwise as it is.
TRecording LightColors(TRecording picture, TSize size, TColor ground);

/// The picture with such colours in its exclusive-or fillings that, blended over what they stand on with `opacity`,
/// they come as near as can be to what exclusive-or showed there.
TRecording BlendedXor(TRecording picture, double opacity);

}  // namespace plotkit
