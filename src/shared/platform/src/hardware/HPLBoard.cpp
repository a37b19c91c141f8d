#include "platform/HPLBoard.h"

#include "hardware/HardwareKeys.h"
#include "platform/HPLDriver.h"
#include "text/HSTStringUtils.h"

namespace {

using Board = HPLBoard;
using Connector = HPLBoard::DimmConnector;
using K = json::Keys<Board>;
using teq_platform::JSONListWriter;
using teq_platform::JSONObjectWriter;

constexpr json::Key<Connector> kConnectorKeys[] = {
    json::Keys<Connector>::text<&Connector::getName>("name"),
    json::Keys<Connector>::text<&Connector::getDisplayName>("displayName"),
    json::Keys<Connector>::text<&Connector::getType>("type"),
    json::Keys<Connector>::text<&Connector::getConnectedName>("connectedName"),
    json::Keys<Connector>::text<&Connector::getConnectedDisplayName>("connectedDisplayName"),
    json::Keys<Connector>::flag<&Connector::isConnected>("connected"),
    json::Keys<Connector>::flag<&Connector::isLocked>("locked"),
};

HSTVector<Connector*> connectorsOf(const Board& board) {
    HSTVector<Connector*> connectors;
    board.getConnectorsVec(connectors);
    return connectors;
}

/// A driver can be added only as a Boolean, which does not return.
void writeDrivers(JSONObjectWriter& writer, const char* name, const Board& board) {
    const std::unique_ptr<HSTFwdIter<HPLDriver*>> it(board.createDriverIter());
    JSONListWriter list;
    while (it->hasNext()) list.addItem(it->next() != nullptr);
    writer.addKey(name, std::move(list));
}

constexpr json::Key<Board> kKeys[] = {
    K::text<&Board::getName, &Board::setName>("name"),
    K::text<&Board::getVendor, &Board::setVendor>("vendor"),
    K::text<&Board::getPart, &Board::setPart>("part"),
    K::text<&Board::getBoardPart, &Board::setBoardPart>("boardPart"),
    K::text<&Board::getImgFileHdpi, &Board::setImgFileHdpi>("imageFileHdpi"),
    K::text<&Board::getImgFileMdpi, &Board::setImgFileMdpi>("imageFileMdpi"),
    K::text<&Board::getImgFileLdpi, &Board::setImgFileLdpi>("imageFileLdpi"),
    K::objects<&connectorsOf>("connectors"),
    K::custom<&writeDrivers>("drivers"),
    K::object<&Board::getPCIeId, &Board::getWriteablePCIeId>("pcie"),
};

}  // namespace

template <>
std::span<const json::Key<Board>> json::keysOf<Board>() {
    return kKeys;
}

HPLBoard::DimmConnector::DimmConnector(std::string name, std::string displayName, std::string type,
                                       std::string connectedName, std::string connectedDisplayName, bool connected,
                                       bool locked)
    : name_(std::move(name)),
      displayName_(std::move(displayName)),
      type_(std::move(type)),
      connectedName_(std::move(connectedName)),
      connectedDisplayName_(std::move(connectedDisplayName)),
      connected_(connected),
      locked_(locked) {}

void HPLBoard::DimmConnector::toJSON(JSONObjectWriter& writer) const {
    json::writeKeys(writer, kConnectorKeys, *this);
}

HPLBoard::HPLBoard() = default;
HPLBoard::~HPLBoard() = default;

void HPLBoard::toJSON(JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }

HPLDriver* HPLBoard::addDriver() { return drivers_.add(); }
HSTFwdIter<HPLDriver*>* HPLBoard::createDriverIter() const { return drivers_.makeIter(); }

HPLBoard::DimmConnector* HPLBoard::addDimmConnector() { return connectors_.add(); }

HPLBoard::DimmConnector* HPLBoard::addDimmConnector(std::string name, std::string displayName, std::string type,
                                                    std::string connectedName, std::string connectedDisplayName,
                                                    bool connected, bool locked) {
    return connectors_.add(std::move(name), std::move(displayName), std::move(type), std::move(connectedName),
                           std::move(connectedDisplayName), connected, locked);
}

void HPLBoard::getDimmConnectors(HSTVector<std::string>& out) const {
    for (const Connector* connector : connectors_) out.push_back(connector->getName());
}

void HPLBoard::getLockedDimmConnectors(HSTVector<std::string>& out) const {
    for (const Connector* connector : connectors_)
        if (connector->isLocked()) out.push_back(connector->getName());
}

void HPLBoard::getConnectedDimmConnectors(HSTVector<std::string>& names,
                                          HSTVector<std::string>& connectedNames) const {
    for (const Connector* connector : connectors_) {
        if (!connector->isConnected()) continue;
        names.push_back(connector->getName());
        connectedNames.push_back(connector->getConnectedName());
    }
}

template <class Pred>
std::string HPLBoard::connectionsOf_(Pred pred) const {
    HSTVector<std::string> pairs;
    for (const Connector* connector : connectors_)
        if (connector->isConnected() && pred(*connector))
            pairs.push_back(connector->getName() + " " + connector->getConnectedName());
    return HSTStringUtils::join(pairs, " ");
}

std::string HPLBoard::getBoardConnectionsString() const {
    return connectionsOf_([](const Connector&) { return true; });
}
std::string HPLBoard::getLockedBoardConnectionsString() const {
    return connectionsOf_([](const Connector& connector) { return connector.isLocked(); });
}
std::string HPLBoard::getUnlockedBoardConnectionsString() const {
    return connectionsOf_([](const Connector& connector) { return !connector.isLocked(); });
}

std::string HPLBoard::getConnectorDisplayName(const std::string& name) const {
    for (const Connector* connector : connectors_) {
        if (HSTStringUtils::iequals(name, connector->getName())) return connector->getDisplayName();
        if (HSTStringUtils::iequals(name, connector->getConnectedName())) return connector->getConnectedDisplayName();
    }
    return {};
}
