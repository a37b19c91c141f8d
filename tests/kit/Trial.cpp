#include "kit/Trial.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#include <boost/core/demangle.hpp>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <set>
#include <sstream>
#include <typeinfo>

#include "kit/HostState.h"
#include "kit/Platforms.h"
#include "msg/ComMsgMgr.h"
#include "platform/HTEQPlatformCAPI.h"
#include "platform/zr_platform.hpp"
#include "text/HSTStringUtils.h"
#include "util/HUTEnv.h"

namespace fs = std::filesystem;

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::size_t kStack = 1024UL * 1024;
constexpr double kMaxSeconds = 60;
#else
constexpr std::size_t kStack = 256UL * 1024;
constexpr double kMaxSeconds = 10;
#endif

struct Call {
    const std::function<void()>& work;
    pid_t thread;
};

void* runCall(void* argument) {
    Call& call = *static_cast<Call*>(argument);
    call.thread = ::gettid();
    call.work();
    return nullptr;
}

/// Takes what the readers print.
class Printed {
public:
    Printed() : before_(std::cout.rdbuf(text_.rdbuf())) {}
    ~Printed() { std::cout.rdbuf(before_); }
    Printed(const Printed&) = delete;
    Printed& operator=(const Printed&) = delete;
    std::string text() const { return text_.str(); }

private:
    std::ostringstream text_;
    std::streambuf* before_;
};

void takeDocument(const std::string& path, Answer& answer) {
    try {
        char* const text = hteq_get_platform_json(path.c_str());
        answer.outcome = text ? "loads" : "null";
        if (text) answer.document = text;
        hteq_free_json_string(text);
    } catch (const std::exception& e) {
        answer.outcome = boost::core::demangle(typeid(e).name());
        answer.words += e.what() + std::string("\n");
    }
}

/// A call of the C interface fails with what a file may cause, names the file, and says why in one line.
template <class Call>
void tryByC(const Call& call) {
    try {
        call();
    } catch (const zr::Error& e) {
        EXPECT_TRUE(e.code() == ZR_BAD_INPUT || e.code() == ZR_NOT_FOUND || e.code() == ZR_ENVIRONMENT) << e.what();
        EXPECT_FALSE(e.file().empty() || e.text().empty()) << e.what();
        EXPECT_EQ(e.text().find('\n'), std::string::npos) << e.what();
    }
}

/// The same file by the calls of the C interface, which answer as the public road does.
void checkByC(const std::string& path, const Answer& answer) {
    const Messages messages;
    const Printed printed;
    std::string document;
    bool isFaulty = false;
    onSmallStack([&] {
        tryByC([&] { document = zr::Platform(path).document(); });
        tryByC([&] {
            for (const zr::Finding& finding : zr::validate(path)) {
                EXPECT_EQ(finding.text.find('\n'), std::string::npos) << finding.text;
                isFaulty |= finding.severity == ZR_ERROR;
            }
        });
        tryByC([&] { zr::Archive(path).verify(); });
    });
    EXPECT_EQ(document, answer.document);
    EXPECT_TRUE(answer.outcome == "loads" || isFaulty)
        << "does not load, and validates: " << answer.outcome << " " << answer.words;
    EXPECT_EQ(printed.text(), "");
}

}  // namespace

void onSmallStack(const std::function<void()>& call) {
    pthread_attr_t attributes;
    ::pthread_attr_init(&attributes);
    ASSERT_EQ(::pthread_attr_setstacksize(&attributes, kStack), 0);
    pthread_t thread{};
    Call running{call, 0};
    ASSERT_EQ(::pthread_create(&thread, &attributes, runCall, &running), 0);
    ::pthread_join(thread, nullptr);
    ::pthread_attr_destroy(&attributes);
    // The kernel lists the thread a little longer.
    while (fs::exists("/proc/self/task/" + std::to_string(running.thread))) ::sched_yield();
}

Answer ask(const std::string& path) {
    Answer answer;
    const Messages messages;
    const Printed printed;
    const auto start = std::chrono::steady_clock::now();
    onSmallStack([&] { takeDocument(path, answer); });
    answer.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    for (const auto& message : messages.taken) answer.words += message.text + "\n";
    answer.words += printed.text();
    return answer;
}

Place& Place::get() {
    static Place* const place = new Place;  // outlives the library's own statics
    static const struct Gone {
        ~Gone() { delete place; }
    } gone;
    return *place;
}

Place::Place() {
    fs::create_directories(scratch_ / "deep/er/tmp");
    ::setenv("TMPDIR", (scratch_ / "deep/er/tmp").c_str(), 1);
    good_ = packed(scratch_, "good.lfa",
                   {{"lfa.json", R"({"name": "good", "memories": [{"name": "m", "size": "4 GB"}]})"}});
}

std::string Place::fresh() {
    const std::string name = "deep/er/case" + std::to_string(++count_);
    fs::create_directory(scratch_ / name);
    return scratch_ / name;
}

std::string Place::leftovers() const {
    std::string text;
    for (const auto& entry : fs::recursive_directory_iterator(scratch_ / "deep/er/tmp"))
        if (!entry.is_directory() || entry.is_symlink()) text += entry.path().native() + "\n";
    return text;
}

std::string Place::state() const {
    std::set<std::string> lines;
    for (auto at = fs::recursive_directory_iterator(scratch_.str()); at != fs::recursive_directory_iterator(); ++at) {
        if (at->path().native() == scratch_ / "deep/er/tmp") at.disable_recursion_pending();
        struct stat status {};
        ::lstat(at->path().c_str(), &status);
        std::ostringstream line;
        line << at->path().native() << " " << status.st_mode << " " << status.st_nlink;
        if (S_ISREG(status.st_mode))
            line << " " << status.st_size << " " << status.st_mtim.tv_sec << "." << status.st_mtim.tv_nsec;
        lines.insert(line.str());
    }
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

Answer tried(const std::string& path) {
    Place& place = Place::get();
    static const std::string good = ask(place.good()).document;
    EXPECT_NE(good.find("4 GB"), std::string::npos) << good;
    const std::string files = place.state(), host = hostState();
    Answer answer = ask(path);
    EXPECT_EQ(hostState(), host);
    EXPECT_EQ(place.state(), files);
    EXPECT_EQ(place.leftovers(), "");
    checkByC(path, answer);
    EXPECT_EQ(hostState(), host);
    EXPECT_EQ(place.state(), files);
    EXPECT_EQ(place.leftovers(), "");
    EXPECT_LT(answer.seconds, kMaxSeconds);
    static const std::set<std::string> kOutcomes{
        "loads", "null", "teq_platform::PlatformParseException", "HEXFileNotFoundException",
        "boost::wrapexcept<boost::property_tree::json_parser::json_parser_error>"};
    EXPECT_TRUE(kOutcomes.contains(answer.outcome)) << answer.outcome << ": " << answer.words;
    EXPECT_TRUE(answer.outcome == "loads" || !answer.words.empty()) << "a failure without words";
    EXPECT_EQ(ask(place.good()).document, good);
    return answer;
}

void expectAnswer(const std::string& path, const std::string& outcome, const std::string& words) {
    const Answer answer = tried(path);
    EXPECT_NE(answer.outcome.find(outcome), std::string::npos) << answer.outcome << ": " << answer.words;
    EXPECT_NE(answer.words.find(words), std::string::npos) << answer.words;
    for (const std::string& line : HSTStringUtils::split(answer.words, '\n'))
        EXPECT_EQ(HSTStringUtils::printable(line), line) << "what a terminal would obey";
}

void expectAnswers(const std::string& file, const std::function<std::string(const cases::Case&)>& place) {
    for (const cases::Case& each : cases::read(ZR_SOURCE_DIR "/tests/cases/hostile/" + file)) {
        SCOPED_TRACE(file + ": " + each.name);
        const cases::Line& last = each.lines.back();
        expectAnswer(place(each), last.word == "any" ? "" : last.word, cases::plain(last.text));
    }
}
