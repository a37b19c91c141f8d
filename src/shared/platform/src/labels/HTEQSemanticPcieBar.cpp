#include "platform/HTEQSemanticPcieBar.h"

#include "labels/LabelKinds.h"
#include "msg/ComMsgMgr.h"

namespace {

using Bar = HTEQSemanticPcieBar;
using Type = Bar::BarType;

}  // namespace

struct Bar::Keys {
    static std::string typeName(const Bar& bar) {
        return bar.type_ == Type::axiBridgeMaster ? "AXI_Bridge_Master" : bar.type_ == Type::dma ? "DMA" : "UNKNOWN";
    }
    static void setType(Bar& bar, const std::string& name) {
        bar.type_ = name == "AXI_Bridge_Master" ? Type::axiBridgeMaster : name == "DMA" ? Type::dma : Type::unknown;
    }

    using K = json::Keys<Bar>;
    using R = labels::Rows<Bar>;
    static constexpr json::Key<Bar> kAll[] = {
        required(K::text<&Keys::typeName, &Keys::setType>("bar_type")),
        R::number<&Bar::physicalFunction_>("physical_function"),
        R::number<&Bar::bar_>("bar"),
        labels::orElse(R::number<&Bar::offset_>("offset"), "0x0"),
        labels::orElse(R::number<&Bar::range_>("range"), "0x10"),
        K::text<&Bar::dmaType_>("dma_type"),
    };
    static constexpr json::Key<Bar> kDma[] = {R::text<&Bar::dmaType_>("dma_type")};
};

template <>
std::span<const json::Key<Bar>> json::keysOf<Bar>() {
    return Bar::Keys::kAll;
}

std::span<const json::Key<Bar>> labels::dmaKeys() { return Bar::Keys::kDma; }

Bar::HTEQSemanticPcieBar(const teq_platform::ptree& label) {
    const auto read = [&] {
        json::readKeys(label, Keys::kAll, *this);
        if (type_ == Type::dma) json::readKeys(label, Keys::kDma, *this);
    };
    labels::fill(read, [] { ComMsgMgr::sendMsg("@74-85@"); });
}

void Bar::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, Keys::kAll, *this); }
