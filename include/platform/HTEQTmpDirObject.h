#pragma once
#include <string>

#include "text/ZrApi.h"

/// Owns a temporary directory for as long as the object lives. An object belongs to one thread.
class ZR_API HTEQTmpDirObject {
public:
    /// Owns nothing.
    HTEQTmpDirObject() = default;
    /// Makes a directory at once, as `create` does.
    explicit HTEQTmpDirObject(const std::string& name) { create(name); }
    ~HTEQTmpDirObject() { deleteTmpDir(); }
    HTEQTmpDirObject(const HTEQTmpDirObject&) = delete;
    HTEQTmpDirObject& operator=(const HTEQTmpDirObject&) = delete;

    /// Removes the present directory, then makes a new one below the tool's temporary directory: `name`, with a
    /// number behind it when there is one of that name. Throws `HEXUserException`, and owns nothing then.
    void create(const std::string& name);
    /// The absolute path; empty when the object owns nothing.
    std::string get() const { return path_; }
    bool empty() const { return path_.empty(); }
    /// Whether the directory is still there.
    bool exists() const;
    /// Removes the directory with all in it, and owns nothing afterwards. A directory that cannot be removed is told
    /// as message "@1-1874@%s".
    void deleteTmpDir();

private:
    std::string path_;
};
