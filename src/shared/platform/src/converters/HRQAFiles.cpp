#include "platform/HRQAFiles.h"

#include "json/JsonKeys.h"

void HRQAFiles::add(const std::string& type, const std::string& name) {
    if (!type.empty() && !name.empty()) files_[type] = name;
}

std::string HRQAFiles::get(const std::string& type) const {
    const auto at = files_.find(type);
    return at != files_.end() ? at->second : std::string();
}

void HRQAFiles::getTypes(HSTVector<std::string>& types) const {
    types.clear();
    for (const auto& file : files_) types.push_back(toType(file));
}

void HRQAFiles::getNames(HSTVector<std::string>& names) const {
    names.clear();
    for (const auto& file : files_) names.push_back(toName(file));
}

void HRQAFiles::parse(const teq_platform::ptree& index) {
    const auto list = index.find("files");
    if (list == index.not_found()) return;
    for (const auto& [none, file] : list->second) add(json::textAt(file, "type"), json::textAt(file, "name"));
}

void HRQAFiles::toJSON(teq_platform::JSONObjectWriter& writer) const {
    teq_platform::JSONListWriter list;
    for (const auto& file : files_) {
        teq_platform::JSONObjectWriter item;
        item.addKey("name", toName(file));
        item.addKey("type", toType(file));
        list.addItem(std::move(item));
    }
    writer.addKey("files", std::move(list));
}
