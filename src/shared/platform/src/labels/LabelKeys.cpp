#include "labels/LabelKeys.h"

#include <stdexcept>

#include "labels/LabelKinds.h"
#include "text/HSTStringUtils.h"

namespace labels {
namespace {

using json::Shape;

std::string refusalOf(const json::Node& node) {
    try {
        numberOf(node.data());
    } catch (const std::logic_error&) {
        return "\"" + HSTStringUtils::excerpt(node.data()) + "\" is not a number of 64 bits, decimal or after 0x";
    }
    return {};
}

/// Of the tables, one after the other.
std::vector<Shape> shapesIn(std::initializer_list<json::Rows> tables) {
    std::vector<Shape> shapes;
    for (const json::Rows& rows : tables)
        for (Shape& shape : json::shapesOf(rows)) {
            if (shape.form == json::Form::number) {
                shape.form = json::Form::text;
                shape.refusal = refusalOf;
                shape.isOptional = !shape.required;
            }
            shapes.push_back(std::move(shape));
        }
    return shapes;
}

}  // namespace

const std::vector<Shape>* shapesOf(std::string_view key, json::Node label) {
    static const std::vector<Shape> uuid = shapesIn({json::keysOf<HTEQSemanticUuid>()}),
                                    bar = shapesIn({json::keysOf<HTEQSemanticPcieBar>()}),
                                    dmaBar = shapesIn({json::keysOf<HTEQSemanticPcieBar>(), dmaKeys()}),
                                    pcie = shapesIn({json::keysOf<HTEQSemanticEndpoint>(),
                                                     json::keysOf<HTEQSemanticPcieEndpoint>()}),
                                    cpu = shapesIn({json::keysOf<HTEQSemanticEndpoint>(),
                                                    json::keysOf<HTEQSemanticCpuEndpoint>()}),
                                    network = shapesIn({json::keysOf<HTEQSemanticDebugNetwork>()});
    if (key == "uuid") return &uuid;
    if (key == "pcie_bar") return json::textAt(label, "bar_type") == "DMA" ? &dmaBar : &bar;
    if (key == "pcie_endpoint") return &pcie;
    if (key == "cpu_endpoint") return &cpu;
    if (key == "debug_network") return &network;
    return nullptr;
}

}  // namespace labels
