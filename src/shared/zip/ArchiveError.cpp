#include "zip/ArchiveError.h"

#include <fmt/core.h>

#include <utility>

#include "text/HSTStringUtils.h"

zip::ArchiveError::ArchiveError(std::string archive, std::string member, std::string text, Fault fault)
    : HEXDataException(member.empty() ? fmt::format("{}: {}", archive, text)
                                      : fmt::format("{}!{}: {}", archive, HSTStringUtils::printable(member), text)),
      archive_(std::move(archive)),
      member_(std::move(member)),
      text_(std::move(text)),
      fault_(fault) {}

zip::ArchiveError::~ArchiveError() = default;
