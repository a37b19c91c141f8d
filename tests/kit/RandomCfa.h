#pragma once
#include <map>
#include <random>
#include <string>
#include <vector>

#include "records/TEQCfaXmlLMX.h"

/// Records of XML metadata, made by walking the rows of the format, so that new rows need nothing here. The same seed
/// gives the same record on every machine.
class RandomCfa {
public:
    explicit RandomCfa(unsigned seed) : random_(seed) {}

    BasePlatform::Root make() {
        BasePlatform::Root root;
        fill(*BasePlatform::kDocument.element, &root);
        root.VersionMajor.set(1);
        return root;
    }

private:
    using Texts = std::vector<std::string>;

    std::size_t below(std::size_t limit) { return random_() % limit; }
    std::string oneOf(const Texts& texts) { return texts[below(texts.size())]; }

    /// What means something to the model, or what it refuses when it is something else.
    std::string textOf(const std::string& name) {
        static const Texts kFlags = {"true", "TRUE", "false", "yes", ""};
        static const Texts kNames = {"a", "B", "b", "x y", "ACLK", "C0.DDR4_tCK", "MEMORY_PART", "C0.DDR3_tCK"};
        static const Texts kPlain = {"", "1", "t", "a,b", "<&>\"'", "line\nend\r\t ", "\xC3\xA9\xE2\x82\xAC"};
        static const std::map<std::string, Texts> kTexts = {
            {"UsesPR", kFlags},
            {"Fixed", kFlags},
            {"IsLocked", kFlags},
            {"Unified", kFlags},
            {"DcpEncrypt", kFlags},
            {"PlatformState", {"impl", "synth", "pre_synth", ""}},
            {"Architecture", {"x86_64", "AARCH64", "z80"}},
            {"Interface", {"pcie", "AXI", "usb"}},
            {"AcceleratorBinaryFormat", {"rovapk2", "rovapk", ""}},
            {"ValidBinaryContentValues", {"", "x", "x,,y,x", ","}},
            {"FpgaDevice", {"", "a:b:c:d", "tzvirtu:tzq9kp:p:-2:e:f:g"}},
            {"UUID", {"", "01234567-89AB-cdef-0123-456789abcdef"}},
            {"ValidSLRs", {"SLR0", "SLR1,SLR0", "", ",SLR2,"}},
            {"Type", {"ddr3", "ddr4", "clk", "HDPI", "LDPI", "DCP"}},
            {"Val", {"", "0", "12", "3x"}},
            {"LUT", {"", "0", "12", "-1"}},
            {"BRAM", {"", "0", "12", "many"}},
        };
        if (name == "Name" || name == "Id") return oneOf(kNames);
        const auto at = kTexts.find(name);
        return oneOf(at != kTexts.end() ? at->second : kPlain);
    }

    std::string numberOf(const xml::ValueType& type) {
        const Texts numbers = {std::to_string(type.lowest), std::to_string(type.highest), "0", "1", "200"};
        std::string number = oneOf(numbers);
        return number == "200" && type.highest < 200 ? "1" : number;
    }

    void fill(const xml::Element& element, void* record) {
        for (const xml::Attribute& row : element.attributes) {
            if (!row.required && below(3) == 0) continue;
            row.type->assign(row.member(record), row.type->highest == 0 ? textOf(row.name) : numberOf(*row.type));
        }
        for (const xml::Child& row : element.children) {
            std::size_t count = row.repeats() ? below(4) : row.neededToWrite() ? 1 : below(2);
            if (row.occurs == xml::Occurs::atLeastOnce && count == 0) count = 1;
            if (row.name == std::string("IP")) count = std::min<std::size_t>(count, 2);
            for (std::size_t i = 0; i < count; ++i) fill(*row.element, row.add(record));
        }
    }

    std::mt19937 random_;
};

/// The record without parameters of a design IP that stand there twice, which the model refuses.
inline BasePlatform::Root withoutRepeats(BasePlatform::Root root) {
    if (!root.cfa.designIPs) return root;
    for (auto& ip : root.cfa.designIPs->ips)
        if (ip.configuration && ip.configuration->parameters.size() > 1) ip.configuration->parameters.resize(1);
    return root;
}
