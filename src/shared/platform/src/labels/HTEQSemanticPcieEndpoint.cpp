#include "platform/HTEQSemanticPcieEndpoint.h"

#include "labels/LabelKinds.h"
#include "msg/ComMsgMgr.h"

using Endpoint = HTEQSemanticPcieEndpoint;

struct Endpoint::Keys {
    using R = labels::Rows<Endpoint>;
    static constexpr json::Key<Endpoint> kAll[] = {
        R::number<&Endpoint::physicalFunction_>("physical_function"),
        R::number<&Endpoint::bar_>("bar"),
    };
};

template <>
std::span<const json::Key<Endpoint>> json::keysOf<Endpoint>() {
    return Endpoint::Keys::kAll;
}

Endpoint::HTEQSemanticPcieEndpoint(const teq_platform::ptree& label) : HTEQSemanticEndpoint(label) {
    labels::fill([&] { json::readKeys(label, Keys::kAll, *this); }, [] { ComMsgMgr::sendMsg("@74-83@"); });
}

void Endpoint::toJSON(teq_platform::JSONObjectWriter& writer) const {
    HTEQSemanticEndpoint::toJSON(writer);
    json::writeKeys(writer, Keys::kAll, *this);
}
