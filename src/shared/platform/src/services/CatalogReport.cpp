#include "services/CatalogReport.h"

#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQReconfigurablePartition.h"

namespace services {
namespace {

using ptree = boost::property_tree::ptree;

void put(ptree& report, const char* key, const std::string& value) {
    report.push_back({key, ptree()})->second.data() = value;
}
void put(ptree& report, const char* key, bool value) { put(report, key, std::string(value ? "true" : "false")); }

/// Where the hpfm of a hardware platform is, and how many clocks it has.
void putHardware(ptree& report, const char* hpfmKey, const char* clockKey, const HTEQHardwarePlatform& hardware) {
    const std::string hpfm = hardware.getFile("HPFM");
    if (!hpfm.empty()) put(report, hpfmKey, "<CFA>/" + hpfm);
    HSTVector<HTEQSystemClock*> clocks;
    hardware.getSystemClocks(clocks);
    put(report, clockKey, std::to_string(clocks.size()));
}

void putPartition(ptree& report, const HTEQReconfigurablePartition& partition) {
    put(report, "platformHwFile", partition.getHardwarePlatformFile());
    if (const auto* hardware = partition.getHardwarePlatform())
        putHardware(report, "hpfmFile", "systemClockCount", *hardware);
    put(report, "platformHwEmuFile", partition.getHardwareEmulationPlatformFile());
    if (const auto* emulation = partition.getHardwareEmulationPlatform())
        putHardware(report, "hwEmuHpfmFile", "hwEmuSystemClockCount", *emulation);
}

void putDetails(ptree& report, const HTEQPlatform& platform) {
    put(report, "platformHwFile", platform.getHardwarePlatformFile());
    put(report, "platformHwEmuFile", platform.getHardwareEmuPlatformFile());
    if (platform.hasReconfigurablePartitions()) {
        ptree& list = report.push_back({"reconfigurablePartitions", ptree()})->second;
        for (const auto* partition : platform.getReconfigurablePartitions())
            putPartition(list.push_back({std::string(), ptree()})->second, *partition);
    }
    put(report, "platformSwFile", platform.getSoftwarePlatformFile());
    putHardware(report, "hpfmFile", "systemClockCount", *platform.getHardwarePlatform());
    put(report, "partArchitecture", platform.getHardwarePlatform()->getFpgaPart());
}

}  // namespace

void writeReport(const HTEQPlatform& platform, bool detailed, const std::function<policy::PolicyVerdict()>& verdict,
                 ptree& report) {
    const HTEQHardwarePlatform& hardware = *platform.getHardwarePlatform();
    const HTEQDesignIntentStorage& intent = hardware.getDesignIntent();
    put(report, "baseName", platform.getPlatformBaseName());
    put(report, "version", platform.getVersion());
    put(report, "type", platform.getTypeString());
    put(report, "dataCenter", intent.getDataCenter());
    put(report, "embedded", intent.getEmbedded());
    put(report, "externalHost", intent.getExternalHost());
    put(report, "serverManaged", intent.getServerManaged());
    put(report, "platformState", hardware.getPlatformState());
    put(report, "usesPR", hardware.usesPR());
    put(report, "platformFile", platform.getPlatformFile());
    if (!detailed) return;
    putDetails(report, platform);
    const policy::PolicyVerdict warranty = verdict();
    put(report, "warranty", warranty.isSupported);
    if (!warranty.reason.empty()) put(report, "warrantyReason", warranty.reason);
    put(report, "hardware", platform.supportsHardware());
    put(report, "hardwareEmulation", platform.supportsHWEmulation());
    put(report, "twoHwEmuBd", platform.supportsTwoHwEmuBd());
    put(report, "softwareEmulation", platform.supportsSWEmulation());
}

}  // namespace services
