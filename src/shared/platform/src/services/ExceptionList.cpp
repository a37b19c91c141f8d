#include "services/ExceptionList.h"

#include <algorithm>
#include <map>
#include <vector>

#include "archive/PackedText.h"
#include "json/JsonKeys.h"
#include "json/JsonText.h"
#include "msg/Budget.h"
#include "msg/ComMsgMgr.h"
#include "msg/HEXAll.h"
#include "services/TreeWalk.h"
#include "text/HSTStringUtils.h"
#include "util/HUTFile.h"
#include "util/SystemFault.h"

namespace services {
namespace {

using policy::Color;
using policy::Listing;

constexpr const char* kBlack = "black_list";
constexpr const char* kWhite = "white_list";

/// Whether the JSON of a node can have this size: entries of a list must not make a large document print each time.
bool canHaveSize(const ptree& node, std::size_t& left, std::size_t depth = 1) {
    for (const auto& [key, child] : node) {
        const std::size_t least = key.size() + child.data().size() + 4 * depth;
        if (least > left) return false;
        left -= least;
        if (!canHaveSize(child, left, depth + 1)) return false;
    }
    return true;
}

bool hasValue(const Indexed<const ptree*>& document, const std::string& key, const std::string& value) {
    if (key.empty() || value.empty()) return false;
    const auto found = find(document, key);
    if (!found.node) return false;
    const ptree& node = *found.node.node;
    if (node.empty()) return node.data() == value;
    std::size_t size = value.size();
    return canHaveSize(node, size) && answerOf(node, found.path) == value;
}

bool isFor(const ptree& products, const std::string& product) {
    return std::ranges::any_of(products, [&product](const auto& item) { return item.second.data() == product; });
}

}  // namespace

ExceptionList::ExceptionList(std::string file) : file_(std::move(file)) {
    if (!HUTFile::isFile(file_)) {
        util::noteWhyMissing(file_);
        return;
    }
    try {
        json::parse(archive::readPackedText(file_), file_, list_);
    } catch (const HEXAll&) {
    } catch (const boost::property_tree::ptree_error&) {
    }
    Budget::expectKept(file_);  // a platform that costs too much must not do without the list
}

std::string ExceptionList::faultOf(const ptree& list) {
    if (list.empty()) return "the list is empty; \"black_list\" or \"white_list\" is expected";
    for (const auto& [name, entries] : list) {
        const std::string key = HSTStringUtils::excerpt(name);
        if (name != kBlack && name != kWhite)
            return "there is a key \"" + key + "\"; only \"black_list\" and \"white_list\" are allowed";
        std::size_t number = 0;
        for (const auto& [none, entry] : entries) {
            const std::string place = key + "[" + std::to_string(number++) + "]";
            if (!none.empty()) return key + " is not a list";
            const auto products = entry.find("products");
            if (products == entry.not_found() || products->second.empty())
                return place + " has no list of \"products\"";
            for (const char* needed : {"key", "value"})
                if (json::textAt(entry, needed).empty()) return place + " has no \"" + needed + "\"";
        }
    }
    return {};
}

std::string ExceptionList::fileBelow(const std::string& root) {
    const std::string separator = HUTFile::getDirSeparator();
    return root + separator + "platforms" + separator + "achromatic";
}

Listing ExceptionList::match(const std::string& product, const std::function<const ptree&()>& document) const {
    if (list_.empty()) {
        ComMsgMgr::sendMsg("@74-49@%s", file_);
        return {Color::unreadable, {}};
    }
    const auto refuse = [this] {
        ComMsgMgr::sendMsg("@74-50@%s", file_);
        return Listing{Color::unreadable, {}};
    };
    std::map<const ptree*, std::vector<const ptree*>> lists;
    for (const auto& [name, entries] : list_) {
        const bool isBlack = name == kBlack;
        if (!isBlack && name != kWhite) return refuse();
        for (const auto& [none, entry] : entries) {
            const auto products = entry.find("products");
            if (!none.empty() || products == entry.not_found()) return refuse();
            if (isFor(products->second, product) &&
                hasValue({&document(), &lists}, json::textAt(entry, "key"), json::textAt(entry, "value")))
                return {isBlack ? Color::black : Color::white, json::textAt(entry, "reason")};
        }
    }
    return {Color::unlisted, {}};
}

}  // namespace services
