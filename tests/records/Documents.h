#pragma once
#include <string>

/// One document for each format that holds every element and attribute, in the writer's form; of the descriptor one
/// for each of its three contents.
namespace documents {

inline const std::string kEmulation = R"(<?xml version="1.0" encoding="UTF-8"?>
<Root VersionMajor="1" VersionMinor="4294967295">
  <Emulations>
    <Emulation Name="a">
      <Files>
        <File Type="EMU_HPFM" Name="hw_emu/a.hpfm"/>
        <File Type="" Name=""/>
      </Files>
    </Emulation>
    <Emulation Name="b">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)";

inline const std::string kHpfm = R"(<?xml version="1.0" encoding="UTF-8"?>
<kp:repository xmlns:kp="urn:torvane:kp:hpfm:1.0" kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v">
  <kp:component kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v" kp:type="board" kp:BRAM="1" kp:DSP="2" kp:FF="3" kp:LUT="4294967295">
    <kp:platformInfo>
      <kp:deviceInfo kp:name="d" kp:architecture="a" kp:device="d" kp:package="p" kp:speedGrade="-2"/>
      <kp:registeredDevices kp:kio="1" kp:uio="65535"/>
      <kp:description>text</kp:description>
      <kp:systemClocks kp:defaultClock="0">
        <kp:clock kp:name="c" kp:instanceRef="i" kp:componentRef="r" kp:frequency="300.000000" kp:period="3.333" kp:status="fixed" kp:id="0" kp:normalizedPeriod=".003333" kp:clkDomain="cd"/>
        <kp:clock kp:name="" kp:instanceRef="" kp:componentRef="" kp:frequency="-1" kp:period="+1." kp:status=""/>
      </kp:systemClocks>
    </kp:platformInfo>
    <kp:parameter kp:name="p" kp:instanceRef="i" kp:componentRef="r" kp:isValid="true" kp:value="x"/>
    <kp:busInterface kp:busTypeRef="aximm" kp:name="b" kp:instanceRef="i" kp:componentRef="r" kp:mode="master" kp:category="c" kp:dataWidth="-32768" kp:clockRef="k" kp:resetRef="x" kp:busInterfaceRef="br" kp:memport="M" kp:sptag="DDR" kp:cacheCoherent="true" kp:direction="in" kp:irq="5" kp:addressSegment="seg" kp:memoryInstance="mi" kp:clkDomain="cd" kp:hasTlast="false" kp:idBits="4" kp:cardinality="1" kp:size="16GB" kp:slr="SLR0" kp:peakMemoryBandwidth="19.2" kp:maxMasters="15" kp:isrId="2" kp:auto="true">
      <kp:addressSegment kp:baseName="base" kp:index="3" kp:memoryInstance="mi" kp:auto="preferred" kp:sptag="HBM" kp:slr="SLR1" kp:maxMasters="16" kp:name="s" kp:instanceRef="i" kp:region="r" kp:readBwUsed="12345678901234567890" kp:writeBwUsed="-1" kp:interleave="4096"/>
      <kp:addressSegment/>
    </kp:busInterface>
    <kp:busInterface kp:name="bare"/>
    <kp:nocConnectivity kp:instanceRef="noc">
      <kp:busInterface kp:name="nb"/>
    </kp:nocConnectivity>
    <kp:nocConnectivity kp:instanceRef="idle"/>
    <kp:resourceEstimates kp:BRAM="1" kp:DSP="2" kp:FF="3" kp:LUT="4" kp:nocChannelMaxBw="5" kp:nocPlNsu="6" kp:nocPlNmu="7" kp:nocTilNsu="8" kp:nocTilNmu="9"/>
  </kp:component>
</kp:repository>
)";

inline const std::string kSoftware = R"(<?xml version="1.0" encoding="UTF-8"?>
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0" teq:schemaVersion="1">
  <teq:description>d</teq:description>
  <teq:systemConfigurations teq:defaultConfiguration="c">
    <teq:configuration teq:name="c" teq:displayName="C" teq:defaultProcessorGroup="g" teq:runtimes="ocl,cpp">
      <teq:description></teq:description>
      <teq:prebuilt teq:data="pre"/>
      <teq:bootImages teq:default="i">
        <teq:image teq:name="i" teq:type="t" teq:bif="b" teq:imageData="data" teq:bootmode="sd" teq:rootfs="r" teq:mountPath="/m" teq:readme="me" teq:qemuDevicetree="dt" teq:qemuBoot="qb" teq:qemuArguments="qa" teq:hwBootBin="bin"/>
      </teq:bootImages>
      <teq:processorGroup teq:name="g" teq:displayName="G" teq:cpuType="x86" teq:architecture="64" teq:cpuInstance="0">
        <teq:os teq:name="linux" teq:displayName="Linux" teq:hypervisorGuest="YES" teq:includePaths="ip" teq:libraryPaths="lp" teq:libraryNames="ln" teq:ldscript="ld" teq:sysRoot="sr" teq:bspConfig="bc" teq:bspLibraryPaths="bl" teq:bspIncludePaths="bi" teq:bspRepo="br" teq:compilerOptions="co" teq:linkerOptions="lo" teq:osDependency="od" teq:crossCompilerType="cc" teq:toolConfig="tc"/>
      </teq:processorGroup>
      <teq:processorGroup teq:name="h" teq:displayName="H" teq:cpuType="x86">
        <teq:os teq:name="standalone" teq:displayName="Alone"/>
      </teq:processorGroup>
    </teq:configuration>
    <teq:configuration teq:name="d" teq:displayName="D">
      <teq:description></teq:description>
    </teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
)";

inline std::string descriptor(const std::string& hardware) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.50" teq:schemaVersion="2.0">
  <teq:description>two
lines</teq:description>
)" + hardware +
           R"(  <teq:softwarePlatforms>
    <teq:softwarePlatform teq:path="sw" teq:name="n.spfm"/>
  </teq:softwarePlatforms>
</teq:platform>
)";
}

inline const std::string kDescriptor = descriptor(R"(  <teq:hardwarePlatforms teq:defaultRP="7">
    <teq:hardwarePlatform teq:path="hw" teq:name="n.lfa"/>
    <teq:hwEmuPlatform teq:path="emu" teq:name="e.lfa"/>
  </teq:hardwarePlatforms>
)");
inline const std::string kEmulationOnly = descriptor(R"(  <teq:hardwarePlatforms>
    <teq:hwEmuPlatform teq:path="emu" teq:name="e.lfa"/>
  </teq:hardwarePlatforms>
)");
inline const std::string kPartitions = descriptor(R"(  <teq:hardwarePlatforms teq:defaultRP="1">
    <teq:reconfigurablePartition teq:id="1">
      <teq:hardwarePlatform teq:path="hw" teq:name="1.lfa"/>
      <teq:hwEmuPlatform teq:path="emu" teq:name="1.lfa"/>
    </teq:reconfigurablePartition>
    <teq:reconfigurablePartition teq:id="2">
      <teq:hwEmuPlatform teq:path="emu" teq:name="2.lfa"/>
    </teq:reconfigurablePartition>
  </teq:hardwarePlatforms>
)");

}  // namespace documents
