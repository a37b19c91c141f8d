// Each sample's document against the one that was written by hand from the sample's sources.
#include <gtest/gtest.h>

#include <platform/HTEQPlatformCAPI.h>

#include <filesystem>
#include <string>

#include "samples/ExpectedText.h"

namespace {

struct Sample {
    const char* file;      ///< below the packed samples
    const char* expected;  ///< below examples/expected, without its extension
};

constexpr Sample kSamples[] = {
    {"u77/u77_gen3x16_base_1.zdf", "u77"}, {"heron/heron.zdf", "heron"},   {"osprey/osprey.zdf", "osprey"},
    {"lone/kestrel.lfa", "kestrel"},       {"lone/lorica.spfm", "lorica"}, {"harrier/harrier.zdf", "harrier"},
    {"lone/dunlin_pre.cfa", "dunlin_pre"}, {"lone/merlin.lfa", "merlin"},
};

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

/// The document with the sample's directory as @DIR@, as JSON writes it.
std::string documentOf(const std::filesystem::path& file, char* (*function)(const char*)) {
    char* const text = function(file.c_str());
    if (!text) return "no document";
    const std::string document = text;
    hteq_free_json_string(text);
    return replaced(document, replaced(file.parent_path().string(), "/", "\\/"), "@DIR@");
}

class Documents : public testing::TestWithParam<Sample> {};

TEST_P(Documents, EqualTheHandWrittenOnes) {
    const auto file = std::filesystem::canonical(std::filesystem::path(ZR_SAMPLES) / GetParam().file);
    const std::string name = GetParam().expected;
    expectText(documentOf(file, hteq_get_platform_json), name + ".json");
    expectText(documentOf(file, hteq_get_short_platform_json), name + ".short.json");
}

INSTANTIATE_TEST_SUITE_P(Samples, Documents, testing::ValuesIn(kSamples),
                         [](const auto& info) { return std::string(info.param.expected); });

}  // namespace
