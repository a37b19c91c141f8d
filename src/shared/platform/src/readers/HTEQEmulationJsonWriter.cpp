#include "platform/HTEQEmulationJsonWriter.h"

#include <utility>

#include "json/JsonText.h"
#include "msg/HEXAll.h"
#include "platform/HTEQEmulations.h"
#include "util/WholeFile.h"

using json::ptree;

HTEQEmulationJsonWriter::HTEQEmulationJsonWriter(HTEQEmulations* emulations, std::string file)
    : emulations_(emulations), file_(std::move(file)) {}

void HTEQEmulationJsonWriter::writeJson() const {
    const std::string text = getText();
    try {
        wholefile::replace(file_, text);
    } catch (const HEXUserException& e) {
        throw boost::property_tree::json_parser::json_parser_error(e.what(), file_, 0);
    }
}

std::string HTEQEmulationJsonWriter::getText() const {
    ptree root;
    root.push_back({"pfm_metadata_version", ptree(emulations_->getPfmMetadataVersion())});
    ptree& list = root.push_back({"emulations", ptree()})->second;
    for (const HTEQEmulation* emulation : emulations_->getEmulations())
        writeEmulation_(emulation, list.push_back({"", ptree()})->second);
    return json::write(root);
}

void HTEQEmulationJsonWriter::writeEmulation_(const HTEQEmulation* emulation, ptree& tree) {
    tree.push_back({"name", ptree(emulation->getName())});
    ptree& list = tree.push_back({"files", ptree()})->second;
    for (const HTEQEmulationFile* file : emulation->getFiles()) {
        ptree& made = list.push_back({"", ptree()})->second;
        made.push_back({"type", ptree(file->getType())});
        made.push_back({"name", ptree(file->getName())});
        if (!file->getInstPath().empty()) made.push_back({"inst_path", ptree(file->getInstPath())});
    }
}
