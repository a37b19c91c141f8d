#include "archive/Request.h"

#include <sys/stat.h>

#include <algorithm>
#include <deque>
#include <utility>

#include "archive/ArchiveSource.h"
#include "zip/FileBytes.h"

namespace archive {
namespace {

struct Session {
    std::string path;
    zip::FileStamp stamp;
    std::shared_ptr<const MemberSource> source;
};
/// The oldest is closed when another one is needed: a descriptor may name a thousand archives, and a host may have
/// few descriptors left.
constexpr std::size_t kMostOpen = 12;

struct Sessions {
    std::deque<Session> open;  ///< the oldest first
    std::shared_ptr<zip::OutputBudget> budget;
};

/// Of the thread's outermost request; null outside of one.
thread_local Sessions* sessions = nullptr;

Session openSession(const std::string& path, std::shared_ptr<zip::OutputBudget> budget) {
    auto bytes = std::make_unique<zip::FileBytes>(path);
    const zip::FileStamp stamp = bytes->stamp();
    auto archive = std::make_unique<zip::Archive>(std::move(bytes), path);
    return {path, stamp, std::make_shared<ArchiveSource>(std::move(archive), std::move(budget))};
}

bool isCurrent(const Session& session) {
    struct stat status {};
    return ::stat(session.path.c_str(), &status) == 0 && zip::FileStamp(status) == session.stamp;
}

}  // namespace

Request::Request(std::uint64_t budget) : isOutermost_(!sessions) {
    if (isOutermost_) sessions = new Sessions{{}, std::make_shared<zip::OutputBudget>(budget)};
}

Request::~Request() {
    if (isOutermost_) delete std::exchange(sessions, nullptr);
}

std::shared_ptr<const MemberSource> open(const std::string& path) {
    if (!sessions) return openArchive(path);
    std::deque<Session>& known = sessions->open;
    const auto at = std::ranges::find(known, path, &Session::path);
    if (at != known.end() && isCurrent(*at)) return at->source;
    if (at != known.end()) known.erase(at);
    if (known.size() == kMostOpen) known.pop_front();
    return known.emplace_back(openSession(path, sessions->budget)).source;
}

}  // namespace archive
