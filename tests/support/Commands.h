// The job of Commands is to pick the commands of one kind out of a picture.
#pragma once

#include "host/Recording.h"

namespace plotkit {

template <class T>
std::vector<T> CommandsOf(const TRecording& picture)
{
    std::vector<T> found;
    for (const TDrawCommand& command : picture.Commands)
        if (const auto* one = std::get_if<T>(&command))
            found.push_back(*one);
    return found;
}

}  // namespace plotkit
