// The job of Errors is to name the exceptions of the library.
#pragma once

#include <stdexcept>
#include <string>

namespace plotkit {

/// The base of all errors of the library. The message can be extended on its way up.
class EError : public std::exception
{
public:
    explicit EError(std::string message) : FMessage(std::move(message)) {}
    const char* what() const noexcept override { return FMessage.c_str(); }
    const std::string& Message() const { return FMessage; }
    void SetMessage(std::string message) { FMessage = std::move(message); }

private:
    std::string FMessage;
};

/// A text that is no value of the wanted type, or a value that cannot be assigned.
class EConvertError : public EError
{
    using EError::EError;
};
/// An index or a value outside its range.
class ERangeError : public EError
{
    using EError::EError;
};
/// Arithmetic without a result: division by zero, logarithm or root outside its domain, overflow, a singular matrix.
class EMathError : public EError
{
    using EError::EError;
};
/// A file that cannot be read or written; the message names it.
class EFileError : public EError
{
    using EError::EError;
};
/// A component that cannot stand where it was put: a name taken or invalid, an owner of the wrong class.
class EComponentError : public EError
{
    using EError::EError;
};

}  // namespace plotkit
