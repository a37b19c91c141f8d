#pragma once
#include <boost/json/object.hpp>
#include <string>
#include <vector>

#include "Console.h"

/// A description for human readers, headings, "name  value" lines and tables, and the same as a record: a key for each
/// heading, with a key for each line and each table below it.
class Text {
public:
    /// `key`: in the record; by default the title.
    void heading(const std::string& title, const std::string& key = "");
    /// What follows is of one item under the heading; "" ends that. The text does not change.
    void item(const std::string& key) { item_ = key; }
    /// A line under the heading; nothing if `value` is empty.
    void line(const std::string& name, const std::string& value);
    void note(const std::string& text);
    /// A table under a title; nothing without rows. Columns without any text are left out.
    void rows(const std::string& title, const std::vector<std::string>& columns,
              const std::vector<std::vector<std::string>>& rows);
    /// A table whose rows are `items` in the record.
    void rows(const std::string& title, const std::vector<std::string>& columns,
              const std::vector<std::vector<std::string>>& rows, boost::json::array items);
    /// A paragraph at the end of the text.
    void warning(const std::string& text);

    /// The text, after the line `summary`.
    std::string str(const std::string& summary = "") const;
    boost::json::object record(const std::string& summary) const;

private:
    boost::json::object& section();

    std::string text_, key_, item_;
    std::vector<std::string> warnings_;
    boost::json::object record_;
};

inline std::string yesNo(bool value) { return value ? "yes" : "no"; }
