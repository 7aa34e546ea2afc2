// The job of ReadingStatement is to let no statement through that could do more than read.
#pragma once

#include <string_view>

namespace plotkit {

/// EConvertError for several statements in one, which may end a transaction that only reads, and for those that write
/// files past it. What it lets through the connection itself keeps from writing.
void CheckReads(std::string_view sql);

}  // namespace plotkit
