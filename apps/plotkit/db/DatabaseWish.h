// The job of DatabaseWish is which rows of which database the user asked for, without any password.
#pragma once

#include <string>
#include <string_view>

namespace plotkit {

struct TOptions;

struct TDatabaseWish
{
    bool IsServer = false;  ///< PostgreSQL, else SQLite
    std::string Name;       ///< the file, or the server's database
    std::string Host;       ///< empty: the server's default, a socket of this computer; a folder: the socket in it
    int Port = 0;           ///< 0: the default
    std::string User;       ///< empty: the default
    std::string SslMode;    ///< empty: the default
    std::string PasswordFile;

    std::string Query;    ///< a statement that gives rows; empty: `Table`
    std::string Table;    ///< empty: the only one there is
    std::string Channel;  ///< of a server that tells; empty: none
    /// Nobody asked to look from time to time.
    bool IsOnlyTold = false;
};

/// "sqlite:FILE" or "postgresql://[USER@][HOST][:PORT]/DATABASE[?host=FOLDER&sslmode=MODE]", "%41" for "A".
/// EConvertError that names the option; what is refused is not repeated, for it may hold a password.
TDatabaseWish ParseDatabase(std::string_view text);
/// Whether a text looks like one of these.
bool NamesDatabase(std::string_view text);
/// Whether a text that names no file that is there may have a password in it, and is not to be repeated.
bool MayHoldPassword(std::string_view text);

/// What messages call it: "sqlite:log.db", "postgresql://host:5433/data". No user.
std::string LabelOf(const TDatabaseWish& wish);
/// A short name of what a document shows, for titles and file names: "log" of log.csv, table or database.
std::string DataNameOf(const TOptions& options);
/// "://user:password@" with both left out, wherever it stands.
std::string WithoutPasswords(std::string text);

}  // namespace plotkit
