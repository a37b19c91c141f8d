#pragma once
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "check/ArchiveMembers.h"
#include "check/Findings.h"

/// Checks that apply to all forms of the metadata: values of a list are plain records, and `report` adds a finding at
/// the item of that index. Every check of a list is linear, except for a sort or a look-up in a set.
namespace check {

using Report = std::function<void(const char* finding, std::string text)>;
using ReportAt = std::function<void(std::size_t index, const char* finding, std::string text)>;

struct Memory {
    std::string name, type, size;
    long long lowest = 0, highest = 0;  ///< both 0: unknown
};
void checkMemories(const std::vector<Memory>& memories, const ReportAt& report);

struct Clock {
    long long id = -1;  ///< negative: none
    bool isDefault = false;
    std::string name = {}, frequency = {}, status = {};
    bool isKnown = true;  ///< else its id, or whether it is the default clock, cannot be read
};
/// `defaultId`: of the clock that queries take by default. `reportList` adds a finding at the whole list.
void checkClocks(const std::vector<Clock>& clocks, long long defaultId, const ReportAt& report,
                 const Report& reportList);

/// `what`: "memory", "device".
void checkNames(const std::vector<std::string>& names, const char* what, const ReportAt& report);

/// The fault of a value; empty if it has none, or if the value is missing.
std::string frequencyFault(const std::string& frequency);
std::string hostFault(const std::string& architecture);
std::string stateFault(const std::string& state);
std::string assignmentFault(const std::string& text);  ///< `auto` of an address segment
std::string partFault(const std::string& part);
/// Of values that other tools may extend: only what is probably a misspelling is a fault.
std::string hostInterfaceFault(const std::string& interface);
std::string modeFault(const std::string& mode);
std::string memoryPortFault(const std::string& port);
std::string resourceFault(const std::string& type);
/// The same for the type of a file of a platform, or of an emulation target. A missing type is a fault too.
std::string fileTypeFault(const std::string& type);
std::string emulationTypeFault(const std::string& type);
/// Compares a clock of an hpfm with that of the metadata.
std::string clockFault(long long id, const std::string& frequency, const KnownNames& known);
/// `known`: the names of each `what` that can be referred to. Without any, nothing is known, and nothing is wrong.
std::string referenceFault(const char* what, const std::string& name, const std::set<std::string>& known);

/// A document stores an IP's parameters by name, and dots in a name become levels. Why it cannot hold this parameter
/// together with the others; empty if it can.
std::string pathFault(const std::string& name, const std::map<std::string, std::string>& parameters);

/// Compares a part of a platform with its descriptor. Empty values are unknown, and so is a version of 2000 or later,
/// which is the release of the tool that made the part.
void checkIdentity(const Identity* descriptor, const std::string& vendor, const std::string& version,
                   const std::function<void(bool isVendor, std::string text)>& report);

/// The names of a device's SLRs: "SLR0" and so on for a number of SLRs.
void addSlrs(long long count, std::set<std::string>& names);

bool isHpfm(const std::string& type);
/// Of emulation targets, which readers open whatever its name.
bool isEmulationList(const std::string& type);

/// Checks parameters and listed files. `Metadata` walks a document of one form and calls, for each
/// - parameter of an IP, `use(name, all of the IP's parameters, report)`;
/// - file, `use(type, name, report)`,
/// where `report(name of the finding, text)` adds a finding at the item. `members` and `directory`: see
/// `MetadataContext`.
template <class Metadata>
void checkMetadata(Metadata& metadata, ArchiveMembers* members, const std::string& directory) {
    metadata.eachParameter([](const std::string& name, const auto& parameters, auto report) {
        if (const std::string fault = pathFault(name, parameters); !fault.empty()) report(kClashingParameter, fault);
    });
    if (!members) return;
    bool hasHpfm = false;
    metadata.eachFile([&](const std::string& type, const std::string& name, auto report) {
        if (name.empty() && !isEmulationList(type)) return report(kMissingMember, "the file has no name");
        if (const auto fault = members->checkListed(type, name, directory)) report(fault->name, fault->text);
        if (const std::string fault = fileTypeFault(type); !fault.empty()) report(kUnknownFileType, fault);
        if (isHpfm(type) && std::exchange(hasHpfm, true))
            report(kRepeatedName, "an earlier file also has the type HPFM; only that one is read");
    });
}

}  // namespace check
