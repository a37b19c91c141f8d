#include "platform/HTEQSoftwarePlatform.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/HTEQProcessorGroup.h"
#include "platform/HTEQSystemConfig.h"
#include "platform/JSONWriter.h"

namespace {

using Names = HSTVector<std::string>;

HTEQSystemConfig* add(HTEQSoftwarePlatform& platform, const std::string& name, const std::string& prettyName,
                      const Names& runtimes = {}, const Names& systems = {}) {
    HTEQSystemConfig* config = platform.addSystemConfig();
    config->setName(name);
    config->setPrettyName(prettyName);
    for (const std::string& runtime : runtimes) config->addRuntime(runtime);
    for (const std::string& system : systems) config->addProcessorGroup()->setOSName(system);
    return config;
}

}  // namespace

TEST(HTEQSoftwarePlatform, LastMatchByEitherName) {
    HTEQSoftwarePlatform p;
    add(p, "a", "A");
    HTEQSystemConfig* second = add(p, "x", "a");
    HTEQSystemConfig* third = add(p, "A", "z");
    EXPECT_EQ(p.getSystemConfigByName("a"), second);
    EXPECT_EQ(p.getSystemConfigByPrettyName("A"), third);  // a plain name is found too
    EXPECT_EQ(p.getSystemConfigByName("none"), nullptr);
}

TEST(HTEQSoftwarePlatform, DefaultConfiguration) {
    HTEQSoftwarePlatform p;
    EXPECT_EQ(p.getDefaultSystemConfig(), nullptr);
    EXPECT_EQ(p.getDefaultConfigName(), "");
    HTEQSystemConfig* first = add(p, "a", "A");
    HTEQSystemConfig* second = add(p, "b", "B");
    EXPECT_EQ(p.getDefaultConfigName(), "a");
    const struct {
        const char* name;
        HTEQSystemConfig* found;
    } cases[] = {{"", first}, {"b", second}, {"B", second}, {"none", first}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        p.setDefaultConfigName(c.name);
        EXPECT_EQ(p.getDefaultSystemConfig(), c.found);
    }
    EXPECT_EQ(p.getDefaultConfigName(), "none");
}

TEST(HTEQSoftwarePlatform, Runtimes) {
    HTEQSoftwarePlatform p;
    add(p, "a", "A", {"ocl", "x", "ocl"});
    add(p, "b", "B", {"cpp", "OCL"});
    Names plain = {"cpp"}, pretty;
    p.getSupportedRuntimes(plain);
    p.getSupportedRuntimesByPrettyName(pretty);
    EXPECT_EQ(plain, (Names{"cpp", "ocl", "x", "OCL"}));
    EXPECT_EQ(pretty, (Names{"OpenCL", "x", "C/C++"}));
    EXPECT_EQ(p.getNumRuntimes(), 4U);
    for (const char* name : {"ocl", "OCL", "opencl", "Cpp", "c/c++"}) EXPECT_TRUE(p.isRuntimeSupported(name)) << name;
    for (const char* name : {"", "oc", "c++", "ocl "}) EXPECT_FALSE(p.isRuntimeSupported(name)) << name;
}

TEST(HTEQSoftwarePlatform, SupportedConfigurations) {
    HTEQSoftwarePlatform p;
    add(p, "without", "");
    add(p, "one of two", "", {"x", "CPP"});
    add(p, "unknown", "", {"x", ""});
    EXPECT_TRUE(p.isSystemConfigSupported("without"));
    EXPECT_TRUE(p.isSystemConfigSupported("one of two"));
    EXPECT_FALSE(p.isSystemConfigSupported("unknown"));
    EXPECT_FALSE(p.isSystemConfigSupported("none"));
}

TEST(HTEQSoftwarePlatform, NamesByLibraryType) {
    HTEQSoftwarePlatform p;
    add(p, "linux", "", {}, {"none", "Linux", "linux"});
    add(p, "standalone", "", {}, {"STANDALONE"});
    add(p, "empty", "");
    const struct {
        const char* type;
        Names names;
    } cases[] = {
        {"Static", {"linux", "standalone", "empty"}},
        {"SHARED", {"linux"}},
        {"c-callable", {"linux", "standalone"}},
        {"dynamic", {}},
        {"", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.type);
        Names names = {"before"}, expected = {"before"};
        expected.insert(expected.end(), c.names.begin(), c.names.end());
        EXPECT_EQ(p.getSystemConfigNames(names, c.type), expected.size());
        EXPECT_EQ(names, expected);
    }
}

TEST(HTEQSoftwarePlatform, Document) {
    HTEQSoftwarePlatform p;
    p.setLinuxRootFileSystemPath("root");
    add(p, "a", "");
    teq_platform::JSONObjectWriter writer;
    p.toJSON(writer);
    std::ostringstream out;
    writer.write(out);
    EXPECT_EQ(out.str(), R"({
    "linuxRootFileSystemPath": "root",
    "defaultConfig": "a",
    "systemConfigurations": [
        {
            "name": "a",
            "qemu": "false"
        }
    ]
}
)");
}
