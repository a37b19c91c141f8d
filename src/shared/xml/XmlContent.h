#pragma once
#include <cstddef>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "xml/XmlRecord.h"

namespace xml {

/// "a, b or c".
std::string listed(const std::vector<std::string>& items);

/// Whether a local name is that of a row. Compares the first letter first: most names differ there.
inline bool isCalled(std::string_view local, const char* name) {
    return !local.empty() && *name == local.front() && std::strncmp(name, local.data(), local.size()) == 0 &&
           name[local.size()] == '\0';
}

/// The children of an open element: which have come, and which may follow. Names are local names in the namespace of the
/// format.
class Content {
public:
    /// `name` is for texts. `record` is that of the element.
    Content(const char* name, const Element& element, void* record);

    /// A child that may stand here.
    struct Place {
        std::size_t row;
        std::size_t count;                 ///< children of this row before it
        std::vector<std::size_t> missing;  ///< rows of required children that it passes
    };
    /// The position of a child of that name; `row` is the number of rows if it may not follow. Chooses the alternative that
    /// it belongs to.
    Place find(std::string_view local);
    /// The child at that place follows.
    void take(Place place);
    const Child* row(std::size_t index) const { return index < rows_.size() ? &rows_[index] : nullptr; }
    /// The row for a child that an earlier `take` passed, since it comes after a later one, once; else null.
    const Child* takePassed(std::string_view local);
    /// An element that cannot be read counts as the child that its name resembles, so that this one is not missing too.
    void takeAsMeant(std::string_view local);

    /// Whether a child of that name is allowed anywhere in the element.
    bool allows(std::string_view local) const;
    /// Whether the element may end here.
    bool mayEnd() const;
    /// "<a>, <b> or the end of <parent>".
    std::string expected() const;

    /// The record of the children.
    void* record() const { return rowsRecord_; }

private:
    bool undecided_() const { return !element_->alternatives.empty() && !rowsRecord_; }
    std::size_t countOf_(std::size_t index) const { return index == row_ ? count_ : 0; }
    template <class IsIt>
    std::size_t nextRow_(std::span<const Child> rows, IsIt isIt) const;
    template <class IsIt>
    void decide_(IsIt isIt);
    void addExpected_(std::span<const Child> rows, std::vector<std::string>& names) const;

    const char* name_;
    const Element* element_;
    void* record_;
    std::span<const Child> rows_;  ///< empty until the alternative is chosen
    void* rowsRecord_ = nullptr;   ///< the record of `rows_`
    std::size_t row_ = 0;          ///< of the last child
    std::size_t count_ = 0;        ///< children of that row
    std::vector<std::size_t> passed_ = {};
};

}  // namespace xml
