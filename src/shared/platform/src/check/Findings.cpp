#include "check/Findings.h"

#include <iterator>

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
    finding.text = HSTStringUtils::printable(finding.text);
    list_.push_back(std::move(finding));
}

void Findings::append(Findings&& others) {
    list_.insert(list_.end(), std::make_move_iterator(others.list_.begin()),
                 std::make_move_iterator(others.list_.end()));
}

}  // namespace check
