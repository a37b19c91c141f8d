// Changes archives so that most of what is tried gets past the first look: the parts of a sound archive are changed,
// and sizes, CRCs and offsets are made anew; now and then one of them lies. Linked into the targets that take
// archives.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "kit/ZipBuilder.h"
#include "zip/Archive.h"
#include "zip/ArchiveError.h"
#include "zip/MemoryBytes.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace {

using builder::Entry;
using builder::Header;
using builder::Zip;

constexpr std::uint64_t kMaxBytes = 1 << 16;

/// What the archive is built of; nothing when it is not sound, or too large to be of use.
std::optional<Zip> takenApart(const std::string& bytes) {
    try {
        const zip::Archive archive(std::make_unique<zip::MemoryBytes>(bytes), "input");
        Zip zip;
        for (const zip::Member& member : archive.members()) {
            const std::string data = member.isDirectory() ? "" : archive.read(member, kMaxBytes);
            Entry& entry =
                zip.entries.emplace_back(std::string(member.name), data, member.method == zip::Method::deflated);
            entry.mode = member.mode;
            entry.central.extra = member.extraFields;
        }
        zip.comment = archive.comment();
        return zip;
    } catch (const zip::ArchiveError&) {
        return std::nullopt;
    }
}

std::string mutated(std::string text, std::size_t room = 4096) {
    const std::size_t size = text.size();
    text.resize(std::max(size, room));
    text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text.data()), size, text.size()));
    return text;
}

/// The same member with other bytes, whose sizes and CRC are right.
Entry withData(const Entry& old, const std::string& data) {
    Entry entry(old.local.name, data, old.local.method == 8);
    entry.mode = old.mode;
    return entry;
}

std::string dataOf(const Entry& entry) {
    Zip zip;
    zip.entries = {entry};
    const zip::Archive archive(std::make_unique<zip::MemoryBytes>(zip.build()), "entry");
    return archive.members()[0].isDirectory() ? "" : archive.read(archive.members()[0]);
}

void lie(Header& header, std::mt19937& random) {
    switch (random() % 6) {
        case 0: header.size += random() % 3; break;
        case 1: header.packedSize = random(); break;
        case 2: header.crc ^= 1U << random() % 32; break;
        case 3: header.flags ^= static_cast<std::uint16_t>(1U << random() % 16); break;
        case 4: header.method = static_cast<std::uint16_t>(random() % 16); break;
        default: header.extra = mutated(header.extra, 64);
    }
}

void change(Zip& zip, std::mt19937& random) {
    if (zip.entries.empty() || random() % 12 == 0) {
        zip.comment = mutated(zip.comment, 200);
        return;
    }
    const std::size_t index = random() % zip.entries.size();
    Entry& entry = zip.entries[index];
    switch (random() % 10) {
        case 0: zip.entries.erase(zip.entries.begin() + static_cast<std::ptrdiff_t>(index)); break;
        case 1: zip.entries.push_back(withData(entry, dataOf(entry) + "x")); break;
        case 2: entry.both(&Header::name, mutated(entry.local.name, 64)); break;
        case 3: entry.mode = static_cast<std::uint32_t>(random() % 0x10000); break;
        case 4: lie(random() % 2 ? entry.local : entry.central, random); break;
        case 5: zip.isZip64 = !zip.isZip64; break;
        case 6: std::swap(entry, zip.entries[random() % zip.entries.size()]); break;
        case 7: entry.packed = mutated(entry.packed), entry.both(&Header::packedSize, entry.packed.size()); break;
        default: entry = withData(entry, mutated(dataOf(entry)));
    }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed) {
    std::mt19937 random(seed);
    auto zip = takenApart(std::string(data, data + size));
    if (!zip || random() % 4 == 0) return LLVMFuzzerMutate(data, size, most);
    try {
        for (auto changes = 1 + random() % 3; changes > 0; --changes) change(*zip, random);
    } catch (const zip::ArchiveError&) {  // an inconsistency made earlier
    }
    const std::string bytes = zip->build();
    if (bytes.size() > most) return LLVMFuzzerMutate(data, size, most);
    std::copy(bytes.begin(), bytes.end(), data);
    return bytes.size();
}
