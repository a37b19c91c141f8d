// Questions on documents, and the support policy.
#include <memory>

#include "capi/Guard.h"
#include "capi/Handles.h"
#include "capi/Structs.h"
#include "platform/PlatformCatalog.h"
#include "platform/PlatformPolicy.h"
#include "platform/zr_platform.h"
#include "text/HSTStringUtils.h"

using namespace capi;
namespace requests = teq_platform::requests;
using requests::Questions;
using teq::platform::PolicyQuestion;

struct zr_verdict {
    requests::Verdict verdict;
    HSTVector<std::string> facts;  ///< of each step
};

namespace {

std::string textOr(const char* text) { return text ? text : ""; }

template <class Ask>
zr_code ask(zr_platform* platform, zr_text** result, zr_error** error, Ask answer) noexcept {
    if (result) *result = nullptr;
    return guarded(error, platform ? platform->file.c_str() : nullptr, [&] {
        zr_platform& asked = need(platform, "platform");
        const requests::Scope scope(asked.options.budget);
        if (!asked.questions) asked.questions = std::make_unique<Questions>(*asked.loaded, asked.file);
        give(result, answer(*asked.questions));
    });
}

}  // namespace

zr_code zr_platform_query(zr_platform* platform, const char* path, zr_text** answer, zr_error** error) noexcept {
    return ask(platform, answer, error,
               [path](const Questions& questions) { return questions.answer(needText(path, "path")).text; });
}

zr_code zr_platform_keys(zr_platform* platform, const char* prefix, zr_text** keys, zr_error** error) noexcept {
    return ask(platform, keys, error,
               [prefix](const Questions& questions) { return requests::asJson(questions.keys(textOr(prefix))); });
}

zr_code zr_key_documentation(const char* key, zr_text** documentation, zr_error** error) noexcept {
    if (documentation) *documentation = nullptr;
    return guarded(error, nullptr,
                   [&] { give(documentation, requests::asJson(requests::keyDocumentation(textOr(key)))); });
}

zr_code zr_dict(const char* file, const char* branch, const char* const* filters, std::uint64_t filter_count,
                std::uint32_t flags, zr_text** dict, zr_error** error) noexcept {
    if (dict) *dict = nullptr;
    return guarded(error, file, [&] {
        requests::DictRequest request{.file = needText(file, "file"),
                                      .branch = textOr(branch),
                                      .filters = {},
                                      .useDefaultFilter = (flags & ZR_DEFAULT_FILTER) != 0};
        checkFlags(flags, ZR_DEFAULT_FILTER);
        if (filter_count > 0) need(filters, "filters");
        for (std::uint64_t i = 0; i < filter_count; ++i) request.filters.insert(needText(filters[i], "a filter"));
        const requests::Scope scope;
        give(dict, requests::asJson(requests::dict(request)));
    });
}

zr_code zr_transform(const char* file, const char* specification, std::uint64_t* entries, zr_error** error) noexcept {
    return guarded(error, specification, [&] {
        need(entries, "entries") = static_cast<std::uint64_t>(
            requests::transform(needText(file, "file"), needText(specification, "specification")));
    });
}

zr_code zr_catalog(const char* path, std::uint32_t flags, zr_text** catalog, zr_error** error) noexcept {
    if (catalog) *catalog = nullptr;
    return guarded(error, path, [&] {
        checkFlags(flags, ZR_DETAILED);
        requests::CatalogRequest request{.where = {}, .isDetailed = (flags & ZR_DETAILED) != 0};
        if (path) request.where = {HSTStringUtils::split(path, ':'), false};
        give(catalog, requests::catalogDocument(request, nullptr));
    });
}

static_assert(static_cast<int>(PolicyQuestion::open) == ZR_QUESTION_OPEN);

zr_code zr_platform_check(const zr_platform* platform, const zr_policy* policy, zr_verdict** verdict,
                          zr_error** error) noexcept {
    if (verdict) *verdict = nullptr;
    return guarded(error, platform ? platform->file.c_str() : nullptr, [&] {
        need(verdict, "verdict");
        const zr_platform& asked = need(platform, "platform");
        const zr_policy given = policy ? readStruct(*policy) : zr_policy{};
        if (given.question > ZR_QUESTION_OPEN) wrongUse("policy: unknown question");
        if (given.reserved != 0) wrongUse("policy: reserved is not 0");
        const requests::Scope scope(asked.options.budget);
        auto made = std::make_unique<zr_verdict>();
        made->verdict = requests::verdict(asked.loaded, {.question = static_cast<PolicyQuestion>(given.question),
                                                         .toolVersion = textOr(given.tool_version),
                                                         .appRoot = textOr(given.app_root),
                                                         .productName = ""});
        for (const auto& step : made->verdict.steps) made->facts.push_back(requests::factsOf(step));
        *verdict = made.release();
    });
}

void zr_verdict_free(zr_verdict* verdict) noexcept { delete verdict; }
int zr_verdict_is_supported(const zr_verdict* verdict) noexcept { return verdict && verdict->verdict.isSupported; }
const char* zr_verdict_reason(const zr_verdict* verdict) noexcept {
    return verdict ? verdict->verdict.reason.c_str() : "";
}
const char* zr_verdict_newest_tool(const zr_verdict* verdict) noexcept {
    return verdict ? verdict->verdict.newestTool.c_str() : "";
}
const char* zr_verdict_exceptions(const zr_verdict* verdict) noexcept {
    return verdict ? verdict->verdict.exceptions.c_str() : "";
}
std::uint64_t zr_verdict_count(const zr_verdict* verdict) noexcept {
    return verdict ? verdict->verdict.steps.size() : 0;
}

zr_code zr_verdict_step(const zr_verdict* verdict, std::uint64_t index, zr_policy_step* step,
                        zr_error** error) noexcept {
    return guarded(error, nullptr, [&] {
        const auto& steps = need(verdict, "verdict").verdict.steps;
        checkIndex(index, steps.size());
        writeStruct(need(step, "step"), {.size = 0,
                                         .rule = steps[index].rule,
                                         .facts = verdict->facts[index].c_str(),
                                         .applies = steps[index].applies,
                                         .reserved = 0});
    });
}

zr_code zr_pack_exceptions(const char* json, const char* list, std::uint32_t flags, zr_error** error) noexcept {
    return guarded(error, list, [&] {
        const std::string from = needText(json, "json"), to = needText(list, "list");
        checkFlags(flags, ZR_OVERWRITE);
        requests::packExceptions(from, to, (flags & ZR_OVERWRITE) != 0);
    });
}

zr_code zr_exceptions(const char* list, zr_text** json, zr_error** error) noexcept {
    if (json) *json = nullptr;
    return guarded(error, list, [&] { give(json, requests::exceptionsIn(needText(list, "list"))); });
}
