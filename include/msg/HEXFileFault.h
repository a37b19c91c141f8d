#pragma once
#include "msg/HEXAll.h"
#include "msg/HEXDiagnostic.h"

/// Malformed input whose place is known: what every reader, the loader and the archive reader throw. Its text is
/// `HEXDiagnostic::format` unless a derived class says otherwise.
class ZR_API HEXFileFault : public HEXDataException {
public:
    explicit HEXFileFault(HEXDiagnostic diagnostic);
    ~HEXFileFault() override;
    const HEXDiagnostic& diagnostic() const { return diagnostic_; }

private:
    HEXDiagnostic diagnostic_;
};
