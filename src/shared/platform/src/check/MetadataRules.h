#pragma once
#include <map>
#include <string>

#include "check/ArchiveMembers.h"
#include "check/Findings.h"

/// Checks that apply to both forms of the metadata.
namespace check {

/// Why a memory of this size is not counted in the platform's total; empty if it is.
std::string sizeFault(const std::string& size);

/// A document stores an IP's parameters by name, and dots in a name become levels. Why it cannot hold this parameter
/// together with the others; empty if it can.
std::string pathFault(const std::string& name, const std::map<std::string, std::string>& parameters);

/// Checks memories, parameters and listed files. `Metadata` walks a document of one form and calls, for each
/// - memory, `use(size, report)`;
/// - parameter of an IP, `use(name, all of the IP's parameters, report)`;
/// - file, `use(type, name, report)`,
/// where `report(name of the finding, text)` adds a finding at the item. `members` and `directory`: see
/// `checkJsonMetadata`.
template <class Metadata>
void checkMetadata(Metadata metadata, ArchiveMembers* members, const std::string& directory) {
    metadata.eachMemory([](const std::string& size, auto report) {
        if (const std::string fault = sizeFault(size); !fault.empty()) report(kUncountedMemory, fault);
    });
    metadata.eachParameter([](const std::string& name, const auto& parameters, auto report) {
        if (const std::string fault = pathFault(name, parameters); !fault.empty()) report(kClashingParameter, fault);
    });
    if (!members) return;
    metadata.eachFile([&](const std::string& type, const std::string& name, auto report) {
        if (const auto fault = members->checkListed(type, name, directory)) report(fault->name, fault->text);
    });
}

}  // namespace check
