// Questions on a platform against its load. usage: bench_questions (in the directory that gen.py filled)
#include <benchmark/benchmark.h>

#include <filesystem>

#include "platform/HTEQTmpDirObject.h"
#include "platform/PlatformCatalog.h"
#include "platform/PlatformPolicy.h"
#include "platform/PlatformQueries.h"
#include "platform/PlatformRequests.h"

namespace {

namespace fs = std::filesystem;
namespace requests = teq_platform::requests;
constexpr const char* kFile = "a400k.zdf";

std::shared_ptr<HTEQPlatform> loaded(const std::string& file = kFile) {
    const requests::Scope scope;
    return requests::load(file, teq_platform::HwMetadataMode::Default);
}

void loadOnly(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(loaded());
}
BENCHMARK(loadOnly)->Unit(benchmark::kMillisecond);

void loadAndDocument(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(requests::document(*loaded(), kFile, requests::Form::full));
}
BENCHMARK(loadAndDocument)->Unit(benchmark::kMillisecond);

void loadAndPaths(benchmark::State& state) {
    HSTVector<std::string> paths;
    const auto platform = loaded();
    for (const std::string& key : requests::Questions(*platform, kFile).keys())
        if (key.find('[') == std::string::npos && paths.size() < 100) paths.push_back(key);
    std::erase_if(paths,
                  [](const std::string& path) { return path.starts_with("hardwarePlatforms") && path.size() < 36; });
    for (auto _ : state) {
        const auto asked = loaded();
        const requests::Questions questions(*asked, kFile);
        for (long i = 0; i < state.range(0); ++i) {
            std::string path = paths[static_cast<std::size_t>(i) % paths.size()];
            if (i % 2) path = "hardwarePlatform.busInterfaces[" + std::to_string(i % 50) + "].name";
            benchmark::DoNotOptimize(questions.answer(path));
        }
    }
}
BENCHMARK(loadAndPaths)->Arg(1)->Arg(1000)->Unit(benchmark::kMillisecond);

void verdictOfLoaded(benchmark::State& state) {
    const auto platform = loaded();
    for (auto _ : state) benchmark::DoNotOptimize(requests::warranty(platform));
}
BENCHMARK(verdictOfLoaded)->Unit(benchmark::kMicrosecond);

/// A repository of platforms, each a link to the one of 40 KB.
class Repository {
public:
    Repository() {
        for (int i = 0; i < 100; ++i) {
            const fs::path folder = fs::path(scratch_.get()) / ("p" + std::to_string(i));
            fs::create_directory(folder);
            fs::copy_file("a40k.zdf", folder / ("p" + std::to_string(i) + ".zdf"));
            for (const auto& entry : fs::directory_iterator("."))
                if (entry.path().stem() == "a40k" && entry.path().extension() != ".zdf")
                    fs::create_symlink(fs::absolute(entry.path()), folder / entry.path().filename());
            files.push_back(folder / ("p" + std::to_string(i) + ".zdf"));
        }
    }
    std::string path() const { return scratch_.get(); }
    std::vector<std::string> files;

private:
    HTEQTmpDirObject scratch_{"repository"};
};

void loadsOf100(benchmark::State& state) {
    const Repository repository;
    for (auto _ : state)
        for (const std::string& file : repository.files) benchmark::DoNotOptimize(loaded(file));
}
BENCHMARK(loadsOf100)->Unit(benchmark::kMillisecond);

void catalogOf100(benchmark::State& state) {
    const Repository repository;
    std::size_t reports = 0;
    for (auto _ : state)
        requests::catalog({.where = {{repository.path()}, false}, .isDetailed = true},
                          [&reports](const requests::CatalogEntry& entry) { reports += !entry.report.empty(); });
    if (reports != 100 * static_cast<std::size_t>(state.iterations())) state.SkipWithError("reports are missing");
}
BENCHMARK(catalogOf100)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
