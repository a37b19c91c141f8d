#pragma once
#include <map>
#include <string>
#include <string_view>

#include "board/HBOBoardComponent.h"
#include "text/Owned.h"

/// A board of a board repository, with its connectors. It owns them.
class ZR_API HBOBoard {
public:
    HBOBoard(std::string part, std::string name, std::string file);
    HBOBoard(const HBOBoard&) = delete;
    HBOBoard& operator=(const HBOBoard&) = delete;

    /// The name under which platforms refer to the board.
    const std::string& getPart() const { return part_; }
    const std::string& getName() const { return name_; }
    /// Path of the `board.json` that the board was read from.
    const std::string& getFile() const { return file_; }

    HBOBoardComponent* addConnector(std::string name, std::string displayName, std::string type,
                                    HSTVector<std::string> compatible);
    /// Appends all connectors, in file order.
    void getConnectorsList(HSTVector<const HBOBoardComponent*>& out) const;
    /// Appends the connectors of this board that `connector` lists as compatible, in the order of its list. Of several
    /// connectors with one name the first is used; a name that no connector has is ignored.
    void getCompatibleConnectorsList(const HBOBoardComponent& connector,
                                     HSTVector<const HBOBoardComponent*>& out) const;

private:
    std::string part_, name_, file_;
    Owned<HBOBoardComponent> connectors_;
    std::map<std::string_view, const HBOBoardComponent*> byName_;  ///< the first of each name
};
