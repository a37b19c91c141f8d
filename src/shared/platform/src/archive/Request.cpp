#include "archive/Request.h"

#include <sys/stat.h>

#include <map>
#include <utility>

#include "archive/ArchiveSource.h"
#include "zip/FileBytes.h"

namespace archive {
namespace {

struct Session {
    zip::FileStamp stamp;
    std::shared_ptr<const MemberSource> source;
};
using Sessions = std::map<std::string, Session>;

/// Of the thread's outermost request; null outside of one.
thread_local Sessions* sessions = nullptr;

Session openSession(const std::string& path) {
    auto bytes = std::make_unique<zip::FileBytes>(path);
    const zip::FileStamp stamp = bytes->stamp();
    return {stamp, std::make_shared<ArchiveSource>(std::make_unique<zip::Archive>(std::move(bytes), path))};
}

bool isCurrent(const Session& session, const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && zip::FileStamp(status) == session.stamp;
}

}  // namespace

Request::Request() : isOutermost_(!sessions) {
    if (isOutermost_) sessions = new Sessions;
}

Request::~Request() {
    if (isOutermost_) delete std::exchange(sessions, nullptr);
}

std::shared_ptr<const MemberSource> open(const std::string& path) {
    if (!sessions) return openArchive(path);
    const auto known = sessions->find(path);
    if (known != sessions->end() && isCurrent(known->second, path)) return known->second.source;
    return sessions->insert_or_assign(path, openSession(path)).first->second.source;
}

}  // namespace archive
