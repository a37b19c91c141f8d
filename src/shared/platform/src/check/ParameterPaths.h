#pragma once
#include <map>
#include <string>

namespace check {

/// A document keeps an IP's parameters by name, and a name's dots are levels. Why it cannot hold this one beside the
/// others; empty when it can.
std::string pathFault(const std::string& name, const std::map<std::string, std::string>& parameters);

}  // namespace check
