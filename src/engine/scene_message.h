#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

#include "block_pool.h"

namespace grub {

/// A counted handle to an object on the heap; the last handle destroys the object. Several threads may make and drop
/// copies at once, but a single handle belongs to one thread.
template <class T>
class SharedRef {
public:
    SharedRef() = default;
    /// Takes ownership of `object`, which may be null.
    explicit SharedRef(T* object) : object_(object), count_(new std::atomic<std::int32_t>(1)) {}
    SharedRef(const SharedRef& other) noexcept : object_(other.object_), count_(other.count_) { retain(); }
    SharedRef(SharedRef&& other) noexcept
        : object_(std::exchange(other.object_, nullptr)), count_(std::exchange(other.count_, nullptr)) {}
    SharedRef& operator=(SharedRef other) noexcept {
        std::swap(object_, other.object_);
        std::swap(count_, other.count_);
        return *this;
    }
    ~SharedRef() { release(); }  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): as below

    /// Null for an empty handle. The handles keep owning the object.
    [[nodiscard]] T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDelete): the analyzer takes the answers of an atomic count for arbitrary
    void retain() noexcept {
        if (count_) count_->fetch_add(1, std::memory_order_relaxed);
    }
    void release() noexcept {
        if (!count_ || count_->fetch_sub(1, std::memory_order_acq_rel) > 1) return;
        delete object_;
        delete count_;
    }
    // NOLINTEND(clang-analyzer-cplusplus.NewDelete)

    T* object_ = nullptr;
    std::atomic<std::int32_t>* count_ = nullptr;
};

/// Where a message comes from.
enum class MessageSource : std::uint32_t { Window = 0, Keyboard = 1, Mouse = 2 };

/// What a message tells. Pressed and Released serve keys and mouse buttons: look at the source too.
enum class MessageType : std::uint32_t { CloseRequest = 1, Repaint = 2, Pressed = 10, Released = 11, MouseMoved = 20 };

/// What the window's thread tells a scene. Messages travel in a SharedRef and stay as they were made.
struct SceneMessage : PoolAllocated<SceneMessage> {
    SceneMessage(MessageType messageType, MessageSource messageSource) : type(messageType), source(messageSource) {}
    SceneMessage(const SceneMessage&) = delete;
    SceneMessage& operator=(const SceneMessage&) = delete;
    virtual ~SceneMessage() = default;

    const MessageType type;
    const MessageSource source;
};

}  // namespace grub
