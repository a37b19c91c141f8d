#include "json/DocumentText.h"
#include "json/JsonText.h"

namespace json {

std::string write(const ptree& tree) {
    expectNoValue(tree, "");
    DocumentText text;
    text.open(false);
    text.addChildren(tree, false, 1);
    text.closeDocument();
    return std::string(text.part(0, text.size()));
}

std::string writeMember(const std::string& key, const ptree& node) {
    expectNoValue(node, key);
    DocumentText text;
    text.open(false);
    text.beginItem(1, true, key);
    text.open(isList(node));
    text.addChildren(node, isList(node), 2);
    text.close(2, isList(node));
    text.closeDocument();
    return std::string(text.part(0, text.size()));
}

}  // namespace json
