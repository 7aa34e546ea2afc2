// The job of KxResultSource is what a result label asks of the series whose results it shows.
#pragma once

#include <string>

namespace plotkit {

class TKxResultLabel;

class TKxResultSource
{
public:
    TKxResultSource() = default;
    TKxResultSource(const TKxResultSource&) = delete;
    TKxResultSource& operator=(const TKxResultSource&) = delete;
    virtual ~TKxResultSource() = default;

    /// The text of the result with the given identifier, "..." when there is none.
    virtual std::string ResultText(const std::string& identifier) const = 0;
    virtual void AddResultLabel(TKxResultLabel* label) = 0;
    virtual void RemoveResultLabel(TKxResultLabel* label) = 0;
};

}  // namespace plotkit
