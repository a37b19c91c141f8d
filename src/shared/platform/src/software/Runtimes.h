#pragma once
#include <string>
#include <string_view>

/// The runtimes that a linker can use. Names are compared without regard to case.
namespace runtimes {

/// By its short or its pretty name.
bool isSupported(std::string_view name);
/// "OpenCL" of "ocl", "C/C++" of "cpp"; any other name as it is.
std::string prettyName(std::string_view name);

}  // namespace runtimes
