#pragma once
#include "msg/HEXAll.h"
#include "msg/HEXDiagnostic.h"

/// Malformed input with a known location: thrown by every reader, the loader and the archive reader. Its text is
/// `HEXDiagnostic::format`, unless a derived class differs.
class ZR_API HEXFileFault : public HEXDataException {
public:
    explicit HEXFileFault(HEXDiagnostic diagnostic);
    ~HEXFileFault() override;
    const HEXDiagnostic& diagnostic() const { return diagnostic_; }

private:
    HEXDiagnostic diagnostic_;
};
