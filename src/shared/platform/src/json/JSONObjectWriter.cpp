#include "platform/JSONObjectWriter.h"

#include "json/ChildWriter.h"
#include "json/TreePath.h"
#include "msg/Budget.h"

namespace teq_platform {

namespace {

// Paths are followed as the property tree's own operations do, which cannot be called: they assert that no path is
// empty or ends in a dot, and untrusted keys do.

/// Whether `key` names a child directly. The empty key is a path too: to the node itself.
bool isPlain(const std::string& key) { return !key.empty() && key.find('.') == std::string::npos; }

/// Removes the first part of the path, and returns it.
std::string takePart(std::string& path) {
    const std::size_t dot = path.find('.');
    std::string part = path.substr(0, dot);
    path.erase(0, dot == std::string::npos ? dot : dot + 1);
    return part;
}

ptree& newChild(ptree& parent, const std::string& name) {
    Budget::spend(Cost::nodes);
    return parent.push_back({name, ptree()})->second;
}

ptree& childOrNew(ptree& parent, const std::string& name) {
    const auto at = parent.find(name);
    return at != parent.not_found() ? at->second : newChild(parent, name);
}

/// The parent of a node to add at `path`, made if missing; the node's own name is left in `path`. Here the path ends
/// at its last dot: "a." is the child "" of "a".
ptree& makeParent(ptree& tree, std::string& path) {
    ptree* at = &tree;
    while (path.find('.') != std::string::npos) at = &childOrNew(*at, takePart(path));
    return *at;
}

}  // namespace

void JSONObjectWriter::put_(const std::string& key, const std::string& value) {
    if (isPlain(key) && addValue_(key, value, false)) return;
    Budget::spend(Cost::text, key.size() + value.size());
    if (isPlain(key)) {
        const auto at = getTree().find(key);
        (at != getTree().not_found() ? at->second : append_(key)).data() = value;
    } else if (ptree* const node = json::findPath(getTree(), key)) {
        node->data() = value;
    } else {
        std::string name = key;
        ptree& parent = makeParent(getTree(), name);
        childOrNew(parent, name).data() = value;
    }
}

ptree& JSONObjectWriter::addNode_(const std::string& path) {
    std::string name = path;
    ptree& parent = makeParent(getTree(), name);
    return newChild(parent, name);
}

void JSONObjectWriter::addKey(const std::string& key, const std::string& value) {
    if (!value.empty()) put_(key, value);
}

void JSONObjectWriter::addKey(const std::string& key, bool value) { put_(key, value ? "true" : "false"); }

void JSONObjectWriter::addKey(const std::string& key, const JSONWriter& child) { addKey(key, JSONWriter(child)); }

void JSONObjectWriter::addKey(const std::string& key, JSONWriter&& child) {
    if (&child == this)
        addKey(key, JSONWriter(std::move(child)));
    else if (child.empty())
        return;
    else if (isPlain(key))
        addChild_(key, std::move(child));
    else
        addNode_(key).swap(child.getTree());
}

void JSONObjectWriter::addKey(const std::string& key, const JSONSerializable* object) {
    if (!object) return;
    if (!isPlain(key)) {
        JSONObjectWriter child;
        child.writeObject(object);
        return addKey(key, std::move(child));
    }
    json::ObjectIn child(*this, key);
    child->writeObject(object);
    child.add();
}

void JSONObjectWriter::addKey(const std::string& key, const ptree& tree) {
    JSONWriter child;
    child.getTree() = tree;  // first: it may be a part of this writer's
    addKey(key, std::move(child));
}

void JSONObjectWriter::addKey(const std::string& key, const HSTVector<std::string>& values) {
    JSONListWriter list;
    for (const std::string& value : values) list.addItem(value);
    addKey(key, std::move(list));
}

void JSONObjectWriter::writeObject(const JSONSerializable* object) {
    if (object) object->toJSON(*this);
}

}  // namespace teq_platform
