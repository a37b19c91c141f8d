#include "check/Explanations.h"

#include "check/Findings.h"
#include "xml/XmlException.h"

namespace check {

namespace {

using teq_platform::CheckExplanation;
using enum CheckFinding::Severity;

constexpr const char* kEmulation = R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)";

constexpr CheckExplanation kExplanations[] = {
    {teq_platform::PlatformCheck::kUnreadable, error,
     "The file cannot be opened: it is missing, not a regular file, larger than 32 MiB (except archives), or not a "
     "valid zip archive.",
     "Check path and permissions. A damaged archive must be packed again; \"zr-platform verify\" reports which "
     "members differ.",
     "sample.lfa", R"(not an archive)",
     R"(== sample.lfa!lfa.json
{"name": "n"}
)"},
    {xml::fault::kNotWellFormed, error,
     "The text is not well-formed XML: a tag is not closed, an attribute is repeated, & or < is not escaped, or the "
     "bytes are not UTF-8.",
     "Fix the text at the location reported. Write & as &amp; and < as &lt;.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a & b">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a &amp; b">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)"},
    {xml::fault::kEncoding, error,
     "The encoding of the document is not supported. UTF-8 is, and UTF-16 with a byte-order mark.",
     "Save the document as UTF-8 and declare that in its first line, or omit the declaration.", "hw_emu.xml",
     R"(<?xml version="1.0" encoding="ISO-8859-1"?>
<Root VersionMajor="1" VersionMinor="0">
  <Emulations/>
</Root>
)",
     R"(<?xml version="1.0" encoding="UTF-8"?>
<Root VersionMajor="1" VersionMinor="0">
  <Emulations/>
</Root>
)"},
    {xml::fault::kDoctype, error,
     "The document has a document type declaration. These are never accepted, so that no entity is expanded and no "
     "other file is opened.",
     "Remove the declaration. Use only the five predefined entities of XML, and write all other characters directly.",
     "hw_emu.xml",
     R"(<!DOCTYPE Root>
<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kLimit, error,
     "The document exceeds a limit: 64 levels, 1000 attributes per element, 100 namespace declarations in scope, or "
     "a million elements and attributes.",
     "Real documents stay far below these limits; suspect a fault in the tool that wrote the document.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></Files>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kNamespace, error, "A prefix is not declared by any xmlns attribute, or a declaration is not valid.",
     "Declare the prefix in the document element, for example xmlns:teq=\"urn:torvane:teq:platform:1.0\".",
     "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations x:note="">
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations xml:lang="en">
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)"},
    {xml::fault::kWrongRoot, error, "The document element is not the format's, or is in another namespace.",
     "Check that the content matches the file's name, and that the namespace is the format's.", "hw_emu.xml",
     R"(<Root xmlns="urn:x" VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kUnknownElement, error,
     "The format does not allow an element of this name here. Names are case-sensitive.",
     "Compare the name with the expected names reported.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files><file Type="" Name=""/></Files>
    </Emulation>
  </Emulations>
</Root>
)",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files><File Type="" Name=""/></Files>
    </Emulation>
  </Emulations>
</Root>
)"},
    {xml::fault::kMisplacedElement, error,
     "An element is allowed in its parent, but not at this position: it comes too late or too often.",
     "Put the elements in the order of the format; \"zr-platform schema\" prints it.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files/><Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kMissingElement, error, "A required element is missing.",
     "Add it before the location reported. Some elements may be empty.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kMissingAttribute, error, "A required attribute is missing.",
     "Add the attribute. A text may be empty, a number may not.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation>
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kUnknownAttribute, error,
     "An element has an attribute that the format does not define, or that is not in the format's namespace.",
     "Compare the name with the names reported. In formats with a namespace, attributes need the prefix too.",
     "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a" Note="">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kRepeatedAttribute, error,
     "An element has an attribute twice, under two prefixes of the same namespace.", "Keep one of them.",
     "sample.spfm",
     R"(<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" xmlns:t="urn:torvane:teq:platform:1.0" t:name="n" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
)",
     R"(<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
)"},
    {xml::fault::kBadValue, error,
     "A value is not valid for the type of its attribute. Numbers are decimal; Booleans are true, false, 1 or 0.",
     "Write the value in the form of its type.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0x1">
  <Emulations>
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kOutOfRange, error, "A number is below the minimum or above the maximum of its attribute.",
     "Use a value within the range reported.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="4294967296">
  <Emulations>
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     R"(<Root VersionMajor="1" VersionMinor="4294967295">
  <Emulations>
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)"},
    {xml::fault::kStrayText, error, "An element that may not contain text contains some.",
     "Remove it, or make it a comment.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>targets
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations><!-- targets -->
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)"},
    {kNotJson, error, "The text is not JSON, or exceeds a limit: 192 levels, or a million values.",
     "Fix the text at the location reported. JSON allows neither comments nor a trailing comma.", "lfa.json",
     R"({"vendor": "v",}
)",
     R"({"vendor": "v"}
)"},
    {kWrongShape, error,
     "A list is used where an object or a single value is expected, or the other way round. The platform loads, and "
     "what is "
     "read of the value is not what was meant: nothing, or the values of an object as the items of a list.",
     "Use what the finding says is expected.", "lfa.json",
     R"({"board": "u77"}
)",
     R"({"board": {"name": "u77"}}
)"},
    {kMissingKey, error, "An object lacks a key that the reader requires.", "Add the key.", "lfa.json",
     R"({"devices": [{"name": "fpga0"}]}
)",
     R"({"devices": [{"name": "fpga0", "core": {}}]}
)"},
    {kRefusedValue, error,
     "A value has the right type, but the platform refuses it: a device string without four to seven fields, a "
     "malformed UUID, an unknown tile architecture, or a repeated parameter.",
     "The text states what is refused and why.", "lfa.json",
     R"({"devices": [{"fpgaPart": "tzu77", "core": {}}]}
)",
     R"({"devices": [{"fpgaPart": "tzvirtu:tzu77:fsq2892:-2L", "core": {}}]}
)"},
    {kClashingParameter, error,
     "The name of an IP parameter begins with the name of another parameter and a dot, and that parameter has a "
     "value. Dots in names become levels of the document, so no document can hold both: the platform loads, but "
     "cannot be written.",
     "Rename one of them.", "lfa.json",
     R"({"designIpInstances": [{"configuration": {"CLK": "100", "CLK.JITTER": "5"}}]}
)",
     R"({"designIpInstances": [{"configuration": {"CLK.FREQ": "100", "CLK.JITTER": "5"}}]}
)"},
    {kMissingFile, error, "A descriptor names a file that does not exist. Paths are relative to the descriptor.",
     "Correct the path or the name, or add the file.", "sample.zdf",
     R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms><teq:hardwarePlatform teq:path="." teq:name="gone.lfa"/></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
)",
     R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms><teq:hardwarePlatform teq:path="." teq:name="hw.lfa"/></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
== hw.lfa!lfa.json
{"name": "n"}
)"},
    {kWrongExtension, error,
     "A hardware archive does not have the extension of one, by which it is recognised and its metadata is found. "
     "Extensions are case-sensitive.",
     "Rename the file to .cfa or .lfa.", "sample.zdf",
     R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms><teq:hardwarePlatform teq:path="." teq:name="hw.zip"/></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
== hw.zip!lfa.json
{"name": "n"}
)",
     R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms><teq:hardwarePlatform teq:path="." teq:name="hw.lfa"/></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
== hw.lfa!lfa.json
{"name": "n"}
)"},
    {kNewerSchema, error,
     "The XML metadata has a newer schema version than this library supports. Platforms in the state pre_synth are "
     "exempt.",
     "Use a newer library, or write the metadata with VersionMajor=\"1\".", "cfa.xml",
     R"(<Root VersionMajor="2" VersionMinor="0">
  <CFA Vendor="v" BoardId="b" Name="n" VersionMajor="1" VersionMinor="0" Description="d">
    <Build/>
    <Board Name="b" Vendor="v" Part="p"><Images/></Board>
    <Devices><Device Name="fpga0" Type="fpga"><Core Name="c" Type="t" ComputeUnits="1"/></Device></Devices>
    <Files/>
  </CFA>
</Root>
)",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <CFA Vendor="v" BoardId="b" Name="n" VersionMajor="1" VersionMinor="0" Description="d">
    <Build/>
    <Board Name="b" Vendor="v" Part="p"><Images/></Board>
    <Devices><Device Name="fpga0" Type="fpga"><Core Name="c" Type="t" ComputeUnits="1"/></Device></Devices>
    <Files/>
  </CFA>
</Root>
)"},
    {kNoMetadata, error,
     "An archive has no metadata member at its top level, so the platform cannot be loaded. The member is named "
     "after the archive's extension.",
     "Add lfa.json to an .lfa file, or cfa.json to a .cfa file.", "sample.lfa",
     R"(== sample.lfa!cfa.json
{"name": "n"}
)",
     R"(== sample.lfa!lfa.json
{"name": "n"}
)"},
    {kDamagedMember, error,
     "A member's bytes are not those that were packed, or the member is larger than the limit.",
     "Pack the archive again; \"zr-platform verify\" checks all members.", "sample.lfa",
     R"(== sample.lfa!lfa.json (changed after packing)
{"name": "n"}
)",
     R"(== sample.lfa!lfa.json
{"name": "n"}
)"},
    {kUnsafeMember, error,
     "A member has a name that leads out of the folder it is extracted to, or that no file can have: it is "
     "absolute, has \"..\", a back slash or a control character. It is never extracted.",
     "Pack the archive again with another name for the member.", "sample.lfa", R"(== sample.lfa!lfa.json
{"name": "n"}
== sample.lfa!up/evil (as ../evil)
x
)",
     R"(== sample.lfa!lfa.json
{"name": "n"}
)"},
    {kMissingEmulationMember, error,
     "The metadata lists emulation targets (EMU_XML, EMU_JSON) that are missing from the archive. Readers open them, "
     "so the platform cannot be loaded.",
     "Add the member, or remove the file from the list.", "sample.lfa",
     R"(== sample.lfa!lfa.json
{"files": [{"type": "EMU_XML", "name": "emu/hw_emu.xml"}]}
)",
     R"(== sample.lfa!lfa.json
{"files": [{"type": "EMU_XML", "name": "emu/hw_emu.xml"}]}
== sample.lfa!emu/hw_emu.xml
<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)"},
    {kMissingMember, warning,
     "The metadata lists a file that is missing from the archive: requests for it fail. A folder exists if it "
     "contains a member.",
     "Add the member, correct its name, or remove it from the list.", "sample.lfa",
     R"(== sample.lfa!lfa.json
{"files": [{"type": "DCP", "name": "dcp/a.dcp"}]}
)",
     R"(== sample.lfa!lfa.json
{"files": [{"type": "DCP", "name": "dcp/a.dcp"}]}
== sample.lfa!dcp/a.dcp
checkpoint
)"},
    {kRepeatedClockId, warning,
     "Two clocks have the same id: a query by id gives the last one. In JSON, a clock without an id has the id 0.",
     "Give each clock its own id.", "lfa.json",
     R"({"systemClocks": [{"name": "a", "id": 0}, {"name": "b"}]}
)",
     R"({"systemClocks": [{"name": "a", "id": 0}, {"name": "b", "id": 1}]}
)"},
    {kUnknownDefaultPartition, warning,
     "No partition has the id of the default partition: queries are answered as if the platform had no hardware.",
     "Set defaultRP to the id of a partition; if omitted, it is 0.", "sample.zdf",
     R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms teq:defaultRP="2"><teq:reconfigurablePartition teq:id="1"><teq:hardwarePlatform teq:path="." teq:name="hw.lfa"/></teq:reconfigurablePartition></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
== hw.lfa!lfa.json
{"name": "n"}
)",
     R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms teq:defaultRP="1"><teq:reconfigurablePartition teq:id="1"><teq:hardwarePlatform teq:path="." teq:name="hw.lfa"/></teq:reconfigurablePartition></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
== hw.lfa!lfa.json
{"name": "n"}
)"},
    {kIdOutOfRange, warning,
     "The id of a partition, or of the default partition, is not between 0 and 4294967295. It is read as the nearer "
     "of the two, so partitions with different ids may become the same.",
     "Number the partitions from 0 or 1.", "sample.zdf",
     R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms teq:defaultRP="0"><teq:reconfigurablePartition teq:id="-1"><teq:hardwarePlatform teq:path="." teq:name="hw.lfa"/></teq:reconfigurablePartition></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
== hw.lfa!lfa.json
{"name": "n"}
)",
     R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms teq:defaultRP="1"><teq:reconfigurablePartition teq:id="1"><teq:hardwarePlatform teq:path="." teq:name="hw.lfa"/></teq:reconfigurablePartition></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
== hw.lfa!lfa.json
{"name": "n"}
)"},
    {kUncountedMemory, warning,
     "The size of a memory is not counted in the platform's total, because it is not a number followed by GB.",
     "Write the size in GB, for example 16GB.", "lfa.json",
     R"({"memories": [{"name": "bank0", "size": "2048MB"}]}
)",
     R"({"memories": [{"name": "bank0", "size": "2GB"}]}
)"},
    {kPartlyDefaultHbm, warning,
     "Some, but not all, of the HBM banks that a linker may assign are default banks, which reduces bandwidth.",
     "Mark all of them as preferred; \"zr-platform extract --repair-hpfm\" does so in the file it writes.",
     "sample.hpfm",
     R"(<kp:repository xmlns:kp="urn:torvane:kp:hpfm:1.0" kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v">
  <kp:component kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v" kp:type="board" kp:BRAM="0" kp:DSP="0" kp:FF="0" kp:LUT="0">
    <kp:platformInfo>
      <kp:deviceInfo kp:architecture="a" kp:device="d" kp:package="p" kp:speedGrade="-2"/>
      <kp:description/>
      <kp:systemClocks kp:defaultClock="0"/>
    </kp:platformInfo>
    <kp:busInterface kp:name="HBM" kp:componentRef="hbm_memory_subsystem">
      <kp:addressSegment kp:auto="preferred"/>
      <kp:addressSegment kp:auto="true"/>
    </kp:busInterface>
  </kp:component>
</kp:repository>
)",
     R"(<kp:repository xmlns:kp="urn:torvane:kp:hpfm:1.0" kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v">
  <kp:component kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v" kp:type="board" kp:BRAM="0" kp:DSP="0" kp:FF="0" kp:LUT="0">
    <kp:platformInfo>
      <kp:deviceInfo kp:architecture="a" kp:device="d" kp:package="p" kp:speedGrade="-2"/>
      <kp:description/>
      <kp:systemClocks kp:defaultClock="0"/>
    </kp:platformInfo>
    <kp:busInterface kp:name="HBM" kp:componentRef="hbm_memory_subsystem">
      <kp:addressSegment kp:auto="preferred"/>
      <kp:addressSegment kp:auto="preferred"/>
    </kp:busInterface>
  </kp:component>
</kp:repository>
)"},
    {kEmptyDocument, warning, "The metadata has no keys, so that the platform has no name, no device and no files.",
     "Write at least the name; docs/making-platforms.md has a minimal document.", "lfa.json", R"({}
)",
     R"({"name": "n"}
)"},
    {kUnknownMemoryType, warning, "The type of a memory is not one of the known types. Letter case does not matter.",
     "Write the memory's type, for example ddr4. It decides which parameters of the memory are kept.", "lfa.json",
     R"({"memories": [{"name": "bank0", "type": "ddr44", "size": "16GB"}]}
)",
     R"({"memories": [{"name": "bank0", "type": "ddr4", "size": "16GB"}]}
)"},
    {kReversedRange, warning, "The lowest address of a memory is above its highest one.",
     "Exchange the two, or correct one of them. The highest address is that of the last byte.", "lfa.json",
     R"({"memories": [{"name": "bank0", "size": "1GB", "lowAddress": 1073741824, "highAddress": 0}]}
)",
     R"({"memories": [{"name": "bank0", "size": "1GB", "lowAddress": 0, "highAddress": 1073741823}]}
)"},
    {kOverlappingMemory, warning, "The address ranges of two memories overlap. A range includes its highest address.",
     "Correct the addresses.", "lfa.json",
     R"({"memories": [{"name": "a", "size": "1GB", "lowAddress": 0, "highAddress": 1073741824},
              {"name": "b", "size": "1GB", "lowAddress": 1073741824, "highAddress": 2147483647}]}
)",
     R"({"memories": [{"name": "a", "size": "1GB", "lowAddress": 0, "highAddress": 1073741823},
              {"name": "b", "size": "1GB", "lowAddress": 1073741824, "highAddress": 2147483647}]}
)"},
    {kRepeatedName, warning,
     "Two memories, devices, clocks, bus interfaces, configurations or processor groups have the same name, or two "
     "partitions the same id, so that a query finds only one of them.",
     "Give each its own name or id.", "lfa.json",
     R"({"memories": [{"name": "bank0", "size": "1GB"}, {"name": "bank0", "size": "1GB"}]}
)",
     R"({"memories": [{"name": "bank0", "size": "1GB"}, {"name": "bank1", "size": "1GB"}]}
)"},
    {kBadFrequency, warning,
     "The frequency of a clock is not a decimal number. It is kept as it stands, and programs that expect MHz "
     "fail to read it.",
     "Write the frequency in MHz, without a unit and without an exponent.", "lfa.json",
     R"({"systemClocks": [{"name": "a", "frequency": "300 MHz"}]}
)",
     R"({"systemClocks": [{"name": "a", "frequency": "300"}]}
)"},
    {kUnknownClockStatus, warning,
     "The status of a clock is not one of scalable, changeable, fixed and reserved: the clock counts as none "
     "of them.",
     "Write one of these; letter case does not matter.", "lfa.json",
     R"({"systemClocks": [{"name": "a", "status": "scaleable"}]}
)",
     R"({"systemClocks": [{"name": "a", "status": "scalable"}]}
)"},
    {kNoDefaultClock, warning,
     "The platform has clocks, but none has the id of the default clock, which is 0 unless a clock is marked "
     "as default: queries for the default clock find nothing.",
     "Mark a clock as default, or give one the id 0; in an hpfm, set defaultClock to the id of a clock.", "lfa.json",
     R"({"systemClocks": [{"name": "a", "id": 1}]}
)",
     R"({"systemClocks": [{"name": "a", "id": 1, "default": true}]}
)"},
    {kRepeatedDefaultClock, warning, "Two clocks are marked as the default clock: the last one is used.",
     "Mark one clock.", "lfa.json",
     R"({"systemClocks": [{"name": "a", "id": 0, "default": true}, {"name": "b", "id": 1, "default": true}]}
)",
     R"({"systemClocks": [{"name": "a", "id": 0, "default": true}, {"name": "b", "id": 1}]}
)"},
    {kUnknownHost, warning,
     "The host architecture is not one of x86_64, armv7l, ppc64le and aarch64: it is read as unknown.",
     "Write one of these; letter case does not matter.", "lfa.json", R"({"usesPR": true, "hostArchitecture": "amd64"}
)",
     R"({"usesPR": true, "hostArchitecture": "x86_64"}
)"},
    {kUnknownValue, warning,
     "A value is not one of those that readers know, or a part of it is empty, so that it is read as something else: "
     "the host interface, the state, the part, the mode or memory port of an interface, the assignment of a bank, "
     "the "
     "type of a resource, or null in place of a name.",
     "Write one of the values of docs/values.md.", "lfa.json", R"({"name": "n", "hostInterface": "pci"}
)",
     R"({"name": "n", "hostInterface": "pcie"}
)"},
    {kUnknownFileType, warning,
     "A listed file has no type, or one that is probably misspelled, so that nothing finds the file by its type: the "
     "banks and interfaces of an hpfm vanish. Types of your own are not reported unless they resemble a known one.",
     "Write the type; docs/file-types.md lists the known ones.", "sample.lfa", R"(== sample.lfa!lfa.json
{"files": [{"type": "HPMF", "name": "a.hpfm"}]}
== sample.lfa!a.hpfm
not looked at
)",
     R"(== sample.lfa!lfa.json
{"files": [{"type": "NOTES", "name": "a.txt"}]}
== sample.lfa!a.txt
any text
)"},
    {kDifferentClock, warning,
     "A clock of an hpfm has another frequency than the clock of that id in the metadata, or the metadata has no "
     "clocks. The clocks of a platform are those of the metadata; those of its hpfm are not read.",
     "Write the clocks into systemClocks of the metadata, with the same frequencies.", "sample.lfa",
     R"(== sample.lfa!lfa.json
{"systemClocks": [{"name": "a", "id": 0, "frequency": "250"}], "files": [{"type": "HPFM", "name": "a.hpfm"}]}
== sample.lfa!a.hpfm
<kp:repository xmlns:kp="urn:torvane:kp:hpfm:1.0" kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v">
  <kp:component kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v" kp:type="board" kp:BRAM="0" kp:DSP="0" kp:FF="0" kp:LUT="0">
    <kp:platformInfo>
      <kp:deviceInfo kp:architecture="a" kp:device="d" kp:package="p" kp:speedGrade="-2"/>
      <kp:description/>
      <kp:systemClocks kp:defaultClock="0">
        <kp:clock kp:name="a" kp:instanceRef="i" kp:componentRef="c" kp:frequency="300" kp:period="4" kp:status="fixed" kp:id="0"/>
      </kp:systemClocks>
    </kp:platformInfo>
  </kp:component>
</kp:repository>
)",
     R"(== sample.lfa!lfa.json
{"systemClocks": [{"name": "a", "id": 0, "frequency": "250"}], "files": [{"type": "HPFM", "name": "a.hpfm"}]}
== sample.lfa!a.hpfm
<kp:repository xmlns:kp="urn:torvane:kp:hpfm:1.0" kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v">
  <kp:component kp:name="n" kp:library="l" kp:version="1.0" kp:vendor="v" kp:type="board" kp:BRAM="0" kp:DSP="0" kp:FF="0" kp:LUT="0">
    <kp:platformInfo>
      <kp:deviceInfo kp:architecture="a" kp:device="d" kp:package="p" kp:speedGrade="-2"/>
      <kp:description/>
      <kp:systemClocks kp:defaultClock="0">
        <kp:clock kp:name="a" kp:instanceRef="i" kp:componentRef="c" kp:frequency="250.0" kp:period="4" kp:status="fixed" kp:id="0"/>
      </kp:systemClocks>
    </kp:platformInfo>
  </kp:component>
</kp:repository>
)"},
    {kUnknownReference, warning,
     "A name refers to something that the platform does not have: a clock, an SLR, a configuration, a "
     "processor group or a boot image.",
     "Correct the name; the finding names the nearest ones.", "sample.spfm",
     R"(<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations teq:defaultConfiguration="linux">
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
)",
     R"(<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations teq:defaultConfiguration="c">
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
)"},
    {kDifferentIdentity, warning,
     "Vendor or version of an archive or a software file differ from the descriptor that names it. The file "
     "may belong to another platform. A version of 2000 or later is a release of a tool, and is not compared.",
     "Name the right file, or make the values the same.", "sample.zdf", R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms><teq:hardwarePlatform teq:path="." teq:name="hw.lfa"/></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
== hw.lfa!lfa.json
{"name": "n", "vendor": "w", "versionMajor": 1}
)",
     R"(== sample.zdf
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:hardwarePlatforms><teq:hardwarePlatform teq:path="." teq:name="hw.lfa"/></teq:hardwarePlatforms>
  <teq:softwarePlatforms><teq:softwarePlatform teq:path="." teq:name="sample.spfm"/></teq:softwarePlatforms>
</teq:platform>
== sample.spfm
<teq:platform xmlns:teq="urn:torvane:teq:platform:1.0" teq:vendor="v" teq:library="l" teq:name="n" teq:version="1.0">
  <teq:description>d</teq:description>
  <teq:systemConfigurations>
    <teq:configuration teq:name="c" teq:displayName="C"><teq:description/></teq:configuration>
  </teq:systemConfigurations>
</teq:platform>
== hw.lfa!lfa.json
{"name": "n", "vendor": "v", "versionMajor": 1}
)"},
    {kNotANumber, warning,
     "A text is used where a number is expected: only its leading digits are read; without digits it is 0.",
     "Write a decimal number.", "lfa.json",
     R"({"versionMajor": "0x10"}
)",
     R"({"versionMajor": "16"}
)"},
    {kNumberOutOfRange, warning,
     "A number does not fit the value that it is for: only its low bits are read, of an even larger one 2^63 - 1.",
     "Write a number that fits; the finding shows what is read.", "lfa.json",
     R"({"versionMajor": "4294967297"}
)",
     R"({"versionMajor": "1"}
)"},
    {kUnknownKey, warning, "No reader knows the key, so that its value is ignored. It may be misspelled.",
     "Write one of the nearest keys that the finding names, or remove it.", "lfa.json",
     R"({"memorys": []}
)",
     R"({"memories": []}
)"},
    {kDuplicateKey, warning, "An object has the same key twice: only the first value is read.", "Remove one of them.",
     "lfa.json",
     R"({"usesPR": true, "usesPR": false}
)",
     R"({"usesPR": true}
)"},
    {kNotAFlag, warning, "A text is used where a Boolean is expected: anything except true is false.",
     "Write true or false.", "lfa.json",
     R"({"usesPR": "yes"}
)",
     R"({"usesPR": true}
)"},
};

}  // namespace

std::span<const CheckExplanation> explanations() { return kExplanations; }

}  // namespace check
