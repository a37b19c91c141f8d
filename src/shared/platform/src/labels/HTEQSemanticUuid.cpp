#include "platform/HTEQSemanticUuid.h"

#include "labels/LabelKinds.h"
#include "msg/ComMsgMgr.h"

namespace {

using Uuid = HTEQSemanticUuid;
using Type = Uuid::UuidType;

}  // namespace

struct Uuid::Keys {
    static std::string typeName(const Uuid& uuid) {
        return uuid.type_ == Type::logic ? "logic" : uuid.type_ == Type::interface ? "interface" : "UNKNOWN";
    }
    static void setType(Uuid& uuid, const std::string& name) {
        uuid.type_ = name == "logic" ? Type::logic : name == "interface" ? Type::interface : Type::unknown;
    }

    using R = labels::Rows<Uuid>;
    static constexpr json::Key<Uuid> kAll[] = {
        required(json::Keys<Uuid>::text<&Keys::typeName, &Keys::setType>("uuid_type")),
        R::text<&Uuid::designComponent_>("uuid_design_component"),
        R::text<&Uuid::uuid_>("uuid"),
    };
};

template <>
std::span<const json::Key<Uuid>> json::keysOf<Uuid>() {
    return Uuid::Keys::kAll;
}

Uuid::HTEQSemanticUuid(const teq_platform::ptree& label) {
    labels::fill([&] { json::readKeys(label, Keys::kAll, *this); }, [] { ComMsgMgr::sendMsg("@74-82@"); });
}

void Uuid::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, Keys::kAll, *this); }
