// The job of MessageOf is to hand out the message of an error, for tests of what the user reads.
#pragma once

#include <string>

namespace plotkit {

/// The message of the `TError` that `act` raises, empty when it raises nothing.
template <class TError, class TAct>
std::string MessageOf(TAct act)
{
    try {
        act();
    } catch (const TError& error) {
        return error.Message();
    }
    return {};
}

}  // namespace plotkit
