#pragma once
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

#include "text/ZrApi.h"

namespace teq_platform {

/// A descriptor, hardware or software file that could not be read. Inside `PlatformLoader::load` it becomes a message
/// and a null result.
class ZR_API PlatformParseException : public std::runtime_error {
public:
    /// `cause`: the exception of the reader, if one failed.
    explicit PlatformParseException(const std::string& text, std::exception_ptr cause = nullptr)
        : std::runtime_error(text), cause_(std::move(cause)) {}
    const std::exception_ptr& cause() const { return cause_; }

private:
    std::exception_ptr cause_;
};

}  // namespace teq_platform
