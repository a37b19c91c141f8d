#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "platform/HTEQPlatform.h"
#include "platform/RequestFailure.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

namespace teq_platform::requests {

/// Questions on the whole document of a loaded platform. docs/paths.md describes paths.
class ZR_API Questions {
public:
    /// `file`: where it was loaded from, for errors.
    Questions(const HTEQPlatform& platform, const std::string& file);
    ~Questions();
    Questions(const Questions&) = delete;
    Questions& operator=(const Questions&) = delete;

    struct Answer {
        enum class Kind { value, object, list };
        Kind kind = Kind::value;
        std::string text;  ///< a value as it is, an object as JSON, a list as JSON under the path's last segment
    };
    /// A path that selects nothing is `unknownName`, and the text suggests the nearest keys.
    Answer answer(const std::string& path) const;
    /// The keys of the document, each once, sorted by bytes: all, or `prefix` and what is below it. An unknown prefix is
    /// `unknownName`.
    HSTVector<std::string> keys(const std::string& prefix = "") const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// The text on one line: pretty-printed JSON without its line ends and indentation.
ZR_API std::string onOneLine(const std::string& json);

/// What a key of a document means.
struct KeyDocumentation {
    std::string key;      ///< "hardwarePlatforms.hardwarePlatform.systemClocks[].frequency"
    std::string meaning;  ///< in one or two sentences
    std::string form;     ///< of the value: "text", "decimal", "true or false", "object", "list"
    std::string unit;     ///< "MHz"; empty if it has none
    std::string source;   ///< where the value comes from
};
/// Of one key, or of all keys for an empty one. Indexes count as "[]", and "hardwarePlatform" stands for the default
/// place of the hardware platform. An unknown key is `unknownName`. The file of the documentation is looked for below
/// the application root.
ZR_API HSTVector<KeyDocumentation> keyDocumentation(const std::string& key = "");

/// The same lists as JSON: an object with the one key "keys".
ZR_API std::string asJson(const HSTVector<std::string>& keys);
ZR_API std::string asJson(const HSTVector<KeyDocumentation>& keys);
/// An object of the entries.
ZR_API std::string asJson(const std::map<std::string, std::string>& dict);

struct DictRequest {
    std::string file;
    std::string branch;             ///< empty for the whole document
    std::set<std::string> filters;  ///< keys to keep, with "[*]" for indexes
    bool useDefaultFilter = false;  ///< keep the keys of `NativeDictService::defaultIncludeKeys` too
};
/// The dictionary of `NativeDictService`, whose document is that of the file: for an archive, its hardware platform
/// alone. A branch that does not exist is `unknownName`.
ZR_API std::map<std::string, std::string> dict(const DictRequest& request);

/// Reads and checks a transform specification, and returns the number of its entries. Throws if one of the files cannot
/// be read or the specification is not valid; no transformation is applied yet.
ZR_API std::int32_t transform(const std::string& file, const std::string& specification);

}  // namespace teq_platform::requests
