#include "platform/HTEQBootImg.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemConfig.h"
#include "readers/Bindings.h"

namespace binding {

using namespace TEQSoftwarePlatform;

using S = Fields<SystemConfigurations, HTEQSoftwarePlatform>;
constexpr auto kSystemConfigurations = S::rows(
    S::unlessEmpty(S::both<&S::R::defaultConfiguration, &S::M::getDefaultConfigName, &S::M::setDefaultConfigName>()));

using C = Fields<Configuration, HTEQSystemConfig>;
constexpr auto kConfiguration = C::rows(
    C::both<&C::R::name, &C::M::getName, &C::M::setName>(),
    C::both<&C::R::displayName, &C::M::getPrettyName, &C::M::setPrettyName>(),
    C::both<&C::R::description, &C::M::getDesc, &C::M::setDesc>(),
    C::optional(C::both<&C::R::defaultProcessorGroup, &C::M::getDefaultProcGrpName, &C::M::setDefaultProcGrpName>()));

using G = Fields<ProcessorGroup, HTEQProcessorGroup>;
constexpr auto kProcessorGroup =
    G::rows(G::both<&G::R::name, &G::M::getName, &G::M::setName>(),
            G::both<&G::R::displayName, &G::M::getPrettyName, &G::M::setPrettyName>(),
            G::both<&G::R::cpuType, &G::M::getCpuType, &G::M::setCpuType>(),
            G::optional(G::both<&G::R::architecture, &G::M::getArch, &G::M::setArch>()),
            G::optional(G::both<&G::R::cpuInstance, &G::M::getCpuInstance, &G::M::setCpuInstance>()));

std::string guestText(const HTEQProcessorGroup& group) { return group.IsHypervisorGuest() ? "yes" : ""; }
void setGuest(HTEQProcessorGroup& group, const std::string& text) {
    group.setHypervisorGuest(HSTStringUtils::iequals(text, "yes"));
}

using O = Fields<Os, HTEQProcessorGroup>;
constexpr auto kOs =
    O::rows(O::both<&O::R::name, &O::M::getOSName, &O::M::setOSName>(),
            O::both<&O::R::displayName, &O::M::getOSPrettyName, &O::M::setOSPrettyName>(),
            O::optional(O::both<&O::R::hypervisorGuest, &guestText, &setGuest>()),
            O::optional(O::both<&O::R::includePaths, &O::M::getIncludePaths, &O::M::setIncludePaths>()),
            O::optional(O::both<&O::R::libraryPaths, &O::M::getLibraryPaths, &O::M::setLibraryPaths>()),
            O::optional(O::both<&O::R::sysRoot, &O::M::getSysRoot, &O::M::setSysRoot>()),
            O::optional(O::both<&O::R::bspLibraryPaths, &O::M::getBSPLibraryPaths, &O::M::setBSPLibraryPaths>()),
            O::optional(O::both<&O::R::bspIncludePaths, &O::M::getBSPIncludePaths, &O::M::setBSPIncludePaths>()),
            O::optional(O::both<&O::R::compilerOptions, &O::M::getCompilerOptions, &O::M::setCompilerOptions>()),
            O::optional(O::both<&O::R::linkerOptions, &O::M::getLinkerOptions, &O::M::setLinkerOptions>()));

using I = Fields<Image, HTEQBootImg>;
constexpr auto kImage = I::rows(
    I::both<&I::R::name, &I::M::getName, &I::M::setName>(), I::both<&I::R::bif, &I::M::getBif, &I::M::setBif>(),
    I::both<&I::R::readme, &I::M::getReadMe, &I::M::setReadMe>(),
    I::optional(I::both<&I::R::type, &I::M::getType, &I::M::setType>()),
    I::optional(I::both<&I::R::imageData, &I::M::getImgData, &I::M::setImgData>()),
    I::optional(I::both<&I::R::bootmode, &I::M::getBootMode, &I::M::setBootMode>()),
    I::optional(I::both<&I::R::rootfs, &I::M::getRootFS, &I::M::setRootFS>()),
    I::optional(I::both<&I::R::mountPath, &I::M::getMountPath, &I::M::setMountPath>()),
    I::optional(I::both<&I::R::qemuDevicetree, &I::M::getQemuDevTree, &I::M::setQemuDevTree>()),
    I::optional(I::both<&I::R::qemuBoot, &I::M::getQemuBoot, &I::M::setQemuBoot>()),
    I::optional(I::both<&I::R::qemuArguments, &I::M::getQemuArguments, &I::M::setQemuArguments>()),
    I::optional(I::both<&I::R::hwBootBin, &I::M::getHwBootBin, &I::M::setHwBootBin>()));

std::span<const Row> rowsOf(S) { return kSystemConfigurations; }
std::span<const Row> rowsOf(C) { return kConfiguration; }
std::span<const Row> rowsOf(G) { return kProcessorGroup; }
std::span<const Row> rowsOf(O) { return kOs; }
std::span<const Row> rowsOf(I) { return kImage; }

}  // namespace binding
