#include "services/DocumentTree.h"

#include "json/JsonText.h"
#include "platform/HTEQPlatform.h"
#include "platform/JSONWriter.h"

namespace services {

boost::property_tree::ptree documentTree(const HTEQPlatform& platform) {
    teq_platform::JSONObjectWriter writer;
    writer.writeObject(platform);
    boost::property_tree::ptree tree;
    tree.swap(writer.getTree());
    return tree;
}

std::string documentText(const HTEQPlatform& platform) {
    teq_platform::JSONObjectWriter writer;
    writer.writeObject(platform);
    return writer.text();
}

void read(const HTEQPlatform& platform, json::Document& document) { document.readOwn(documentText(platform)); }

boost::property_tree::ptree parsed(const std::string& document) {
    boost::property_tree::ptree tree;
    json::parse(document, "document", tree, json::kOwn);
    return tree;
}

}  // namespace services
