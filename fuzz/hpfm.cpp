#include <cstdint>
#include <string>

#include "Document.h"
#include "Quiet.h"
#include "platform/HPLPlatform.h"
#include "platform/HTEQHpfmReader.h"

/// Hpfm fills a platform, as a whole and in its two parts, or leaves it as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    const std::string text(data, data + size);
    HPLPlatform whole, parts;
    HTEQHpfmReader reader(text, &whole);
    const bool isRead = reader.parseStream();
    require(isRead == reader.getErrorMsg().empty(), "a failure has a message");
    HTEQHpfmReader partReader(text, &parts);
    require(partReader.parseBusInterfaces() == isRead, "bus interfaces are read when the whole is");
    require(partReader.parseNocConnectivity() == isRead, "NoC connectivity is read when the whole is");
    requireDocument(whole);
    requireDocument(parts);
    return 0;
}
