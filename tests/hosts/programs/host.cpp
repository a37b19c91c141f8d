// A host of the library, as strange as its arguments say: host OUT FILE [SETTING...]. Writes the document of FILE,
// and what the platform's files give, to OUT. Exit: 0, 3 for a null result, 4 for an exception.
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <string>

#include <platform/HTEQHardwarePlatform.h>
#include <platform/HTEQPlatform.h>
#include <platform/HTEQPlatformCAPI.h>
#include <platform/PlatformLoader.h>
#include <util/HUTEnv.h>

namespace {

void limit(int resource, rlim_t soft) {
    rlimit limits{};
    ::getrlimit(resource, &limits);
    limits.rlim_cur = std::min(soft, limits.rlim_max);
    ::setrlimit(resource, &limits);
}

void setLocale(const std::string& name) {
    if (!std::setlocale(LC_ALL, name.c_str())) std::exit(90);
    std::locale::global(std::locale(name));
}

void apply(const std::string& setting) {
    const auto equals = setting.find('=');
    const std::string name = setting.substr(0, equals),
                      value = equals == std::string::npos ? "" : setting.substr(equals + 1);
    if (name == "locale") return setLocale(value);
    if (name == "umask") return static_cast<void>(::umask(static_cast<mode_t>(std::stoul(value, nullptr, 8))));
    if (name == "files") return limit(RLIMIT_NOFILE, std::stoul(value));
    if (name == "memory") return limit(RLIMIT_AS, std::stoul(value) << 20);
    if (name == "disk") {  // as a full one
        std::signal(SIGXFSZ, SIG_IGN);
        return limit(RLIMIT_FSIZE, std::stoul(value));
    }
    if (name == "closed") {
        for (const int stream : {0, 1, 2}) ::close(stream);
        return;
    }
    if (name == "fork") return;
    std::exit(91);
}

/// The document, and what needs the temporary directory.
int answer(const char* file, std::string& text) try {
    char* const document = hteq_get_platform_json(file);
    if (!document) return 3;
    text += document;
    hteq_free_json_string(document);
    const auto platform = teq_platform::PlatformLoader(file, teq_platform::HwMetadataMode::Default).load();
    if (const HTEQHardwarePlatform* hardware = platform->getHardwarePlatform()) {
        text += "partitions " + std::to_string(hardware->getTilPartitions().size()) + "\n";
        text += std::string("repository ") + (hardware->getBoardRepo().empty() ? "no" : "yes") + "\n";
    }
    return 0;
} catch (const std::exception& e) {
    text += e.what();
    return 4;
}

/// The same in a child, whose end must not take the parent's temporary directory away.
int answerAcrossFork(const char* file, std::string& text) {
    int code = answer(file, text);
    const std::string directory = HUTEnv::getJUNTmpDir();
    const pid_t child = ::fork();
    if (child == 0) {
        std::string again;
        const int result = answer(file, again);
        std::exit(result == code && again == text && HUTEnv::getJUNTmpDir() != directory ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (status != 0 || !std::filesystem::is_directory(directory)) code = 5;
    return code;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) return 2;
    bool forks = false;
    for (int i = 3; i < count; ++i) {
        apply(arguments[i]);
        forks |= arguments[i] == std::string("fork");
    }
    std::string text;
    const int code = forks ? answerAcrossFork(arguments[2], text) : answer(arguments[2], text);
    limit(RLIMIT_FSIZE, RLIM_INFINITY);
    std::ofstream out;
    out.imbue(std::locale::classic());
    out.open(arguments[1], std::ios::binary);
    out << text;
    return out ? code : 92;
}
