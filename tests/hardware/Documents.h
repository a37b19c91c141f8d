#pragma once
#include <string>
#include <string_view>

#include "hardware/HardwareKeys.h"
#include "json/JsonText.h"
#include "msg/HEXAll.h"
#include "platform/HPLPlatform.h"
#include "platform/JSONWriter.h"

/// Documents on one line, as tests compare them: no line ends, no indent.
inline std::string documentOf(const teq_platform::JSONSerializable& object) {
    teq_platform::JSONObjectWriter writer;
    object.toJSON(writer);
    std::string line;
    bool indent = false;
    for (const char c : json::write(writer.getTree())) {
        if (c == '\n')
            indent = true;
        else if (c != ' ' || !indent) {
            indent = false;
            line += c;
        }
    }
    return line;
}

inline json::ptree parsed(std::string_view text) {
    json::ptree tree;
    json::parse(text, "test", tree);
    return tree;
}

/// Reads `text` by the table of the record's class.
template <class T>
void readInto(T& record, std::string_view text) {
    json::Document document;
    document.parse(std::string(text), "test");
    json::readKeys(document.root(), json::keysOf<T>(), record);
}

inline void readPlatform(HPLPlatform& platform, std::string_view text) {
    json::Document document;
    document.parse(std::string(text), "test");
    hardware::readDocument(document.root(), platform);
}

/// The text of the exception that a call throws.
template <class Exception = HEXAll, class Call>
std::string refusalOf(Call call) {
    try {
        call();
    } catch (const Exception& error) {
        return error.what();
    }
    return "not refused";
}
