#include "Check.h"
#include "kit/WriterScript.h"

/// Writers give the same document whether they keep trees or not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    require(WriterScript({data, size}, false).run() == WriterScript({data, size}, true).run(), "the same document");
    return 0;
}
