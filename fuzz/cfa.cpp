#include <cstdint>
#include <string>

#include "Document.h"
#include "Members.h"
#include "Quiet.h"
#include "kit/Run.h"
#include "kit/Scratch.h"
#include "msg/HEXAll.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQCfaXmlReader.h"
#include "platform/HTEQCfaXmlWriter.h"

namespace {

/// Reads the archive's XML metadata, and writes what came of it. Empty when it cannot be read, or not be written: a
/// port may lack a name, and a name that was cut to its field may end inside of a character.
std::string throughTheModel(const Scratch& scratch, const std::string& archive) {
    const std::string file = scratch.put("input.lfa", archive), out = scratch / "out.xml";
    HPLPlatform platform;
    if (!HTEQCfaXmlReader(file, &platform).parseCFA()) return "";
    requireDocument(platform);
    try {
        HTEQCfaXmlWriter(&platform, out).writeCFA();
    } catch (const HXMLException&) {
        return "";
    }
    return contentOf(out);
}

}  // namespace

/// The XML metadata of an archive, followed by other members: the library can read what it writes, and from the second
/// time on it writes the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    static const Scratch scratch;
    const std::string text(data, data + size);
    const auto end = text.find("\n--- ");
    const std::string others = end == std::string::npos ? "" : text.substr(end);
    const auto through = [&](const std::string& xml) {
        return throughTheModel(scratch, archiveOf(xml + others, "lfa.xml"));
    };
    const std::string first = through(text.substr(0, end));
    if (first.empty() || first.find("\n--- ") != std::string::npos) return 0;
    const std::string second = through(first);
    require(!second.empty(), "what is written is read and written again");
    require(through(second) == second, "from the second time on it is the same");
    return 0;
}
