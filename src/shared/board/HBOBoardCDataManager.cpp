#include "board/HBOBoardCDataManager.h"

#include <algorithm>
#include <boost/property_tree/exceptions.hpp>

#include "json/JsonFile.h"
#include "msg/HEXAll.h"
#include "msg/HEXFileFault.h"
#include "platform/HTEQJSONUtils.h"
#include "util/FolderNames.h"
#include "util/HUTFile.h"

namespace {

constexpr std::size_t kMaxConnectors = 10'000;  // of a board

/// The values of a list of texts; a missing list is empty.
HSTVector<std::string> textsOf(const json::ptree& tree, const std::string& key) {
    HSTVector<std::string> texts;
    if (const auto list = tree.get_child_optional(key))
        for (const auto& item : *list) texts.push_back(item.second.data());
    return texts;
}

void readConnectors(const json::ptree& list, HBOBoard& board) {
    if (list.size() > kMaxConnectors)
        throw HEXFileFault({.file = board.getFile(),
                            .element = "connectors",
                            .text = "more than " + std::to_string(kMaxConnectors) + " connectors"});
    for (const auto& [key, item] : list) {
        const std::string name = HTEQJSONUtils::getValue(item, "name");
        if (name.empty())
            throw HEXFileFault(
                {.file = board.getFile(), .element = "connectors", .text = "a connector has no \"name\""});
        board.addConnector(name, HTEQJSONUtils::getValue(item, "displayName"), HTEQJSONUtils::getValue(item, "type"),
                           textsOf(item, "compatible"));
    }
}

std::unique_ptr<HBOBoard> boardIn(const std::string& file) {
    json::ptree tree;
    json::parseFile(file, tree);
    auto board = std::make_unique<HBOBoard>(HTEQJSONUtils::getValue(tree, "part"),
                                            HTEQJSONUtils::getValue(tree, "name"), file);
    if (board->getPart().empty()) throw HEXFileFault({.file = file, .text = "the board has no \"part\""});
    if (const auto connectors = tree.get_child_optional("connectors")) readConnectors(*connectors, *board);
    return board;
}

HEXDiagnostic diagnosticOf(const std::exception& e, const std::string& file) {
    if (const HEXDiagnostic* json = json::diagnosticOf(e)) {
        HEXDiagnostic diagnostic = *json;
        diagnostic.file = file;
        return diagnostic;
    }
    if (const auto* fault = dynamic_cast<const HEXFileFault*>(&e)) return fault->diagnostic();
    return {.file = file, .text = e.what()};
}

}  // namespace

HBOBoardCDataManager::HBOBoardCDataManager() = default;
HBOBoardCDataManager::~HBOBoardCDataManager() = default;

void HBOBoardCDataManager::setBoardPartRepoPaths(const HSTVector<std::string>& paths) {
    paths_ = paths;
    isRead_ = false;
    boards_.clear();
    problems_.clear();
}

void HBOBoardCDataManager::read_() {
    if (isRead_) return;
    isRead_ = true;
    const auto collecting = [this](const std::string& file, const auto& read) {
        try {
            read();
        } catch (const HEXAll& e) {
            problems_.push_back(diagnosticOf(e, file));
        } catch (const boost::property_tree::ptree_error& e) {
            problems_.push_back(diagnosticOf(e, file));
        }
    };
    for (const std::string& path : paths_) {
        std::vector<std::string> folders;
        if (HUTFile::isDir(path)) collecting(path, [&] { folders = folderNames(path); });
        std::sort(folders.begin(), folders.end());
        for (const std::string& folder : folders) {
            const std::string file = path + "/" + folder + "/board.json";
            if (HUTFile::exists(file)) collecting(file, [&] { boards_.take(boardIn(file)); });
        }
    }
}

const HBOBoard* HBOBoardCDataManager::getBoard(const std::string& part) {
    read_();
    return boards_.first([&](const HBOBoard& board) { return board.getPart() == part; });
}

void HBOBoardCDataManager::getBoards(HSTVector<const HBOBoard*>& out) {
    read_();
    out.insert(out.end(), boards_.begin(), boards_.end());
}

const HSTVector<HEXDiagnostic>& HBOBoardCDataManager::getProblems() {
    read_();
    return problems_;
}
