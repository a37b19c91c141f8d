#pragma once
#include <cstdint>
#include <string>

#include "Document.h"
#include "Quiet.h"
#include "kit/Scratch.h"

/// The bytes as a file, the same path each time.
inline std::string fileOf(const std::uint8_t* data, std::size_t size) {
    silence();
    static const Scratch scratch;
    return scratch.put("input", {reinterpret_cast<const char*>(data), size});
}

/// A model that is read from the file, or refused with a message, writes its document.
template <class Reader, class Model>
void readModel(const std::string& file) {
    Model model;
    Reader reader(file, &model);
    require(reader.parseFile() == reader.getErrorMsg().empty(), "a failure has a message");
    requireDocument(model);
}
