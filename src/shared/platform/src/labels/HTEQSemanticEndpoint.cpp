#include "platform/HTEQSemanticEndpoint.h"

#include "labels/LabelKinds.h"
#include "msg/ComMsgMgr.h"

using Endpoint = HTEQSemanticEndpoint;

struct Endpoint::Keys {
    using K = json::Keys<Endpoint>;
    using R = labels::Rows<Endpoint>;

    static bool hasFirmwareVersion(const Endpoint& endpoint) {
        return endpoint.firmwareValid() && endpoint.firmwareVersionValid();
    }

    static constexpr auto kInterrupt = &Endpoint::interruptValid;
    static constexpr auto kFirmware = &Endpoint::firmwareValid;
    static constexpr json::Key<Endpoint> kAll[] = {
        R::text<&Endpoint::name_>("endpoint_name"),
        R::text<&Endpoint::vlnv_>("cell_vlnv"),
        R::text<&Endpoint::cell_>("cell"),
        R::text<&Endpoint::interface_>("interface"),
        R::text<&Endpoint::addressSegment_>("addr_seg"),
        R::text<&Endpoint::registerAbstraction_>("reg_abs"),
        R::text<&Endpoint::partition_>("partition"),
        R::text<&Endpoint::partitionPath_>("partition_path"),
        labels::unwritten(R::number<&Endpoint::addr_>("addr")),
        labels::unwritten(R::number<&Endpoint::addrRange_>("range")),
        labels::unread(R::number<&Endpoint::addr_>("addr_offset")),
        labels::unread(R::number<&Endpoint::addrRange_>("addr_range")),
        K::flag<&Endpoint::interruptValid>("has_interrupt"),
        labels::onlyIf<kInterrupt>(R::text<&Endpoint::interruptSource_>("interrupt_source")),
        labels::onlyIf<kInterrupt>(R::text<&Endpoint::interruptSink_>("interrupt_sink")),
        labels::onlyIf<kInterrupt>(R::text<&Endpoint::interruptSinkCell_>("interrupt_sink_cell")),
        labels::onlyIf<kInterrupt>(R::text<&Endpoint::interruptSinkVlnv_>("interrupt_sink_cell_vlnv")),
        labels::onlyIf<kInterrupt>(R::number<&Endpoint::interruptLeft_>("interrupt_sink_start")),
        labels::onlyIf<kInterrupt>(R::number<&Endpoint::interruptRight_>("interrupt_sink_end")),
        K::flag<&Endpoint::firmwareValid>("has_firmware"),
        labels::onlyIf<kFirmware>(R::text<&Endpoint::firmwareProduct_>("firmware_product")),
        labels::onlyIf<kFirmware>(R::text<&Endpoint::firmwareBranch_>("firmware_branch")),
        json::when<kFirmware>(K::flag<&Endpoint::firmwareVersionValid>("firmware_has_version")),
        labels::onlyIf<&Keys::hasFirmwareVersion>(R::text<&Endpoint::firmwareVersion_>("firmware_version")),
    };
};

template <>
std::span<const json::Key<Endpoint>> json::keysOf<Endpoint>() {
    return Endpoint::Keys::kAll;
}

Endpoint::HTEQSemanticEndpoint(const teq_platform::ptree& label) {
    labels::fill([&] { json::readKeys(label, Keys::kAll, *this); }, [] { ComMsgMgr::sendMsg("@74-84@"); });
}

void Endpoint::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, Keys::kAll, *this); }
