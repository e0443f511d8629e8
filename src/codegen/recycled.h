#pragma once

namespace tarn {

/// Objects of one class that are handed out one by one and taken back all at once: the items of a statement, the jump
/// chains of a method. `T` has a field `T* link` for this list's own use. Objects are made in blocks when none is free,
/// are never destroyed, and come back as their last user left them, so buffers that they own stay with them.
template <class T>
class Recycled {
public:
    /// An object in unknown state, good until the next `release`.
    T* take() {
        if (free_ == nullptr) [[unlikely]]
            grow();
        T* object = free_;
        free_ = object->link;
        object->link = inUse_;
        if (inUse_ == nullptr) oldest_ = object;
        inUse_ = object;
        return object;
    }

    /// Takes back all that were handed out, with one splice.
    void release() {
        if (inUse_ == nullptr) return;
        oldest_->link = free_;
        free_ = inUse_;
        inUse_ = nullptr;
    }

private:
    void grow() {
        constexpr int blockLength = 32;
        T* block = new T[blockLength];
        for (int i = 0; i < blockLength; i++) {
            block[i].link = free_;
            free_ = &block[i];
        }
    }

    T* inUse_ = nullptr;  ///< newest first
    T* oldest_ = nullptr; ///< the last of `inUse_`
    T* free_ = nullptr;
};

} // namespace tarn
