// Memories, banks, clocks and interfaces as records.
#include <memory>

#include "capi/Guard.h"
#include "capi/Handles.h"
#include "capi/Structs.h"
#include "platform/HTEQPlatform.h"
#include "platform/PlatformParts.h"
#include "platform/zr_platform.h"

using namespace capi;
namespace requests = teq_platform::requests;
using requests::Assignment;
using requests::Parts;

struct zr_hardware {
    Parts parts;
};

namespace {

static_assert(static_cast<int>(Assignment::notAllowed) == ZR_ASSIGNMENT_NONE);

std::uint32_t numberOf(Assignment assignment) { return static_cast<std::uint32_t>(assignment); }

/// Writes the item number `index` of a list of the hardware as `record` makes it.
template <class T, class Record, class To>
zr_code give(const zr_hardware* hardware, HSTVector<T> Parts::*list, std::uint64_t index, To* to, zr_error** error,
             Record record) noexcept {
    return guarded(error, nullptr, [&] {
        const HSTVector<T>& items = need(hardware, "hardware").parts.*list;
        checkIndex(index, items.size());
        writeStruct(need(to, "the structure"), record(items[index]));
    });
}

}  // namespace

zr_code zr_platform_hardware(const zr_platform* platform, zr_hardware** hardware, zr_error** error) noexcept {
    if (hardware) *hardware = nullptr;
    return guarded(error, platform ? platform->file.c_str() : nullptr, [&] {
        need(hardware, "hardware");
        const HTEQHardwarePlatform* const asked = need(platform, "platform").loaded->getHardwarePlatform();
        auto made = std::make_unique<zr_hardware>();
        if (asked) made->parts = requests::partsOf(*asked);
        *hardware = made.release();
    });
}

void zr_hardware_free(zr_hardware* hardware) noexcept { delete hardware; }

std::uint64_t zr_hardware_memory_count(const zr_hardware* hardware) noexcept {
    return hardware ? hardware->parts.memories.size() : 0;
}
std::uint64_t zr_hardware_bank_count(const zr_hardware* hardware) noexcept {
    return hardware ? hardware->parts.banks.size() : 0;
}
std::uint64_t zr_hardware_clock_count(const zr_hardware* hardware) noexcept {
    return hardware ? hardware->parts.clocks.size() : 0;
}
std::uint64_t zr_hardware_interface_count(const zr_hardware* hardware) noexcept {
    return hardware ? hardware->parts.interfaces.size() : 0;
}

zr_code zr_hardware_memory(const zr_hardware* hardware, std::uint64_t index, zr_memory* memory,
                           zr_error** error) noexcept {
    return give(hardware, &Parts::memories, index, memory, error, [](const requests::MemoryPart& part) {
        return zr_memory{.size = 0,
                         .name = part.name.c_str(),
                         .type = part.type.c_str(),
                         .capacity = part.size.c_str(),
                         .lowest = part.lowest,
                         .highest = part.highest};
    });
}

zr_code zr_hardware_bank(const zr_hardware* hardware, std::uint64_t index, zr_bank* bank, zr_error** error) noexcept {
    return give(hardware, &Parts::banks, index, bank, error, [](const requests::BankPart& part) {
        return zr_bank{.size = 0,
                       .type = part.type.c_str(),
                       .capacity = part.size.c_str(),
                       .slr = part.slr.c_str(),
                       .interface = part.interface.c_str(),
                       .segment = part.segment.c_str(),
                       .number = part.number,
                       .index = part.index,
                       .assignment = numberOf(part.assignment),
                       .reserved = 0};
    });
}

zr_code zr_hardware_clock(const zr_hardware* hardware, std::uint64_t index, zr_clock* clock,
                          zr_error** error) noexcept {
    return give(hardware, &Parts::clocks, index, clock, error, [](const requests::ClockPart& part) {
        return zr_clock{.size = 0,
                        .name = part.name.c_str(),
                        .original_name = part.originalName.c_str(),
                        .frequency = part.frequency.c_str(),
                        .status = part.status.c_str(),
                        .id = part.id,
                        .is_default = part.isDefault};
    });
}

zr_code zr_hardware_interface(const zr_hardware* hardware, std::uint64_t index, zr_interface* item,
                              zr_error** error) noexcept {
    return give(hardware, &Parts::interfaces, index, item, error, [](const requests::InterfacePart& part) {
        return zr_interface{.size = 0,
                            .name = part.name.c_str(),
                            .mode = part.mode.c_str(),
                            .type = part.type.c_str(),
                            .memory_port = part.memoryPort.c_str(),
                            .tag = part.tag.c_str(),
                            .slr = part.slr.c_str(),
                            .clock = part.clock.c_str(),
                            .capacity = part.size.c_str(),
                            .segments = part.segments.size(),
                            .data_width = part.dataWidth,
                            .reserved = 0};
    });
}

zr_code zr_hardware_segment(const zr_hardware* hardware, std::uint64_t interface, std::uint64_t segment,
                            zr_segment* item, zr_error** error) noexcept {
    return give(hardware, &Parts::interfaces, interface, item, error, [&](const requests::InterfacePart& bus) {
        checkIndex(segment, bus.segments.size());
        const requests::SegmentPart& part = bus.segments[segment];
        return zr_segment{.size = 0,
                          .name = part.name.c_str(),
                          .base_name = part.baseName.c_str(),
                          .tag = part.tag.c_str(),
                          .slr = part.slr.c_str(),
                          .memory_instance = part.memoryInstance.c_str(),
                          .index = part.index,
                          .assignment = numberOf(part.assignment)};
    });
}
