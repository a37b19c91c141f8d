#include "msg/HEXAll.h"

#include <utility>

HEXAll::HEXAll(ComMsgMgrInstance message) : message_(std::move(message)) {}

HEXAll::HEXAll(std::string words, std::source_location where)
    : message_{"platform", "", MsgMask::error, {}, std::move(words), where} {}

// Out of line, so that each type's identity lives in this library alone.
HEXAll::~HEXAll() = default;
HEXError::~HEXError() = default;
HEXUserException::~HEXUserException() = default;
HEXFileNotFoundException::~HEXFileNotFoundException() = default;
HEXDataException::~HEXDataException() = default;
HEXAlgException::~HEXAlgException() = default;
HXMLException::~HXMLException() = default;
