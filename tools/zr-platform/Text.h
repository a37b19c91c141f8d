#pragma once
#include <string>
#include <vector>

#include "Console.h"

/// A description for human readers: headings, "name  value" lines, tables.
class Text {
public:
    void heading(const std::string& title);
    /// A line under the heading; nothing if `value` is empty.
    void line(const std::string& name, const std::string& value);
    void note(const std::string& text);
    /// A table under a title; nothing without rows.
    void rows(const std::string& title, const std::vector<std::string>& columns,
              const std::vector<std::vector<std::string>>& rows);
    const std::string& str() const { return text_; }

private:
    std::string text_;
};

inline std::string yesNo(bool value) { return value ? "yes" : "no"; }
