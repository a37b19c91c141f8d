#include "xml/XmlPlaces.h"

#include <gtest/gtest.h>

#include "xml/Garden.h"
#include "xml/XmlReader.h"

using namespace garden;

TEST(XmlPlaces, FindsElementsByTheirRecords) {
    const std::string text =
        "<!-- c -->\n<g:garden xmlns:g='urn:garden' g:name='n'><g:description/>\n"
        "<g:water><g:pump g:power='1'/><g:sign/></g:water>\n"
        "  <g:bed g:plant='a'/><?p i?> <g:bed g:plant='\xC3\xA4'/><g:bed g:plant='c'/>\n<g:gate/></g:garden>";
    const Garden garden = xml::read(kDocument, text, "g");
    const Pumped& pumped = std::get<Pumped>(garden.water->source);
    const xml::Target targets[] = {{"bed", &garden.beds[2]},  {"garden", &garden},        {"pump", &pumped.pump},
                                   {"water", &*garden.water}, {"gate", &garden.gates[0]}, {"bed", &garden}};
    EXPECT_EQ(xml::numbersOf(kDocument, &garden, targets), std::vector<std::size_t>({7, 0, 3, 2, 8, 0}));
    const std::size_t numbers[] = {0, 3, 3, 7, 8, 9};
    const std::vector<xml::Place> places = xml::placesOf(text, "g", numbers);
    std::vector<std::pair<std::uint64_t, std::uint64_t>> found;
    for (const xml::Place& place : places) found.emplace_back(place.line, place.column);
    const decltype(found) expected = {{2, 1}, {3, 10}, {3, 10}, {4, 51}, {5, 1}, {0, 0}};
    EXPECT_EQ(found, expected);
    EXPECT_EQ(places[3].file, "g");
    EXPECT_EQ(text.substr(places[3].offset, 21), "<g:bed g:plant='c'/>\n");
}
