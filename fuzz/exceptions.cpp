#include <cstdint>
#include <string>
#include <string_view>

#include "Check.h"
#include "Quiet.h"
#include "archive/PackedText.h"
#include "json/JsonText.h"
#include "msg/HEXFileFault.h"
#include "platform/HTEQTmpDirObject.h"
#include "services/ExceptionList.h"
#include "util/WholeFile.h"

namespace {

const json::ptree& document() {
    static const json::ptree tree = [] {
        json::ptree made;
        json::parse(R"({"hardwarePlatform": {"name": "n", "list": ["1", {"a": "b"}]}})", "document", made);
        return made;
    }();
    return tree;
}

policy::Listing listingOf(const std::string& bytes) {
    static const HTEQTmpDirObject scratch("exceptions");
    const std::string file = scratch.get() + "/achromatic";
    wholefile::replace(file, bytes);
    return services::ExceptionList(file).match("teq", document);
}

}  // namespace

/// The input is a list of exceptions, packed and not: any bytes give a color, packing loses nothing, and what may be
/// packed is never of another form.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    const std::string input(reinterpret_cast<const char*>(data), size);
    listingOf(input);
    if (size > archive::kMaxPackedText) return 0;
    const std::string packed = archive::packedText(input);
    require(archive::unpackedText(packed, "input") == input, "packing loses nothing");
    const policy::Listing listing = listingOf(packed);
    json::ptree list;
    if (!json::tryParse(input, list) && services::ExceptionList::faultOf(list).empty())
        require(listing.color != policy::Color::unreadable, "a list that may be packed can be used");
    return 0;
}
