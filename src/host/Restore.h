// The job of Restore is to give a variable another value until the end of a scope, however that is left.
#pragma once

#include <utility>

namespace plotkit {

template <class T>
class TRestore
{
public:
    TRestore(T& variable, T value) : FVariable(variable), FBefore(std::exchange(variable, std::move(value))) {}
    TRestore(const TRestore&) = delete;
    TRestore& operator=(const TRestore&) = delete;
    ~TRestore() { FVariable = std::move(FBefore); }

private:
    T& FVariable;
    T FBefore;
};

}  // namespace plotkit
