#include "platform/NewPlatform.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <span>

#include "platform/RequestFailure.h"
#include "text/HSTStringUtils.h"
#include "text/Nearest.h"
#include "util/HUTEnv.h"
#include "util/MadeDirectory.h"
#include "util/OpenBelow.h"
#include "util/WriteAll.h"

namespace teq_platform::requests {
namespace {

namespace fs = std::filesystem;

/// A file of a new platform. "@NAME@" stands for the platform's name, "@MAJOR@" and "@MINOR@" for the release that makes
/// it: a platform is for that one and the releases that the support policy allows.
struct File {
    const char* path;
    const char* text;
};

constexpr char kDescriptor[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- The descriptor: what the platform is called, and which files belong to it. Paths are relative to this file.
     vendor and version are those of the archive and of the software file; the version is the release of the tool that the
     platform is for. -->
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="acme" teq:library="@NAME@" teq:name="@NAME@" teq:version="@MAJOR@.@MINOR@">
  <teq:description>A sample platform</teq:description>
  <teq:hardwarePlatforms>
    <teq:hardwarePlatform teq:path="." teq:name="@NAME@.lfa"/>
  </teq:hardwarePlatforms>
  <teq:softwarePlatforms>
    <teq:softwarePlatform teq:path="." teq:name="@NAME@.spfm"/>
  </teq:softwarePlatforms>
</teq:platform>
)";

constexpr char kHostSoftware[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- The software file: the configurations that programs can be built for. -->
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="acme" teq:library="@NAME@" teq:name="@NAME@_sw" teq:version="@MAJOR@.@MINOR@">
  <teq:description>Software of @NAME@</teq:description>
  <!-- The name of the configuration that is taken by default. -->
  <teq:systemConfigurations teq:defaultConfiguration="linux">
    <teq:configuration teq:name="linux" teq:displayName="Linux" teq:defaultProcessorGroup="host" teq:runtimes="ocl,cpp">
      <teq:description>Linux on the host</teq:description>
      <!-- A processor with its operating system. -->
      <teq:processorGroup teq:name="host" teq:displayName="Host" teq:cpuType="x86">
        <teq:os teq:name="linux" teq:displayName="Linux"/>
      </teq:processorGroup>
    </teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
)";

constexpr char kBoardSoftware[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- The software file: the configurations that programs can be built for. -->
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="acme" teq:library="@NAME@" teq:name="@NAME@_sw" teq:version="@MAJOR@.@MINOR@">
  <teq:description>Software of @NAME@</teq:description>
  <!-- The name of the configuration that is taken by default. -->
  <teq:systemConfigurations teq:defaultConfiguration="bare">
    <teq:configuration teq:name="bare" teq:displayName="Bare metal" teq:defaultProcessorGroup="core0" teq:runtimes="cpp">
      <teq:description>No operating system</teq:description>
      <!-- What the board boots: the image that "default" names. -->
      <teq:bootImages teq:default="standard">
        <teq:image teq:name="standard" teq:bif="boot/boot.bif" teq:readme="boot/readme.txt"/>
      </teq:bootImages>
      <!-- A processor with its operating system. -->
      <teq:processorGroup teq:name="core0" teq:displayName="Core 0" teq:cpuType="a72" teq:cpuInstance="cpu_0">
        <teq:os teq:name="standalone" teq:displayName="Standalone"/>
      </teq:processorGroup>
    </teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
)";

constexpr char kCardMetadata[] = R"({
    "vendor": "acme",
    "boardId": "@NAME@",
    "name": "base",
    "versionMajor": @MAJOR@,
    "versionMinor": @MINOR@,
    "usesPR": true,
    "hostArchitecture": "x86_64",
    "hostInterface": "pcie",
    "platformState": "impl",
    "unifiedPlatform": true,
    "expandablePlatform": true,
    "board": {"name": "acme.com:@NAME@:1.0", "vendor": "acme.com"},
    "devices": [
        {"name": "fpga0", "type": "fpga", "fpgaPart": "tzvirtu:tzu77:fsq2892:-2L:e", "numSLRs": 2,
         "core": {"name": "region_0", "type": "clc_region", "numComputeUnits": 16}}
    ],
    "memories": [
        {"name": "bank0", "type": "ddr4", "size": "16GB", "lowAddress": 0, "highAddress": 17179869183},
        {"name": "bank1", "type": "ddr4", "size": "16GB", "lowAddress": 17179869184, "highAddress": 34359738367}
    ],
    "systemClocks": [
        {"name": "PL 0", "id": 0, "frequency": "300", "status": "scalable", "default": true},
        {"name": "PL 1", "id": 1, "frequency": "500", "status": "fixed"}
    ],
    "files": [{"type": "HPFM", "name": "hpfm/@NAME@.hpfm"}]
}
)";

constexpr char kBoardMetadata[] = R"({
    "vendor": "acme",
    "boardId": "@NAME@",
    "name": "base",
    "versionMajor": @MAJOR@,
    "versionMinor": @MINOR@,
    "usesPR": false,
    "platformState": "pre_synth",
    "unifiedPlatform": true,
    "expandablePlatform": true,
    "board": {"name": "acme.com:@NAME@:1.0", "vendor": "acme.com"},
    "devices": [
        {"name": "fpga0", "type": "fpga", "fpgaPart": "tzmote:tzk30:sbq784:-1", "numSLRs": 1,
         "core": {"name": "region_0", "type": "clc_region", "numComputeUnits": 16}}
    ],
    "memories": [
        {"name": "ps_ddr", "type": "ddr4", "size": "2GB", "lowAddress": 0, "highAddress": 2147483647}
    ],
    "systemClocks": [
        {"name": "PL 0", "id": 0, "frequency": "150", "status": "fixed", "default": true}
    ],
    "files": [{"type": "HPFM", "name": "hpfm/@NAME@.hpfm"}]
}
)";

constexpr char kCardHpfm[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- The hardware as its generator sees it. An archive with an hpfm takes its bus interfaces from here. -->
<kp:repository xmlns:kp="urn:torvane:kp:hpfm:1.0" kp:name="@NAME@" kp:library="@NAME@" kp:version="1.0" kp:vendor="acme">
  <kp:component kp:name="@NAME@" kp:library="@NAME@" kp:version="1.0" kp:vendor="acme" kp:type="platform" kp:BRAM="1344" kp:DSP="5952" kp:FF="1740032" kp:LUT="870016">
    <kp:platformInfo>
      <kp:deviceInfo kp:architecture="tzvirtu" kp:device="tzu77" kp:package="fsq2892" kp:speedGrade="-2L"/>
      <kp:description>A card with two DDR4 banks</kp:description>
      <!-- A clock with an id is named "PL" and its id. Frequencies are in MHz. -->
      <kp:systemClocks kp:defaultClock="0">
        <kp:clock kp:name="clk_kernel" kp:instanceRef="/clk_gen_0" kp:componentRef="clk_gen" kp:frequency="300" kp:period="3.333333" kp:status="scalable" kp:id="0"/>
        <kp:clock kp:name="clk_kernel2" kp:instanceRef="/clk_gen_0" kp:componentRef="clk_gen" kp:frequency="500" kp:period="2" kp:status="fixed" kp:id="1"/>
      </kp:systemClocks>
    </kp:platformInfo>
    <!-- The memory port MEMSS makes the address segments banks: a linker knows them as DDR[0] and DDR[1]. It chooses
         "preferred" banks first, "true" ones then, and "false" ones never by itself. -->
    <kp:busInterface kp:busTypeRef="aximm" kp:name="S_AXI_DDR" kp:mode="slave" kp:dataWidth="512" kp:clockRef="PL 0" kp:memport="MEMSS" kp:sptag="DDR">
      <kp:addressSegment kp:baseName="DDR4_MEM00" kp:index="0" kp:auto="preferred" kp:sptag="bank0" kp:slr="SLR0"/>
      <kp:addressSegment kp:baseName="DDR4_MEM01" kp:index="1" kp:auto="true" kp:sptag="bank1" kp:slr="SLR1"/>
    </kp:busInterface>
    <!-- A general-purpose port leads to no memory. -->
    <kp:busInterface kp:busTypeRef="aximm" kp:name="M_AXI_CTRL" kp:mode="master" kp:dataWidth="32" kp:clockRef="PL 0" kp:memport="M_AXI_GP"/>
    <kp:busInterface kp:busTypeRef="interrupt" kp:name="INTR_KERNEL" kp:mode="slave" kp:isrId="0"/>
  </kp:component>
</kp:repository>
)";

constexpr char kBoardHpfm[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- The hardware as its generator sees it. An archive with an hpfm takes its bus interfaces from here. -->
<kp:repository xmlns:kp="urn:torvane:kp:hpfm:1.0" kp:name="@NAME@" kp:library="@NAME@" kp:version="1.0" kp:vendor="acme">
  <kp:component kp:name="@NAME@" kp:library="@NAME@" kp:version="1.0" kp:vendor="acme" kp:type="platform" kp:BRAM="120" kp:DSP="1056" kp:FF="202752" kp:LUT="101376">
    <kp:platformInfo>
      <kp:deviceInfo kp:architecture="tzmote" kp:device="tzk30" kp:package="sbq784" kp:speedGrade="-1"/>
      <kp:description>A board whose processor has one DDR4 memory</kp:description>
      <!-- A clock with an id is named "PL" and its id. Frequencies are in MHz. -->
      <kp:systemClocks kp:defaultClock="0">
        <kp:clock kp:name="pl_clk0" kp:instanceRef="/ps_0" kp:componentRef="ps" kp:frequency="150" kp:period="6.666667" kp:status="fixed" kp:id="0"/>
      </kp:systemClocks>
    </kp:platformInfo>
    <!-- Any other memory port than MEMSS, M_AXI_GP and S_AXI_GP makes the interface itself a bank, named by its tag. -->
    <kp:busInterface kp:busTypeRef="aximm" kp:name="S_AXI_HP0" kp:mode="slave" kp:dataWidth="128" kp:clockRef="PL 0" kp:memport="S_AXI_HP" kp:sptag="HP0" kp:size="2GB" kp:slr="SLR0"/>
    <!-- A general-purpose port leads to no memory. -->
    <kp:busInterface kp:busTypeRef="aximm" kp:name="M_AXI_GP0" kp:mode="master" kp:dataWidth="128" kp:clockRef="PL 0" kp:memport="M_AXI_GP"/>
  </kp:component>
</kp:repository>
)";

constexpr char kReadme[] = R"(# @NAME@

    zr-platform pack hardware @NAME@.lfa      # the archive that the descriptor names
    zr-platform validate @NAME@.zdf           # what is wrong, and what is probably a mistake
    zr-platform show @NAME@.zdf

| file | what it is |
|---|---|
| `@NAME@.zdf` | the descriptor, which names the other files |
| `hardware/` | the members of the hardware archive |
| `hardware/lfa.json` | the hardware metadata |
| `hardware/hpfm/@NAME@.hpfm` | bus interfaces and banks, as the generator of the hardware writes them |
| `@NAME@.spfm` | configurations, processors and operating systems |

JSON has no comments. In `hardware/lfa.json`:

- `vendor`, `boardId`, `name` and the version make the name `vendor:boardId:name:version`.
- `versionMajor` and `versionMinor`: the release of the tool that the platform is for. `zr-platform check` says which releases
  may use it.
- `usesPR`: whether kernels are loaded by partial reconfiguration. If so, the platform has a host.
- `fpgaPart`: architecture, device, package and speed grade, separated by colons; up to three more fields may follow.
- `numSLRs`: the dies of the device, SLR0 and so on, to which banks and pblocks refer.
- `memories`: sizes are a number and GB; the highest address is that of the last byte.
- `systemClocks`: MHz; the status is scalable, changeable, fixed or reserved; one clock is the default. The clocks of a
  platform are these: a change in the hpfm belongs here too.
- `files`: what tools look up by type. Each name is a member of the archive.
)";

constexpr char kBif[] = R"(// The parts of the boot image, in the order in which they are loaded.
standard: { }
)";

constexpr char kBootReadme[] = R"(How to boot the board from the image "standard".
)";

constexpr char kSoftwareReadme[] = R"(# @NAME@

    zr-platform validate @NAME@.spfm
    zr-platform show @NAME@.spfm

`@NAME@.spfm` is a software file: configurations, processors and operating systems, without hardware. A descriptor ties it to
a hardware archive.
)";

constexpr File kCard[] = {{"README.md", kReadme},
                          {"@NAME@.zdf", kDescriptor},
                          {"@NAME@.spfm", kHostSoftware},
                          {"hardware/lfa.json", kCardMetadata},
                          {"hardware/hpfm/@NAME@.hpfm", kCardHpfm}};
constexpr File kEmbedded[] = {{"README.md", kReadme},
                              {"@NAME@.zdf", kDescriptor},
                              {"@NAME@.spfm", kBoardSoftware},
                              {"boot/boot.bif", kBif},
                              {"boot/readme.txt", kBootReadme},
                              {"hardware/lfa.json", kBoardMetadata},
                              {"hardware/hpfm/@NAME@.hpfm", kBoardHpfm}};
constexpr File kSoftware[] = {{"README.md", kSoftwareReadme}, {"@NAME@.spfm", kHostSoftware}};

struct Kind {
    const char* name;
    std::span<const File> files;
};
constexpr Kind kKinds[] = {{"card", kCard}, {"embedded", kEmbedded}, {"software", kSoftware}};

/// The text for the platform of this name.
std::string filled(std::string text, const std::string& name) {
    const std::pair<std::string_view, std::string> values[] = {{"@NAME@", name},
                                                               {"@MAJOR@", std::to_string(HUTEnv::getMajor())},
                                                               {"@MINOR@", std::to_string(HUTEnv::getMinor())}};
    for (const auto& [mark, value] : values)
        for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at + value.size()))
            text.replace(at, mark.size(), value);
    return text;
}

const Kind& kindOf(const std::string& name) {
    const auto kind = std::ranges::find_if(kKinds, [&](const Kind& row) { return name == row.name; });
    if (kind != std::end(kKinds)) return *kind;
    throw RequestError(FailureKind::wrongUse,
                       {.text = "unknown kind '" + name + "'; expected card, embedded or software"});
}

[[noreturn]] void fail(const std::string& file, int error) {
    throw RequestError(FailureKind::environment, {.file = file, .text = std::strerror(error)});
}

std::string nameIn(const std::string& path) { return path.substr(path.rfind('/') + 1); }

/// The folder of a file below an open one, made as the process makes folders.
util::Descriptor makeFolderOf(const std::string& file, int directory, const fs::path& shown) {
    util::Descriptor folder = util::makeBelow(directory, fs::path(file).parent_path().native(), 0777);
    if (!folder.isOpen()) fail((shown / file).native(), errno);
    return folder;
}

/// A folder in a private one, made as the process makes folders. It is removed unless it gets its name. Files are made
/// below the folder that was opened when it was made: nothing that takes its path is written to.
class Draft {
public:
    explicit Draft(const fs::path& folder)
        : folder_(folder), private_((folder.parent_path() / ".new-XXXXXX").native()) {
        if (::mkdirat(private_.descriptor(), kMade, 0777) != 0) fail(folder_.native(), errno);
        made_ = util::openBelow(private_.descriptor(), kMade, O_PATH | O_DIRECTORY);
        if (!made_.isOpen()) fail(folder_.native(), errno);
    }

    void put(const std::string& path, const std::string& text) const {
        constexpr int kNew = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        const util::Descriptor folder = makeFolderOf(path, made_.get(), folder_);
        util::Descriptor file(::openat(folder.get(), nameIn(path).c_str(), kNew, 0666));
        int error = file.isOpen() ? util::writeAll(file.get(), text) : errno;
        if (!file.close() && error == 0) error = errno;
        if (error != 0) fail((folder_ / path).native(), error);
    }
    /// Moves the files into the folder, which exists.
    void mergeInto(const HSTVector<std::string>& files) const {
        const util::Descriptor there(::open(folder_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!there.isOpen()) fail(folder_.native(), errno);
        for (const std::string& file : files) {
            const util::Descriptor to = makeFolderOf(file, there.get(), folder_);
            if (::renameat(made_.get(), file.c_str(), to.get(), nameIn(file).c_str()) != 0)
                fail((folder_ / file).native(), errno);
        }
    }
    /// Gives the folder its name, which may be that of an empty one.
    void rename() const {
        if (::renameat(private_.descriptor(), kMade, AT_FDCWD, folder_.c_str()) != 0) fail(folder_.native(), errno);
    }

private:
    static constexpr const char* kMade = "made";

    fs::path folder_;
    util::MadeDirectory private_;
    util::Descriptor made_;
};

}  // namespace

HSTVector<std::string> newPlatform(const NewPlatform& request) {
    const Kind& kind = kindOf(request.kind);
    std::string path = request.folder;
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    const std::string name = fs::path(path).filename();
    constexpr const char* kAllowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-";
    if (name.empty() || name.starts_with('-') || name.find_first_not_of(kAllowed) != std::string::npos)
        throw RequestError(FailureKind::wrongUse,
                           {.text = "'" + HSTStringUtils::printable(name) +
                                    "' is not a platform's name: expected letters, digits, '_' and '-'"});
    std::error_code error;
    const fs::path folder = fs::absolute(path, error);
    if (error) fail(request.folder, error.value());  // the working directory has been removed
    const bool isUsed = fs::exists(fs::symlink_status(folder, error)) && !fs::is_empty(folder, error);
    if (isUsed && !(request.mayReplace && fs::is_directory(folder, error)))
        throw RequestError(FailureKind::refused, {.file = request.folder, .text = "already exists and is not empty"});
    if (!fs::is_directory(folder.parent_path(), error)) fail(folder.parent_path().native(), ENOENT);
    const Draft draft(folder);
    HSTVector<std::string> made;
    for (const File& file : kind.files) {
        made.push_back(filled(file.path, name));
        draft.put(made.back(), filled(file.text, name));
    }
    if (isUsed)
        draft.mergeInto(made);
    else
        draft.rename();
    return made;
}

}  // namespace teq_platform::requests
