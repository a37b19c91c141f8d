#pragma once
#include "Check.h"
#include "json/JsonText.h"
#include "platform/JSONWriter.h"

/// The object writes a document, and the library reads its own documents.
inline void requireDocument(const teq_platform::JSONSerializable& object) {
    teq_platform::JSONObjectWriter writer;
    writer.writeObject(object);
    json::ptree again;
    json::parse(json::write(writer.getTree()), "document", again, json::kOwn);
    require(again == writer.getTree(), "the document gives the tree again");
}
