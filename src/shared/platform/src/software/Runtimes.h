#pragma once
#include <string>
#include <string_view>

/// The runtimes that a linker can use. The case of names is ignored.
namespace runtimes {

/// By its short or its pretty name.
bool isSupported(std::string_view name);
/// "OpenCL" for "ocl", "C/C++" for "cpp"; any other name unchanged.
std::string prettyName(std::string_view name);

}  // namespace runtimes
