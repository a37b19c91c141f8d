/// A C++17 wrapper of zr_platform.h: objects that free themselves, std::string texts, exceptions. It is header-only
/// and passes no C++ objects between the program and the library, so both may be built with different compilers.
///
/// Every function throws `zr::Error` if the underlying C function fails, and std::bad_alloc if memory runs out.
#ifndef ZR_PLATFORM_ZR_PLATFORM_HPP
#define ZR_PLATFORM_ZR_PLATFORM_HPP

#include <cstdint>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/zr_platform.h"

namespace zr {

/// A call that failed. `what` is `zr_error_describe`.
class Error : public std::runtime_error {
public:
    explicit Error(const zr_error* error)
        : std::runtime_error(zr_error_describe(error)),
          code_(zr_error_code(error)),
          line_(zr_error_line(error)),
          column_(zr_error_column(error)),
          text_(zr_error_text(error)),
          file_(zr_error_file(error)),
          member_(zr_error_member(error)),
          id_(zr_error_id(error)),
          name_(zr_error_name(error)) {}

    zr_code code() const { return code_; }
    const std::string& text() const { return text_; }
    const std::string& file() const { return file_; }
    const std::string& member() const { return member_; }
    std::uint64_t line() const { return line_; }
    std::uint64_t column() const { return column_; }
    const std::string& id() const { return id_; }
    const std::string& name() const { return name_; }

private:
    zr_code code_;
    std::uint64_t line_, column_;
    std::string text_, file_, member_, id_, name_;
};

struct Options {
    zr_metadata metadata = ZR_METADATA_DEFAULT;
    std::uint64_t maxUnpacked = 0;  ///< bytes; 0: the library's limit
};

struct Member {
    std::string name;  ///< as in the archive; must not be used as a path
    std::uint64_t bytes = 0, packedBytes = 0;
    std::uint32_t crc = 0;
    bool isDirectory = false;
};

struct Difference {
    std::string member, text;
    zr_reason reason = ZR_REASON_CRC;
};

struct Verification {
    zr_digest digest = ZR_DIGEST_NONE;
    std::vector<Difference> differences;
    bool isSound() const { return differences.empty() && digest != ZR_DIGEST_BROKEN; }
};

struct Finding {
    std::string file, member;
    std::uint64_t line = 0, column = 0;
    zr_severity severity = ZR_ERROR;
    std::string name, element, text;
};

/// Where and what to search, see `zr_search`.
struct Search {
    std::string path;         ///< directories separated by ":"
    std::uint32_t flags = 0;  ///< ZR_NO_DEFAULTS, ZR_LATEST, ZR_USABLE
    std::string name, type, part, board, vbnv, intent;
};

struct Found {
    std::string name, file, repository, shadowedBy, reason, vendor, version, description, type, part, board, vbnv;
    zr_state state = ZR_STATE_GOOD;
};

struct Answer {
    std::string name, value;
    zr_answer_kind kind = ZR_ANSWER_TEXT;
};

struct Memory {
    std::string name, type, capacity;
    std::uint64_t lowest = 0, highest = 0;
};

struct Bank {
    std::string type, capacity, slr, interface, segment;
    std::uint32_t number = 0, index = 0;
    zr_assignment assignment = ZR_ASSIGNMENT_UNKNOWN;
};

struct Clock {
    std::string name, originalName, frequency, status;
    int id = -1;
    bool isDefault = false;
};

struct Segment {
    std::string name, baseName, tag, slr, memoryInstance;
    std::uint32_t index = 0;
    zr_assignment assignment = ZR_ASSIGNMENT_UNKNOWN;
};

struct Interface {
    std::string name, mode, type, memoryPort, tag, slr, clock, capacity;
    int dataWidth = 0;
    std::vector<Segment> segments;
};

struct Hardware {
    std::vector<Memory> memories;
    std::vector<Bank> banks;
    std::vector<Clock> clocks;
    std::vector<Interface> interfaces;
};

struct Connector {
    std::string part, board, file, name, displayName, type, fits;
};

struct Policy {
    zr_question question = ZR_QUESTION_USE;
    std::string toolVersion;  ///< empty: that of the library
    std::string appRoot;      ///< empty: the host's
};

struct PolicyStep {
    std::string rule, facts;
    bool applies = false;
};

struct Verdict {
    bool isSupported = false;
    std::string reason, newestTool, exceptions;
    std::vector<PolicyStep> steps;
};

namespace detail {

/// Frees an object of the C interface.
struct Free {
    void operator()(zr_error* error) const { zr_error_free(error); }
    void operator()(zr_text* text) const { zr_text_free(text); }
    void operator()(zr_platform* platform) const { zr_platform_free(platform); }
    void operator()(zr_archive* archive) const { zr_archive_free(archive); }
    void operator()(zr_verification* verification) const { zr_verification_free(verification); }
    void operator()(zr_findings* findings) const { zr_findings_free(findings); }
    void operator()(zr_platforms* platforms) const { zr_platforms_free(platforms); }
    void operator()(zr_answers* answers) const { zr_answers_free(answers); }
    void operator()(zr_hardware* hardware) const { zr_hardware_free(hardware); }
    void operator()(zr_connectors* connectors) const { zr_connectors_free(connectors); }
    void operator()(zr_verdict* verdict) const { zr_verdict_free(verdict); }
};
template <class T>
using Owned = std::unique_ptr<T, Free>;

[[noreturn]] inline void fail(zr_error* made) {
    const Owned<zr_error> error(made);
    if (zr_error_code(made) == ZR_NO_MEMORY) throw std::bad_alloc();
    throw Error(made);
}

/// Calls a function of the C interface; its last argument is the error.
template <class Function, class... Arguments>
void call(Function function, Arguments... arguments) {
    zr_error* error = nullptr;
    if (function(arguments..., &error) != ZR_OK) fail(error);
}

/// Calls one that returns an object through its second-last argument.
template <class T, class Function, class... Arguments>
Owned<T> make(Function function, Arguments... arguments) {
    T* made = nullptr;
    call(function, arguments..., &made);
    return Owned<T>(made);
}

inline std::string stringOf(const zr_text* text) { return std::string(zr_text_data(text), zr_text_size(text)); }

template <class Function, class... Arguments>
std::string textOf(Function function, Arguments... arguments) {
    return stringOf(make<zr_text>(function, arguments...).get());
}

/// Valid as long as the texts.
inline std::vector<const char*> pointersTo(const std::vector<std::string>& texts) {
    std::vector<const char*> pointers;
    for (const std::string& text : texts) pointers.push_back(text.c_str());
    return pointers;
}

inline zr_options optionsOf(const Options& options) {
    zr_options given{};
    given.size = sizeof given;
    given.metadata = options.metadata;
    given.max_unpacked = options.maxUnpacked;
    return given;
}

inline zr_search searchOf(const Search& search) {
    zr_search given{};
    given.size = sizeof given;
    given.path = search.path.c_str();
    given.flags = search.flags;
    given.name = search.name.c_str();
    given.type = search.type.c_str();
    given.part = search.part.c_str();
    given.board = search.board.c_str();
    given.vbnv = search.vbnv.c_str();
    given.intent = search.intent.c_str();
    return given;
}

/// The item that `function` returns from an object's list.
template <class Item, class Function, class T>
Item itemOf(Function function, const T* list, std::uint64_t index) {
    Item item{};
    item.size = sizeof item;
    call(function, list, index, &item);
    return item;
}

}  // namespace detail

/// A descriptor, a hardware archive or a software file, loaded with everything that it names.
class Platform {
public:
    explicit Platform(const std::string& file, const Options& options = {}) {
        const zr_options given = detail::optionsOf(options);
        handle_ = detail::make<zr_platform>(zr_platform_load, file.c_str(), &given);
    }
    std::string get(zr_field field) const {
        const char* const text = zr_platform_get(handle_.get(), field);
        return text ? text : "";
    }
    std::string name() const { return get(ZR_FIELD_NAME); }
    std::string vendor() const { return get(ZR_FIELD_VENDOR); }
    std::string version() const { return get(ZR_FIELD_VERSION); }
    std::string document() const { return detail::textOf(zr_platform_document, handle_.get()); }
    std::string shortDocument() const { return detail::textOf(zr_platform_short_document, handle_.get()); }
    std::string xml() const { return detail::textOf(zr_platform_xml, handle_.get()); }
    std::vector<Answer> answers() const {
        const auto made = detail::make<zr_answers>(zr_platform_answers, handle_.get());
        std::vector<Answer> answers;
        for (std::uint64_t i = 0; i < zr_answers_count(made.get()); ++i) {
            const auto a = detail::itemOf<zr_answer>(zr_answers_get, made.get(), i);
            answers.push_back({a.name, a.value, static_cast<zr_answer_kind>(a.kind)});
        }
        return answers;
    }
    Hardware hardware() const {
        const auto made = detail::make<zr_hardware>(zr_platform_hardware, handle_.get());
        const zr_hardware* const from = made.get();
        Hardware hardware;
        for (std::uint64_t i = 0; i < zr_hardware_memory_count(from); ++i) {
            const auto m = detail::itemOf<zr_memory>(zr_hardware_memory, from, i);
            hardware.memories.push_back({m.name, m.type, m.capacity, m.lowest, m.highest});
        }
        for (std::uint64_t i = 0; i < zr_hardware_bank_count(from); ++i) {
            const auto b = detail::itemOf<zr_bank>(zr_hardware_bank, from, i);
            hardware.banks.push_back({b.type, b.capacity, b.slr, b.interface, b.segment, b.number, b.index,
                                      static_cast<zr_assignment>(b.assignment)});
        }
        for (std::uint64_t i = 0; i < zr_hardware_clock_count(from); ++i) {
            const auto c = detail::itemOf<zr_clock>(zr_hardware_clock, from, i);
            hardware.clocks.push_back({c.name, c.original_name, c.frequency, c.status, c.id, c.is_default != 0});
        }
        for (std::uint64_t i = 0; i < zr_hardware_interface_count(from); ++i) {
            const auto b = detail::itemOf<zr_interface>(zr_hardware_interface, from, i);
            Interface bus{b.name, b.mode, b.type, b.memory_port, b.tag, b.slr, b.clock, b.capacity, b.data_width, {}};
            for (std::uint64_t j = 0; j < b.segments; ++j) {
                zr_segment s{};
                s.size = sizeof s;
                detail::call(zr_hardware_segment, from, i, j, &s);
                bus.segments.push_back({s.name, s.base_name, s.tag, s.slr, s.memory_instance, s.index,
                                        static_cast<zr_assignment>(s.assignment)});
            }
            hardware.interfaces.push_back(std::move(bus));
        }
        return hardware;
    }
    std::string query(const std::string& path) {
        return detail::textOf(zr_platform_query, handle_.get(), path.c_str());
    }
    std::string keys(const std::string& prefix = "") {
        return detail::textOf(zr_platform_keys, handle_.get(), prefix.c_str());
    }
    Verdict check(const Policy& policy = {}) const {
        zr_policy given{};
        given.size = sizeof given;
        given.question = policy.question;
        given.tool_version = policy.toolVersion.c_str();
        given.app_root = policy.appRoot.c_str();
        const auto made = detail::make<zr_verdict>(zr_platform_check, handle_.get(), &given);
        Verdict verdict;
        verdict.isSupported = zr_verdict_is_supported(made.get()) != 0;
        verdict.reason = zr_verdict_reason(made.get());
        verdict.newestTool = zr_verdict_newest_tool(made.get());
        verdict.exceptions = zr_verdict_exceptions(made.get());
        for (std::uint64_t i = 0; i < zr_verdict_count(made.get()); ++i) {
            const auto step = detail::itemOf<zr_policy_step>(zr_verdict_step, made.get(), i);
            verdict.steps.push_back({step.rule, step.facts, step.applies != 0});
        }
        return verdict;
    }

private:
    detail::Owned<zr_platform> handle_;
};

/// Makes a folder with a small complete platform; returns the paths of its files in the folder, a line for each.
inline std::string newPlatform(const std::string& folder, const std::string& kind = "card") {
    return detail::textOf(zr_new_platform, folder.c_str(), kind.c_str());
}

/// Copies a member, a file of a type or a member of a nested archive ("OUTER!INNER") out of a hardware archive.
inline void extract(const std::string& archive, const std::string& name, const std::string& file,
                    std::uint32_t flags = 0, const Options& options = {}) {
    const zr_options given = detail::optionsOf(options);
    detail::call(zr_extract, archive.c_str(), name.c_str(), file.c_str(), flags, &given);
}

/// Any zip archive, opened for reading.
class Archive {
public:
    explicit Archive(const std::string& file, const Options& options = {}) {
        const zr_options given = detail::optionsOf(options);
        handle_ = detail::make<zr_archive>(zr_archive_open, file.c_str(), &given);
    }
    std::uint64_t count() const { return zr_archive_count(handle_.get()); }
    Member member(std::uint64_t index) const {
        const auto given = detail::itemOf<zr_member>(zr_archive_member, handle_.get(), index);
        return {std::string(given.name, given.name_size), given.bytes, given.packed_bytes, given.crc,
                given.is_directory != 0};
    }
    /// No value if there is no such member.
    std::optional<std::uint64_t> find(const std::string& name) const {
        std::uint64_t index = 0;
        zr_error* error = nullptr;
        const zr_code code = zr_archive_find(handle_.get(), name.c_str(), &index, &error);
        if (code == ZR_OK) return index;
        if (code != ZR_NOT_FOUND) detail::fail(error);
        zr_error_free(error);
        return std::nullopt;
    }
    /// `bound`: 0 means 32 MiB.
    std::string read(std::uint64_t index, std::uint64_t bound = 0) const {
        return detail::textOf(zr_archive_read, handle_.get(), index, bound);
    }
    void extract(std::uint64_t index, const std::string& file, std::uint32_t flags = 0) const {
        detail::call(zr_archive_extract, handle_.get(), index, file.c_str(), flags);
    }
    void extractAll(const std::string& folder, std::uint32_t flags = 0) const {
        detail::call(zr_archive_extract_all, handle_.get(), folder.c_str(), flags);
    }
    Verification verify() const {
        const auto made = detail::make<zr_verification>(zr_archive_verify, handle_.get());
        Verification result;
        result.digest = zr_verification_digest(made.get());
        for (std::uint64_t i = 0; i < zr_verification_count(made.get()); ++i) {
            const auto given = detail::itemOf<zr_difference>(zr_verification_difference, made.get(), i);
            result.differences.push_back({given.member, given.text, static_cast<zr_reason>(given.reason)});
        }
        return result;
    }

private:
    detail::Owned<zr_archive> handle_;
};

inline std::string version() { return zr_library_version(); }

inline void pack(const std::string& folder, const std::string& archive, std::uint32_t flags = 0) {
    detail::call(zr_pack, folder.c_str(), archive.c_str(), flags);
}

/// `losses`, if not null, is set to what the metadata loses, a line for each key, even if ZR_REFUSED is thrown.
inline void setFile(const std::string& archive, const std::string& type, const std::string& member,
                    const std::string& source, std::uint32_t flags = 0, const Options& options = {},
                    std::string* losses = nullptr) {
    const zr_options given = detail::optionsOf(options);
    zr_text* made = nullptr;
    zr_error* error = nullptr;
    const zr_code code =
        zr_set_file(archive.c_str(), type.c_str(), member.c_str(), source.c_str(), flags, &given, &made, &error);
    detail::Owned<zr_error> caught(error);
    const detail::Owned<zr_text> text(made);
    if (losses) *losses = detail::stringOf(text.get());
    if (code != ZR_OK) detail::fail(caught.release());
}

struct Emulation {
    std::string name;          ///< of the installation's property file
    std::string installation;  ///< of the tool; empty: the environment variable TORVANE_MORWEN
    std::string keep;          ///< new directory for the scripts and the overlay; empty: none
    std::uint64_t milliseconds = 0;
};
/// Returns the names of the new members, a line for each.
inline std::string emulate(const std::string& archive, const std::string& destination, const Emulation& emulation,
                           std::uint32_t flags = 0) {
    const auto orNull = [](const std::string& text) { return text.empty() ? nullptr : text.c_str(); };
    const zr_emulation given{sizeof given, emulation.name.c_str(), orNull(emulation.installation),
                             orNull(emulation.keep), emulation.milliseconds};
    return detail::textOf(zr_emulate, archive.c_str(), destination.c_str(), &given, flags);
}

inline void stampDigest(const std::string& archive) { detail::call(zr_stamp_digest, archive.c_str()); }

/// Returns the labels by kind, a JSON document. Empty paths: no document.
inline std::string labels(const std::string& file, const std::string& partitionMetadata = "",
                          const std::string& extMetadata = "", const std::string& partition = "/",
                          std::uint32_t flags = 0) {
    return detail::textOf(zr_labels, file.c_str(), partitionMetadata.c_str(), extMetadata.c_str(), partition.c_str(),
                          flags);
}
/// `files`: each "TYPE=MEMBER=FILE".
inline void createFixed(const std::string& archive, const std::vector<std::string>& files, std::uint32_t flags = 0) {
    const auto texts = detail::pointersTo(files);
    detail::call(zr_create_fixed, archive.c_str(), texts.data(), std::uint64_t{texts.size()}, flags);
}
inline void fromHdf(const std::string& definition, const std::string& archive, std::uint32_t flags = 0) {
    detail::call(zr_from_hdf, definition.c_str(), archive.c_str(), flags);
}
/// Returns a line for each module that does not fit.
inline std::string checkModules(const std::string& platform, const std::vector<std::string>& modules) {
    const auto texts = detail::pointersTo(modules);
    std::uint64_t misfits = 0;
    return detail::textOf(zr_check_modules, platform.c_str(), texts.data(), std::uint64_t{texts.size()}, &misfits);
}
/// Returns a line for each value that the other form does not hold.
inline std::string convertEmulation(const std::string& file, const std::string& destination,
                                    std::uint32_t flags = 0) {
    return detail::textOf(zr_convert_emulation, file.c_str(), destination.c_str(), flags);
}

/// Where in a design the content of a metadata archive belongs.
struct RqaPlace {
    std::string instPath, drBdInstName, pfmName, hierName;
};
inline void rqaCreate(const std::string& archive, const RqaPlace& place, const std::vector<std::string>& files,
                      std::uint32_t flags = 0) {
    const zr_rqa given{sizeof given, place.instPath.c_str(), place.drBdInstName.c_str(), place.pfmName.c_str(),
                       place.hierName.c_str()};
    const auto texts = detail::pointersTo(files);
    detail::call(zr_rqa_create, archive.c_str(), &given, texts.data(), std::uint64_t{texts.size()}, flags);
}
inline void rqaAdd(const std::string& archive, const std::vector<std::string>& files, std::uint32_t flags = 0) {
    const auto texts = detail::pointersTo(files);
    detail::call(zr_rqa_add, archive.c_str(), texts.data(), std::uint64_t{texts.size()}, flags);
}
inline std::string rqaIndex(const std::string& archive) { return detail::textOf(zr_rqa_index, archive.c_str()); }
inline std::string rqaExtract(const std::string& archive, const std::string& type, const std::string& directory,
                              std::uint32_t flags = 0) {
    return detail::textOf(zr_rqa_extract, archive.c_str(), type.c_str(), directory.c_str(), flags);
}

inline std::vector<Finding> validate(const std::string& file, const Options& options = {}) {
    const zr_options given = detail::optionsOf(options);
    const auto made = detail::make<zr_findings>(zr_validate, file.c_str(), &given);
    std::vector<Finding> findings;
    for (std::uint64_t i = 0; i < zr_findings_count(made.get()); ++i) {
        const auto f = detail::itemOf<zr_finding>(zr_findings_get, made.get(), i);
        findings.push_back(
            {f.file, f.member, f.line, f.column, static_cast<zr_severity>(f.severity), f.name, f.element, f.text});
    }
    return findings;
}

inline std::vector<Found> find(const Search& search = {}) {
    const zr_search given = detail::searchOf(search);
    const auto made = detail::make<zr_platforms>(zr_find, &given);
    std::vector<Found> all;
    for (std::uint64_t i = 0; i < zr_platforms_count(made.get()); ++i) {
        const auto f = detail::itemOf<zr_found>(zr_platforms_get, made.get(), i);
        all.push_back({f.name, f.file, f.repository, f.shadowed_by, f.reason, f.vendor, f.version, f.description,
                       f.type, f.part, f.board, f.vbnv, static_cast<zr_state>(f.state)});
    }
    return all;
}

inline std::string resolve(const std::string& fileOrName, const Search& search = {}) {
    const zr_search given = detail::searchOf(search);
    return detail::textOf(zr_resolve, fileOrName.c_str(), &given);
}

inline std::string whyNot(const std::string& file, const Search& search = {}) {
    const zr_search given = detail::searchOf(search);
    return detail::textOf(zr_why_not, file.c_str(), &given);
}

inline std::string searchPath(const Search& search = {}) {
    const zr_search given = detail::searchOf(search);
    return detail::textOf(zr_search_path, &given);
}

inline std::vector<Connector> boards(const std::string& path) {
    const auto made = detail::make<zr_connectors>(zr_boards, path.c_str());
    std::vector<Connector> connectors;
    for (std::uint64_t i = 0; i < zr_connectors_count(made.get()); ++i) {
        const auto c = detail::itemOf<zr_connector>(zr_connectors_get, made.get(), i);
        connectors.push_back({c.part, c.board, c.file, c.name, c.display_name, c.type, c.fits});
    }
    return connectors;
}

inline std::string keyDocumentation(const std::string& key = "") {
    return detail::textOf(zr_key_documentation, key.c_str());
}
inline std::string dict(const std::string& file, const std::string& branch = "",
                        const std::vector<std::string>& filters = {}, std::uint32_t flags = 0) {
    const auto texts = detail::pointersTo(filters);
    return detail::textOf(zr_dict, file.c_str(), branch.c_str(), texts.data(), std::uint64_t{texts.size()}, flags);
}
/// `path`: empty for the default repositories.
inline std::string catalog(const std::string& path = "", std::uint32_t flags = 0) {
    return detail::textOf(zr_catalog, path.empty() ? nullptr : path.c_str(), flags);
}
inline std::uint64_t transform(const std::string& file, const std::string& specification) {
    std::uint64_t entries = 0;
    detail::call(zr_transform, file.c_str(), specification.c_str(), &entries);
    return entries;
}
inline void packExceptions(const std::string& json, const std::string& list, std::uint32_t flags = 0) {
    detail::call(zr_pack_exceptions, json.c_str(), list.c_str(), flags);
}
inline std::string exceptions(const std::string& list) { return detail::textOf(zr_exceptions, list.c_str()); }

inline std::string explain(const std::string& name) { return detail::textOf(zr_explain, name.c_str()); }
inline std::string schema(const std::string& format) { return detail::textOf(zr_schema, format.c_str()); }

}  // namespace zr

#endif
