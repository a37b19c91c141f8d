#pragma once
#include <algorithm>

#include "check/XmlCheck.h"
#include "xml/XmlPlaces.h"
#include "xml/XmlReader.h"

namespace check {

/// A valid document as its record. Findings refer to elements; `report` computes their locations.
template <class R>
class ValidXml {
public:
    /// `document` must be valid and of this format. All arguments must outlive the object.
    ValidXml(const xml::Document<R>& format, const Source& source, const ReadXml& document)
        : record(*static_cast<const R*>(document.result.record.get())), format_(format), source_(source) {}

    const R& record;

    /// Whether further findings are only counted, so that their texts do not matter.
    bool isFull() const { return found_.size() == kMaxFindingsPerDocument; }
    /// Adds a finding. `at` is the record of an `element` of the document.
    void add(const char* name, const char* element, const void* at, std::string text) {
        if (isFull()) {
            if (more_++ == 0) firstMore_ = name;
            return;
        }
        found_.push_back({0, found_.size(), name, {element, at}, std::move(text)});
    }

    /// Adds the findings to `findings`, in document order.
    void report(Findings& findings) {
        if (found_.empty()) return;
        std::vector<xml::Target> targets;
        targets.reserve(found_.size());
        for (const Found& found : found_) targets.push_back(found.target);
        std::vector<std::size_t> numbers = xml::numbersOf(format_, &record, targets);
        for (std::size_t i = 0; i < found_.size(); ++i) found_[i].number = numbers[i];
        std::ranges::sort(found_, {}, [](const Found& found) { return std::pair(found.number, found.order); });
        std::ranges::sort(numbers);
        const std::vector<xml::Place> places = xml::placesOf(source_.text, source_.file, numbers);
        for (std::size_t i = 0; i < found_.size(); ++i)
            findings.add(findingAt(source_, places[i], found_[i].name, std::string(found_[i].target.name),
                                   std::move(found_[i].text)));
        found_.clear();
        if (more_ == 0) return;
        findings.addMore(std::exchange(more_, 0),
                         findingAt(source_, xml::Place{.file = source_.file}, firstMore_, "", ""));
    }

private:
    struct Found {
        std::size_t number;
        std::size_t order;  ///< in which they were added
        const char* name;
        xml::Target target;
        std::string text;
    };
    const xml::Document<R>& format_;
    const Source& source_;
    std::vector<Found> found_;
    std::size_t more_ = 0;             ///< than `found_` has
    const char* firstMore_ = nullptr;  ///< the name of the first of these
};

}  // namespace check
