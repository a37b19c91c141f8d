#pragma once
#include "text/HSTFwdIter.h"

/// `HSTFwdIter` over a range of a standard container, which keeps ownership of the elements.
template <class T, class Iterator>
class HSTFwdSTLIter final : public HSTFwdIter<T> {
public:
    HSTFwdSTLIter(Iterator begin, Iterator end) : at_(begin), end_(end) {}
    bool hasNext() const override { return at_ != end_; }
    T next() override { return *at_++; }

private:
    Iterator at_, end_;
};
