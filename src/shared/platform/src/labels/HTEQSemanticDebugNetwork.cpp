#include "platform/HTEQSemanticDebugNetwork.h"

#include "labels/LabelKinds.h"
#include "msg/ComMsgMgr.h"

using Network = HTEQSemanticDebugNetwork;

struct Network::Keys {
    using R = labels::Rows<Network>;
    static constexpr json::Key<Network> kAll[] = {
        R::number<&Network::physicalFunction_>("physical_function"),
        R::number<&Network::bar_>("bar"),
        R::number<&Network::barAddress_>("bar_addr"),
        R::number<&Network::systemAddress_>("system_addr"),
        R::text<&Network::partition_>("partition"),
        R::text<&Network::partitionPath_>("partition_path"),
        R::flag<&Network::supportsCorvexDebug_>("supports_corvex_debug"),
        R::flag<&Network::supportsJtagFallback_>("supports_jtag_fallback"),
    };
};

template <>
std::span<const json::Key<Network>> json::keysOf<Network>() {
    return Network::Keys::kAll;
}

Network::HTEQSemanticDebugNetwork(const teq_platform::ptree& label) {
    labels::fill([&] { json::readKeys(label, Keys::kAll, *this); }, [] { ComMsgMgr::sendMsg("@74-81@"); });
}

void Network::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, Keys::kAll, *this); }
