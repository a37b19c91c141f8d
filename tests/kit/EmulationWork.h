#pragma once
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "kit/Scratch.h"
#include "zip/ArchiveEdit.h"
#include "zip/HUTZip.h"

inline const std::string kInstallation = ZR_SOURCE_DIR "/examples/morwen";

/// A working directory with a copy of the sample, and an installation.
class Work : public Scratch {
public:
    Work() : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(str());
        HUTZip::compressDir(ZR_SOURCE_DIR "/examples/harrier/hw/harrier.cfa", archive);
        ::setenv("TORVANE_MORWEN", kInstallation.c_str(), 1);
    }
    ~Work() { std::filesystem::current_path(before_); }

    /// Puts members into the archive.
    void change(const std::vector<std::pair<std::string, std::string>>& members) const {
        zip::ArchiveEdit edit(archive);
        for (const auto& [name, bytes] : members) edit.put(name, bytes);
        edit.commit();
    }

    const std::string archive = *this / "harrier.cfa";

private:
    std::filesystem::path before_;
};
