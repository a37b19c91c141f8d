// Questions on a platform against its load. usage: bench_questions (in the directory that gen.py filled)
#include <benchmark/benchmark.h>

#include <sstream>

#include "platform/HPLPlatform.h"
#include "platform/HTEQCfaXmlReader.h"
#include "platform/HTEQEmulationUtils.h"
#include "platform/PlatformPolicy.h"
#include "platform/PlatformQueries.h"
#include "platform/PlatformRequests.h"
#include "util/HUTFile.h"

namespace {

namespace requests = teq_platform::requests;
constexpr const char* kFile = "a400k.zdf";

std::shared_ptr<HTEQPlatform> loaded() {
    const requests::Scope scope;
    return requests::load(kFile, teq_platform::HwMetadataMode::Default);
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
    const requests::Questions known(*platform, kFile);
    for (const std::string& key : known.keys())
        if (key.find('[') == std::string::npos && known.answer(key).kind == requests::Questions::Answer::Kind::value)
            paths.push_back(key);
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

/// The platform that the scripts of an emulation are made for.
void readForScripts(benchmark::State& state) {
    for (auto _ : state) {
        HPLPlatform platform;
        HTEQCfaXmlReader("byxml.lfa", &platform).readCFA();
        benchmark::DoNotOptimize(platform);
    }
}
BENCHMARK(readForScripts)->Unit(benchmark::kMillisecond);

void bothScripts(benchmark::State& state) {
    HPLPlatform platform;
    HTEQCfaXmlReader("byxml.lfa", &platform).readCFA();
    if (!HUTFile::exists("properties.json")) state.SkipWithError("properties.json is missing");
    for (auto _ : state) {
        std::ostringstream properties, driver;
        std::string custom;
        HTEQEmulationUtils::writeEmuPropertiesDict(&platform, "properties.json", "", "", "", "", properties,
                                                   "byxml.lfa", true, custom);
        HTEQEmulationUtils::writeEmuUpdateCfa(driver, "properties.tcl", "overlay", "", "pre.tcl", "post.tcl", true);
        benchmark::DoNotOptimize(properties.str().size() + driver.str().size());
    }
}
BENCHMARK(bothScripts)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
