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
     "The file cannot be opened as what it should be: it is missing, is no regular file, is larger than 32 MiB (an "
     "archive excepted), or is no sound zip archive.",
     "Check the path and the permission. An archive that is damaged must be packed anew; \"zr-platform verify\" "
     "tells which members differ.",
     "sample.lfa", R"(no archive)",
     R"(== sample.lfa!lfa.json
{}
)"},
    {xml::fault::kNotWellFormed, error,
     "The text is no XML: a tag that is not closed, an attribute twice, a bare & or <, bytes that are no UTF-8.",
     "Mend the text at the place that is told. A bare & is written &amp;, a < &lt;.", "hw_emu.xml",
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
     "The document is in an encoding that is not read: UTF-8 is, and UTF-16 with its byte-order mark.",
     "Save the document as UTF-8 and say so in its first line, or say nothing.", "hw_emu.xml",
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
     "The document begins with a document type declaration. None is ever read, so that no entity is expanded and no "
     "other file is opened.",
     "Take the declaration out; write the five entities of XML itself, and characters as they are.", "hw_emu.xml",
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
     "The document is larger, deeper or wider than any that is read: 64 levels, 1000 attributes of an element, 100 "
     "namespace declarations in force, a million elements and attributes.",
     "Look for what was made by a fault of the tool that wrote the document; real documents stay far below.",
     "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x><x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></x></Files>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kNamespace, error, "A prefix is used that no xmlns declares, or a declaration is none.",
     "Declare the prefix at the document element, as xmlns:teq=\"urn:torvane:teq:platform:1.0\".", "hw_emu.xml",
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
    {xml::fault::kWrongRoot, error, "The document element is not that of the format, or is in another namespace.",
     "Check that the file is of the kind that its name says, and that the namespace is the format's.", "hw_emu.xml",
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
     "An element stands where the format has none of that name. Names are compared by letter case.",
     "Compare the name with the ones that are told as expected.", "hw_emu.xml",
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
     "An element is known here, but not at this place: it comes too late, or once too often.",
     "Bring the elements into the order of the format; \"zr-platform schema\" prints it.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      <Files/><Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kMissingElement, error, "An element that must be there is left out.",
     "Add it before the place that is told. Some may be empty.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0">
  <Emulations>
    <Emulation Name="a">
      
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kMissingAttribute, error, "An element lacks an attribute that it must have.",
     "Add the attribute; a text may be empty, a number not.", "hw_emu.xml",
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
     "An element has an attribute that the format does not know, or that is not in the format's namespace.",
     "Compare the name with those that are told. In formats with a namespace attributes carry the prefix too.",
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
    {xml::fault::kRepeatedAttribute, error, "An element has an attribute twice, by two prefixes of one namespace.",
     "Keep one of them.", "sample.spfm",
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
     "A value is not of the type of its attribute. Numbers are decimal, Booleans are true, false, 1 or 0.",
     "Write the value as the type wants it.", "hw_emu.xml",
     R"(<Root VersionMajor="1" VersionMinor="0x1">
  <Emulations>
    <Emulation Name="a">
      <Files/>
    </Emulation>
  </Emulations>
</Root>
)",
     kEmulation},
    {xml::fault::kOutOfRange, error, "A number is smaller or larger than its attribute can hold.",
     "Choose a value within the bounds that are told.", "hw_emu.xml",
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
    {xml::fault::kStrayText, error, "Text stands in an element that has none.",
     "Take it out, or make a comment of it.", "hw_emu.xml",
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
    {kNotJson, error, "The text is no JSON, or too much of it: 192 levels and a million values are read.",
     "Mend the text at the place that is told. JSON knows no comments and no comma behind the last item.", "lfa.json",
     R"({"vendor": "v",}
)",
     R"({"vendor": "v"}
)"},
    {kWrongShape, error,
     "A list stands where an object or a single value is read, or the other way round. The reader takes nothing of "
     "it.",
     "Put what is told there.", "lfa.json",
     R"({"board": "u77"}
)",
     R"({"board": {"name": "u77"}}
)"},
    {kMissingKey, error, "An object lacks a key without which the reader fails.", "Add the key.", "lfa.json",
     R"({"devices": [{"name": "fpga0"}]}
)",
     R"({"devices": [{"name": "fpga0", "core": {}}]}
)"},
    {kRefusedValue, error,
     "A value has the right type, but the platform cannot hold it: a device string of other than four to seven "
     "fields, a UUID of another form, an unknown tile architecture, a parameter given twice.",
     "The text tells what is refused and why.", "lfa.json",
     R"({"devices": [{"fpgaPart": "tzu77", "core": {}}]}
)",
     R"({"devices": [{"fpgaPart": "tzvirtu:tzu77:fsq2892:-2L", "core": {}}]}
)"},
    {kClashingParameter, error,
     "The name of an IP's parameter begins with the name of another one and a dot, and the other has a value. The "
     "dots of a name are levels of the document, so no document can hold both: the platform loads, but cannot be "
     "written.",
     "Give one of them another name.", "lfa.json",
     R"({"designIpInstances": [{"configuration": {"CLK": "100", "CLK.JITTER": "5"}}]}
)",
     R"({"designIpInstances": [{"configuration": {"CLK.FREQ": "100", "CLK.JITTER": "5"}}]}
)"},
    {kMissingFile, error, "A descriptor names a file that is not there. Paths are relative to the descriptor.",
     "Correct path and name, or put the file there.", "sample.zdf",
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
{}
)"},
    {kWrongExtension, error,
     "A descriptor names a file as hardware that has not the extension of an archive: without it the metadata cannot "
     "be found.",
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
{}
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
{}
)"},
    {kNewerSchema, error,
     "The XML metadata has a schema version above the one that this library reads. Platforms in the state pre_synth "
     "are let through.",
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
     "An archive has no metadata at its top: the platform cannot be loaded. The member is called as the archive's "
     "extension.",
     "Add lfa.json to an .lfa, cfa.json to a .cfa.", "sample.lfa",
     R"(== sample.lfa!cfa.json
{}
)",
     R"(== sample.lfa!lfa.json
{}
)"},
    {kDamagedMember, error,
     "The bytes of a member are not those that the archive was made with, or the member is larger than is read.",
     "Pack the archive anew; \"zr-platform verify\" checks all members.", "sample.lfa",
     R"(== sample.lfa!lfa.json (changed after packing)
{}
)",
     R"(== sample.lfa!lfa.json
{}
)"},
    {kMissingEmulationMember, error,
     "The metadata lists emulation targets (EMU_XML, EMU_JSON) that the archive lacks. Readers open them, so the "
     "platform cannot be loaded.",
     "Add the member, or take the file out of the list.", "sample.lfa",
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
     "The metadata lists a file that the archive lacks: who asks for it gets nothing. A folder counts as there when "
     "something is in it.",
     "Add the member, correct its name, or take it out of the list.", "sample.lfa",
     R"(== sample.lfa!lfa.json
{"files": [{"type": "DCP", "name": "dcp/a.dcp"}]}
)",
     R"(== sample.lfa!lfa.json
{"files": [{"type": "DCP", "name": "dcp/a.dcp"}]}
== sample.lfa!dcp/a.dcp
checkpoint
)"},
    {kRepeatedClockId, warning,
     "Two clocks have one id: who asks by id gets the last. In JSON a clock without an id has the id 0.",
     "Number the clocks.", "lfa.json",
     R"({"systemClocks": [{"name": "a", "id": 0}, {"name": "b"}]}
)",
     R"({"systemClocks": [{"name": "a", "id": 0}, {"name": "b", "id": 1}]}
)"},
    {kUnknownDefaultPartition, warning,
     "No partition has the id of the default one: questions about the platform are answered as if it had no "
     "hardware.",
     "Set defaultRP to the id of a partition; left out it is 0.", "sample.zdf",
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
{}
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
{}
)"},
    {kIdOutOfRange, warning,
     "The id of a partition, or of the default one, is not between 0 and 4294967295: it is read as the nearest of "
     "the two, and partitions with different ids become the same.",
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
{}
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
{}
)"},
    {kUncountedMemory, warning,
     "The size of a memory is not counted in the platform's total: it has no number in front of GB.",
     "Write the size in GB, as 16GB.", "lfa.json",
     R"({"memories": [{"name": "bank0", "size": "2048MB"}]}
)",
     R"({"memories": [{"name": "bank0", "size": "2GB"}]}
)"},
    {kPartlyDefaultHbm, warning,
     "Some, but not all, of the HBM banks that a linker may assign are default banks, which costs bandwidth.",
     "Mark all of them as preferred; \"zr-platform extract --repair-hpfm\" does that to the file that it writes.",
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
    {kNotANumber, warning,
     "A text stands where a number is read: what follows the leading digits is dropped, without digits it is 0.",
     "Write a decimal number.", "lfa.json",
     R"({"versionMajor": "0x10"}
)",
     R"({"versionMajor": "16"}
)"},
    {kNotAFlag, warning, "A text stands where a flag is read: anything but true is false.", "Write true or false.",
     "lfa.json",
     R"({"usesPR": "yes"}
)",
     R"({"usesPR": true}
)"},
};

}  // namespace

std::span<const CheckExplanation> explanations() { return kExplanations; }

}  // namespace check
