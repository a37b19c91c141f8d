#pragma once
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "text/HSTFwdIter.h"
#include "text/HSTVector.h"
#include "text/Owned.h"
#include "text/ZrApi.h"

class HBOBoardCDataManager;
class HPLPlatform;
class HTEQHardwarePlatform;
class HTEQPlatform;
class HTEQReconfigurablePartition;

/// The registry of the process: the platforms of all descriptors in the directories that it was given, with hardware
/// and software attached, and the lone hardware archives in them. It owns the platforms; pointers to them are valid
/// until the platform is removed. No operation throws because of a bad platform: that one is left out, messages are
/// sent, and a text is added to the parsing errors, which stay until they are cleared. For one thread.
class ZR_API HTEQPlatformMgr {
public:
    /// Which platforms are active: those of descriptors, "teq", or those of lone hardware archives, "platform".
    enum class TEQProjectType { teq = 0, platform = 1 };

    /// An empty registry. Hosts usually share `getGlobal`.
    HTEQPlatformMgr();
    ~HTEQPlatformMgr();
    HTEQPlatformMgr(const HTEQPlatformMgr&) = delete;
    HTEQPlatformMgr& operator=(const HTEQPlatformMgr&) = delete;

    /// The registry of the process, which is never destroyed. The first call makes it; `getGlobal` then also adds the
    /// platforms of the default directories, unless `getGlobalNoInit` has made it before.
    static HTEQPlatformMgr* getGlobal();
    static HTEQPlatformMgr* getGlobalNoInit();

    /// Adds the platforms of the directories and of two levels of subdirectories (lone archives: of all levels) that
    /// are not registered yet. The platforms of descriptors come to the front of their list, one by one; those of
    /// archives to the end of theirs. An archive `DIR/X/Y.lfa` beside a descriptor `DIR/Y.zdf` is not a lone one.
    void addPlatformsFromDirs(const HSTVector<std::string>& dirs);
    /// The same, but only descriptors with that base name (ignoring case) unless it is empty, and all archives.
    void addPlatformsFromDirs(const std::string& name, const HSTVector<std::string>& dirs);
    /// Deletes the platforms whose file is directly in one of the directories, whose texts are compared exactly.
    void removePlatformsFromDirs(const HSTVector<std::string>& dirs);
    /// `HTEQHardwarePlatformMgr::addPlatformsFromDirs`.
    void getHardwarePlatformsFromDirs(const HSTVector<std::string>& dirs, HSTVector<HTEQHardwarePlatform*>& out,
                                      bool flag);
    void clearAllPlatforms();

    /// The first active platform whose unique name is `name`, whose base name is `name` ignoring case, or whose file
    /// has the same canonical name as `name`; or null.
    HTEQPlatform* getPlatform(const std::string& name);
    /// Appends the active platforms.
    void getPlatforms(HSTVector<HTEQPlatform*>& out) const;
    /// Replaces `out` with the platforms of lone archives, active or not.
    void getCFAPlatforms(HSTVector<HTEQPlatform*>& out) const;
    /// Both append the active platforms that are unified.
    void getUnifiedPlatforms(HSTVector<HTEQPlatform*>& out) const;
    void getTEQPlatforms(HSTVector<HTEQPlatform*>& out) const { getUnifiedPlatforms(out); }
    std::size_t getNumPlatforms() const { return active_->size(); }
    /// Over the active platforms. The caller deletes it before the registry changes.
    HSTFwdIter<HTEQPlatform*>* createPlatformIter() const { return active_->makeIter(); }

    /// Texts for users, in the order of arrival.
    void getParsingErrorMsgs(HSTVector<std::string>& out) const { out = errors_; }
    void clearParsingErrorMsgs() { errors_.clear(); }

    TEQProjectType getProjectTypeAsEnumVal() const { return type_; }
    void setProjectType(TEQProjectType type);
    /// "teq" or "platform".
    std::string getProjectTypeAsStr() const;

    void setBoardRepoPaths(const HSTVector<std::string>& paths);
    void getBoardRepoPaths(HSTVector<std::string>& out) const { out = boardRepoPaths_; }
    /// Appends `platforms` below each application root, then the system's directory, those that exist. (The search of
    /// `teq::platform::PlatformRepoService` has them in the opposite order.)
    void getDefaultTeqPlatformDirs(HSTVector<std::string>& out) const;

    /// Canonical name of the platform's file, which is computed once for each registered platform; empty without a
    /// file.
    const std::string& canonicalFileOf(const HTEQPlatform& platform);

private:
    struct Canonical {
        std::string file, name;
    };

    void init_();
    void addPlatformsFromDirs_(const std::string& name, const HSTVector<std::string>& dirs);
    /// Whether the platform of the descriptor has been added.
    bool addPlatform_(const std::string& path);
    void addHardwarePlatformsFromDirs_(const HSTVector<std::string>& dirs);
    void removePlatformsFromDirs_(const HSTVector<std::string>& dirs, Owned<HTEQPlatform>& list);
    /// The platform files of both lists.
    std::unordered_set<std::string> existingFiles_() const;
    bool attachHardwarePlatforms_(HTEQPlatform& platform);
    bool attachSingleHardwarePlatform_(HTEQPlatform& platform);
    bool attachReconfigurablePartition_(HTEQPlatform& platform, HTEQReconfigurablePartition& partition);
    /// The platform of the archive `file`, for the descriptor `platform`; null if there is none.
    std::unique_ptr<HPLPlatform> hardwareFor_(const std::string& file, const std::string& platform);
    bool attachSoftwarePlatforms_(HTEQPlatform& platform);
    void handleInvalidPath_(const std::string& file, const std::string& platform);
    void handleInvalidExtension_(const std::string& file, const std::string& platform);

    static HTEQPlatformMgr* mp_theGlobal;

    Owned<HTEQPlatform> teqPlatforms_, cfaPlatforms_;
    Owned<HTEQPlatform>* active_ = &teqPlatforms_;
    HSTVector<std::string> errors_;
    TEQProjectType type_ = TEQProjectType::teq;
    HSTVector<std::string> boardRepoPaths_;
    std::unique_ptr<HBOBoardCDataManager> boards_;
    std::unordered_map<const HTEQPlatform*, Canonical> canonical_;
};
