#pragma once
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "msg/ComMsgMgr.h"

/// What the library prints and sends while this lives.
class Capture {
public:
    Capture() : before_(std::cout.rdbuf(out_.rdbuf())) {
        ComMsgMgr::setSink([this](const ComMsgMgrInstance& message) { messages.push_back(message); });
    }
    ~Capture() {
        std::cout.rdbuf(before_);
        ComMsgMgr::setSink({});
    }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    std::string printed() const { return out_.str(); }
    std::vector<ComMsgMgrInstance> messages;

private:
    std::ostringstream out_;
    std::streambuf* before_;
};

/// A directory of its own, removed with what is in it.
class Scratch {
public:
    Scratch() {
        std::string name = (std::filesystem::temp_directory_path() / "zr_readers_XXXXXX").string();
        directory_ = std::filesystem::canonical(::mkdtemp(name.data()));
    }
    ~Scratch() { std::filesystem::remove_all(directory_); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    /// Writes a file and gives its path.
    std::string put(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }
    std::string path(const std::string& name) const { return (directory_ / name).string(); }

private:
    std::filesystem::path directory_;
};
