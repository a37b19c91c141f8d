#include <cstdio>

#include <platform/HPLPlatform.h>
#include <platform/HTEQHardwarePlatform.h>
#include <platform/HTEQHpfmReader.h>
#include <platform/HTEQHpfmUtl.h>
#include <platform/PlatformLoader.h>

/// A record made here, repaired and read.
bool readsRecords() {
    WELHardwarePlatform::Repository repository;
    auto& bus = repository.component.busInterfaces.emplace_back();
    bus.dataWidth.set(512);
    for (const char* value : {"true", "preferred", "false"}) bus.addressSegments.emplace_back().auto_.set(value);
    if (!HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(bus)) return false;
    HTEQHpfmUtl::markAllTrueAddressSegmentsPreferred(bus);
    HPLPlatform platform;
    HTEQHpfmReader("unused", &platform).parseRepository(repository);
    return !HTEQHpfmUtl::areSomeButNotAllAddressSegmentsPreferred(bus) &&
           platform.getBusInterfaceMaxDataWidth() == 512;
}

int main(int, char** arguments) {
    using teq_platform::PlatformLoader;
    const auto platform = PlatformLoader(arguments[1], PlatformLoader::HwMetadataMode::Default).load();
    if (!platform || !readsRecords()) return 1;
    std::printf("%s %s\n", platform->getName().c_str(), platform->getHardwarePlatform()->getPartName().c_str());
    return 0;
}
