#pragma once
#include <cstdint>
#include <string>

#include "text/HSTVector.h"
#include "text/ZrApi.h"

class HTEQHardwarePlatform;

/// What a linker and a compiler's front end ask of a hardware platform, as plain values.
namespace teq_platform::requests {

/// A memory of the board, as the metadata lists it.
struct MemoryPart {
    std::string name, type;
    std::string size;                       ///< as "16GB"
    std::uint64_t lowest = 0, highest = 0;  ///< addresses of the first and the last byte; both 0 if they are unknown
};

struct ClockPart {
    std::string name;
    std::string originalName;  ///< in the design
    std::string frequency;     ///< in MHz
    std::string status;        ///< "scalable", "changeable", "fixed", "reserved", or another text
    int id = -1;               ///< -1 without one
    bool isDefault = false;
};

/// Whether a linker may choose a bank for an argument that names none.
enum class Assignment {
    unknown,     ///< the platform does not say
    allowed,     ///< yes
    byDefault,   ///< yes, and first
    notAllowed,  ///< only by name
};

struct SegmentPart {
    std::string name, baseName, tag, slr, memoryInstance;
    unsigned index = 0;
    Assignment assignment = Assignment::unknown;
};

struct InterfacePart {
    std::string name, mode;
    std::string type;        ///< as "aximm"
    std::string memoryPort;  ///< as "MEMSS"; empty if it leads to no memory
    std::string tag;         ///< the memory type, or the name of a bank
    std::string slr, clock;
    std::string size;   ///< of the memory that it leads to
    int dataWidth = 0;  ///< in bits
    HSTVector<SegmentPart> segments = {};
};

/// A bank that a linker can connect a kernel to, in the order of type and number.
struct BankPart {
    std::string type;
    unsigned number = 0;  ///< within the type
    std::string size;     ///< empty if no file gives one
    std::string slr;
    std::string interface;  ///< the bus interface that leads to it
    std::string segment;    ///< the address segment, if there is one
    unsigned index = 0;     ///< of the segment
    Assignment assignment = Assignment::unknown;
};

struct Parts {
    HSTVector<MemoryPart> memories = {};
    HSTVector<ClockPart> clocks = {};
    HSTVector<InterfacePart> interfaces = {};
    HSTVector<BankPart> banks = {};
};
/// In linear time, except for sorting.
ZR_API Parts partsOf(const HTEQHardwarePlatform& platform);

}  // namespace teq_platform::requests
