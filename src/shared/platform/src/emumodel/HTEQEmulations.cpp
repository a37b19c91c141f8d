#include "platform/HTEQEmulations.h"

const std::string& HTEQEmulations::getEmulationXmlFilename() {
    static const std::string name = "hw_emu.xml";
    return name;
}
const std::string& HTEQEmulations::getEmulationJsonFilename() {
    static const std::string name = "hw_emu.json";
    return name;
}
const std::string& HTEQEmulations::getEmuDirName() {
    static const std::string name = "hw_emu";
    return name;
}
const std::string& HTEQEmulations::getEmulationPropJsonFilename() {
    static const std::string name = "prop.json";
    return name;
}
