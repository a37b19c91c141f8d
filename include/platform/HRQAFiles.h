#pragma once
#include <map>
#include <string>

#include "platform/JSONSerializable.h"
#include "platform/JSONWriter.h"
#include "text/HSTVector.h"

/// The files of a metadata archive: a member name for each file type, sorted by type.
class ZR_API HRQAFiles : public teq_platform::JSONSerializable {
public:
    using Map = std::map<std::string, std::string>;

    /// Sets the member of a type. Does nothing if either text is empty.
    void add(const std::string& type, const std::string& name);
    /// The member of a type; empty if there is none.
    std::string get(const std::string& type) const;
    bool contains(const std::string& type) const { return !get(type).empty(); }
    void remove(const std::string& type) { files_.erase(type); }
    /// These replace what the argument holds, in the order of the types.
    void getTypes(HSTVector<std::string>& types) const;
    void getNames(HSTVector<std::string>& names) const;
    void getFiles(Map& files) const { files = files_; }
    std::size_t size() const { return files_.size(); }
    bool empty() const { return files_.empty(); }
    void clear() { files_.clear(); }

    static const std::string& toType(const Map::value_type& file) { return file.first; }
    static const std::string& toName(const Map::value_type& file) { return file.second; }

    /// Adds the files of the key "files" of an index, a list of objects with "name" and "type". An entry that lacks
    /// one of them is not added; of several of one type, the last one counts.
    void parse(const teq_platform::ptree& index);
    /// The inverse.
    void toJSON(teq_platform::JSONObjectWriter& writer) const override;

private:
    Map files_;
};
