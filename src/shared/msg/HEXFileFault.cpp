#include "msg/HEXFileFault.h"

#include <fmt/core.h>

#include <utility>

#include "text/HSTStringUtils.h"

std::string FileProblem::describe() const {
    std::string place = member.empty() ? file : file + "!" + HSTStringUtils::printable(member);
    if (line > 0) place += fmt::format(":{}", line);
    if (line > 0 && column > 0) place += fmt::format(":{}", column);
    return place.empty() ? text : place + ": " + text;
}

HEXFileFault::HEXFileFault(FileProblem problem)
    : HEXDataException(problem.describe()), problem_(std::move(problem)) {}

HEXFileFault::~HEXFileFault() = default;
