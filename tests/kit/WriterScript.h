#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "platform/JSONWriter.h"

/// Drives the JSON writers by bytes, once as they are and once with a tree in each from the beginning.
class WriterScript {
public:
    WriterScript(std::span<const std::uint8_t> bytes, bool keepsTrees) : bytes_(bytes), keepsTrees_(keepsTrees) {}

    /// The document, or why it cannot be written.
    std::string run() {
        teq_platform::JSONObjectWriter writer;
        root_ = &writer;
        fill(writer, 0);
        try {
            return writer.text();
        } catch (const std::exception& e) {
            return e.what();
        }
    }

private:
    using Object = teq_platform::JSONObjectWriter;
    using List = teq_platform::JSONListWriter;

    /// A host's object, which may do with its writer whatever the class allows.
    struct Model : teq_platform::JSONSerializable {
        WriterScript& script;
        int depth;
        Model(WriterScript& s, int d) : script(s), depth(d) {}
        void toJSON(Object& writer) const override { script.fill(writer, depth); }
    };

    unsigned next() {
        if (at_ == bytes_.size()) return 0;
        return bytes_[at_++];
    }
    std::string key() {
        static const char* const keys[] = {
            "a", "b", "c", "a.b", "a.c.d", "", ".", "a.", "long key of more than fifteen"};
        return keys[next() % std::size(keys)];
    }
    template <class Writer>
    void begin(Writer& writer) const {
        if (keepsTrees_) writer.getTree();
    }

    void fill(Object& writer, int depth) {
        begin(writer);
        for (unsigned steps = next() % 8; steps > 0; --steps) step(writer, depth);
    }

    void step(Object& writer, int depth) {
        constexpr int kDeepest = 6, kMostCopies = 10;  // each copy may double the document
        unsigned kind = next() % 14;
        if ((kind == 6 || kind == 7 || kind == 12) && ++copies_ > kMostCopies) kind = 0;
        const std::string name = key(), value(next() % 3, 'v');
        const Model model(*this, depth + 1);
        Object other;
        begin(other);
        switch (depth < kDeepest ? kind : 0) {
            case 0: return writer.addKey(name, value);
            case 1: return writer.addKey(name, next() % 2 == 0);
            case 2: return writer.addKey(name, &model);
            case 3: fill(other, depth + 1); return writer.addKey(name, std::as_const(other));
            case 4: fill(other, depth + 1); return writer.addKey(name, std::move(other));
            case 5: return addList(writer, name, depth);
            case 6: return writer.addKey(name, std::as_const(writer).getTree());
            case 7: return writer.addKey(name, std::as_const(writer));
            case 8: writer.getTree().push_back({name, teq_platform::ptree(value)}); return;
            case 9:
                other = writer;
                writer = std::move(other);
                return;
            case 10: return root_->addKey(name, value);  // it may have an open child
            case 11: other = std::move(writer); return writer.addKey(name, std::move(other));
            case 12: return writer.addKey(name, std::as_const(*root_));
            case 13: return writer.addKey(name, std::move(*root_));
        }
    }

    void addList(Object& writer, const std::string& name, int depth) {
        List list;
        begin(list);
        for (unsigned items = next() % 4; items > 0; --items) {
            const Model model(*this, depth + 1);
            if (next() % 2)
                list.addItem(&model);
            else
                list.addItem(key());
        }
        writer.addKey(name, std::move(list));
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0;
    int copies_ = 0;
    const bool keepsTrees_;
    Object* root_ = nullptr;
};
