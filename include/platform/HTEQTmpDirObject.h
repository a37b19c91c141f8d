#pragma once
#include <string>

#include "text/ZrApi.h"

/// Owns a temporary directory for the lifetime of the object. An object belongs to one thread.
class ZR_API HTEQTmpDirObject {
public:
    /// Owns nothing.
    HTEQTmpDirObject() = default;
    /// Makes a directory, like `create`.
    explicit HTEQTmpDirObject(const std::string& name) { create(name); }
    ~HTEQTmpDirObject() { deleteTmpDir(); }
    HTEQTmpDirObject(const HTEQTmpDirObject&) = delete;
    HTEQTmpDirObject& operator=(const HTEQTmpDirObject&) = delete;

    /// Removes the current directory, then makes a new one below the tool's temporary directory: `name`, with a
    /// number appended if it exists. If that fails, throws `HEXUserException` and owns nothing.
    void create(const std::string& name);
    /// The absolute path; empty if the object owns nothing.
    std::string get() const { return path_; }
    bool empty() const { return path_.empty(); }
    /// Whether the directory still exists.
    bool exists() const;
    /// Removes the directory and its contents, and owns nothing afterwards. If it cannot be removed, sends message
    /// "@1-1874@%s".
    void deleteTmpDir();

private:
    std::string path_;
};
