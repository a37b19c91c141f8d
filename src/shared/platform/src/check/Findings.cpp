#include "check/Findings.h"

#include <utility>

#include "text/HSTStringUtils.h"

namespace check {

void Findings::add(const char* name, const std::string& file, const std::string& member, std::string text) {
    CheckFinding finding;
    finding.file = file;
    finding.member = member;
    finding.name = name;
    finding.text = std::move(text);
    add(std::move(finding));
}

void Findings::add(CheckFinding finding) {
    finding.severity = teq_platform::PlatformCheck::explain(finding.name)->severity;
    finding.text = HSTStringUtils::printable(HSTStringUtils::excerpt(finding.text, kMaxText));
    keep(std::move(finding));
}

void Findings::keep(CheckFinding finding) {
    if (list_.size() < kMaxFindings) {
        list_.push_back(std::move(finding));
        return;
    }
    if (more_++ == 0 || finding.severity > first_.severity) first_ = std::move(finding);
}

void Findings::append(Findings&& others) {
    for (CheckFinding& finding : others.list_) keep(std::move(finding));
    if (others.more_ > 0) addMore(others.more_, std::move(others.first_));
}

void Findings::rename(const std::string& file, const std::string& to) {
    for (CheckFinding& finding : list_)
        if (finding.file == file) finding.file = to;
    if (first_.file == file) first_.file = to;
}

void Findings::addMore(std::size_t count, CheckFinding first) {
    if (count == 0) return;
    first.severity = teq_platform::PlatformCheck::explain(first.name)->severity;
    if (more_ == 0 || first.severity > first_.severity) first_ = std::move(first);
    more_ += count;
}

std::vector<CheckFinding> Findings::take() {
    if (more_ > 0) {
        first_.line = first_.column = 0;
        first_.element.clear();
        first_.text = "and " + std::to_string(more_) + " more findings";
        list_.push_back(std::move(first_));
    }
    return std::move(list_);
}

}  // namespace check
