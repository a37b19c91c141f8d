#include "platform/JSONWriter.h"

#include <boost/property_tree/json_parser/error.hpp>
#include <ostream>

#include "json/JsonText.h"
#include "json/NodeStore.h"
#include "msg/Budget.h"

namespace teq_platform {

JSONWriter::JSONWriter() = default;
JSONWriter::JSONWriter(const JSONWriter& other) : tree_(other.tree_) {}
JSONWriter::JSONWriter(JSONWriter&& other) noexcept { *this = std::move(other); }
JSONWriter& JSONWriter::operator=(const JSONWriter& other) {
    if (this != &other) tree_ = other.tree_;
    return *this;
}
JSONWriter& JSONWriter::operator=(JSONWriter&& other) noexcept {
    tree_.swap(other.tree_);
    nodes_.swap(other.nodes_);
    return *this;
}
JSONWriter::~JSONWriter() = default;

void JSONWriter::write(std::ostream& out) const {
    out << json::write(tree_) << std::flush;
    if (!out.good())
        BOOST_PROPERTY_TREE_THROW(boost::property_tree::json_parser::json_parser_error("write error", "", 0));
}

void JSONWriter::shareNodesOf(JSONWriter& parent) {
    if (!parent.nodes_) parent.nodes_ = std::make_shared<json::NodeStore>();
    nodes_ = parent.nodes_;
}

ptree& JSONWriter::append(const std::string& key) {
    Budget::spend(Cost::nodes);
    if (!nodes_) nodes_ = std::make_shared<json::NodeStore>();
    return tree_.push_back(nodes_->of(key))->second;
}

}  // namespace teq_platform
