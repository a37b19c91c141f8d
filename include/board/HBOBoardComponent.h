#pragma once
#include <string>

#include "text/HSTStringUtils.h"
#include "text/HSTVector.h"
#include "text/ZrApi.h"

/// A connector of a board, as a board repository describes it.
class ZR_API HBOBoardComponent {
public:
    HBOBoardComponent(std::string name, std::string displayName, std::string type, HSTVector<std::string> compatible)
        : name_(std::move(name)),
          displayName_(std::move(displayName)),
          type_(std::move(type)),
          compatible_(std::move(compatible)) {}

    const std::string& getName() const { return name_; }
    /// The name shown to users.
    const std::string& getDisplayName() const { return displayName_; }
    /// As in the file, "DIMM" for example.
    const std::string& getType() const { return type_; }
    /// Whether the type is "DIMM"; case is ignored.
    bool isDIMMConnector() const { return HSTStringUtils::iequals(type_, "DIMM"); }
    /// Names of the connectors that this one can be connected to, as in the file.
    const HSTVector<std::string>& getCompatibleNames() const { return compatible_; }

private:
    std::string name_, displayName_, type_;
    HSTVector<std::string> compatible_;
};
