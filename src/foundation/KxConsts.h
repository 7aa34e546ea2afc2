// The job of KxConsts is the shared types of the library, the tolerance of its numerics and the paths of the program.
#pragma once

#include <string>

#include "host/Array.h"
#include "host/Errors.h"
#include "host/Event.h"
#include "host/Types.h"

namespace plotkit {

/// A point of a curve.
struct TKxRealPos
{
    double Position = 0;  ///< abscissa
    double Value = 0;     ///< the curve's value there

    friend constexpr bool operator==(const TKxRealPos&, const TKxRealPos&) = default;
};

using TKxRealArray = TArray<double>;
using TKxIntegerArray = TArray<std::int32_t>;
using TKxPointArray = TArray<TPoint>;
using TKxBooleanArray = TArray<bool>;
using TKxRealPosArray = TArray<TKxRealPos>;

/// Plain change or state notification.
using TKxAnyEvent = TEvent<>;
/// Lets an owner observe an error that a component caught; the message can be read and extended.
using TKxErrorEvent = TEvent<EError&>;

/// Relative tolerance under which two reals count as equal in the numeric units.
inline constexpr double CMaxAcurancy = 0x1p-52;

/// The paths below are computed from the host on their first use and stand until the last `KxUnloadPaths`.
/// Folders end with a separator where their name says "Path" and the program owns them: `ProgPath`, `UserSettingsPath`.

/// File name of the running program without folder and extension.
const std::string& ProgName();
/// Folder of the running program, with a separator at its end.
const std::string& ProgPath();
/// Full name of the running program with ".INI" for its extension.
const std::string& IniFileName();
/// The user's application-data folder without a separator at its end; empty when the host knows none.
const std::string& LocalAppDataDir();
/// Folder of the user's settings file, with a separator at its end.
const std::string& UserSettingsPath();
/// Full name of the user's settings file.
const std::string& UserSettings();
/// The user's documents folder without a separator at its end; empty when the host knows none.
const std::string& UserDataPath();

/// One module more uses the library: the first one computes the paths, again if they had been used before, from the
/// host then in force.
void KxLoadPaths();
/// One module less: the last one leaves all paths empty until `KxLoadPaths` is called again. Does nothing when no
/// module is left.
void KxUnloadPaths();

/// Makes the user's settings file from the program's template, `ProgPath` + `ProgName` + ".usr", unless it exists. To
/// be called once at the program's start. Failures are silent: the first save of settings creates the file.
void KxInitDirs();

}  // namespace plotkit
