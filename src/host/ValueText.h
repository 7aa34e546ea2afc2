// The job of ValueText is the written form of single values in files: quoted texts, colours and exact reals.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace plotkit {

/// In double quotes; line breaks, tabs, quotes, backslashes, control characters and bytes that are no UTF-8 are
/// escaped.
std::string QuoteText(std::string_view text);
/// The reverse; nothing when `text` is no complete quoted text.
std::optional<std::string> UnquoteText(std::string_view text);

/// "$" and eight hexadecimal digits.
std::string ColorText(std::int32_t color);
/// "$" and one to eight hexadecimal digits, or a decimal number.
std::optional<std::int32_t> ParseColorText(std::string_view text);

/// What `FormatExact` writes, "nan" and "inf" included, and all that `ParseReal` takes.
std::optional<double> ParseExactReal(std::string_view text);

/// At most the first 40 bytes, whole characters, for a message.
std::string Excerpt(std::string_view text);

/// Without the blanks, tabs and line breaks around it.
std::string_view TrimBlanks(std::string_view text);

}  // namespace plotkit
