#include "plotkit/db/DatabaseOptions.h"

#include <CLI/CLI.hpp>

#include "host/Errors.h"
#include "plotkit/Options.h"
#include "plotkit/db/ReadingStatement.h"

namespace plotkit {

namespace {

constexpr double WatchInterval = 2;  // s, where the server tells

[[noreturn]] void Fail(const std::string& option, const std::string& what)
{
    throw EConvertError(option + ": " + what);
}

}  // namespace

void AddDatabaseOptions(CLI::App& command, TDatabaseTexts& texts)
{
    command.add_option("--db", texts.Place, "sqlite:FILE or postgresql://USER@HOST:PORT/DATABASE in place of a file")
        ->type_name("DATABASE");
    command.add_option("--query", texts.Query, "The rows of the database: a SELECT statement")->type_name("SQL");
    command.add_option("--table", texts.Table, "The rows of the database: a table, by its primary key")
        ->type_name("NAME");
    command.add_option("--password-file", texts.PasswordFile, "A file with the password, which nobody else may read")
        ->type_name("FILE");
}

void ReadDatabase(const CLI::App& command, const TDatabaseTexts& texts, TOptions& options)
{
    if (!command.count("--db")) {
        for (const char* option : {"--query", "--table", "--password-file", "--listen"})
            if (command.get_option_no_throw(option) && command.count(option))
                Fail(option, "name the database with --db");
        if (NamesDatabase(options.File) || MayHoldPassword(options.File))
            Fail("FILE", "a database is named with --db");
        return;
    }
    if (!options.File.empty())
        Fail("--db", "goes not together with a file");
    if (command.count("--query") && command.count("--table"))
        Fail("--query", "goes not together with --table");
    TDatabaseWish wish = ParseDatabase(texts.Place);
    CheckReads(texts.Query);
    wish.Query = texts.Query;
    wish.Table = texts.Table;
    wish.PasswordFile = texts.PasswordFile;
    wish.Channel = texts.Channel;
    if (!wish.IsServer && !wish.PasswordFile.empty())
        Fail("--password-file", "an SQLite file has no password");
    if (!wish.IsServer && !wish.Channel.empty())
        Fail("--listen", "only PostgreSQL tells of changes; --follow looks for them");
    if (!wish.Channel.empty() && !command.count("--follow")) {
        wish.IsOnlyTold = true;
        options.Follow = WatchInterval;
    }
    options.File = LabelOf(wish);
    options.Database = std::move(wish);
}

}  // namespace plotkit
