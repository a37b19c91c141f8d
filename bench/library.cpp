// The library's parts against what they stand in for. usage: bench_library (in the directory that gen.py filled)
#include <benchmark/benchmark.h>
#include <expat.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <boost/property_tree/json_parser.hpp>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>

#include "ByLibzip.h"
#include "archive/ArchiveSource.h"
#include "json/JsonText.h"
#include "platform/PlatformCheck.h"
#include "platform/PlatformLoader.h"
#include "records/TEQCfaXmlLMX.h"
#include "xml/XmlReader.h"
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

/// Times `work` in a process of its own, as a one-shot tool sees it: fresh memory, page faults included. What it
/// gives is not destroyed.
template <class Work>
void inFreshProcesses(benchmark::State& state, Work work) {
    for (auto _ : state) {
        int ends[2];
        if (pipe(ends) != 0) std::abort();
        const pid_t child = fork();
        if (child == 0) {
            const auto start = std::chrono::steady_clock::now();
            const auto result = work();
            benchmark::DoNotOptimize(&result);
            const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
            _exit(write(ends[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
        }
        double seconds = 0;
        if (read(ends[0], &seconds, sizeof seconds) != sizeof seconds) std::abort();
        waitpid(child, nullptr, 0);
        close(ends[0]);
        close(ends[1]);
        state.SetIterationTime(seconds);
    }
}

void textToTreeFresh(benchmark::State& state, const char* file) {
    const std::string text = contentOf(file);
    inFreshProcesses(state, [&] {
        auto tree = std::make_unique<json::ptree>();  // its end is not timed
        json::parse(text, file, *tree);
        return tree;
    });
}
BENCHMARK_CAPTURE(textToTreeFresh, 400k, "m400k.json")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(textToTreeFresh, 4m, "m4m.json")->UseManualTime()->Unit(benchmark::kMillisecond);

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
        const zip::Archive archive("a5000.lfa");
        benchmark::DoNotOptimize(archive.read(*archive.find("lfa.json")));
    }
}
BENCHMARK(openAndReadOne)->Unit(benchmark::kMillisecond);

void openAndReadOneByLibzip(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(readByLibzip("a5000.lfa", "lfa.json"));
}
BENCHMARK(openAndReadOneByLibzip)->Unit(benchmark::kMillisecond);

void loadClean(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(
            teq_platform::PlatformLoader("aclean.lfa", teq_platform::HwMetadataMode::Default).load());
}
BENCHMARK(loadClean)->Unit(benchmark::kMillisecond);

void checkClean(benchmark::State& state) {
    for (auto _ : state)
        if (!teq_platform::PlatformCheck::check("aclean.lfa").empty()) std::abort();
}
BENCHMARK(checkClean)->Unit(benchmark::kMillisecond);

void load(benchmark::State& state, const char* archive) {
    inFreshProcesses(state, [&] {
        auto platform = teq_platform::PlatformLoader(archive, teq_platform::HwMetadataMode::Default).load();
        if (!platform) std::abort();
        return platform;
    });
}
BENCHMARK_CAPTURE(load, by_json, "byjson.lfa")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, by_xml, "byxml.lfa")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, ports_5000, "ports5000.lfa")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, ports_50000, "ports50000.lfa")->UseManualTime()->Unit(benchmark::kMillisecond);

void xmlToRecords(benchmark::State& state) {
    const std::string text = contentOf("older400k.xml");
    for (auto _ : state) benchmark::DoNotOptimize(xml::read(BasePlatform::kDocument, text, "older400k.xml"));
}
BENCHMARK(xmlToRecords)->Unit(benchmark::kMillisecond);

/// The least that it can be: a parser with namespaces that looks at nothing.
void xmlByExpat(benchmark::State& state) {
    const std::string text = contentOf("older400k.xml");
    for (auto _ : state) {
        XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
        if (XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1) != XML_STATUS_OK) std::abort();
        XML_ParserFree(parser);
    }
}
BENCHMARK(xmlByExpat)->Unit(benchmark::kMillisecond);

constexpr const char* kCopy = "copy.bit";

void copyOut(benchmark::State& state) {
    for (auto _ : state) {
        archive::open("abig.lfa")->copyOut("bit/full.bit", kCopy);
        state.PauseTiming();
        unlink(kCopy);
        state.ResumeTiming();
    }
}
BENCHMARK(copyOut)->Unit(benchmark::kMillisecond);

/// The least that it can be: a zlib loop with blocks of 256 KiB that checks nothing.
void copyOutByZlib(benchmark::State& state) {
    const zip::Archive archive("abig.lfa");
    const zip::Member& member = *archive.find("bit/full.bit");
    constexpr std::size_t kBlock = 256 * 1024;
    std::string in(kBlock, '\0'), out(kBlock, '\0');
    for (auto _ : state) {
        const int from = open("abig.lfa", O_RDONLY | O_CLOEXEC);
        const int to = open(kCopy, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        auto at = static_cast<off_t>(member.headerOffset + 30 + member.name.size());
        z_stream stream{};
        inflateInit2(&stream, -MAX_WBITS);
        for (int result = Z_OK; result == Z_OK;) {
            if (stream.avail_in == 0) {
                stream.avail_in = static_cast<uInt>(pread(from, in.data(), kBlock, at));
                stream.next_in = reinterpret_cast<Bytef*>(in.data());
                at += stream.avail_in;
            }
            stream.next_out = reinterpret_cast<Bytef*>(out.data());
            stream.avail_out = kBlock;
            result = inflate(&stream, Z_NO_FLUSH);
            if (write(to, out.data(), kBlock - stream.avail_out) < 0) std::abort();
        }
        inflateEnd(&stream);
        close(from);
        close(to);
        state.PauseTiming();
        unlink(kCopy);
        state.ResumeTiming();
    }
}
BENCHMARK(copyOutByZlib)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
