#include "readers/Bindings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>

#include "platform/HPLAddressSegment.h"
#include "platform/HPLDevice.h"
#include "platform/HPLFile.h"
#include "platform/HPLInterface.h"
#include "platform/HPLMemory.h"
#include "platform/HPLPCIeId.h"
#include "platform/HPLPlatform.h"
#include "platform/HPLPort.h"
#include "platform/HTEQBootImg.h"
#include "platform/HTEQDesignIPInstance.h"
#include "platform/HTEQHardwareAddressSegment.h"
#include "platform/HTEQHardwareBusInterface.h"
#include "platform/HTEQHardwareFeatureRom.h"
#include "platform/HTEQHardwareIPParam.h"
#include "platform/HTEQHardwareNocConnectivity.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSystemClock.h"
#include "platform/HTEQSystemConfig.h"
#include "text/HSTStringUtils.h"

namespace {

/// What the attributes and texts of an element hold, by name; only those that are set.
using Values = std::map<std::string, std::string>;

Values valuesOf(const xml::Element& element, const void* record) {
    void* const at = const_cast<void*>(record);
    Values values;
    for (const xml::Attribute& row : element.attributes)
        if (row.type->isSet(row.member(at))) values[row.name] = row.type->print(row.member(at));
    for (const xml::Child& row : element.children)
        if (row.element->text && !row.element->text(row.at(at, 0))->empty())
            values[row.name] = *row.element->text(row.at(at, 0));
    return values;
}

/// One that no other attribute has, no new object begins with, and the model gives back as it is.
std::string sampleOf(const xml::Attribute& row, std::size_t number) {
    static const Values kOfTheModel = {{"Architecture", "aarch64"},
                                       {"Interface", "axi"},
                                       {"FpgaDevice", "a:b:c:d"},
                                       {"UUID", "01234567-89ab-cdef-0123-456789abcdef"},
                                       {"hypervisorGuest", "yes"},
                                       {"UsesPR", "false"},
                                       {"Unified", "true"},
                                       {"DcpEncrypt", "true"},
                                       {"DcpLogicFunctionStripped", "true"},
                                       {"IsLocked", "true"}};
    if (row.type->schema != std::string("xs:string")) return std::to_string(number);
    const auto at = kOfTheModel.find(row.name);
    return at != kOfTheModel.end() ? at->second : "t" + std::to_string(number);
}

void fill(const xml::Element& element, void* record) {
    std::size_t number = 10;
    for (const xml::Attribute& row : element.attributes)
        row.type->assign(row.member(record), sampleOf(row, ++number));
    for (const xml::Child& row : element.children)
        if (row.element->text) *row.element->text(row.add(record)) = "text";
}

/// Each value empty or 0; a decimal cannot be.
void clear(const xml::Element& element, void* record) {
    for (const xml::Attribute& row : element.attributes)
        row.type->assign(row.member(record), row.type->schema == std::string("xs:string") ? "" : "0");
}

const xml::Element& elementAt(const xml::Format& format, const std::string& path) {
    const xml::Element* element = format.element;
    for (const std::string& name : HSTStringUtils::split(path, '/')) {
        const auto isNamed = [&name](const xml::Child& row) { return row.name == name; };
        const auto at = std::ranges::find_if(element->children, isNamed);
        if (at != element->children.end())
            element = at->element;
        else if (!name.empty())
            throw std::invalid_argument("no element " + name);
    }
    return *element;
}

/// Each row alone, then all of the table.
template <class R, class M, class Object = M>
void thereAndBack(const xml::Format& format, const std::string& path) {
    SCOPED_TRACE(path);
    const xml::Element& element = elementAt(format, path);
    R full;
    fill(element, &full);
    const Values given = valuesOf(element, &full);
    Values bound;
    for (const binding::Row& row : binding::rowsOf(binding::Fields<R, M>())) {
        if (!row.read || !row.write) continue;
        Object object;
        M* const at = &object;
        R back, emptied;
        row.read(&full, at, row.onlySet);
        row.write(at, &back, row.unlessEmpty);
        const Values values = valuesOf(element, &back);
        ASSERT_EQ(values.size(), 1U) << "a row is one value";
        const auto& [name, value] = *values.begin();
        EXPECT_EQ(value, given.at(name)) << name;
        EXPECT_TRUE(bound.emplace(name, value).second) << name << " has two rows";
        // Values that the document lacks.
        const R none;
        row.read(&none, at, row.onlySet);
        row.write(at, &emptied, false);
        const bool isKept = row.onlySet || name == "UUID";  // an empty text is not a UUID
        EXPECT_EQ(valuesOf(element, &emptied) == values, isKept) << name;
        // Empty values. The model keeps an empty interface as "unknown"; the period "0" is a text.
        if (name == "Interface" || name == "normalizedPeriod") continue;
        R cleared, left;
        clear(element, &cleared);
        row.read(&cleared, at, row.onlySet);
        row.write(at, &left, row.unlessEmpty);
        EXPECT_TRUE(!row.unlessEmpty || valuesOf(element, &left).empty()) << name;
    }
    Object object;
    M& at = object;
    R back;
    binding::read(full, at);
    binding::write(at, back);
    const Values values = valuesOf(element, &back);
    for (const auto& [name, value] : bound) EXPECT_EQ(values.contains(name) ? values.at(name) : "", value) << name;
}

}  // namespace

TEST(Bindings, EachValueGoesThereAndBack) {
    namespace Z = TEQPlatform;
    thereAndBack<Z::Platform, HTEQPlatform>(Z::kDocument, "");
    namespace S = TEQSoftwarePlatform;
    const std::string configuration = "systemConfigurations/configuration";
    thereAndBack<S::SystemConfigurations, HTEQSoftwarePlatform>(S::kDocument, "systemConfigurations");
    thereAndBack<S::Configuration, HTEQSystemConfig>(S::kDocument, configuration);
    thereAndBack<S::ProcessorGroup, HTEQProcessorGroup>(S::kDocument, configuration + "/processorGroup");
    thereAndBack<S::Os, HTEQProcessorGroup>(S::kDocument, configuration + "/processorGroup/os");
    thereAndBack<S::Image, HTEQBootImg>(S::kDocument, configuration + "/bootImages/image");
    namespace H = WELHardwarePlatform;
    thereAndBack<H::Component, HTEQHardwarePlatform, HPLPlatform>(H::kDocument, "component");
    thereAndBack<H::Clock, HTEQSystemClock>(H::kDocument, "component/platformInfo/systemClocks/clock");
    thereAndBack<H::Parameter, HTEQHardwareIPParam>(H::kDocument, "component/parameter");
    thereAndBack<H::NocConnectivity, HTEQHardwareNocConnectivity>(H::kDocument, "component/nocConnectivity");
    thereAndBack<H::BusInterface, HTEQHardwareBusInterface>(H::kDocument, "component/busInterface");
    thereAndBack<H::BusInterfaceAddressSegment, HTEQHardwareAddressSegment>(H::kDocument,
                                                                            "component/busInterface/addressSegment");
    namespace B = BasePlatform;
    thereAndBack<B::GenAppInfo, HPLPlatform>(B::kDocument, "GenAppInfo");
    thereAndBack<B::CFA, HPLPlatform>(B::kDocument, "CFA");
    thereAndBack<B::Host, HPLPlatform>(B::kDocument, "CFA/Host");
    thereAndBack<B::Build, HPLPlatform>(B::kDocument, "CFA/Build");
    thereAndBack<B::IP, HTEQDesignIPInstance>(B::kDocument, "CFA/DesignIPs/IP");
    thereAndBack<B::Board, HPLBoard>(B::kDocument, "CFA/Board");
    thereAndBack<B::Interface, HPLInterface>(B::kDocument, "CFA/Board/Interfaces/Interface");
    thereAndBack<B::Memory, HPLMemory>(B::kDocument, "CFA/Board/Memories/Memory");
    thereAndBack<B::Connector, HPLBoard::DimmConnector>(B::kDocument, "CFA/Board/Connectors/Connector");
    thereAndBack<B::PCIeId, HPLPCIeId>(B::kDocument, "CFA/Board/PCIeId");
    thereAndBack<B::Device, HPLDevice>(B::kDocument, "CFA/Devices/Device");
    thereAndBack<B::Core, HPLCore>(B::kDocument, "CFA/Devices/Device/Core");
    const std::string core = "CFA/Devices/Device/Core/Core";
    thereAndBack<B::AvailableResources, HPLCore>(B::kDocument, core + "/AvailableResources");
    thereAndBack<B::Port, HPLPort>(B::kDocument, core + "/Port");
    thereAndBack<B::AddressSegment, HPLAddressSegment>(B::kDocument, core + "/Port/AddressSegments/AddressSegment");
    thereAndBack<B::File, HPLFile>(B::kDocument, "CFA/Files/File");
    thereAndBack<B::FeatureRom, HTEQHardwareFeatureRom>(B::kDocument, "CFA/FeatureRom");
}

TEST(Bindings, NumbersAreSaturatedOrCut) {
    WELHardwarePlatform::Component component;
    component.BRAM.set(4294967295);
    HPLPlatform platform;
    binding::read(component, static_cast<HTEQHardwarePlatform&>(platform));
    EXPECT_EQ(platform.HTEQHardwarePlatform::getBRAMCount(), 2147483647);
    WELHardwarePlatform::BusInterfaceAddressSegment segment;
    segment.readBwUsed.set({"-99999999999999999999"});
    HTEQHardwareAddressSegment to;
    binding::read(segment, to);
    EXPECT_EQ(to.getReadBwUsed(), -2147483647 - 1);
    BasePlatform::GenAppInfo made;
    made.CL.set(4294967303);
    binding::read(made, platform);
    EXPECT_EQ(platform.getGeneratedChangeList(), 7U);
}
