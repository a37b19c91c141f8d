#pragma once

/// A forward iterator, made by the `create...Iter` operations of the model. The caller deletes it, before the object
/// that made it is destroyed and before that object's list changes.
///
///     std::unique_ptr<HSTFwdIter<HTEQSystemClock*>> it(platform.createSystemClockIter());
///     while (it->hasNext()) use(it->next());
template <class T>
class HSTFwdIter {
public:
    virtual ~HSTFwdIter() = default;
    /// Whether there is another element.
    virtual bool hasNext() const = 0;
    /// The next element. Call only after `hasNext` has returned true.
    virtual T next() = 0;
};
