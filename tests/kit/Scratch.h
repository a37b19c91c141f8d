#pragma once
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "kit/Files.h"
#include "msg/ComMsgMgr.h"

/// A directory for one test, gone with it.
class Scratch {
public:
    Scratch() {
        std::string base = (std::filesystem::temp_directory_path() / "zr_test_XXXXXX").string();
        path_ = mkdtemp(base.data());
        path_ = std::filesystem::canonical(path_);
    }
    ~Scratch() { std::filesystem::remove_all(path_); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    std::string operator/(const std::string& name) const { return (path_ / name).string(); }
    std::string str() const { return path_.string(); }

    /// Writes a file, and the directories above it; gives its path.
    std::string put(const std::string& name, std::string_view content) const { return write(*this / name, content); }
    /// The names in it, sorted.
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path path_;
};

/// Takes the library's messages while it lives.
class Messages {
public:
    Messages() {
        ComMsgMgr::setSink([this](const ComMsgMgrInstance& message) { taken.push_back(message); });
    }
    ~Messages() { ComMsgMgr::setSink(nullptr); }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    /// "id: first argument" of each message.
    std::vector<std::string> lines() const {
        std::vector<std::string> lines;
        for (const auto& m : taken) lines.push_back(m.id + (m.args.empty() ? "" : ": " + m.args.front()));
        return lines;
    }
    std::vector<ComMsgMgrInstance> taken;
};
