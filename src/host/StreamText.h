// The job of StreamText is to take the text of a component tree apart into its statements.
#pragma once

#include <string_view>
#include <vector>

namespace plotkit {

enum TStatementKind
{
    skObject,
    skEnd,
    skProperty,
    skUnknown
};

/// Parts of the text that was read. `Name` and `Class` of an object, `Name` and `Value` of a property, `Value` of what
/// is none of these.
struct TStatement
{
    TStatementKind Kind = skUnknown;
    int Line = 0;  ///< counts from 1
    std::string_view Name;
    std::string_view Class;
    std::string_view Value;
};

/// The statements of a text, one per line; only a list in parentheses may go on over several.
class TStatementReader
{
public:
    /// A byte order mark at the front is skipped. The text must outlive the statements.
    explicit TStatementReader(std::string_view text);

    /// False at the end of the text.
    bool Next(TStatement& statement);

private:
    bool TakeLine(std::string_view& line);
    std::string_view TakeList(std::string_view value);

    std::string_view FRest;
    int FLine = 0;
};

/// One element of a list in parentheses.
struct TListElement
{
    int Line = 0;  ///< counts from 0
    std::string_view Text;
};

/// The elements of "(a; b; c)"; EConvertError when a parenthesis is missing or something follows the list.
std::vector<TListElement> SplitList(std::string_view list);

}  // namespace plotkit
