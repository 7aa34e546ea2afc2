// The job of KxFormulaErrors is to say where a formula is wrong and what was expected there.
#pragma once

#include <string_view>

namespace plotkit {

/// EConvertError for what the parser would read but no formula has: other characters, a list of values.
void CheckFormulaText(std::string_view plain);

/// EConvertError for what the parser found: its error code and the byte, from 0.
[[noreturn]] void RaiseFormulaError(std::string_view plain, int code, int position);

}  // namespace plotkit
