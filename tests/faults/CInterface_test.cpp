// Every call of the C interface with each of its allocations failing: an error, never an exception, and nothing kept.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>

#include <platform/zr_platform.h>

#include "kit/Faults.h"
#include "kit/Run.h"
#include "kit/Scratch.h"
#include "util/HUTEnv.h"

namespace fs = std::filesystem;

namespace {

/// A call, with the objects that it needs made beforehand.
class CallsWithoutMemory : public testing::Test {
protected:
    CallsWithoutMemory() {
        zr_set_message_function([](void*, const zr_message*) {}, nullptr, nullptr);
        fs::copy(std::string(ZR_SAMPLES) + "/u77", scratch_ / "u77", fs::copy_options::recursive);
        fs::copy(ZR_SOURCE_DIR "/examples/lone/kestrel.lfa", scratch_ / "in", fs::copy_options::recursive);
        fs::create_directory(all_);
        scratch_.put("bad.spfm", "<a/>");
        fs::copy(zdf_, alone_);
        source_ = scratch_.put("source", "bytes");
        zr_error* error = nullptr;
        EXPECT_EQ(zr_pack(in_.c_str(), archive_.c_str(), 0, &error), ZR_OK) << zr_error_text(error);
        EXPECT_EQ(zr_rqa_create(made_.c_str(), nullptr, &file_, 1, 0, &error), ZR_OK) << zr_error_text(error);
        EXPECT_EQ(zr_platform_load(archive_.c_str(), nullptr, &platform_, nullptr), ZR_OK);
        EXPECT_EQ(zr_archive_open(archive_.c_str(), nullptr, &opened_, nullptr), ZR_OK);
    }
    ~CallsWithoutMemory() override {
        zr_platform_free(platform_);
        zr_archive_free(opened_);
        zr_set_message_function(nullptr, nullptr, nullptr);
    }

    using Call = std::function<zr_code(zr_error**)>;
    /// A call that gives an object, which is freed again.
    template <class T>
    static Call giving(void (*release)(T*) noexcept, const std::function<zr_code(T**, zr_error**)>& call) {
        return [release, call](zr_error** error) {
            T* made = nullptr;
            const zr_code code = call(&made, error);
            const bool keepsPromise = (code == ZR_OK) == (made != nullptr) || code == ZR_REFUSED;
            release(made);
            return keepsPromise ? code : ZR_INTERNAL;
        };
    }
    static Call text(const std::function<zr_code(zr_text**, zr_error**)>& call) {
        return giving<zr_text>(zr_text_free, call);
    }
    std::map<std::string, Call> calls() const;
    void failEach(const std::string& name, const Call& call, bool andLater);

    const Scratch scratch_;
    const std::string in_ = scratch_ / "in", archive_ = scratch_ / "x.lfa",
                      zdf_ = scratch_ / "u77/u77_gen3x16_base_1.zdf";
    const std::string directory_ = scratch_ / "u77";
    const std::string alone_ = scratch_ / "alone.zdf";
    const std::string out_ = scratch_ / "out", all_ = scratch_ / "all", packed_ = scratch_ / "y.lfa";
    const std::string spec_ = scratch_.put("spec.json", R"({"spec": ["a"]})"),
                      list_ = scratch_.put("list.json", R"({"black_list": []})");
    const std::string labels_ = ZR_SOURCE_DIR "/examples/u77/hw/labels.json", hdf_ = ZR_SAMPLES "/lone/merlin.hdf",
                      emulation_ = scratch_.put("emu.json", R"({"emulations": []})"),
                      converted_ = scratch_ / "emu.xml", rqa_ = scratch_ / "a.rqa", made_ = scratch_ / "b.rqa",
                      text_ = "T=member=" + list_;
    const char* const file_ = text_.c_str();
    std::string source_;
    zr_platform* platform_ = nullptr;
    zr_archive* opened_ = nullptr;
    long points_ = 0;
    std::set<zr_code> seen_;
};

// A call with the error `error` as a function, and one that also gives a text or another object `to`.
#define CODE(call) [=, this](zr_error** error) { return call; }
#define TEXT(call) GIVEN(text, call)
#define GIVEN(what, call) \
    giving<zr_##what>(zr_##what##_free, [=, this](zr_##what** to, zr_error** error) { return call; })

std::map<std::string, CallsWithoutMemory::Call> CallsWithoutMemory::calls() const {
    const auto load = [this](const std::string& file) {
        return GIVEN(platform, zr_platform_load(file.c_str(), nullptr, to, error));
    };
    zr_search search{};
    search.size = sizeof search;
    search.path = directory_.c_str();
    search.flags = ZR_NO_DEFAULTS;
    search.type = "fennick";
    return {
        {"load", load(archive_)},
        {"load a descriptor", load(zdf_)},
        {"load a bad file", load(scratch_ / "bad.spfm")},
        {"document", TEXT(zr_platform_document(platform_, to, error))},
        {"short document", TEXT(zr_platform_short_document(platform_, to, error))},
        {"xml", TEXT(zr_platform_xml(platform_, to, error))},
        {"open", GIVEN(archive, zr_archive_open(archive_.c_str(), nullptr, to, error))},
        {"member",
         [this](auto error) {
             zr_member member{};
             member.size = sizeof member;
             return zr_archive_member(opened_, 0, &member, error);
         }},
        {"find",
         [this](auto error) {
             std::uint64_t index = 0;
             return zr_archive_find(opened_, "a long name that no small string can hold", &index, error);
         }},
        {"read", TEXT(zr_archive_read(opened_, 0, 0, to, error))},
        {"extract", CODE(zr_archive_extract(opened_, 0, out_.c_str(), ZR_OVERWRITE, error))},
        {"extract all", CODE(zr_archive_extract_all(opened_, all_.c_str(), ZR_OVERWRITE, error))},
        {"verify", GIVEN(verification, zr_archive_verify(opened_, to, error))},
        {"pack", CODE(zr_pack(in_.c_str(), packed_.c_str(), ZR_OVERWRITE, error))},
        {"set-file",
         TEXT(zr_set_file(archive_.c_str(), "ISS", "t", source_.c_str(), ZR_LOSE_KEYS, nullptr, to, error))},
        {"emulate", text([](auto to, auto error) {
             const zr_emulation how{sizeof how, "memss", ZR_SOURCE_DIR "/examples/morwen", nullptr, 0};
             return zr_emulate(ZR_SAMPLES "/harrier/hw/harrier.cfa", "none.cfa", &how, ZR_DRY_RUN, to, error);
         })},
        {"digest", CODE(zr_stamp_digest(archive_.c_str(), error))},
        {"labels", TEXT(zr_labels(labels_.c_str(), out_.c_str(), nullptr, nullptr, ZR_OVERWRITE, to, error))},
        {"fixed archive", CODE(zr_create_fixed(packed_.c_str(), &file_, 1, ZR_OVERWRITE, error))},
        {"hardware definition", CODE(zr_from_hdf(hdf_.c_str(), packed_.c_str(), ZR_OVERWRITE, error))},
        {"modules", text([this](auto to, auto error) {
             std::uint64_t misfits = 0;
             const char* const module = archive_.c_str();
             return zr_check_modules(module, &module, 1, &misfits, to, error);
         })},
        {"emulation", TEXT(zr_convert_emulation(emulation_.c_str(), converted_.c_str(), ZR_OVERWRITE, to, error))},
        {"metadata archive",
         [this](auto error) {
             const zr_code code = zr_rqa_create(rqa_.c_str(), nullptr, nullptr, 0, ZR_OVERWRITE, error);
             return code == ZR_OK ? zr_rqa_add(rqa_.c_str(), &file_, 1, ZR_OVERWRITE, error) : code;
         }},
        {"index", TEXT(zr_rqa_index(made_.c_str(), to, error))},
        {"extract from it", TEXT(zr_rqa_extract(made_.c_str(), "T", all_.c_str(), ZR_OVERWRITE, to, error))},
        {"validate", GIVEN(findings, zr_validate(zdf_.c_str(), nullptr, to, error))},
        {"validate what names a missing file", GIVEN(findings, zr_validate(alone_.c_str(), nullptr, to, error))},
        {"search", GIVEN(platforms, zr_find(&search, to, error))},
        {"resolve", TEXT(zr_resolve("u77_gen3x16_base_1", &search, to, error))},
        {"why not", TEXT(zr_why_not(zdf_.c_str(), &search, to, error))},
        {"search path", TEXT(zr_search_path(&search, to, error))},
        {"answers", GIVEN(answers, zr_platform_answers(platform_, to, error))},
        {"hardware", GIVEN(hardware, zr_platform_hardware(platform_, to, error))},
        {"extract a type", CODE(zr_extract(archive_.c_str(), "BIF", out_.c_str(), ZR_OVERWRITE, nullptr, error))},
        {"boards", GIVEN(connectors, zr_boards(ZR_SOURCE_DIR "/examples/boards", to, error))},
        {"explain", TEXT(zr_explain("missing-member", to, error))},
        {"schema", TEXT(zr_schema("emu", to, error))},
        {"query", TEXT(zr_platform_query(platform_, "hardwarePlatform.devices", to, error))},
        {"keys", TEXT(zr_platform_keys(platform_, nullptr, to, error))},
        {"key documentation", TEXT(zr_key_documentation("vendor", to, error))},
        {"dict", TEXT(zr_dict(archive_.c_str(), nullptr, nullptr, 0, ZR_DEFAULT_FILTER, to, error))},
        {"transform",
         [this](auto error) {
             std::uint64_t entries = 0;
             return zr_transform(archive_.c_str(), spec_.c_str(), &entries, error);
         }},
        {"catalog", TEXT(zr_catalog(directory_.c_str(), ZR_DETAILED, to, error))},
        {"check", GIVEN(verdict, zr_platform_check(platform_, nullptr, to, error))},
        {"exceptions", text([this](auto to, auto error) {
             const zr_code code = zr_pack_exceptions(list_.c_str(), out_.c_str(), ZR_OVERWRITE, error);
             return code == ZR_OK ? zr_exceptions(out_.c_str(), to, error) : code;
         })},
        {"messages", CODE(zr_set_message_function([](void*, const zr_message*) {}, nullptr, error))},
    };
}

void CallsWithoutMemory::failEach(const std::string& name, const Call& call, bool andLater) {
    const long step = std::getenv("ZR_LONG") ? 7 : 37;
    zr_error* error = nullptr;
    const zr_code good = call(&error);
    zr_error_free(error);
    bool isDone = false;
    for (long at = 1; !isDone; at += at < 60 ? 1 : step) {
        const std::string when = name + ", allocation " + std::to_string(at) + (andLater ? " and all after" : "");
        long kept = 0;
        zr_code code = ZR_OK, reported = ZR_OK;
        bool hasWords = true;
        for (int attempt = 0; attempt < 4; ++attempt) {  // each may make what is kept, such as a table of keys, once
            const long live = faults::live();
            faults::armMemory(at, andLater);
            code = call(&error);
            isDone = faults::allocations() < at;
            reported = zr_error_code(error);
            hasWords = (code == ZR_OK) == (*zr_error_text(error) == '\0');
            zr_error_free(error);
            faults::armMemory(0, false);
            kept = faults::live() - live;
            if (kept == 0) break;
        }
        ASSERT_EQ(code, reported) << when;
        ASSERT_TRUE(hasWords) << when;
        ASSERT_TRUE(code == good || code == ZR_NO_MEMORY || code == ZR_ENVIRONMENT) << when << ": " << code;
        const bool isOfLibzip = faults::refused().starts_with("libzip.");  // which loses one block in `zip_close`
        ASSERT_TRUE(kept == 0 || (kept == 1 && isOfLibzip)) << when << ": " << kept << " blocks";
        // Without memory a temporary directory remains until the process ends, and the next one needs another name.
        for (const auto& left : fs::directory_iterator(HUTEnv::getJUNTmpDir())) fs::remove_all(left);
        seen_.insert(code);
        ++points_;
    }
    ASSERT_EQ(call(nullptr), good) << name << " afterwards";
}

}  // namespace

TEST_F(CallsWithoutMemory, GiveAnError) {
    for (const bool andLater : {false, true})
        for (const auto& [name, call] : calls()) {
            ASSERT_NO_FATAL_FAILURE(failEach(name, call, andLater));
            EXPECT_EQ(zr_pack(in_.c_str(), archive_.c_str(), ZR_OVERWRITE, nullptr), ZR_OK);
        }
    RecordProperty("points", std::to_string(points_));
    EXPECT_GT(points_, 1500);
    EXPECT_TRUE(seen_.contains(ZR_NO_MEMORY));
}
