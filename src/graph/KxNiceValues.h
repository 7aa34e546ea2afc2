// The job of KxNiceValues is the tables that say which steps suit a range whose width starts with a given digit.
#pragma once

#include <array>

namespace plotkit {

/// Fractions of 10^exponent of the range's width; element 0 belongs to the leading digit 1, element 9 to 10.
struct TKxNiceValues
{
    using TField = std::array<double, 10>;

    TField RoundField{0.1, 0.25, 0.5, 0.5, 0.5, 0.5, 1.0, 1.0, 1.0, 1.0};
    TField TickField{0.02, 0.05, 0.1, 0.1, 0.1, 0.1, 0.2, 0.2, 0.2, 0.2};
    TField MajorTickField{0.1, 0.25, 0.5, 0.5, 0.5, 0.5, 1.0, 1.0, 1.0, 1.0};
    TField LabelsField{0.2, 0.5, 1.0, 1.0, 1.0, 1.0, 2.0, 2.0, 2.0, 2.0};
};

/// The tables of all axes. Their first use reads section "GraphScale" of the program's settings file, then that of the
/// user's; numbers that are missing, or not positive, stay as built in.
TKxNiceValues& NiceValues();
/// The next use reads the files again.
void ForgetNiceValues();

/// The place in the tables of a range `width` wide, whose decimal exponent is `exponent`.
int NiceIndex(double width, int exponent);

}  // namespace plotkit
