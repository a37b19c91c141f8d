#include "json/JsonKeys.h"

#include "msg/Budget.h"

namespace json {

namespace {

// Writing.

JSONObjectWriter objectIn(teq_platform::JSONWriter& parent) {
    JSONObjectWriter object;
    object.shareNodesOf(parent);
    return object;
}

JSONListWriter listIn(teq_platform::JSONWriter& parent) {
    JSONListWriter list;
    list.shareNodesOf(parent);
    return list;
}

/// Writes the content of a row of its kind.
struct Writing {
    JSONObjectWriter& writer;
    const char* name;
    const void* record;

    void operator()(const Scalar& scalar) const {
        std::string buffer;
        writer.addKey(name, scalar.get(record, buffer));
    }
    void operator()(const Group& group) const {
        JSONObjectWriter object = objectIn(writer);
        writeRows(object, group.rows(), record);
        writer.addKey(name, std::move(object));
    }
    void operator()(const Object& object) const { writer.addKey(name, &object.get(record)); }
    void operator()(const Objects& objects) const {
        JSONListWriter list = listIn(writer);
        objects.each(record, [&](const JSONSerializable* item) { list.addItem(item); });
        writer.addKey(name, std::move(list));
    }
    void operator()(const Texts& texts) const { writer.addKey(name, texts.get(record)); }
    void operator()(const Pairs& pairs) const {
        JSONListWriter list = listIn(writer);
        for (const auto& [first, second] : pairs.get(record)) {
            JSONObjectWriter item = objectIn(list);
            item.addKey("name", first);
            item.addKey(pairs.valueKey, second);
            list.addItem(std::move(item));
        }
        writer.addKey(name, std::move(list));
    }
    void operator()(const Custom& custom) const { custom.write(writer, name, record); }
};

// Reading.

struct IsRead {
    bool operator()(const Scalar& scalar) const { return scalar.set; }
    bool operator()(const Group&) const { return true; }
    bool operator()(const Object& object) const { return object.writable; }
    bool operator()(const Objects& objects) const { return objects.add; }
    bool operator()(const Texts& texts) const { return texts.add; }
    bool operator()(const Pairs& pairs) const { return pairs.add; }
    bool operator()(const Custom& custom) const { return custom.read; }
};

/// Reads the content of a row of its kind, which is read.
struct Reading {
    const ptree& node;
    void* record;

    void operator()(const Scalar& scalar) const { scalar.set(record, node.data()); }
    void operator()(const Group& group) const { readRows(node, group.rows(), record); }
    void operator()(const Object& object) const { readRows(node, object.rows(), object.writable(record)); }
    void operator()(const Objects& objects) const {
        const Rows rows = objects.rows();
        for (const auto& [none, item] : node) {
            Budget::spend(Cost::records, objects.size);
            readRows(item, rows, objects.add(record));
        }
    }
    void operator()(const Texts& texts) const {
        for (const auto& [none, item] : node) texts.add(record, item.data());
    }
    void operator()(const Pairs& pairs) const {
        for (const auto& [none, item] : node) pairs.add(record, textAt(item, "name"), textAt(item, pairs.valueKey));
    }
    void operator()(const Custom& custom) const { custom.read(record, node); }
};

/// Why the reader refuses the value of the key; empty if it does not.
std::string refusalOf(const Row& row, const ptree& node) {
    try {
        row.tryRead(row, node);
    } catch (const std::exception& e) {
        return e.what();
    }
    return {};
}

}  // namespace

bool Row::isRead() const { return std::visit(IsRead(), content); }

void writeRows(JSONObjectWriter& writer, const Rows& rows, const void* record) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        if (!row.isWritten || row.isWritten(record)) std::visit(Writing{writer, row.name, record}, row.content);
    }
}

void readValue(const ptree& value, const Row& row, void* record) { std::visit(Reading{value, record}, row.content); }

void readRow(const ptree& node, const Row& row, void* record) {
    if (!row.isRead()) return;
    const auto at = node.find(row.name);
    if (at != node.not_found()) return readValue(at->second, row, record);
    if (row.required) node.get_child(row.name);  // throws
    if (row.ifPresent) return;
    static const ptree none;
    if (const auto* scalar = std::get_if<Scalar>(&row.content)) scalar->set(record, row.missing);
    if (const auto* custom = std::get_if<Custom>(&row.content)) custom->read(record, none);
}

void readRows(const ptree& node, const Rows& rows, void* record) {
    for (std::size_t i = 0; i < rows.size(); ++i) readRow(node, rows[i], record);
}

std::vector<Shape> shapesOf(const Rows& rows) {
    std::vector<Shape> shapes;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        if (!row.isRead() && !row.inner) {
            shapes.push_back({.name = row.name, .form = Form::unknown, .isRead = false});
            continue;
        }
        Shape shape{.name = row.name, .form = row.form, .required = row.required, .inner = row.inner};
        shape.numberOf = row.numberOf;
        if (const auto* const objects = std::get_if<Objects>(&row.content)) shape.size = objects->size;
        if (row.tryRead) shape.refusal = [&row](const ptree& node) { return refusalOf(row, node); };
        shapes.push_back(std::move(shape));
    }
    return shapes;
}

const std::string& textAt(const ptree& node, const char* key) {
    static const std::string none;
    const auto at = node.find(key);
    return at != node.not_found() ? at->second.data() : none;
}

}  // namespace json
