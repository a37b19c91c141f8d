#include "repository/DirectoryWalk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "msg/HEXAll.h"
#include "util/Descriptor.h"
#include "util/HUTFileUtils.h"
#include "util/WithoutLinks.h"

namespace repository {
namespace {

std::string joined(const std::string& directory, const std::string& name) {
    return directory.ends_with('/') ? directory + name : directory + "/" + name;
}

[[noreturn]] void fail(const std::string& path) {
    throw HEXUserException("directory '" + path + "' cannot be read: " + std::generic_category().message(errno));
}

struct Named {
    std::string name;
    unsigned char type;  ///< DT_...
};

/// A directory that is being walked: all its entries were read when it was entered, so that only one is open at a time.
struct Level {
    std::string path;
    std::string real;     ///< the same without the links below the first directory
    bool isLinked;        ///< whether the way to it follows a link
    std::uint64_t names;  ///< looked up to reach it by `path`
    std::optional<std::pair<dev_t, ino_t>> identity = {};
    std::vector<Named> entries = {};
    std::size_t next = 0;

    /// Asked for only where a link has been followed: without one no way leads back.
    const std::pair<dev_t, ino_t>& identify() {
        struct stat status {};
        if (!identity && ::stat(real.c_str(), &status) != 0) fail(path);
        if (!identity) identity.emplace(status.st_dev, status.st_ino);
        return *identity;
    }
};

class Walk {
public:
    Walk(const WalkRules& rules, const Visitor& visitor) : rules_(rules), visitor_(visitor) {}

    void run(const std::string& directory) {
        enter(directory, {directory, 0, false});
        while (!levels_.empty()) {
            Level& level = levels_.back();
            if (level.next == level.entries.size())
                levels_.pop_back();
            else
                visit(level, level.entries[level.next++]);
        }
    }

private:
    /// Runs `step`; its failure is reported for `path`.
    template <class Step>
    void reporting(const std::string& path, const Step& step) {
        try {
            step();
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& e) {
            visitor_.failed(path, e);
        }
    }

    /// Where an entry is: without links, and the names that are looked up to reach it by its path.
    struct Way {
        std::string real;
        std::uint64_t names;
        bool isLink;
    };

    Way wayOfLink(const Level& level, const std::string& name) {
        Way way{{}, level.names + 1, true};
        way.real =
            util::withoutLinks(HUTFileUtils::makeAbsolutePath(joined(level.real, name)), [&](std::uint64_t names) {
                way.names += names;
                spend(level.path, names);
            });
        return way;
    }

    void spend(const std::string& path, std::uint64_t names) {
        names_ += names;
        if (names_ <= kMaxNames) return;
        const std::string text = "directory '" + path + "': the search looks up more than " +
                                 std::to_string(kMaxNames) + " names to follow links and in deep directories";
        levels_.clear();
        throw HEXUserException(text);
    }
    /// For something that is reached by a long way.
    void spendWay(const std::string& path, std::uint64_t names) {
        constexpr std::uint64_t kShort = 400;
        if (names > kShort) spend(path, names);
    }

    void enter(const std::string& path, const Way& way) {
        if (levels_.size() == rules_.maxLevels) return visitor_.skipped(path, Skip::tooDeep);
        reporting(path, [&] {
            spendWay(path, way.names);
            const int links = rules_.followsLinks || levels_.empty() ? 0 : O_NOFOLLOW;
            const util::Descriptor opened(::open(way.real.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | links));
            if (!opened.isOpen()) fail(path);
            Level level{path, way.real, way.isLink || (!levels_.empty() && levels_.back().isLinked), way.names};
            if (level.isLinked && std::any_of(levels_.begin(), levels_.end(),
                                              [&](Level& passed) { return passed.identify() == level.identify(); }))
                return visitor_.skipped(path, Skip::loop);
            read(opened.get(), level);
            levels_.push_back(std::move(level));
        });
    }

    void read(int directory, Level& level) {
        for (;;) {
            const ssize_t size = ::getdents64(directory, buffer_, sizeof buffer_);
            if (size < 0) fail(level.path);
            if (size == 0) return;
            for (ssize_t at = 0; at < size;) {
                const auto* const entry = reinterpret_cast<const dirent64*>(buffer_ + at);
                at += entry->d_reclen;
                if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0) continue;
                if (++count_ > kMaxEntries) {
                    levels_.clear();
                    throw HEXUserException("directory '" + level.path + "': the search has met more than " +
                                           std::to_string(kMaxEntries) + " entries");
                }
                level.entries.push_back({entry->d_name, entry->d_type});
            }
        }
    }

    /// `level` and `named` are gone after `enter` and after a failure.
    void visit(const Level& level, const Named& named) {
        const std::string directory = level.path;
        unsigned char type = named.type;
        struct stat status {};
        if (type == DT_UNKNOWN) {
            if (::lstat(joined(level.real, named.name).c_str(), &status) != 0) return;  // gone
            type = IFTODT(status.st_mode);
        }
        if (type == DT_LNK) return visitLink(level, named.name);
        if (type == DT_DIR)
            return enter(joined(directory, named.name), {joined(level.real, named.name), level.names + 1, false});
        show(directory, named.name, type == DT_REG, level.names + 1);
    }

    void visitLink(const Level& level, const std::string& called) {
        const std::string directory = level.path, name = called;
        std::optional<Way> way;
        reporting(directory, [&] { way = wayOfLink(level, name); });
        if (!way) return;
        struct stat status {};
        if (::stat(way->real.c_str(), &status) != 0)
            return visitor_.skipped(joined(directory, name), Skip::brokenLink);
        if (!S_ISDIR(status.st_mode)) return show(directory, name, S_ISREG(status.st_mode), way->names);
        if (rules_.followsLinks) enter(joined(directory, name), *way);
    }

    void show(const std::string& directory, const std::string& name, bool isRegular, std::uint64_t names) {
        reporting(directory, [&] {
            spendWay(directory, names);
            visitor_.file({directory, name, isRegular});
        });
    }

    const WalkRules& rules_;
    const Visitor& visitor_;
    std::vector<Level> levels_;
    std::size_t count_ = 0;
    std::uint64_t names_ = 0;
    alignas(dirent64) char buffer_[32 * 1024];
};

}  // namespace

std::string Entry::path() const { return joined(directory, name); }

std::string Entry::descriptorPath() const {
    constexpr std::string_view kExtension = ".zdf";
    if (name.size() <= kExtension.size() || !name.ends_with(kExtension)) return {};
    std::string text = path();
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

void walk(const std::string& directory, const WalkRules& rules, const Visitor& visitor) {
    std::make_unique<Walk>(rules, visitor)->run(directory);
}

}  // namespace repository
