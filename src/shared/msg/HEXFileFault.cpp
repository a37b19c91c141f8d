#include "msg/HEXFileFault.h"

#include <utility>

HEXFileFault::HEXFileFault(HEXDiagnostic diagnostic)
    : HEXDataException(diagnostic.format()), diagnostic_(std::move(diagnostic)) {}

HEXFileFault::~HEXFileFault() = default;
