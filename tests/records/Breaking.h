#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "xml/XmlReader.h"
#include "xml/XmlWriter.h"

/// A good document with one text of it replaced, and the refusal that follows.
struct Breaking {
    std::string find, replacement;  ///< the first occurrence of `find`
    std::string element, words;
};

template <class R>
void expectRefused(const xml::Document<R>& format, const std::string& good, const std::vector<Breaking>& cases) {
    for (const Breaking& c : cases) {
        SCOPED_TRACE(c.find + " -> " + c.replacement);
        std::string text = good;
        const auto at = text.find(c.find);
        ASSERT_NE(at, std::string::npos);
        text.replace(at, c.find.size(), c.replacement);
        try {
            xml::read(format, text, "file");
            ADD_FAILURE() << "accepted";
        } catch (const xml::Exception& e) {
            EXPECT_EQ(e.element(), c.element);
            EXPECT_THAT(e.what(), testing::HasSubstr(c.words));
        }
    }
}

/// Each attribute of an element is required: without it the document is refused.
template <class R>
void expectRequired(const xml::Document<R>& format, const std::string& good, const std::string& element,
                    const std::string& prefix, const std::vector<std::string>& attributes) {
    const auto tag = good.find("<" + prefix + element + " ");
    ASSERT_NE(tag, std::string::npos);
    for (const std::string& attribute : attributes) {
        SCOPED_TRACE(element + " without " + attribute);
        const auto at = good.find(" " + prefix + attribute + "=\"", tag);
        ASSERT_LT(at, good.find('>', tag));
        const auto end = good.find('"', good.find('"', at) + 1) + 1;
        try {
            xml::read(format, std::string(good).erase(at, end - at), "file");
            ADD_FAILURE() << "accepted";
        } catch (const xml::Exception& e) {
            EXPECT_EQ(e.text(), "<" + element + "> needs the attribute " + attribute);
        }
    }
}

/// The document holds every attribute and child in the writer's form, so that each row is read and written in its
/// place.
template <class R>
void expectRoundTrip(const xml::Document<R>& format, const std::string& whole) {
    EXPECT_EQ(xml::write(format, xml::read(format, whole, "file")), whole);
}
