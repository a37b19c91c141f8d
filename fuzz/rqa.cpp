#include <boost/property_tree/json_parser.hpp>

#include "Document.h"
#include "Quiet.h"
#include "platform/HRQAArchive.h"

/// The input is an index: what is read of it is written and read again as it is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    HRQAArchive archive, again;
    try {
        if (!archive.parseJsonString({reinterpret_cast<const char*>(data), size})) return 0;
    } catch (const boost::property_tree::json_parser_error&) {
        return 0;
    }
    teq_platform::JSONObjectWriter writer, rewriter;
    archive.toJSON(writer);
    again.parseRoot(writer.getTree());
    again.toJSON(rewriter);
    require(writer.getTree() == rewriter.getTree(), "writing loses nothing");
    requireDocument(archive);
    return 0;
}
