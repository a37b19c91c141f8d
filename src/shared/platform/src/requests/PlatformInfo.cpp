#include "platform/PlatformInfo.h"

#include "board/HBOBoardCDataManager.h"
#include "platform/HTEQPlatformHelper.h"

namespace teq_platform::requests {
namespace {

using Helper = HTEQPlatformHelper;
using Kind = Answer::Kind;
using Values = HSTVector<std::string>;

template <std::string (Helper::*Question)() const>
Values textOf(const Helper& helper) {
    return {(helper.*Question)()};
}
template <auto Question>
Values numberOf(const Helper& helper) {
    return {std::to_string((helper.*Question)())};
}
template <bool (Helper::*Question)() const>
Values flagOf(const Helper& helper) {
    return {(helper.*Question)() ? "true" : "false"};
}
template <void (Helper::*Question)(Values&) const>
Values listOf(const Helper& helper) {
    Values values;
    (helper.*Question)(values);
    return values;
}

struct Row {
    const char* name;
    Kind kind;
    Values (*answer)(const Helper& helper);
};
template <std::string (Helper::*Question)() const>
constexpr Row text(const char* name) {
    return {name, Kind::text, textOf<Question>};
}
template <auto Question>
constexpr Row number(const char* name) {
    return {name, Kind::number, numberOf<Question>};
}
template <bool (Helper::*Question)() const>
constexpr Row flag(const char* name) {
    return {name, Kind::flag, flagOf<Question>};
}
template <void (Helper::*Question)(Values&) const>
constexpr Row list(const char* name) {
    return {name, Kind::list, listOf<Question>};
}

constexpr Row kRows[] = {
    text<&Helper::getVendor>("vendor"),
    text<&Helper::getLibrary>("library"),
    text<&Helper::getName>("name"),
    text<&Helper::getVersion>("version"),
    text<&Helper::getDescription>("description"),
    text<&Helper::getUniqueName>("uniqueName"),
    text<&Helper::getPlatformBaseName>("baseName"),
    text<&Helper::getPlatformFile>("file"),
    text<&Helper::getPlatformDir>("directory"),
    text<&Helper::getDeviceName>("deviceName"),
    text<&Helper::getSoftwarePlatformFile>("softwareFile"),
    list<&Helper::getTargetCategories>("targetCategories"),
    flag<&Helper::isUnifiedPlatform>("unified"),
    flag<&Helper::isExpandablePlatform>("expandable"),
    flag<&Helper::isFixedPlatform>("fixed"),
    flag<&Helper::isPartialPlatform>("partial"),
    flag<&Helper::hasSimContent>("simulationContent"),
    flag<&Helper::isProcessorGroupRelevant>("processorGroupRelevant"),
    flag<&Helper::isLinuxRootFSPathRelevant>("linuxRootFileSystemRelevant"),
    flag<&Helper::hasBootImg>("bootImage"),
    text<&Helper::getDefaultSystemConfig>("defaultSystemConfiguration"),
    list<&Helper::getSysConfigNames>("systemConfigurations"),
    {"runtimes", Kind::list,
     [](const Helper& helper) {
         Values values;
         helper.getRuntimes("", values);
         return values;
     }},
    flag<&Helper::supportsMultipleRuntimes>("supportsMultipleRuntimes"),
    text<&Helper::getFpgaPart>("part"),
    {"partFields", Kind::list, [](const Helper& helper) { return helper.getFpgaPartAsFields(); }},
    text<&Helper::getFpgaDevice>("device"),
    number<&Helper::getBRAMCount>("bramCount"),
    number<&Helper::getDSPCount>("dspCount"),
    number<&Helper::getFFCount>("ffCount"),
    number<&Helper::getLUTCount>("lutCount"),
    number<&Helper::getNumDDRs>("ddrs"),
    number<&Helper::getNumComputeUnits>("computeUnits"),
    list<&Helper::getAllResources>("resources"),
    text<&Helper::getMemType>("memoryType"),
    text<&Helper::getMemSize>("memorySize"),
    flag<&Helper::isMemoryResourceIndexed>("memoryIndexed"),
    {"memoryTypes", Kind::list,
     [](const Helper& helper) {
         Values values;
         helper.getUniqueMemoryTypeStrings(values);
         return values;
     }},
    list<&Helper::getValidSLRNames>("slrs"),
    text<&Helper::getDefaultClockId>("defaultClockId"),
    text<&Helper::getDefaultClockFrequency>("defaultClockFrequency"),
    list<&Helper::getAllClockFrequencies>("clockFrequencies"),
    list<&Helper::getCpuClockNames>("cpuClocks"),
    list<&Helper::getSystemClockNames>("systemClocks"),
    text<&Helper::getHostArch>("hostArchitecture"),
    text<&Helper::getInterfaceDesc>("interface"),
    text<&Helper::getBoardId>("board"),
    list<&Helper::getBoardImgZipEntries>("boardImages"),
    flag<&Helper::hasDimmConnectors>("dimmConnectors"),
    list<&Helper::getDimmConnectors>("connectors"),
    list<&Helper::getConnectedDimmConnectors>("connectedConnectors"),
    list<&Helper::getLockedDimmConnectors>("lockedConnectors"),
    text<&Helper::getBoardConnectionsString>("connections"),
    text<&Helper::getLockedBoardConnectionsString>("lockedConnections"),
    text<&Helper::getUnlockedBoardConnectionsString>("unlockedConnections"),
};

Board::Connector connectorOf(const HBOBoard& board, const HBOBoardComponent& connector) {
    Board::Connector made{.name = connector.getName(),
                          .displayName = connector.getDisplayName(),
                          .type = connector.getType(),
                          .isDimm = connector.isDIMMConnector(),
                          .fits = {}};
    HSTVector<const HBOBoardComponent*> compatible;
    board.getCompatibleConnectorsList(connector, compatible);
    for (const HBOBoardComponent* one : compatible)
        if (one->isDIMMConnector()) made.fits.push_back(one->getName());
    return made;
}

}  // namespace

HSTVector<Answer> answers(HTEQPlatform& platform) {
    const Helper helper(&platform);
    HSTVector<Answer> all;
    for (const Row& row : kRows) all.push_back({row.name, row.kind, row.answer(helper)});
    return all;
}

Boards boards(const HSTVector<std::string>& repositories) {
    HBOBoardCDataManager manager;
    manager.setBoardPartRepoPaths(repositories);
    HSTVector<const HBOBoard*> found;
    manager.getBoards(found);
    Boards result;
    for (const HBOBoard* board : found) {
        Board made{.part = board->getPart(), .name = board->getName(), .file = board->getFile(), .connectors = {}};
        HSTVector<const HBOBoardComponent*> connectors;
        board->getConnectorsList(connectors);
        for (const HBOBoardComponent* connector : connectors)
            made.connectors.push_back(connectorOf(*board, *connector));
        result.boards.push_back(std::move(made));
    }
    result.problems = manager.getProblems();
    return result;
}

}  // namespace teq_platform::requests
