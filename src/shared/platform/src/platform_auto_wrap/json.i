// Documents. Writers are passed in by the library; Java does not make them.

namespace boost { namespace property_tree { class ptree; } }

namespace teq_platform {

class JSONObjectWriter;

class JSONSerializable {
public:
    void toJSON(JSONObjectWriter& writer) const;
    ZR_DESTRUCTOR(JSONSerializable)
    ~JSONSerializable();
};

class JSONWriter {
public:
    bool empty() const;
    void write(std::ostream& out) const;
};

class JSONObjectWriter : public JSONWriter {
public:
    void addKey(const std::string& key, const std::string& value);
    void addKey(const std::string& key, bool value);
    void addKey(const std::string& key, const teq_platform::JSONWriter& child);
    void addKey(const std::string& key, const JSONSerializable* object);
    void addKey(const std::string& key, const boost::property_tree::ptree& tree);
    // The same proxy class stands for pointer and reference, so the form for references is left out.
    void writeObject(const JSONSerializable* object);
    void writeObject(const JSONSerializable& object);
};

class JSONListWriter : public JSONWriter {
public:
    void addItem(const teq_platform::JSONWriter& item);
    void addItem(const JSONSerializable* object);
    void addItem(const std::string& value);
    void addItem(bool value);
};

}  // namespace teq_platform
