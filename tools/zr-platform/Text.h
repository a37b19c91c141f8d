#pragma once
#include <boost/json/object.hpp>
#include <string>
#include <vector>

#include "Console.h"

/// A description for human readers, headings, "name  value" lines and tables, and the same as a record: a key for each
/// heading, with a key for each line and each table below it.
class Text {
public:
    /// A text for people; a record is made besides if it is asked for.
    explicit Text(bool isRecord) : isRecord_(isRecord) {}

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
    /// Whether the record takes another item of a table: one holds at most 10,000, and says how many more there are.
    bool takes(const boost::json::array& items) const { return isRecord_ && items.size() < kMaxItems; }
    /// A paragraph at the end of the text.
    void warning(const std::string& text);

    /// The text, after the line `summary`.
    std::string str(const std::string& summary = "") const;
    /// The record, which is empty afterwards.
    boost::json::object takeRecord(const std::string& summary);

private:
    static constexpr std::size_t kMaxItems = 10'000;
    boost::json::object& section();

    const bool isRecord_;
    std::string text_, key_, item_;
    std::vector<std::string> warnings_;
    boost::json::object record_;
};

inline std::string yesNo(bool value) { return value ? "yes" : "no"; }
