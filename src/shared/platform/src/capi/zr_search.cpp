// Finding platforms and boards, and the answers about one platform.
#include <memory>

#include "capi/Guard.h"
#include "capi/Handles.h"
#include "capi/Structs.h"
#include "platform/PlatformInfo.h"
#include "platform/PlatformSearch.h"
#include "platform/zr_platform.h"
#include "text/HSTStringUtils.h"

using namespace capi;
namespace requests = teq_platform::requests;
using requests::Answer;
using requests::FoundPlatform;

struct zr_platforms {
    struct Item {
        FoundPlatform found;
        std::string reason;
    };
    std::vector<Item> items;
};

struct zr_answers {
    struct Item {
        const char* name;
        Answer::Kind kind;
        std::string value;
    };
    std::vector<Item> items;
};

struct zr_connectors {
    struct Item {
        std::shared_ptr<const requests::Board> board;  ///< without its connectors
        requests::Board::Connector connector;
        std::string fits;
    };
    std::vector<Item> items;
};

namespace {

std::string textOf(const char* given) { return given ? given : ""; }

HSTVector<std::string> directoriesOf(const char* path) {
    return path && *path ? HSTStringUtils::split(path, ':') : HSTVector<std::string>();
}

zr_search readSearch(const zr_search* given, std::uint32_t supported) {
    const zr_search search = given ? readStruct(*given) : zr_search{};
    checkFlags(search.flags, supported);
    if (search.reserved != 0) wrongUse("search: reserved is not 0");
    return search;
}

requests::Repositories repositoriesOf(const zr_search& search) {
    return {.dirs = directoriesOf(search.path), .withDefaults = (search.flags & ZR_NO_DEFAULTS) == 0};
}

requests::Repositories repositoriesOf(const zr_search* given) {
    return repositoriesOf(readSearch(given, ZR_NO_DEFAULTS));
}

/// The item of that number.
template <class List>
const auto& itemOf(const List* list, const char* name, std::uint64_t index) {
    const auto& items = need(list, name).items;
    checkIndex(index, items.size());
    return items[index];
}

}  // namespace

static_assert(static_cast<int>(FoundPlatform::State::shadowed) == ZR_STATE_SHADOWED);
static_assert(static_cast<int>(FoundPlatform::State::broken) == ZR_STATE_BROKEN);
static_assert(static_cast<int>(Answer::Kind::number) == ZR_ANSWER_NUMBER);
static_assert(static_cast<int>(Answer::Kind::flag) == ZR_ANSWER_FLAG);
static_assert(static_cast<int>(Answer::Kind::list) == ZR_ANSWER_LIST);

zr_code zr_find(const zr_search* search, zr_platforms** platforms, zr_error** error) noexcept {
    if (platforms) *platforms = nullptr;
    return guarded(error, nullptr, [&] {
        need(platforms, "platforms");
        const zr_search given = readSearch(search, ZR_NO_DEFAULTS | ZR_LATEST | ZR_USABLE);
        requests::FindResult result = requests::find({.where = repositoriesOf(given),
                                                      .name = textOf(given.name),
                                                      .type = textOf(given.type),
                                                      .part = textOf(given.part),
                                                      .board = textOf(given.board),
                                                      .vbnv = textOf(given.vbnv),
                                                      .intent = textOf(given.intent),
                                                      .latest = (given.flags & ZR_LATEST) != 0,
                                                      .usable = (given.flags & ZR_USABLE) != 0});
        auto made = std::make_unique<zr_platforms>();
        for (auto* list : {&result.platforms, &result.shadowed, &result.broken})
            for (FoundPlatform& found : *list) {
                std::string reason = found.state == FoundPlatform::State::broken ? found.reason.report("") : "";
                if (!found.hardware) found.hardware = FoundPlatform::Hardware{};
                made->items.push_back({std::move(found), std::move(reason)});
            }
        *platforms = made.release();
    });
}

void zr_platforms_free(zr_platforms* platforms) noexcept { delete platforms; }
std::uint64_t zr_platforms_count(const zr_platforms* platforms) noexcept {
    return platforms ? platforms->items.size() : 0;
}

zr_code zr_platforms_get(const zr_platforms* platforms, std::uint64_t index, zr_found* found,
                         zr_error** error) noexcept {
    return guarded(error, nullptr, [&] {
        const auto& [item, reason] = itemOf(platforms, "platforms", index);
        writeStruct(need(found, "found"), {.size = 0,
                                           .name = item.name.c_str(),
                                           .file = item.file.c_str(),
                                           .repository = item.repository.c_str(),
                                           .shadowed_by = item.shadowedBy.c_str(),
                                           .reason = reason.c_str(),
                                           .vendor = item.vendor.c_str(),
                                           .version = item.version.c_str(),
                                           .description = item.description.c_str(),
                                           .type = item.hardware->type.c_str(),
                                           .part = item.hardware->part.c_str(),
                                           .board = item.hardware->board.c_str(),
                                           .vbnv = item.hardware->vbnv.c_str(),
                                           .state = static_cast<std::uint32_t>(item.state),
                                           .reserved = 0});
    });
}

zr_code zr_resolve(const char* file_or_name, const zr_search* search, zr_text** file, zr_error** error) noexcept {
    if (file) *file = nullptr;
    return guarded(error, file_or_name, [&] {
        give(file, requests::resolve(needText(file_or_name, "file_or_name"), repositoriesOf(search)));
    });
}

zr_code zr_why_not(const char* file, const zr_search* search, zr_text** why, zr_error** error) noexcept {
    if (why) *why = nullptr;
    return guarded(error, file, [&] {
        const requests::WhyNot found = requests::whyNot(needText(file, "file"), repositoriesOf(search));
        give(why, found.rule + ": " + HSTStringUtils::printable(found.text));
    });
}

zr_code zr_search_path(const zr_search* search, zr_text** path, zr_error** error) noexcept {
    if (path) *path = nullptr;
    return guarded(error, nullptr,
                   [&] { give(path, HSTStringUtils::join(requests::searchPath(repositoriesOf(search)), ":")); });
}

zr_code zr_platform_answers(const zr_platform* platform, zr_answers** answers, zr_error** error) noexcept {
    if (answers) *answers = nullptr;
    return guarded(error, platform ? platform->file.c_str() : nullptr, [&] {
        need(answers, "answers");
        const requests::Scope scope(need(platform, "platform").options.budget);
        auto made = std::make_unique<zr_answers>();
        for (Answer& answer : requests::answers(*platform->loaded))
            for (std::string& value : answer.values)
                made->items.push_back({answer.name, answer.kind, std::move(value)});
        *answers = made.release();
    });
}

void zr_answers_free(zr_answers* answers) noexcept { delete answers; }
std::uint64_t zr_answers_count(const zr_answers* answers) noexcept { return answers ? answers->items.size() : 0; }

zr_code zr_answers_get(const zr_answers* answers, std::uint64_t index, zr_answer* answer, zr_error** error) noexcept {
    return guarded(error, nullptr, [&] {
        const auto& item = itemOf(answers, "answers", index);
        writeStruct(need(answer, "answer"), {.size = 0,
                                             .name = item.name,
                                             .value = item.value.c_str(),
                                             .kind = static_cast<std::uint32_t>(item.kind),
                                             .reserved = 0});
    });
}

zr_code zr_boards(const char* path, zr_connectors** connectors, zr_error** error) noexcept {
    if (connectors) *connectors = nullptr;
    return guarded(error, path, [&] {
        need(connectors, "connectors");
        auto made = std::make_unique<zr_connectors>();
        for (requests::Board& board : requests::boards(directoriesOf(needText(path, "path").c_str())).boards) {
            HSTVector<requests::Board::Connector> all = std::move(board.connectors);
            if (all.empty()) all.emplace_back();
            const auto shared = std::make_shared<const requests::Board>(std::move(board));
            for (requests::Board::Connector& one : all) {
                std::string fits;
                for (const std::string& name : one.fits) fits += name + "\n";
                made->items.push_back({shared, std::move(one), std::move(fits)});
            }
        }
        *connectors = made.release();
    });
}

void zr_connectors_free(zr_connectors* connectors) noexcept { delete connectors; }
std::uint64_t zr_connectors_count(const zr_connectors* connectors) noexcept {
    return connectors ? connectors->items.size() : 0;
}

zr_code zr_connectors_get(const zr_connectors* connectors, std::uint64_t index, zr_connector* connector,
                          zr_error** error) noexcept {
    return guarded(error, nullptr, [&] {
        const auto& item = itemOf(connectors, "connectors", index);
        writeStruct(need(connector, "connector"), {.size = 0,
                                                   .part = item.board->part.c_str(),
                                                   .board = item.board->name.c_str(),
                                                   .file = item.board->file.c_str(),
                                                   .name = item.connector.name.c_str(),
                                                   .display_name = item.connector.displayName.c_str(),
                                                   .type = item.connector.type.c_str(),
                                                   .fits = item.fits.c_str()});
    });
}
