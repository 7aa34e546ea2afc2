#include "plotkit/db/DatabaseWish.h"

#include <filesystem>
#include <optional>

#include "host/Errors.h"
#include "host/NumberFormat.h"
#include "plotkit/Options.h"

namespace plotkit {
namespace {

constexpr std::string_view Sqlite = "sqlite:";
constexpr std::string_view Servers[] = {"postgresql://", "postgres://"};
constexpr int MaxPort = 65535;

[[noreturn]] void Fail(const std::string& what)
{
    throw EConvertError("--db: " + what);
}

[[noreturn]] void FailPassword()
{
    Fail(
        "a password on the command line can be read by everybody; leave it out and use PGPASSWORD, ~/.pgpass or "
        "--password-file, and choose another one if it was a real one");
}

int DigitOf(char c)
{
    const auto place = std::string_view("0123456789abcdefABCDEF").find(c);
    return place == std::string_view::npos ? -1 : static_cast<int>(place > 15 ? place - 6 : place);
}

std::string Decoded(std::string_view text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            plain += text[i];
            continue;
        }
        if (i + 2 >= text.size() || DigitOf(text[i + 1]) < 0 || DigitOf(text[i + 2]) < 0)
            Fail("behind % stand two hexadecimal digits");
        plain += static_cast<char>(16 * DigitOf(text[i + 1]) + DigitOf(text[i + 2]));
        i += 2;
    }
    if (plain.find('\0') != std::string::npos)
        Fail("%00 is no character");
    return plain;
}

/// Takes the part in front of `mark` off the text; nothing when there is no such mark.
std::optional<std::string_view> TakeUntil(std::string_view& text, char mark)
{
    const std::size_t place = text.find(mark);
    if (place == std::string_view::npos)
        return std::nullopt;
    const std::string_view front = text.substr(0, place);
    text.remove_prefix(place + 1);
    return front;
}

void ReadPlace(std::string_view text, TDatabaseWish& wish)
{
    // An address of version 6 is written in brackets.
    const std::size_t colon = text.find(':', text.starts_with('[') ? text.find(']') + 1 : 0);
    std::string_view host = text.substr(0, colon);
    if (host.starts_with('[') && host.ends_with(']'))
        host = host.substr(1, host.size() - 2);
    wish.Host = Decoded(host);
    if (colon == std::string_view::npos)
        return;
    const auto port = ParseInteger(text.substr(colon + 1));
    if (!port || *port < 1 || *port > MaxPort)
        Fail("the port is a number from 1 to 65535");
    wish.Port = static_cast<int>(*port);
}

void ReadParameters(std::string_view text, TDatabaseWish& wish)
{
    while (!text.empty()) {
        std::string_view pair = text;
        if (const auto front = TakeUntil(text, '&'))
            pair = *front;
        else
            text = {};
        const auto name = TakeUntil(pair, '=');
        if (name == "host")
            wish.Host = Decoded(pair);
        else if (name == "sslmode")
            wish.SslMode = Decoded(pair);
        else
            Fail("behind the ? there are host and sslmode");
    }
}

}  // namespace

bool NamesDatabase(std::string_view text)
{
    return text.starts_with(Sqlite) || text.starts_with(Servers[0]) || text.starts_with(Servers[1]);
}

bool MayHoldPassword(std::string_view text)
{
    const std::size_t scheme = text.find(":/");
    const bool isSuspect = text.find("password=") != std::string_view::npos ||
                           (scheme != std::string_view::npos && text.find('@', scheme) != std::string_view::npos);
    std::error_code error;
    return isSuspect && !std::filesystem::exists(text, error);
}

TDatabaseWish ParseDatabase(std::string_view text)
{
    TDatabaseWish wish;
    if (!NamesDatabase(text))
        Fail("write the database as sqlite:FILE or postgresql://USER@HOST:PORT/DATABASE");
    wish.IsServer = !text.starts_with(Sqlite);
    if (!wish.IsServer) {
        wish.Name = text.substr(Sqlite.size());
        if (MayHoldPassword(wish.Name) || (wish.Name.starts_with("//") && MayHoldPassword(text)))
            Fail("behind sqlite: stands the name of a file, no server");
        if (wish.Name.empty())
            Fail("behind sqlite: stands the name of the file");
        return wish;
    }
    if (text.find("password=") != std::string_view::npos)
        FailPassword();
    TakeUntil(text, '/');
    TakeUntil(text, '/');
    std::string_view rest = text;
    std::string_view front = TakeUntil(rest, '?').value_or(text);
    if (front.size() != text.size())
        ReadParameters(rest, wish);
    if (const std::size_t at = front.rfind('@'); at != std::string_view::npos) {
        const std::string_view user = front.substr(0, at);
        if (user.find(':') != std::string_view::npos)
            FailPassword();
        wish.User = Decoded(user);
        front.remove_prefix(at + 1);
    }
    std::string_view name = front;
    const std::string_view place = TakeUntil(name, '/').value_or(front);
    const std::string host = wish.Host;
    ReadPlace(place, wish);
    if (!host.empty())
        wish.Host = host;
    // In front of it may be a password.
    if (wish.Host.find('@', 1) != std::string::npos)
        Fail("the name of a server has no @ in it");
    if (place.size() == front.size() || name.empty())
        Fail("behind the server stands the name of the database: postgresql://USER@HOST:PORT/DATABASE");
    wish.Name = Decoded(name);
    return wish;
}

std::string LabelOf(const TDatabaseWish& wish)
{
    if (!wish.IsServer)
        return std::string(Sqlite) + wish.Name;
    const bool isPlace = !wish.Host.starts_with('/');
    return std::string(Servers[0]) + (isPlace ? wish.Host : "") +
           (isPlace && wish.Port ? ":" + std::to_string(wish.Port) : "") + "/" + wish.Name;
}

std::string DataNameOf(const TOptions& options)
{
    const auto& database = options.Database;
    if (!database)
        return std::filesystem::path(options.File).stem().string();
    if (!database->Table.empty())
        return database->Table;
    return database->IsServer ? database->Name : std::filesystem::path(database->Name).stem().string();
}

std::string WithoutPasswords(std::string text)
{
    constexpr std::string_view mark = "://";
    for (std::size_t start = text.find(mark); start != std::string::npos; start = text.find(mark, start + 1)) {
        const std::size_t first = start + mark.size();
        // A password may hold what should have been written otherwise.
        const std::size_t end = std::min(text.find_first_of(" \t\n", first), text.size());
        const std::size_t at = text.rfind('@', end);
        if (at != std::string::npos && at >= first)
            text.erase(first, at + 1 - first);
        const std::size_t secret = text.find("password=", first);
        if (secret != std::string::npos)
            text.erase(secret, std::min(text.find_first_of(" &\t\n", secret), text.size()) - secret);
    }
    return text;
}

}  // namespace plotkit
