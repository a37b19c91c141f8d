#pragma once
#include <exception>
#include <string>

#include "msg/ComMsgMgr.h"
#include "text/ZrApi.h"

/// Root of the library's exceptions. Carries a message: one of the catalogue, or plain words.
class ZR_API HEXAll : public std::exception {
public:
    explicit HEXAll(ComMsgMgrInstance message);
    explicit HEXAll(std::string words, std::source_location where = std::source_location::current());
    ~HEXAll() override;
    const char* what() const noexcept override { return message_.text.c_str(); }
    const ComMsgMgrInstance& message() const { return message_; }

private:
    ComMsgMgrInstance message_;
};

/// An error of no narrower kind.
class ZR_API HEXError : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXError() override;
};
/// A problem in the user's environment: a file that cannot be read or written.
class ZR_API HEXUserException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXUserException() override;
};
/// A file that was named does not exist; the words are its path.
class ZR_API HEXFileNotFoundException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXFileNotFoundException() override;
};
/// Malformed input.
class ZR_API HEXDataException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXDataException() override;
};
/// A broken internal state, or an operation used against its rules.
class ZR_API HEXAlgException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HEXAlgException() override;
};
/// A failed XML write or read.
class ZR_API HXMLException : public HEXAll {
public:
    using HEXAll::HEXAll;
    ~HXMLException() override;
};
