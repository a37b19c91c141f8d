// The services on documents. What the cases give is the text of a document.
#include <gtest/gtest.h>

#include "json/JsonText.h"
#include "kit/Capture.h"
#include "kit/Cases.h"
#include "kit/Platforms.h"
#include "msg/HEXAll.h"
#include "platform/HTEQPlatform.h"
#include "platform/NativeDictService.h"
#include "platform/NativeDocService.h"
#include "platform/NativeKeyService.h"
#include "platform/NativeObjectService.h"
#include "platform/NativeTransformService.h"
#include "platform/PathToken.h"
#include "platform/PlatformLoader.h"
#include "services/DocumentTree.h"
#include "services/KeyPattern.h"
#include "services/TreeWalk.h"
#include "util/HUTEnv.h"

namespace {

using namespace teq::platform;
using services::parsed;
using services::ptree;

const std::string kCases = ZR_SOURCE_DIR "/tests/cases/services/";

std::string documentNamed(const std::string& name) {
    const std::string own = contentOf(kCases + name + ".json");
    return own.empty() ? contentOf(ZR_SOURCE_DIR "/examples/expected/" + name + ".json") : own;
}

std::string answerInTree(const ptree& tree, const std::string& path) {
    const auto node = NativeObjectService().getChildOptional(tree, path);
    if (!node) return "none";
    const std::string size = std::to_string(node->size());
    return node->empty() ? "= " + node->data() : services::isObject(*node) ? "{" + size + "}" : "[" + size + "]";
}

/// "tree" in a case's name asks the operations on a tree, whose answers have no "= " before a list or an object.
std::string answer(const std::string& name, const std::string& path) {
    const std::string document = documentNamed(name.substr(0, name.find(' ')));
    if (name.ends_with(" tree")) {
        const std::string found = answerInTree(parsed(document), path);
        return found[0] == '=' || found == "none" ? found : "= " + found;
    }
    bool found = false;
    const std::string text = NativeObjectService().getObjectsByPath(document, path, found);
    return found ? "= " + text : "none";
}

TEST(PathLanguage, GivesTheAnswersOfTheTable) { cases::expectTexts(kCases + "paths.case", answer); }

TEST(PathLanguage, TakesPathsOfAnySize) {
    const std::string document = R"({"a": {"b": "1"}})";
    const NativeObjectService objects;
    for (const std::string& path :
         {repeated(".", 1 << 20) + "a.b", repeated("[*]", 1 << 18) + "a.b" + repeated("[]", 1 << 18),
          "a" + repeated("[0000000]", 1) + repeated(".", 100'000) + "b"})
        EXPECT_EQ(objects.getObjectsByPath(document, path), "1");
    for (const std::string& path : {std::string(1 << 20, 'a'), repeated("a.", 1 << 19), repeated("[", 1 << 20),
                                    repeated("]", 1 << 20), "a[" + std::string(1 << 20, '9') + "].c"})
        EXPECT_EQ(objects.getObjectsByPath(document, path), "");
}

std::string orNone(const std::string& text) { return text.empty() ? "<>" : text; }

template <class Range, class Print>
std::string joined(const Range& range, Print print) {
    std::string text;
    for (const auto& item : range) text += (text.empty() ? "" : " ") + print(item);
    return text;
}

std::string scanned(const std::string& path) {
    return joined(scanJsonPath(path), [](const PathToken& token) {
        return orNone(token.name) + (token.hasIndex ? "#" + std::to_string(token.index) : "");
    });
}

std::string dictOf(const std::string& document, const std::string& prefix) {
    return joined(NativeDictService().getAsDict(parsed(document), prefix),
                  [](const auto& entry) { return orNone(entry.first) + "=" + entry.second; });
}

std::string documentation(const std::string& key) {
    ptree tree = parsed(R"({"documentation_keys": {"a": {"b[]": {"c": "C"}, "d": "D"}}})");
    std::ostringstream printed;
    std::streambuf* const before = std::cerr.rdbuf(printed.rdbuf());
    std::string valid;
    try {
        valid = NativeDocService().isValidDocKey(tree, key) ? "yes, " : "no, ";
    } catch (const std::out_of_range&) {
        valid = "out of range";
    }
    std::cerr.rdbuf(before);
    if (valid == "out of range") return valid;
    const ptree branch = NativeDocService().getDocKeyBranch(tree, key);
    return printed.str() + valid + (branch.count("d") ? "d=" + branch.get<std::string>("d") : "=" + branch.data());
}

std::string entriesOf(const std::string& text) {
    const Scratch scratch;
    const std::string file = scratch.put(".json", text);
    try {
        return std::to_string(NativeTransformService().getObjectsBySpec("no such platform", file));
    } catch (const boost::property_tree::ptree_bad_path& e) {
        return e.what();
    } catch (const boost::property_tree::json_parser::json_parser_error&) {
        return "not JSON";
    }
}

std::string made(const std::string& name, const std::string& text) {
    if (name.starts_with("scan")) return scanned(text);
    if (name.starts_with("mark")) return withoutMarkers(text);
    if (name.starts_with("index")) return services::withAnyIndex(text);
    if (name.starts_with("keys")) return joined(NativeKeyService().get(parsed(text)), orNone);
    if (name == "dict of a branch at p") return dictOf(text, "p");
    if (name.starts_with("dict")) return dictOf(text, "");
    return name.starts_with("doc") ? documentation(text) : entriesOf(text);
}

TEST(Services, GiveTheTextsOfTheCases) { cases::expectTexts(kCases + "functions.case", made); }

/// A descriptor with an archive, and the three services that take files.
TEST(Services, TakeFilesByTheirNames) {
    const Scratch scratch;
    packed(scratch, "x.lfa",
           {{"lfa.json", R"({"name": "n", "boardId": "b", "files": [{"name": "f", "type": "DCP"}]})"}, {"f", ""}});
    scratch.put("sw.spfm", kSoftware);
    const std::string file =
        scratch.put("p.zdf", descriptor("<teq:hardwarePlatforms>" + fileElement("hardwarePlatform", "x.lfa") +
                                        "</teq:hardwarePlatforms>"));
    const NativeObjectService objects;
    const auto nameIn = [&](const std::string& name, const std::string& path) {
        return objects.getStringValue(objects.getAsPropertyTree(scratch / name), path);
    };
    EXPECT_EQ(nameIn("p.zdf", "hardwarePlatform.boardId"), "b");
    EXPECT_EQ(nameIn("x.lfa", "boardId"), "b");
    EXPECT_EQ(nameIn("sw.spfm", "systemConfigurations[0].prettyName"), "C");
    EXPECT_EQ(objects.getAsJsonStr(""), "");
    EXPECT_EQ(objects.getAsJsonStr(scratch / "x.json"), "");
    EXPECT_TRUE(objects.getAsPropertyTree(scratch / "gone.zdf").empty());
    EXPECT_THROW(objects.getAsJsonStr(scratch / "gone.zdf"), HEXFileNotFoundException);

    teq_platform::PlatformLoader loader(file, teq_platform::HwMetadataMode::Default);
    bool found = true;
    EXPECT_EQ(objects.getObjectsByPath(nullptr, "vendor", found) + objects.getObjectsByPath(&loader, "", found), "");
    EXPECT_TRUE(found);  // nothing was asked
    EXPECT_EQ(objects.getObjectsByPath(&loader, "hardwarePlatform.name", found), "n");
    EXPECT_EQ(services::documentTree(*loader.load()), parsed(objects.getAsJsonStr(&loader)));
    EXPECT_FALSE(objects.hasNodeAtPath(objects.getAsJsonStr(&loader), "hardwarePlatform"));

    const NativeKeyService keys;
    EXPECT_TRUE(keys.get(scratch / "x.lfa").contains("hardwarePlatforms.hardwarePlatform.files[].type"));
    EXPECT_NE(keys.getAsJsonStr(&loader).find("{\n    \"keys\": [\n        \"description\",\n"), std::string::npos);
    EXPECT_TRUE(keys.get(static_cast<teq_platform::PlatformLoader*>(nullptr)).empty());

    const NativeDictService dicts;
    using Dict = NativeDictService::Dict;
    EXPECT_EQ(dicts.getAsDict(file, "hardwarePlatform.files", found),
              (Dict{{"hardwarePlatform.files[0].name", "f"}, {"hardwarePlatform.files[0].type", "DCP"}}));
    EXPECT_EQ(dicts.getFilteredDict(scratch / "x.lfa", ""), (Dict{{"files[0].name", "f"}, {"files[0].type", "DCP"}}));
    EXPECT_TRUE(dicts.getFilteredDict(scratch / "x.lfa", "", {}).empty());
    EXPECT_TRUE(dicts.getAsDict(file, "nowhere", found).empty() && !found);
    EXPECT_TRUE(dicts.getAsDict(scratch / "gone.zdf", "", found).empty() && found);
}

TEST(Services, BooleansInTrees) {
    const ptree tree = parsed(R"({"yes": "true", "one": 1, "no": "false", "other": "maybe"})");
    const NativeObjectService objects;
    EXPECT_TRUE(objects.getBoolValue(tree, "yes") && objects.getBoolValue(tree, "one"));
    EXPECT_FALSE(objects.getBoolValue(tree, "no") || objects.getBoolValue(tree, "gone"));
    EXPECT_THROW(objects.getBoolValue(tree, "other"), boost::property_tree::ptree_bad_data);
    EXPECT_TRUE(objects.getBoolValue(tree, "other", true) && objects.getBoolValue(tree, "gone", true));
    EXPECT_FALSE(objects.getBoolValue(tree, "no", true));
}

TEST(Services, KeysOfADeepDocumentHaveALimit) {
    const std::string key(400'000, 'k');
    EXPECT_THROW(NativeKeyService().get(parsed(repeated("{\"" + key + "\":", 60) + "0" + std::string(60, '}'))),
                 HEXDataException);
}

}  // namespace
