#include <sstream>

#include "Document.h"
#include "Quiet.h"
#include "check/JsonCheck.h"
#include "json/JsonText.h"
#include "labels/LabelKeys.h"
#include "msg/HEXFileFault.h"
#include "platform/HTEQSemanticLabelReader.h"

/// Any JSON is read as labels and written as documents; labels that the check accepts are read without a message.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    int messages = 0;
    ComMsgMgr::setSink([&messages](const ComMsgMgrInstance& message) { messages += message.mask == MsgMask::error; });
    json::ptree root;
    if (json::tryParse(text, root)) return 0;
    HTEQSemanticLabelReader reader;
    reader.parseRoot(root);
    const check::Source source{"labels", "", text};
    check::JsonCheck check(source);
    check.checkEach(labels::shapesOf);
    check::Findings findings;
    check.report(findings);
    bool isFaulty = false;
    for (const auto& finding : findings.take()) isFaulty |= finding.severity == check::CheckFinding::Severity::error;
    require(isFaulty || messages == 0, "what the check accepts can be read");
    requireDocument(reader);
    for (const std::string path : {"/", "", "a/b"}) {
        json::ptree metadata;
        reader.generatePartitionMetadata(metadata);
        reader.generateExtMetadata(path, metadata);
        require(!json::write(metadata).empty(), "the documents can be written");
    }
    return 0;
}
