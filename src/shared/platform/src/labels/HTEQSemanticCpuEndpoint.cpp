#include "platform/HTEQSemanticCpuEndpoint.h"

#include "labels/LabelKinds.h"
#include "msg/ComMsgMgr.h"

using Endpoint = HTEQSemanticCpuEndpoint;

struct Endpoint::Keys {
    static constexpr json::Key<Endpoint> kAll[] = {labels::Rows<Endpoint>::text<&Endpoint::cpuType_>("cpu_type")};
};

template <>
std::span<const json::Key<Endpoint>> json::keysOf<Endpoint>() {
    return Endpoint::Keys::kAll;
}

Endpoint::HTEQSemanticCpuEndpoint(const teq_platform::ptree& label) : HTEQSemanticEndpoint(label) {
    labels::fill([&] { json::readKeys(label, Keys::kAll, *this); }, [] { ComMsgMgr::sendMsg("@74-80@"); });
}

void Endpoint::toJSON(teq_platform::JSONObjectWriter& writer) const {
    HTEQSemanticEndpoint::toJSON(writer);
    json::writeKeys(writer, Keys::kAll, *this);
}
