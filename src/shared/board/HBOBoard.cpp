#include "board/HBOBoard.h"

HBOBoard::HBOBoard(std::string part, std::string name, std::string file)
    : part_(std::move(part)), name_(std::move(name)), file_(std::move(file)) {}

HBOBoardComponent* HBOBoard::addConnector(std::string name, std::string displayName, std::string type,
                                          HSTVector<std::string> compatible) {
    HBOBoardComponent* const added =
        connectors_.add(std::move(name), std::move(displayName), std::move(type), std::move(compatible));
    byName_.try_emplace(added->getName(), added);
    return added;
}

void HBOBoard::getConnectorsList(HSTVector<const HBOBoardComponent*>& out) const {
    out.insert(out.end(), connectors_.begin(), connectors_.end());
}

void HBOBoard::getCompatibleConnectorsList(const HBOBoardComponent& connector,
                                           HSTVector<const HBOBoardComponent*>& out) const {
    for (const std::string& name : connector.getCompatibleNames())
        if (const auto found = byName_.find(name); found != byName_.end()) out.push_back(found->second);
}
