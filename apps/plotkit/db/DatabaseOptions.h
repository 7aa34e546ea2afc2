// The job of DatabaseOptions is the part of the command line that names a database.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace plotkit {

struct TOptions;

/// What the command line holds before it is understood.
struct TDatabaseTexts
{
    std::string Place, Query, Table, PasswordFile, Channel;
};

void AddDatabaseOptions(CLI::App& command, TDatabaseTexts& texts);
/// Fills in the database, its label as the file, and that it is followed when it tells. EConvertError that names the
/// option.
void ReadDatabase(const CLI::App& command, const TDatabaseTexts& texts, TOptions& options);

}  // namespace plotkit
