#include "json/JsonKeys.h"

#include "msg/Budget.h"

namespace json {

namespace {

// Writing.

/// Writes the content of a row of its kind.
struct Writing {
    JSONObjectWriter& writer;
    const char* name;
    const void* record;
    std::string& buffer;
    bool isNew;  ///< the writer does not have the key

    void operator()(const Scalar& scalar) const {
        const std::string& value = scalar.get(record, buffer);
        if (!value.empty() && !(isNew && addNew(writer, name, value))) writer.addKey(name, value);
    }
    void operator()(const Group& group) const {
        ObjectIn object(writer, name);
        writeRows(*object, group.rows(), record);
        object.add();
    }
    void operator()(const Object& object) const { writer.addKey(name, &object.get(record)); }
    void operator()(const Objects& objects) const {
        ListIn list(writer, name);
        objects.each(record, [&](const JSONSerializable* item) { list->addItem(item); });
        list.add();
    }
    void operator()(const Texts& texts) const { writer.addKey(name, texts.get(record)); }
    void operator()(const Pairs& pairs) const {
        ListIn list(writer, name);
        for (const auto& [first, second] : pairs.get(record)) {
            ObjectIn item(*list);
            item->addKey("name", first);
            item->addKey(pairs.valueKey, second);
            item.add();
        }
        list.add();
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

/// Reads the content of a row of its kind, which is read. `buffer` holds a text for a setter.
struct Reading {
    const Node& node;
    void* record;
    std::string& buffer;

    void operator()(const Scalar& scalar) const { scalar.set(record, buffer = node.text()); }
    void operator()(const Group& group) const { readRows(node, group.rows(), record); }
    void operator()(const Object& object) const { readRows(node, object.rows(), object.writable(record)); }
    void operator()(const Objects& objects) const {
        const Rows rows = objects.rows();
        for (const Node item : node) {
            Budget::spend(Cost::records, objects.size);
            readRows(item, rows, objects.add(record));
        }
    }
    void operator()(const Texts& texts) const {
        for (const Node item : node) texts.add(record, buffer = item.text());
    }
    void operator()(const Pairs& pairs) const {
        std::string value;
        for (const Node item : node) {
            buffer = textAt(item, "name");
            pairs.add(record, buffer, value = textAt(item, pairs.valueKey));
        }
    }
    void operator()(const Custom& custom) const { custom.read(record, node); }
};

void readInto(const Row& row, const Node& value, void* record, std::string& buffer) {
    std::visit(Reading{value, record, buffer}, row.content);
}

/// `value`: of the row's key, if the document has it.
void readFound(const Node& value, const Row& row, void* record, std::string& buffer) {
    if (value) return readInto(row, value, record, buffer);
    if (row.required) ptree().get_child(row.name);  // throws
    if (row.ifPresent) return;
    if (const auto* scalar = std::get_if<Scalar>(&row.content)) scalar->set(record, buffer = row.missing);
    if (const auto* custom = std::get_if<Custom>(&row.content)) custom->read(record, Node());
}

/// Why the reader refuses the value of the key; empty if it does not.
std::string refusalOf(const Row& row, const Node& node) {
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
    std::string buffer;
    const bool isNew = writer.empty();  // the names of a table differ
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        if (!row.isWritten || row.isWritten(record))
            std::visit(Writing{writer, row.name, record, buffer, isNew}, row.content);
    }
}

void readValue(const Node& value, const Row& row, void* record) {
    std::string buffer;
    readInto(row, value, record, buffer);
}

void readRow(const Node& node, const Row& row, void* record) {
    std::string buffer;
    if (row.isRead()) readFound(node.find(row.name), row, record, buffer);
}

void readRows(const Node& node, const Rows& rows, void* record) {
    std::string buffer;
    Finder finder(node);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        if (row.isRead()) readFound(finder.find(row.name), row, record, buffer);
    }
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
        if (row.tryRead) shape.refusal = [&row](const Node& node) { return refusalOf(row, node); };
        shapes.push_back(std::move(shape));
    }
    return shapes;
}

const std::string& textAt(const ptree& node, const char* key) {
    static const std::string none;
    const auto at = node.find(key);
    return at != node.not_found() ? at->second.data() : none;
}

std::string_view textAt(const Node& node, const char* key) { return node.find(key).text(); }

}  // namespace json
