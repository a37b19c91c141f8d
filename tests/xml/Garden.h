#pragma once
#include "xml/XmlRecord.h"

/// A format of the tests' own that has one of everything: each value type, each cardinality, text, a choice.
namespace garden {

using xml::Attr;

struct Bed {
    Attr<std::string> plant;
    Attr<std::uint8_t> rows;
    bool operator==(const Bed&) const = default;
};
struct Sign {
    bool operator==(const Sign&) const = default;
};
struct Pump {
    Attr<xml::Decimal> power;
    bool operator==(const Pump&) const = default;
};
struct Pumped {
    Pump pump;
    std::optional<Sign> sign;
    bool operator==(const Pumped&) const = default;
};
struct Rained {
    std::vector<Sign> butts;
    bool operator==(const Rained&) const = default;
};
struct Water {
    Attr<xml::Integer> litres;
    std::variant<Pumped, Rained> source;
    bool operator==(const Water&) const = default;
};
struct Garden {
    Attr<std::string> name;
    Attr<bool> open;
    Attr<std::int16_t> level;
    Attr<std::uint16_t> visitors;
    Attr<std::uint32_t> stones;
    Attr<std::uint64_t> grains;
    Attr<std::int64_t> balance;
    std::string description;
    std::optional<Water> water;
    std::vector<Bed> beds;
    std::vector<Sign> gates;
    std::optional<Sign> bench;
    bool operator==(const Garden&) const = default;
};

constexpr auto kBedAttributes =
    xml::attributes<Bed>(xml::required<&Bed::plant>("plant"), xml::optional<&Bed::rows>("rows"));
constexpr auto kBed = xml::element(kBedAttributes);
constexpr auto kNoAttributes = xml::attributes<Sign>();
constexpr auto kSign = xml::element(kNoAttributes);
constexpr auto kPumpAttributes = xml::attributes<Pump>(xml::required<&Pump::power>("power"));
constexpr auto kPump = xml::element(kPumpAttributes);
constexpr auto kPumpedChildren =
    xml::children<Pumped>(xml::one<&Pumped::pump>("pump", kPump), xml::atMostOne<&Pumped::sign>("sign", kSign));
constexpr auto kRainedChildren = xml::children<Rained>(xml::atLeastOne<&Rained::butts>("butt", kSign));
constexpr xml::Alternative kSources[] = {xml::alternative<&Water::source, 0>(kPumpedChildren),
                                         xml::alternative<&Water::source, 1>(kRainedChildren)};
constexpr auto kWaterAttributes = xml::attributes<Water>(xml::optional<&Water::litres>("litres"));
constexpr auto kWater = xml::choice(kWaterAttributes, kSources);
constexpr auto kGardenAttributes =
    xml::attributes<Garden>(xml::required<&Garden::name>("name"), xml::optional<&Garden::open>("open"),
                            xml::optional<&Garden::level>("level"), xml::optional<&Garden::visitors>("visitors"),
                            xml::optional<&Garden::stones>("stones"), xml::optional<&Garden::grains>("grains"),
                            xml::optional<&Garden::balance>("balance"));
constexpr auto kGardenChildren = xml::children<Garden>(
    xml::one<&Garden::description>("description", xml::kText), xml::atMostOne<&Garden::water>("water", kWater),
    xml::many<&Garden::beds>("bed", kBed), xml::atLeastOne<&Garden::gates>("gate", kSign),
    xml::oneWhenWritten<&Garden::bench>("bench", kSign));
constexpr auto kGarden = xml::element(kGardenAttributes, kGardenChildren);

constexpr auto kDocument = xml::document("urn:garden", "g", "garden", kGarden);
/// The same elements in no namespace.
constexpr auto kPlainDocument = xml::document("", "", "garden", kGarden);

}  // namespace garden
