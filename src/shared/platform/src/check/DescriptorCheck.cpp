#include "check/DescriptorCheck.h"

#include <fmt/core.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "check/ValidXml.h"
#include "loading/WrongExtension.h"
#include "msg/HEXAll.h"
#include "platform/HTEQHardwarePlatform.h"
#include "readers/DescriptorRules.h"
#include "text/HSTStringUtils.h"
#include "text/Nearest.h"
#include "util/FolderNames.h"
#include "util/ShownPath.h"

namespace check {

namespace {

using TEQPlatform::AnonHardwarePlatform;
using TEQPlatform::HwEmuOnly;
using TEQPlatform::Partitioned;

/// Suggests the files of the same folder with a similar name. A descriptor may name a thousand missing files, a folder have
/// many files, and be checked for many descriptors: only a few are looked for among a few.
class Suggestions {
public:
    std::string nearestFile(const std::string& path) {
        if (count_ == kMaxFiles) return {};
        ++count_;
        const std::filesystem::path missing(path);
        const std::string name = missing.filename();
        std::vector<std::string> names;
        try {
            names = folderNames(missing.has_parent_path() ? missing.parent_path().string() : ".", kMaxEntries);
        } catch (const HEXUserException&) {  // the folder cannot be read
            return {};
        }
        std::erase_if(names, [&name](const std::string& other) { return !text::isSlip(other, name); });
        names.resize(std::min(names.size(), kMaxNames));
        return text::nearest(name, names);
    }

private:
    static constexpr std::size_t kMaxFiles = 20, kMaxEntries = 1000, kMaxNames = 100;
    std::size_t count_ = 0;
};

/// For a document that is not valid, only the files that it names completely are checked.
class DescriptorCheck {
public:
    DescriptorCheck(const Source& source, const ReadXml& document)
        : source_(source), document_(TEQPlatform::kDocument, source, document), isValid_(document.isValid()) {}

    Named run(Findings& findings) {
        const TEQPlatform::Platform& platform = document_.record;
        checkHardware_(platform.hardwarePlatforms);
        name_("softwarePlatform", platform.softwarePlatforms.softwarePlatform, NamedFile::Kind::software);
        if (isValid_) document_.report(findings);
        return {{platform.vendor.get(), platform.version.get().text}, std::move(files_)};
    }

private:
    void checkHardware_(const TEQPlatform::HardwarePlatforms& platforms) {
        if (const auto* direct = std::get_if<AnonHardwarePlatform>(&platforms.content)) {
            nameBoth_(*direct);
        } else if (const auto* emulation = std::get_if<HwEmuOnly>(&platforms.content)) {
            name_("hwEmuPlatform", emulation->hwEmuPlatform, NamedFile::Kind::hardware);
        } else {
            const auto& partitions = std::get<Partitioned>(platforms.content).reconfigurablePartitions;
            if (areDistinct_(partitions)) checkDefault_(platforms, partitions);
            inPartition_ = true;
            for (const auto& partition : partitions) checkPartition_(partition);
            inPartition_ = false;
        }
    }

    /// The model keeps ids in 32 bits.
    void checkId_(const char* element, const void* record, const char* name, const xml::Attr<xml::Integer>& id) {
        const unsigned kept = readers::partitionId(id);
        if (static_cast<long long>(kept) != id.get().value())
            document_.add(kIdOutOfRange, element, record,
                          fmt::format("{}=\"{}\" is read as {}", name, HSTStringUtils::excerpt(id.get().text), kept));
    }

    void checkPartition_(const TEQPlatform::ReconfigurablePartition& partition) {
        checkId_("reconfigurablePartition", &partition, "id", partition.id);
        using Both = TEQPlatform::ReconfigurablePartitionAnonHardwarePlatform;
        using Emulation = TEQPlatform::ReconfigurablePartitionHwEmu;
        if (const auto* both = std::get_if<Both>(&partition.content)) return nameBoth_(*both);
        document_.add(xml::fault::kMissingElement, "reconfigurablePartition", &partition,
                      readers::kNoHardwareOfPartition);
        name_("hwEmuPlatform", std::get<Emulation>(partition.content).hwEmuPlatform, NamedFile::Kind::emulation);
    }

    /// Reports partitions that have the id of an earlier one.
    bool areDistinct_(const std::vector<TEQPlatform::ReconfigurablePartition>& partitions) {
        std::set<unsigned> ids;
        for (const auto& partition : partitions)
            if (const unsigned id = readers::partitionId(partition.id); !ids.insert(id).second)
                document_.add(kRepeatedName, "reconfigurablePartition", &partition,
                              fmt::format("an earlier partition also has the id {}", id));
        return ids.size() == partitions.size();
    }

    void checkDefault_(const TEQPlatform::HardwarePlatforms& platforms,
                       const std::vector<TEQPlatform::ReconfigurablePartition>& partitions) {
        checkId_("hardwarePlatforms", &platforms, "defaultRP", platforms.defaultRP);
        const auto wanted = readers::partitionId(platforms.defaultRP);
        const bool found =
            std::ranges::any_of(partitions, [&](const TEQPlatform::ReconfigurablePartition& partition) {
                return readers::partitionId(partition.id) == wanted;
            });
        if (found) return;
        document_.add(kUnknownDefaultPartition, "hardwarePlatforms", &platforms,
                      platforms.defaultRP.isSet()
                          ? fmt::format("defaultRP=\"{}\" does not match the id of any partition", wanted)
                          : "defaultRP is missing, and no partition has its default value, 0, as id");
    }

    template <class Content>
    void nameBoth_(const Content& content) {
        name_("hardwarePlatform", content.hardwarePlatform, NamedFile::Kind::hardware);
        if (content.hwEmuPlatform) name_("hwEmuPlatform", *content.hwEmuPlatform, NamedFile::Kind::emulation);
    }

    template <class Element>
    void name_(const char* element, const Element& record, NamedFile::Kind kind) {
        if (!record.path.isSet() || !record.name.isSet()) return;
        const bool isArchive = kind != NamedFile::Kind::software;
        std::string path = util::shownPath(readers::pathOf(record, source_.file), source_.file);
        if (!HUTFile::exists(path)) {
            document_.add(kMissingFile, element, &record,
                          fmt::format("there is no file \"{}\"{}", HSTStringUtils::excerpt(path, kMaxPathText),
                                      suggestions_.nearestFile(path)));
        } else if (isArchive && !HTEQHardwarePlatform::isValidPlatformExt("." + HUTFile::getExt(path))) {
            document_.add(kWrongExtension, element, &record,
                          fmt::format("\"{}\" is not a hardware archive (.cfa or .lfa{})",
                                      HSTStringUtils::excerpt(record.name.get()),
                                      loading::isUpperCaseArchive(path) ? ", in lower case" : ""));
        } else if (const auto known = std::ranges::find(files_, path, &NamedFile::path); known != files_.end()) {
            ++known->timesMore;
        } else {
            files_.push_back({kind, std::move(path), inPartition_});
        }
    }

    const Source& source_;
    ValidXml<TEQPlatform::Platform> document_;
    std::vector<NamedFile> files_;
    Suggestions suggestions_;
    const bool isValid_;
    bool inPartition_ = false;
};

}  // namespace

Named checkDescriptor(const Source& source, const ReadXml& document, Findings& findings) {
    reportSyntax(source, document, findings);
    return DescriptorCheck(source, document).run(findings);
}

}  // namespace check
