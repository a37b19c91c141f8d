#include "zip/ArchiveError.h"

#include <utility>

zip::ArchiveError::ArchiveError(std::string archive, std::string member, std::string text, Fault fault)
    : HEXFileFault({.file = std::move(archive), .member = std::move(member), .text = std::move(text)}),
      fault_(fault) {}

zip::ArchiveError::~ArchiveError() = default;
