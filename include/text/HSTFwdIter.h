#pragma once

/// A walk from the first element to the last, made by the `create...Iter` operations of the model. The caller deletes
/// it, before the object that made it goes and before that object's list changes.
///
///     std::unique_ptr<HSTFwdIter<HTEQSystemClock*>> it(platform.createSystemClockIter());
///     while (it->hasNext()) use(it->next());
template <class T>
class HSTFwdIter {
public:
    virtual ~HSTFwdIter() = default;
    /// Whether `next` has another element to give.
    virtual bool hasNext() const = 0;
    /// The next element. Only after `hasNext` has answered true.
    virtual T next() = 0;
};
