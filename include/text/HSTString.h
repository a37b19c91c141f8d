#pragma once
#include <string>

/// The string of the public interface: UTF-8 bytes.
using HSTString = std::string;
