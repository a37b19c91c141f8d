#include <cstdint>
#include <string_view>

#include "Document.h"
#include "Quiet.h"
#include "platform/HTEQPlatform.h"
#include "platform/HTEQPlatformXMLReader.h"
#include "platform/HTEQSoftwarePlatform.h"
#include "platform/HTEQSoftwarePlatformXMLReader.h"
#include "support/Scratch.h"

namespace {

template <class Reader, class Model>
void readAs(const std::string& file) {
    Model model;
    Reader reader(file, &model);
    require(reader.parseFile() == reader.getErrorMsg().empty(), "a failure has words");
    requireDocument(model);
}

}  // namespace

/// The text as a descriptor and as a software file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    silence();
    static const Scratch scratch;
    const std::string file = scratch.put("input", {reinterpret_cast<const char*>(data), size});
    readAs<HTEQPlatformXMLReader, HTEQPlatform>(file);
    readAs<HTEQSoftwarePlatformXMLReader, HTEQSoftwarePlatform>(file);
    return 0;
}
