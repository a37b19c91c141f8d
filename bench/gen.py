#!/usr/bin/env python3
"""Seeded inputs of the benchmarks.  usage: gen.py OUTDIR [300]

With 300, only the archive of 300 MB and a file to put into it."""
import json
import os
import random
import sys
import zipfile

OUT = sys.argv[1]
RANDOM = random.Random(42)
WORDS = "axi clk rst ddr mem bus core slr dma irq host ctrl data stream noc gth pcie hbm cfg dbg mux arb fifo".split()
NAMESPACE = 'xmlns:teq="urn:torvane:teq:platform:1.0"'


def name(words=3):
    return "_".join(RANDOM.choice(WORDS) for _ in range(words)) + "_%d" % RANDOM.randrange(1000)


def segment(k):
    return {"baseName": "C%d_DDR" % k, "index": str(k), "memoryInstance": name(2), "auto": "false", "spTag": "bank%d" % k,
            "slr": "SLR%d" % (k % 3), "maxMasters": "15", "name": name(), "instRef": "/" + name(),
            "region": "0x%016x" % RANDOM.getrandbits(64), "readBwUsed": str(RANDOM.randrange(20000)),
            "writeBwUsed": str(RANDOM.randrange(20000)), "interleave": "0"}


def bus(i):
    return {"name": "M%03d_%s" % (i, name(2)), "mode": RANDOM.choice(["master", "slave"]),
            "instRef": "/static_region/%s/%s" % (name(), name(2)), "compRef": name(2),
            "typeRef": "torvane.com:interface:aximm:1.0", "interfaceRef": "aximm_rtl", "clockRef": name(2),
            "memPort": "MC_%d" % (i % 4), "spTag": "DDR[%d]" % (i % 4), "category": "noc",
            "dataWidth": str(RANDOM.choice([32, 64, 128, 512])),
            "addressSegments": [segment(k) for k in range(RANDOM.randrange(1, 4))]}


def parameter():
    return {"name": "CONFIG." + name(), "value": str(RANDOM.randrange(1 << 30)), "valid": "true", "compRef": name(2),
            "instRef": "/" + name()}


def metadata(size):
    """A hardware document of about `size` bytes."""
    document = {
        "generatedChangeList": "3526262", "generatedName": "Torvane", "generatedVersion": "2026.1",
        "vendor": "torvane.com", "boardId": "u77", "name": "gen3x16_sample_1", "versionMajor": "2026",
        "versionMinor": "1", "hostArchitecture": "x86_64", "hostInterface": "pcie", "platformState": "impl",
        "unifiedPlatform": "true", "usesPR": "true", "expandablePlatform": "true", "hardware": "true",
        "designIntent": {key: {"value": "true", "explicit": "true"}
                         for key in ("dataCenter", "embedded", "externalHost", "serverManaged")},
        "resources": [{"type": kind, "count": str(RANDOM.randrange(100000))} for kind in ("BRAM", "DSP", "LUT", "FF")],
        "devices": [{"name": "fpga0", "type": "fpga", "fpgaPart": "tzvirtu:tzu77:fsvh2104:-2:e", "numSLRs": "3",
                     "core": {"name": "OCL_REGION_0", "numComputeUnits": "60"}}],
        "memories": [{"name": "bank%d" % i, "type": "ddr4", "size": "16GB"} for i in range(4)],
        "files": [{"name": "prj/%s.tcl" % name(), "type": "T%02d" % i, "usedIn": "synthesis"} for i in range(40)],
        "systemClocks": [{"name": name(2), "frequency": "%d.000000" % RANDOM.randrange(50, 600), "id": str(i),
                          "status": "scalable"} for i in range(6)],
        "busInterfaces": [], "ipParameters": [],
    }
    length, i = len(json.dumps(document, indent=4)), 0
    while length < size:
        key, item = ("ipParameters", parameter()) if i % 2 else ("busInterfaces", bus(i))
        document[key].append(item)
        text = json.dumps(item, indent=4)
        length += len(text) + 8 * (text.count("\n") + 1)
        i += 1
    return json.dumps(document, indent=4).encode() + b"\n"


def descriptor(archive):
    return ('<?xml version="1.0" encoding="UTF-8"?>\n<teq:platform %s teq:vendor="torvane" teq:library="u77" '
            'teq:name="sample" teq:version="1.0">\n  <teq:description>sample</teq:description>\n'
            '  <teq:hardwarePlatforms>\n    <teq:hardwarePlatform teq:path="." teq:name="%s"/>\n'
            '  </teq:hardwarePlatforms>\n  <teq:softwarePlatforms>\n'
            '    <teq:softwarePlatform teq:path="." teq:name="sample.spfm"/>\n  </teq:softwarePlatforms>\n'
            '</teq:platform>\n' % (NAMESPACE, archive)).encode()


def partitioned(count):
    """A descriptor of `count` reconfigurable partitions, each with an archive of its own."""
    rows = "".join('    <teq:reconfigurablePartition teq:id="%d">\n      <teq:hardwarePlatform teq:path="." '
                   'teq:name="rp%d.lfa"/>\n    </teq:reconfigurablePartition>\n' % (i, i) for i in range(count))
    text = descriptor("rp0.lfa").decode()
    one = text[text.index("    <teq:hardwarePlatform "):text.index("  </teq:hardwarePlatforms>")]
    return text.replace(one, rows).encode()


SOFTWARE = ('<?xml version="1.0" encoding="UTF-8"?>\n<teq:platform %s teq:vendor="torvane" teq:library="u77" '
            'teq:name="sample" teq:version="1.0">\n  <teq:description>sample</teq:description>\n'
            '  <teq:systemConfigurations>\n    <teq:configuration teq:name="linux" teq:displayName="Linux">\n'
            '      <teq:description>Linux</teq:description>\n    </teq:configuration>\n'
            '  </teq:systemConfigurations>\n</teq:platform>\n' % NAMESPACE).encode()


def script(size):
    lines = []
    while size > 0:
        lines.append("set_property -dict {%s %d} [get_bd_cells /%s]\n" % (name(), RANDOM.randrange(1 << 20), name()))
        size -= len(lines[-1])
    return "".join(lines).encode()


def bitstream(size):
    """Half random, a quarter runs of zeros, in pieces of 4 KiB."""
    return b"".join(RANDOM.randbytes(4096) if RANDOM.random() < 0.75 else bytes(4096) for _ in range(size // 4096))


def archive(path, document, members, big):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=6) as made:
        text = script(200_000)
        for i in range(members - 2):
            made.writestr("prj/src/%04d_%s.tcl" % (i, name()), text[i * 20:i * 20 + RANDOM.randrange(2000, 20_000)])
            if i == members // 2:
                made.writestr("lfa.json", document)
        made.writestr("bit/full.bit", bitstream(big), zipfile.ZIP_DEFLATED, 1)


def tag(element, **attributes):
    return "<%s %s" % (element, " ".join('%s="%s"' % pair for pair in attributes.items()))


def xml_metadata(body, ports):
    """XML metadata of a platform; `body` has what stands below CFA, by element."""
    return ('<?xml version="1.0" encoding="UTF-8"?>\n<Root VersionMajor="1" VersionMinor="15">\n'
            '  <CFA Vendor="torvane.com" BoardId="u77" Name="older_sample" VersionMajor="5" VersionMinor="1" '
            'Description="" Fixed="false">\n    <Build UsesPR="true"/>\n    <DesignIPs>\n%s    </DesignIPs>\n'
            '    <Board Name="b" Vendor="v" Part="p">\n      <Images/>\n    </Board>\n    <Devices>\n'
            '      <Device Name="fpga0" Type="fpga" FpgaDevice="tzvirtu:tzu77:fsvh2104:-2:e">\n'
            '        <Core Name="OCL_REGION_0" Type="clc_region" ComputeUnits="60">\n          <Core>\n%s'
            '            <AvailableResources LUT="1" REG="2" BRAM="3" DSP="4">\n%s            </AvailableResources>\n'
            '          </Core>\n        </Core>\n      </Device>\n    </Devices>\n    <Files>\n%s    </Files>\n'
            '  </CFA>\n</Root>\n' % (body["ips"], ports, body["pblocks"], body["files"])).encode()


def same_platform(size):
    """XML metadata of about `size` bytes, and the JSON metadata of the same platform."""
    body, length = {"ips": "", "pblocks": "", "files": ""}, 0
    ips, pblocks, files = [], [], []
    while length < size:
        instance, parameters = name(), {"CONFIG_%d" % k: name(2) for k in range(8)}
        text = "      " + tag("IP", InstanceName=instance, VLNV="torvane.com:ip:x:1.0") + ">\n        <Configuration>\n"
        for key, value in parameters.items():
            text += "          " + tag("Parameter", Name=key, Value=value) + "/>\n"
        body["ips"] += text + "        </Configuration>\n      </IP>\n"
        ips.append({"vlnv": "torvane.com:ip:x:1.0", "instance": instance, "configuration": parameters})
        length += len(text)
        region, resources = name(), {kind: str(RANDOM.randrange(100000)) for kind in ("BRAM", "DSP", "LUT", "REG")}
        text = "              " + tag("PBlock", Name=region, ValidSLRs="SLR0") + ">\n"
        for key, value in resources.items():
            text += "                " + tag("Resource", Name=key, Val=value) + "/>\n"
        body["pblocks"] += text + "              </PBlock>\n"
        pblocks.append({"name": region, "validSlrs": ["SLR0"],
                        "resources": [{"name": k, "value": v} for k, v in resources.items()]})
        length += len(text)
        for _ in range(4):
            file = {"type": "T_" + name(1).upper(), "name": "prj/%s.tcl" % name(), "usedIn": "synthesis"}
            text = "      " + tag("File", Type=file["type"], Name=file["name"], UsedIn=file["usedIn"]) + "/>\n"
            body["files"] += text
            files.append(file)
            length += len(text)
    core = {"name": "OCL_REGION_0", "type": "clc_region", "numComputeUnits": "60", "availableResources": {
        "bramCount": "3", "dspCount": "4", "lutCount": "1", "registerCount": "2", "pBlocks": pblocks}}
    document = {"vendor": "torvane.com", "boardId": "u77", "name": "older_sample", "versionMajor": "5",
                "versionMinor": "1", "usesPR": "true", "validAcceleratorBinaryContentValues": "dcp,bitstream",
                "acceleratorBinaryFormat": "rovapk2", "acceleratorBinaryContent": "bitstream",
                "designIpInstances": ips, "board": {"name": "b", "vendor": "v", "part": "p"},
                "resources": [{"type": k, "count": v} for k, v in (("BRAM", "3"), ("DSP", "4"), ("LUT", "1"))],
                "devices": [{"name": "fpga0", "type": "fpga", "fpgaPart": "tzvirtu:tzu77:fsvh2104:-2:e", "core": core}],
                "files": files}
    return xml_metadata(body, ""), json.dumps(document, indent=4).encode() + b"\n"


def properties():
    """A property file of an emulation, with as many parameters as a large one has."""
    parameters = {"PARAMETER_%d" % i: str(i) for i in range(20)}
    return {"DdrBanks": [{"bank": i, **parameters} for i in range(16)], "SystemClocks": parameters, **parameters,
            "DesignIpInstances": [{"SP_TAG": "IP_%d" % i, "VLNV": "torvane.com:ip:core:1.0", "Configuration": parameters}
                                  for i in range(20)]}


def with_ports(count):
    ports = "".join("            " + tag("Port", Name="M%05d_%s" % (i, name(1)), Type="addressable", Mode="master",
                                         Protocol="AXI4", Base="0x%x" % (i << 20), Range="0x100000", DataWidth="512",
                                         AddressWidth="64") + "/>\n" for i in range(count))
    return xml_metadata({"ips": "", "pblocks": "", "files": ""}, ports)


def one_member(path, member, content):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=6) as made:
        made.writestr(member, content)


def put(file, content):
    with open(os.path.join(OUT, file), "wb") as made:
        made.write(content)


def clean_archive(path, document):
    """One in which the checks find nothing, as most are."""
    clocks = document["systemClocks"]
    clocks[0]["default"] = "true"
    for i, bus in enumerate(document["busInterfaces"]):
        bus["clockRef"] = clocks[i % len(clocks)]["name"]
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=6) as made:
        made.writestr("lfa.json", json.dumps(document, indent=4))
        for file in document["files"]:
            made.writestr(file["name"], b"")


def make_all():
    put("sample.spfm", SOFTWARE)
    documents = {"40k": metadata(40_000), "400k": metadata(400_000), "4m": metadata(4_000_000)}
    for size, document in documents.items():
        put("m%s.json" % size, document)
    for base, size, members, big in (("a400k", "400k", 60, 3_000_000), ("a40k", "40k", 60, 3_000_000),
                                     ("a4m", "4m", 60, 3_000_000), ("a5000", "400k", 5000, 3_000_000),
                                     ("abig", "40k", 60, 66_000_000)):
        archive(os.path.join(OUT, base + ".lfa"), documents[size], members, big)
        put(base + ".zdf", descriptor(base + ".lfa"))
    for i in range(100):
        archive(os.path.join(OUT, "rp%d.lfa" % i), documents["40k"], 10, 100_000)
    for count in (10, 100):
        put("p%d.zdf" % count, partitioned(count))
    clean_archive(os.path.join(OUT, "aclean.lfa"), json.loads(documents["400k"]))
    xml, document = same_platform(400_000)
    put("older400k.xml", xml)
    one_member(os.path.join(OUT, "byxml.lfa"), "lfa.xml", xml)
    one_member(os.path.join(OUT, "byjson.lfa"), "lfa.json", document)
    put("properties.json", json.dumps(properties()).encode())
    for count in (5_000, 50_000):
        one_member(os.path.join(OUT, "ports%d.lfa" % count), "lfa.xml", with_ports(count))


def make_repositories():
    """find1000 and find10000 with descriptors only; repo1000 with archives of 40 KB of metadata."""
    document = metadata(40_000)
    for repository, count in (("find1000", 1_000), ("find10000", 10_000), ("repo1000", 1_000)):
        for i in range(count):
            directory = "%s/%03d/p%d" % (repository, i % 100, i)
            os.makedirs(os.path.join(OUT, directory, "hw"), exist_ok=True)
            put("%s/p%d.zdf" % (directory, i), descriptor("hw/p%d.lfa" % i))
            if repository == "repo1000":
                archive(os.path.join(OUT, directory, "hw/p%d.lfa" % i), document, 10, 100)
                put("%s/sample.spfm" % directory, SOFTWARE)


def make_300():
    put("new.bit", bitstream(3_000_000))
    archive(os.path.join(OUT, "a300.lfa"), metadata(400_000), 60, 400_000_000)


os.makedirs(OUT, exist_ok=True)
if sys.argv[2:] == ["300"]:
    make_300()
else:
    make_all()
    make_repositories()
