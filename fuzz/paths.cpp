#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "Check.h"
#include "json/JsonText.h"
#include "platform/NativeDictService.h"
#include "platform/NativeKeyService.h"
#include "platform/NativeObjectService.h"
#include "platform/PathToken.h"
#include "services/DocumentTree.h"
#include "services/TreeWalk.h"

/// The input is a path and, after the first line end, a document. Operations on the text, the tree and the array
/// agree, each segment is a token, and every listed key without a list selects a node.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace teq::platform;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto end = std::min(input.find('\n'), input.size());
    const std::string path(input.substr(0, end));
    const std::string document(input.substr(std::min(end + 1, input.size())));
    const auto dots = static_cast<std::size_t>(std::count(path.begin(), path.end(), '.'));
    require(scanJsonPath(path).size() == dots + 1, "each segment is a token");
    json::ptree tree;
    if (json::tryParse(document, tree, json::kOwn) || !tree.data().empty()) return 0;
    const NativeObjectService service;
    bool found = false;
    const std::string answer = service.getObjectsByPath(document, path, found);
    const auto at = services::find(&std::as_const(tree), path);
    require(found == (at.node != nullptr), "text and tree find the same");
    if (found) require(answer == services::answerOf(*at.node, at.path), "text and tree answer the same");
    json::Document array;
    array.readOwn(json::write(tree));
    const auto inArray = services::find(array.root(), path);
    require(found == static_cast<bool>(inArray.node) && at.path == inArray.path, "tree and array find the same");
    if (found) require(answer == services::answerOf(inArray.node, inArray.path), "tree and array answer the same");
    service.getChildOptional(tree, path);
    service.hasNodeAtPath(tree, path);
    NativeDictService().getAsDict(tree, path);
    for (const std::string& key : NativeKeyService().get(tree))
        if (key.find_first_of("[]") == std::string::npos && key.find("..") == std::string::npos &&
            tree.count(key) > 0 && key.find('.') == std::string::npos)
            require(service.hasNodeAtPath(tree, key), "a listed key selects a node");
    return 0;
}
