// The same road as a program would take it without this library: libzip, the property tree's own JSON parser and
// writer, each child copied into its parent, libcrypto linked.
#include <expat.h>
#include <openssl/evp.h>

#include <boost/property_tree/json_parser.hpp>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>

#include "ByLibzip.h"

namespace {

using boost::property_tree::ptree;

ptree copyOf(const ptree& tree) {
    ptree copy;
    copy.data() = tree.data();
    for (const auto& [key, child] : tree) {
        const ptree made = copyOf(child);
        copy.push_back({key, made});
    }
    return copy;
}

}  // namespace

int main(int, char** arguments) {
    std::ifstream file(arguments[1]);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    if (XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1) != XML_STATUS_OK || !EVP_sha256())
        std::abort();
    std::istringstream in(readByLibzip(arguments[2], "lfa.json"));
    ptree tree;
    boost::property_tree::read_json(in, tree);
    boost::property_tree::write_json(std::cout, copyOf(tree), true);
}
