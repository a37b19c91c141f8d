#pragma once
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "text/HSTFwdSTLIter.h"

/// A list that owns what it points to, in the order of insertion. Pointers stay valid until their object is removed
/// or the list is destroyed. The caller deletes only the iterators.
///
///     Owned<HTEQSystemClock> clocks_;
///     HTEQSystemClock* byName = clocks_.last([&](const HTEQSystemClock& c) { return c.getName() == name; });
template <class T>
class Owned {
public:
    Owned() = default;
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { clear(); }

    /// Appends a new object constructed from `args`.
    template <class... Args>
    T* add(Args&&... args) {
        return take(std::make_unique<T>(std::forward<Args>(args)...));
    }
    /// Appends `object` and takes ownership.
    T* take(std::unique_ptr<T> object) {
        items_.push_back(object.get());
        return object.release();
    }
    /// The same at the front of the list.
    T* takeFirst(std::unique_ptr<T> object) {
        items_.insert(items_.begin(), object.get());
        return object.release();
    }
    /// Removes and deletes `object`. False if it is not in the list.
    bool remove(const T* object) {
        for (auto it = items_.begin(); it != items_.end(); ++it) {
            if (*it != object) continue;
            items_.erase(it);
            delete object;
            return true;
        }
        return false;
    }
    /// Removes and deletes every object for which `pred(const T&)` holds, in one pass.
    template <class Pred>
    void removeAll(Pred pred) {
        std::erase_if(items_, [&](T* object) {
            const bool goes = pred(std::as_const(*object));
            if (goes) delete object;
            return goes;
        });
    }
    void clear() {
        for (const T* object : std::exchange(items_, {})) delete object;
    }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }
    std::size_t size() const { return items_.size(); }
    bool empty() const { return items_.empty(); }
    const std::vector<T*>& items() const { return items_; }

    /// The first object for which `pred(const T&)` holds, or null.
    template <class Pred>
    T* first(Pred pred) const {
        for (T* object : items_)
            if (pred(std::as_const(*object))) return object;
        return nullptr;
    }
    /// The last object for which `pred(const T&)` holds, or null.
    template <class Pred>
    T* last(Pred pred) const {
        for (auto it = items_.rbegin(); it != items_.rend(); ++it)
            if (pred(std::as_const(**it))) return *it;
        return nullptr;
    }

    /// An iterator over the objects; the caller deletes it before the list changes.
    HSTFwdIter<T*>* makeIter() const {
        using At = typename std::vector<T*>::const_iterator;
        return new HSTFwdSTLIter<T*, At>(items_.begin(), items_.end());
    }

private:
    std::vector<T*> items_;
};
