#include "platform/HTEQProcessorGroup.h"

#include "json/JsonKeys.h"

namespace {

using K = json::Keys<HTEQProcessorGroup>;
constexpr json::Key<HTEQProcessorGroup> kKeys[] = {
    K::text<&HTEQProcessorGroup::getName>("name"),
    K::text<&HTEQProcessorGroup::getPrettyName>("prettyName"),
    K::text<&HTEQProcessorGroup::getCpuType>("cpuType"),
    K::text<&HTEQProcessorGroup::getCpuInstance>("cpuInstance"),
    K::text<&HTEQProcessorGroup::getOSPrettyName>("osPrettyName"),
    K::text<&HTEQProcessorGroup::getOSName>("osName"),
    K::text<&HTEQProcessorGroup::getIncludePaths>("osIncludePaths"),
    K::text<&HTEQProcessorGroup::getLibraryPaths>("osLibraryPaths"),
    K::text<&HTEQProcessorGroup::getCompilerOptions>("osCompilerOptions"),
    K::text<&HTEQProcessorGroup::getLinkerOptions>("osLinkerOptions"),
    K::flag<&HTEQProcessorGroup::IsHypervisorGuest>("osHypervisorGuest"),
    K::text<&HTEQProcessorGroup::getBSPIncludePaths>("osBSPIncludePaths"),
    K::text<&HTEQProcessorGroup::getBSPLibraryPaths>("osBSPLibraryPaths"),
    K::text<&HTEQProcessorGroup::getSysRoot>("osSysRoot"),
};

}  // namespace

void HTEQProcessorGroup::toJSON(teq_platform::JSONObjectWriter& writer) const {
    json::writeKeys(writer, kKeys, *this);
}
