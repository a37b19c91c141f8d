// The library's parts against what they stand in for. usage: bench_library (in the directory that gen.py filled)
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <libdeflate.h>
#include <unistd.h>
#include <zip.h>
#include <zlib.h>

#include <boost/property_tree/json_parser.hpp>
#include <fstream>
#include <sstream>

#include "json/JsonText.h"
#include "zip/Archive.h"

namespace {

std::string contentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void textToTree(benchmark::State& state, const char* file) {
    const std::string text = contentOf(file);
    for (auto _ : state) {
        json::ptree tree;
        json::parse(text, file, tree);
        benchmark::DoNotOptimize(tree);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK_CAPTURE(textToTree, 400k, "m400k.json")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(textToTree, 4m, "m4m.json")->Unit(benchmark::kMillisecond);

void textToTreeByTheTree(benchmark::State& state) {
    const std::string text = contentOf("m400k.json");
    for (auto _ : state) {
        std::istringstream in(text);
        json::ptree tree;
        boost::property_tree::read_json(in, tree);
        benchmark::DoNotOptimize(tree);
    }
}
BENCHMARK(textToTreeByTheTree)->Unit(benchmark::kMillisecond);

void treeToText(benchmark::State& state) {
    json::ptree tree;
    json::parse(contentOf("m400k.json"), "", tree);
    for (auto _ : state) benchmark::DoNotOptimize(json::write(tree));
}
BENCHMARK(treeToText)->Unit(benchmark::kMillisecond);

void openAndReadOne(benchmark::State& state) {
    for (auto _ : state) {
        const auto archive = zip::Archive::open("a5000.lfa");
        benchmark::DoNotOptimize(archive->read(*archive->find("lfa.json")));
    }
}
BENCHMARK(openAndReadOne)->Unit(benchmark::kMillisecond);

void openAndReadOneByLibzip(benchmark::State& state) {
    for (auto _ : state) {
        int error = 0;
        zip_t* const archive = zip_open("a5000.lfa", ZIP_RDONLY, &error);
        zip_stat_t status;
        zip_stat(archive, "lfa.json", 0, &status);
        std::string text(status.size, '\0');
        zip_file_t* const file = zip_fopen_index(archive, status.index, 0);
        zip_fread(file, text.data(), text.size());
        zip_fclose(file);
        zip_discard(archive);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(openAndReadOneByLibzip)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
