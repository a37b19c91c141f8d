#include "hardware/JsonFile.h"

#include <algorithm>
#include <boost/property_tree/json_parser.hpp>
#include <fstream>

#include "util/HUTFile.h"

namespace hardware {

json::ptree readJsonFile(const std::string& path) {
    constexpr std::size_t kBound = std::size_t{32} << 20;
    constexpr std::size_t kBlock = std::size_t{64} << 10;
    std::ifstream in;
    if (HUTFile::isFile(path)) in.open(path, std::ios::binary);
    std::string text;
    while (in.is_open() && in && text.size() <= kBound) {
        const std::size_t size = text.size();
        text.resize(size + kBlock);
        in.read(&text[size], kBlock);
        text.resize(size + static_cast<std::size_t>(std::max<std::streamsize>(in.gcount(), 0)));
    }
    if (!in.is_open() || !in.eof())
        throw boost::property_tree::json_parser_error("cannot be read as a file of at most 32 MiB", path, 0);
    json::ptree document;
    json::parse(text, path, document);
    return document;
}

}  // namespace hardware
