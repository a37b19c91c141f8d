#include "emulation/Properties.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "json/JsonFile.h"
#include "msg/HEXFileFault.h"
#include "util/HUTFile.h"

namespace emulation {
namespace {

using json::ptree;

/// Reads one document. A tree does not distinguish an empty list, an empty object and an empty text.
class Reader {
public:
    Reader(const HEXDiagnostic& shown, bool isTrusted, Properties& properties)
        : shown_(shown), isTrusted_(isTrusted), properties_(properties) {}

    void read(const ptree& document) {
        expectObject(document, "");
        for (const auto& [key, value] : document) {
            if (key == "DdrBanks")
                eachOf(value, key, [this](const ptree& bank, const std::string& at) { readBank(bank, at); });
            else if (key == "DesignIpInstances")
                eachOf(value, key, [this](const ptree& ip, const std::string& at) { readInstance(ip, at); });
            else if (key == "SystemClocks")
                readPairs(value, key, unusedClockSettings(), properties_.clocks);
            else if (value.empty())
                properties_.general[key] = property(value);
        }
    }

private:
    [[noreturn]] void refuse(const std::string& element, const std::string& text) const {
        HEXDiagnostic diagnostic = shown_;
        diagnostic.element = element;
        diagnostic.text = text;
        throw HEXFileFault(diagnostic);
    }

    void expectObject(const ptree& node, const std::string& at) const {
        const bool hasKeys = std::ranges::none_of(node, [](const auto& child) { return child.first.empty(); });
        if (!node.data().empty() || !hasKeys) refuse(at, "expected an object whose keys are not empty");
    }

    template <class Use>
    void eachOf(const ptree& list, const std::string& key, Use use) const {
        const bool isList = std::ranges::all_of(list, [](const auto& child) { return child.first.empty(); });
        if (!list.data().empty() || !isList) refuse(key, "expected a list of objects");
        std::size_t index = 0;
        for (const auto& [none, item] : list) {
            const std::string at = key + "[" + std::to_string(index++) + "]";
            expectObject(item, at);
            use(item, at);
        }
    }

    const std::string& textOf(const ptree& node, const std::string& at) const {
        if (!node.empty()) refuse(at, "expected a text, a number, true or false");
        return node.data();
    }

    Property property(const ptree& node) const { return {node.data(), isTrusted_}; }

    void readPairs(const ptree& object, const std::string& at, const Names& unused, PropertyMap& to) const {
        expectObject(object, at);
        for (const auto& [key, value] : object) {
            textOf(value, at + "." + key);
            if (!unused.contains(key)) to[key] = property(value);
        }
    }

    void readBank(const ptree& object, const std::string& at) {
        const auto number = object.find("bank");
        const std::string text = number == object.not_found() ? "" : textOf(number->second, at + ".bank");
        std::uint32_t bank = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), bank);
        if (text.empty() || error != std::errc() || end != text.data() + text.size())
            refuse(at + ".bank", "expected the number of the bank, from 0 to 4294967295");
        PropertyMap pairs;
        readPairs(object, at, unusedDdrParameters(), pairs);
        pairs.erase("bank");
        add(pairs, properties_.banks, bank);
    }

    void readInstance(const ptree& object, const std::string& at) {
        PropertyMap pairs;
        std::string tag;
        for (const auto& [key, value] : object) {
            if (key == "Configuration")
                readPairs(value, at + "." + key, unusedMemoryParameters(), pairs);
            else if (key == "SP_TAG")
                tag = textOf(value, at + "." + key);
            else if (key == "VLNV")
                textOf(value, at + "." + key), pairs[key] = property(value);
        }
        if (tag.empty()) refuse(at + ".SP_TAG", "expected the tag of the instance");
        add(pairs, properties_.instances, tag);
    }

    /// Without a pair there would be no dictionary that a script could refer to.
    template <class Key>
    static void add(PropertyMap& pairs, std::map<Key, PropertyMap>& to, const Key& key) {
        if (pairs.empty()) return;
        PropertyMap& all = to[key];  // a key may be long
        for (auto& [name, value] : pairs) all[name] = std::move(value);
    }

    const HEXDiagnostic& shown_;
    bool isTrusted_;
    Properties& properties_;
};

}  // namespace

void addProperties(const PropertySource& source, Properties& properties) {
    if (source.path.empty() || !HUTFile::exists(source.path)) return;
    const HEXDiagnostic shown = source.shown.file.empty() ? HEXDiagnostic{.file = source.path} : source.shown;
    ptree document;
    try {
        json::parseFile(source.path, document);
    } catch (const boost::property_tree::json_parser::json_parser_error& e) {
        HEXDiagnostic diagnostic = shown;
        diagnostic.text = e.message();
        if (const HEXDiagnostic* found = json::diagnosticOf(e)) {
            diagnostic.line = found->line;
            diagnostic.column = found->column;
            diagnostic.text = found->text;
        }
        throw HEXFileFault(diagnostic);
    }
    addProperties(document, shown, source.isTrusted, properties);
}

void addProperties(const ptree& document, const HEXDiagnostic& shown, bool isTrusted, Properties& properties) {
    Reader(shown, isTrusted, properties).read(document);
}

const Names& unusedDdrParameters() {
    static const Names names{"AS_LATENCY",          "AS_WRITE_LATENCY",  "AXI_ARBITRATION_SCHEME",
                             "BURST_LENGTH",        "DDR4_ADDR_WIDTH",   "DDR4_AXI_ADDR_WIDTH",
                             "DDR4_AXI_DATA_WIDTH", "DDR4_AXI_ID_WIDTH", "DDR4_AutoPrecharge",
                             "DDR4_AxiNarrowBurst", "DDR4_CL",           "DDR4_CWL",
                             "DDR4_Ordering",       "DDR4_tXPR",         "DDR4_tZQCS",
                             "DDR4_tZQI",           "DDR4_tZQINIT"};
    return names;
}

const Names& unusedMemoryParameters() {
    static const Names names{"C_BASEADDR", "C_HIGHADDR", "EDK_IPTYPE", "NUM_CLKS", "NUM_SI"};
    return names;
}

const Names& unusedClockSettings() {
    static const Names names{"CPU"};
    return names;
}

}  // namespace emulation
