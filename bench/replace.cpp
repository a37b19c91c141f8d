// Changes of a large archive, as whole processes.
// usage: replace ours ARCHIVE SOURCE                    a file put into the platform's archive
//        replace one|one-synced|three ARCHIVE SOURCE    file, metadata and comment by libzip alone: closes of it
//        replace stamp|verify ARCHIVE                   the digest and its check
//        replace merge ARCHIVE FOLDER                   the files of an emulation put into the platform's archive
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "ByLibzip.h"
#include "platform/HTEQEmulationUtils.h"
#include "platform/HTEQHardwarePlatform.h"
#include "platform/HTEQPlatform.h"
#include "platform/PlatformLoader.h"
#include "zip/HUTZip.h"

namespace {

void sync(const char* path) {
    const int file = ::open(path, O_RDONLY);
    if (::fsync(file) != 0) std::abort();
    ::close(file);
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view what = argv[1];
    const char* const archive = argv[2];
    const char* const source = argc > 3 ? argv[3] : "";
    if (what == "ours")
        teq_platform::PlatformLoader(archive, teq_platform::HwMetadataMode::Default)
            .load()
            ->getHardwarePlatform()
            ->archiveFile("NEW", "new.bit", source);
    else if (what == "stamp")
        HUTZip::attachDigestEn(archive);
    else if (what == "merge")
        HTEQEmulationUtils::updateCfa(archive, source);
    else if (what == "verify")
        return HUTZip::verify(archive).isSound() ? 0 : 1;
    else
        replaceByLibzip(archive, source, what == "three");
    if (what == "one-synced") sync(archive);
}
